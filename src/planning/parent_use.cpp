#include "planning/parent_use.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <span>

#include "checks/readable_text.h"
#include "core/shares.h"
#include "diversity/reference_population.h"
#include "genetics/ancestor_pedigree.h"
#include "planning/candidate_kinship.h"

namespace pedigreewatch {
namespace {

std::int64_t births_in(const PopulationStore& store, std::int64_t year) {
  return std::count(store.birth_year.values.begin() + 1, store.birth_year.values.end(), year);
}

/// A parent as far as it stands before the animal.
std::int32_t parent_before(const PopulationStore& store, std::int32_t position, Sex parent) {
  const KnownParents parents = known_parents(store, position);
  return parent == male ? parents.sire : parents.dam;
}

bool is_born_within(const PopulationStore& store, std::int32_t position, std::int64_t first, std::int64_t last) {
  const std::int32_t year = store.birth_year[position];
  return year != 0 && year >= first && year <= last;
}

bool is_in(const PopulationStore& store, const std::optional<std::string>& subpopulation, std::int32_t position) {
  return !subpopulation || readable(store.subpopulation(position).trimmed()) == *subpopulation;
}

/// The age that so many in 100 of the ages do not exceed. They are sorted and not empty.
std::int32_t age_at_rank(std::span<const std::int32_t> ages, std::int64_t in_100) {
  const std::int64_t count = std::ssize(ages);
  const std::int64_t rank = std::max<std::int64_t>(1, (count * in_100 + 99) / 100);
  return ages[static_cast<std::size_t>(rank) - 1];
}

/// Adds the parents of one sex, each with its share.
void add_parents(const PopulationStore& store, std::span<const std::int32_t> offspring, Sex parent, ParentsUsed& use) {
  std::vector<std::int32_t> parents;
  for (const std::int32_t animal : offspring) parents.push_back(parent_before(store, animal, parent));
  std::sort(parents.begin(), parents.end());
  for (auto next = parents.begin(); next != parents.end();) {
    const auto end = std::upper_bound(next, parents.end(), *next);
    use.positions.push_back(*next);
    use.sex.push_back(parent);
    use.shares.push_back(0.5 * static_cast<double>(end - next) / static_cast<double>(offspring.size()));
    next = end;
  }
}

double mean_kinship_of(const PopulationStore& store, const std::vector<std::int32_t>& positions) {
  const CandidateKinship kinship = make_candidate_kinship(store, positions);
  const std::vector<double> shares(positions.size(), 1.0 / static_cast<double>(positions.size()));
  std::vector<double> product(positions.size());
  KinshipScratch scratch = make_kinship_scratch(kinship);
  multiply_kinship(kinship, shares, product, scratch);
  return std::inner_product(shares.begin(), shares.end(), product.begin(), 0.0);
}

/// The line of least squares through points of different `x`, three or more.
YearlyLoss line_through(std::span<const double> x, std::span<const double> y) {
  const double count = static_cast<double>(x.size());
  const double mean_x = std::accumulate(x.begin(), x.end(), 0.0) / count;
  const double mean_y = std::accumulate(y.begin(), y.end(), 0.0) / count;
  double products = 0.0, squares = 0.0;
  for (std::size_t k = 0; k < x.size(); ++k) {
    products += (x[k] - mean_x) * (y[k] - mean_y);
    squares += (x[k] - mean_x) * (x[k] - mean_x);
  }
  const double slope = products / squares;
  double residues = 0.0;
  for (std::size_t k = 0; k < x.size(); ++k) {
    const double residue = y[k] - mean_y - slope * (x[k] - mean_x);
    residues += residue * residue;
  }
  return {slope, std::sqrt(residues / (count - 2.0) / squares)};
}

}  // namespace

std::optional<std::int32_t> last_full_year(const PopulationStore& store) {
  if (store.birth_years.dated_row_count() == 0) return std::nullopt;
  constexpr std::int64_t years_before = 3;
  const std::int64_t last = store.birth_years.last,
                     first = std::max<std::int64_t>(store.birth_years.first, last - years_before);
  if (first == last) return store.birth_years.last;
  std::int64_t before = 0;
  for (std::int64_t year = first; year < last; ++year) before += births_in(store, year);
  const double mean = share_of(before, last - first);
  const bool is_full = static_cast<double>(births_in(store, last)) >= part_of_full_year * mean;
  return static_cast<std::int32_t>(is_full ? last : last - 1);
}

std::int64_t litters_of_year(const PopulationStore& store, std::int32_t year,
                             const std::optional<std::string>& subpopulation) {
  ByNumber<Flag> is_mother(store.size());
  std::int64_t litters = 0;
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    if (!is_born_within(store, i, year, year) || store.dam_no[i] == 0 || !is_in(store, subpopulation, i)) continue;
    Flag& seen = is_mother[store.dam_no[i]];
    if (seen == 0) ++litters;
    seen = 1;
  }
  return litters;
}

