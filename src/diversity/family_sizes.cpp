#include "diversity/family_sizes.h"

#include <algorithm>
#include <vector>

#include "core/shares.h"
#include "genetics/ancestor_pedigree.h"

namespace pedigreewatch {
namespace {

/// Offspring of an animal that bred.
struct BredOffspring {
  std::int32_t sons = 0, daughters = 0;
};

/// Whether an animal that bred counts as a sire.
bool is_used_as_sire(const PopulationStore& store, const BySex<ByNumber<Flag>>& uses, std::int32_t position) {
  if (uses.of_males[position] == 0) return false;
  return uses.of_females[position] == 0 || store.sex[position] == male;
}

/// The ages in years between which parents are when their young are born, but for one in twenty at either end.
struct UsualAges {
  std::int32_t early = 0, late = 0;
};

UsualAges usual_ages(const std::vector<std::int64_t>& counts, std::int64_t all) {
  const double most_odd = late_share * static_cast<double>(all);
  UsualAges ages;
  std::int64_t later = all;
  for (std::size_t age = 0; static_cast<double>(later) > most_odd; ++age) {
    if (static_cast<double>(all - later) <= most_odd) ages.early = static_cast<std::int32_t>(age);
    later -= counts[age];
    ages.late = static_cast<std::int32_t>(age);
  }
  return ages;
}

/// None without ages.
std::optional<UsualAges> find_usual_ages(const PopulationStore& store) {
  std::vector<std::int64_t> counts;
  std::int64_t all = 0;
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    const KnownParents parents = known_parents(store, i);
    for (const std::int32_t parent : {parents.sire, parents.dam}) {
      if (parent == 0 || store.birth_year[i] == 0 || store.birth_year[parent] == 0) continue;
      const std::int64_t age = std::max<std::int64_t>(std::int64_t{store.birth_year[i]} - store.birth_year[parent], 0);
      if (age >= std::ssize(counts)) counts.resize(static_cast<std::size_t>(age) + 1, 0);
      ++counts[static_cast<std::size_t>(age)];
      ++all;
    }
  }
  return all == 0 ? std::nullopt : std::optional(usual_ages(counts, all));
}

ByNumber<BredOffspring> count_bred(const PopulationStore& store, const BySex<ByNumber<Flag>>& uses) {
  ByNumber<BredOffspring> bred(store.size());
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    if (uses.of_males[i] == 0 && uses.of_females[i] == 0) continue;
    const bool is_son = is_used_as_sire(store, uses, i);
    for (const std::int32_t parent : {store.sire_no[i], store.dam_no[i]}) {
      ++(is_son ? bred[parent].sons : bred[parent].daughters);
    }
  }
  return bred;
}

double variance_of(double products, double sum, double other_sum, double n) {
  return (products - sum * other_sum / n) / (n - 1.0);
}

FamilySizes describe_families(const std::vector<BredOffspring>& families, std::int32_t years) {
  FamilySizes sizes;
  sizes.parents = std::ssize(families);
  const double n = static_cast<double>(sizes.parents);
  sizes.per_year = n / years;
  if (families.size() < 2) return sizes;
  double sons = 0.0, daughters = 0.0, sons_squared = 0.0, daughters_squared = 0.0, both = 0.0;
  for (const BredOffspring& family : families) {
    const double s = family.sons, d = family.daughters;
    sons += s;
    daughters += d;
    sons_squared += s * s;
    daughters_squared += d * d;
    both += s * d;
  }
  sizes.mean_sons = sons / n;
  sizes.mean_daughters = daughters / n;
  sizes.variance_of_sons = variance_of(sons_squared, sons, sons, n);
  sizes.variance_of_daughters = variance_of(daughters_squared, daughters, daughters, n);
  sizes.covariance = variance_of(both, sons, daughters, n);
  return sizes;
}