std::optional<BreedingAges> breeding_ages(const PopulationStore& store, Sex parent) {
  const std::int64_t last = store.birth_years.last;
  std::vector<std::int32_t> ages;
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    if (!is_born_within(store, i, last - years_of_ages + 1, last)) continue;
    const std::int32_t number = parent_before(store, i, parent);
    if (number == 0 || store.birth_year[number] == 0) continue;
    const std::int64_t age = std::int64_t{store.birth_year[i]} - store.birth_year[number];
    if (age > 0) ages.push_back(static_cast<std::int32_t>(age));
  }
  if (ages.empty()) return std::nullopt;
  std::sort(ages.begin(), ages.end());
  return BreedingAges{age_at_rank(ages, youngest_in_100), age_at_rank(ages, oldest_in_100), std::ssize(ages)};
}

ByNumber<Flag> of_breeding_age_or_younger(const PopulationStore& store) {
  const std::optional<BreedingAges> of_sires = breeding_ages(store, male), of_dams = breeding_ages(store, female);
  ByNumber<Flag> is_so(store.size());
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    const std::optional<BreedingAges>& ages = store.sex[i] == male ? of_sires : of_dams;
    const std::optional<std::int32_t> age = age_at_planned_births(store, i);
    is_so[i] = !ages || (age && *age <= ages->oldest) ? 1 : 0;
  }
  return is_so;
}

std::optional<std::int32_t> age_at_planned_births(const PopulationStore& store, std::int32_t position) {
  const std::int32_t year = store.birth_year[position];
  if (year == 0) return std::nullopt;
  return static_cast<std::int32_t>(std::int64_t{store.birth_years.last} + 1 - year);
}

ParentsUsed parents_used(const PopulationStore& store, std::int32_t first_year, std::int32_t last_year,
                         const std::optional<std::string>& subpopulation) {
  ParentsUsed use{first_year, last_year, 0, {}, {}, {}, 0.0};
  std::vector<std::int32_t> offspring;
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    if (!is_born_within(store, i, first_year, last_year) || !is_in(store, subpopulation, i)) continue;
    if (parent_before(store, i, male) == 0 || parent_before(store, i, female) == 0) continue;
    offspring.push_back(i);
    use.mean_f += double{store.inbreeding[i]};
  }
  use.offspring = std::ssize(offspring);
  if (offspring.empty()) return use;
  use.mean_f /= static_cast<double>(offspring.size());
  for (const Sex parent : {male, female}) add_parents(store, offspring, parent, use);
  return use;
}

bool YearlyLoss::is_clear() const {
  return rate >= least_loss && rate >= least_errors_of_loss * error;
}

std::optional<YearlyLoss> yearly_loss(const PopulationStore& store, std::int32_t last_year,
                                      const std::optional<std::string>& subpopulation) {
  constexpr std::int64_t years = 10;
  constexpr std::size_t least_years = 5;
  std::vector<double> x, y;
  for (std::int64_t year = std::int64_t{last_year} - years + 1; year <= last_year; ++year) {
    if (year < store.birth_years.first) continue;
    std::vector<std::int32_t> born =
        animals_born(store, static_cast<std::int32_t>(year), static_cast<std::int32_t>(year)).positions;
    std::erase_if(born, [&](std::int32_t position) { return !is_in(store, subpopulation, position); });
    if (born.empty()) continue;
    x.push_back(static_cast<double>(year - last_year));
    y.push_back(-std::log1p(-std::min(mean_kinship_of(store, born), 1.0 - 1e-9)));
  }
  return x.size() < least_years ? std::nullopt : std::optional(line_through(x, y));
}

}  // namespace pedigreewatch