/// Which part of the animals that bred, among those that may be young of the complete years, have parents
/// that are known, and in a birth year.
void count_known_parents(const PopulationStore& store, const BySex<ByNumber<Flag>>& uses, const UsualAges& ages,
                         FamilySizeEstimate& estimate) {
  const std::int64_t first = std::int64_t{estimate.first_year} + ages.early;
  const std::int64_t last = std::int64_t{estimate.last_year} + ages.late;
  BySex<std::int64_t> known{0, 0};
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    const std::int32_t year = store.birth_year[i];
    if (year == 0 || year < first || year > last || store.is_import[i] != 0) continue;
    if (uses.of_males[i] == 0 && uses.of_females[i] == 0) continue;
    ++estimate.bred_offspring;
    const KnownParents parents = known_parents(store, i);
    const auto is_known = [&](std::int32_t parent) { return parent != 0 && store.birth_year[parent] != 0; };
    known.of_males += is_known(parents.sire) ? 1 : 0;
    known.of_females += is_known(parents.dam) ? 1 : 0;
  }
  if (estimate.bred_offspring == 0) return;
  for (const Sex sex : {male, female}) {
    estimate.known_parents.of(sex) = share_of(known.of(sex), estimate.bred_offspring);
  }
}

FamilySizeObstacle obstacle_of(const FamilySizeEstimate& estimate) {
  if (!estimate.generation_interval || !(*estimate.generation_interval > 0.0)) return FamilySizeObstacle::no_years;
  for (const Sex sex : {male, female}) {
    if (estimate.of.of(sex).parents < fewest_family_parents) return FamilySizeObstacle::few_parents;
  }
  for (const Sex sex : {male, female}) {
    if (estimate.known_parents.of(sex).value_or(0.0) < least_known_parents) return FamilySizeObstacle::unknown_parents;
  }
  return FamilySizeObstacle::none;
}

}  // namespace

std::optional<double> effective_size_of_families(const BySex<FamilySizes>& of, double generation_interval) {
  const FamilySizes &sires = of.of_males, &dams = of.of_females;
  if (sires.parents < 2 || dams.parents < 2 || !(generation_interval > 0.0)) return std::nullopt;
  const double ratio = sires.per_year / dams.per_year;
  const double of_sires =
      2.0 + sires.variance_of_sons + 2.0 * ratio * sires.covariance + ratio * ratio * sires.variance_of_daughters;
  const double of_dams =
      2.0 + dams.variance_of_sons / (ratio * ratio) + 2.0 / ratio * dams.covariance + dams.variance_of_daughters;
  constexpr double sixteen = 16.0;
  const double inverse = of_sires / (sixteen * sires.per_year * generation_interval) +
                         of_dams / (sixteen * dams.per_year * generation_interval);
  return 1.0 / inverse;
}

FamilySizeEstimate estimate_by_family_sizes(const PopulationStore& store, const GenerationPaths& paths) {
  FamilySizeEstimate estimate;
  estimate.generation_interval = mean_of_paths(paths);
  const std::optional<UsualAges> ages = find_usual_ages(store);
  const BirthYears& years = store.birth_years;
  if (!ages || years.dated_row_count() == 0) return estimate;
  const std::int64_t last = std::int64_t{years.last} - 2 * std::int64_t{ages->late};
  if (last < years.first) return estimate;
  estimate.last_year = static_cast<std::int32_t>(last);
  estimate.first_year = static_cast<std::int32_t>(std::max<std::int64_t>(last - most_complete_years + 1, years.first));
  const BySex<ByNumber<Flag>> uses = mark_uses(store);
  const ByNumber<BredOffspring> bred = count_bred(store, uses);
  BySex<std::vector<BredOffspring>> families;
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    const std::int32_t year = store.birth_year[i];
    if (year == 0 || year < estimate.first_year || year > estimate.last_year) continue;
    if (uses.of_males[i] == 0 && uses.of_females[i] == 0) continue;
    families.of(is_used_as_sire(store, uses, i) ? male : female).push_back(bred[i]);
  }
  const std::int32_t count = estimate.last_year - estimate.first_year + 1;
  for (const Sex sex : {male, female}) estimate.of.of(sex) = describe_families(families.of(sex), count);
  count_known_parents(store, uses, *ages, estimate);
  estimate.obstacle = obstacle_of(estimate);
  if (estimate.obstacle == FamilySizeObstacle::none) {
    estimate.effective_size = effective_size_of_families(estimate.of, *estimate.generation_interval);
  }
  return estimate;
}

}  // namespace pedigreewatch
