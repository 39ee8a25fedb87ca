// The animals that matter are found first: parents that may still be used, and the parents of those that may become
// parents. Everything else of the herdbook counts only as far as they descend from it.

#include "forecast/model_basis.h"

#include <algorithm>
#include <utility>

#include "planning/candidate_kinship.h"

namespace pedigreewatch {
namespace {

/// Whether the year of birth of an animal is one that its sex may come into use in the first year of the forecast, or
/// later.
bool is_of_entry_age(const ModelBasis& basis, std::int32_t position) {
  const PopulationStore& store = basis.records.store;
  const std::int32_t born = store.birth_year[position];
  return born != 0 && born >= basis.first_candidate_year && born <= basis.records.last_year;
}

/// By position: whether it has had young so far.
ByNumber<Flag> mark_parents(const FamilyRecords& records) {
  ByNumber<Flag> is_parent(records.store.size());
  for (const Family& family : records.families) is_parent[family.sire] = is_parent[family.dam] = 1;
  is_parent[0] = 0;
  return is_parent;
}

/// Positions of the parents whose kinships are needed, each once, in store order.
std::vector<std::int32_t> find_wanted_parents(const ModelBasis& basis) {
  const FamilyRecords& records = basis.records;
  std::vector<std::int32_t> wanted;
  for (std::int32_t year = std::min(basis.first_candidate_year, basis.base.first_alike); year <= records.last_year;
       ++year) {
    for (const Family& family : records.of_year(year)) {
      wanted.push_back(family.sire);
      wanted.push_back(family.dam);
    }
  }
  for (const Sex sex : {male, female}) {
    for (const Career& career : basis.base.careers.of(sex).careers) {
      if (records.last_year - career.last_year() <= longest_pause) wanted.push_back(career.parent);
    }
  }
  std::sort(wanted.begin(), wanted.end());
  wanted.erase(std::unique(wanted.begin(), wanted.end()), wanted.end());
  if (!wanted.empty() && wanted.front() == 0) wanted.erase(wanted.begin());
  return wanted;
}

void make_pedigree(ModelBasis& basis, std::span<const std::int32_t> wanted) {
  const PopulationStore& store = basis.records.store;
  basis.ancestors = pedigree_of(store, wanted);
  basis.pedigree.sire.values = {0};
  basis.pedigree.dam.values = {0};
  basis.pedigree.f.values = {-1.0F};
  basis.pedigree.variance.values = {0.0};
  for (std::int32_t j = 1; j <= basis.ancestors.count(); ++j) {
    add_parent(basis.pedigree, basis.ancestors.sire[j], basis.ancestors.dam[j],
               store.inbreeding[basis.ancestors.position[j]]);
  }
}

void make_table(ModelBasis& basis, std::span<const std::int32_t> wanted) {
  if (wanted.size() > most_table_rows) return;
  const CandidateKinship kinship = make_candidate_kinship(basis.records.store, wanted);
  const std::size_t size = wanted.size() + 1;  // with the origin of imports
  std::vector<float> cells(size * size, 0.0F);
  std::vector<std::int32_t> places(1), animals;
  animals.reserve(wanted.size());
  for (const std::int32_t animal : wanted) animals.push_back(basis.ancestors.number_of_animal[animal]);
  for (std::size_t first = 0; first < wanted.size(); first += kinship_lanes) {
    places.resize(std::min(kinship_lanes, wanted.size() - first));
    for (std::size_t k = 0; k < places.size(); ++k) places[k] = static_cast<std::int32_t>(first + k);
    const std::vector<double> columns = kinship_columns(kinship, places);
    for (std::size_t k = 0; k < places.size(); ++k) {
      for (std::size_t row = 0; row < wanted.size(); ++row) {
        cells[(first + k) * size + row] = static_cast<float>(columns[k * wanted.size() + row]);
      }
    }
  }
  animals.push_back(basis.origin);
  basis.table = make_kinship_table(animals, cells, basis.pedigree.count());
}

float kinship_of_pair(const ModelBasis& basis, std::int32_t sire, std::int32_t dam) {
  return basis.has_table() ? basis.table.between(sire, dam) : near_kinship(basis.pedigree, sire, dam);
}

/// Adds one mating to the counts: where the sire stands among some others of his group that were used that year. Those
/// as near as he is share what he counts for.
void rank_mating(const ModelBasis& basis, const Family& family, std::span<const std::int32_t> sires,
                 RandomStream& random, MateRanks& counts) {
  const auto number = [&](std::int32_t position) { return basis.ancestors.number_of_animal[position]; };
  const float own = kinship_of_pair(basis, number(family.sire), number(family.dam));
  std::size_t below = 0, alike = 1;
  for (std::size_t k = 1; k < looked_at; ++k) {
    const std::int32_t other = sires[random.place_among(sires.size())];
    const float kinship = kinship_of_pair(basis, number(other), number(family.dam));
    if (kinship < own) ++below;
    if (kinship == own) ++alike;
  }
  for (std::size_t k = 0; k < alike; ++k) counts[below + k] += 1.0 / static_cast<double>(alike);
}

/// Ranks of the mates in the base period, drawn towards those of mating at random where there are few matings.
void measure_mate_ranks(ModelBasis& basis, std::uint64_t seed) {
  const FamilyRecords& records = basis.records;
  constexpr double matings_at_random = 8.0;
  MateRanks counts;
  counts.fill(matings_at_random / static_cast<double>(looked_at));
  double matings = matings_at_random;
  for (std::int32_t year = basis.base.first_alike; year <= basis.base.last_year; ++year) {
    RandomStream random = make_stream(seed, 0, year, DrawPurpose::base_period);
    std::vector<std::vector<std::int32_t>> sires(records.groups);
    const auto group = [&](const Family& f) { return records.group[f.sire]; };
    for (const Family& family : records.of_year(year)) {
      if (family.descent() == Descent::known) sires[group(family)].push_back(family.sire);
    }
    for (const Family& family : records.of_year(year)) {
      if (family.descent() != Descent::known) continue;
      rank_mating(basis, family, sires[group(family)], random, counts);
      matings += 1.0;
    }
  }
  for (std::size_t rank = 0; rank < looked_at; ++rank) basis.mate_ranks[rank] = counts[rank] / matings;
}

void sort_entries(ModelBasis& basis) {
  basis.sire_entries.resize(basis.base.years.size());
  for (const std::int32_t number : basis.base.entries.of_males) {
    const Career& career = basis.base.careers.of_males.at(number);
    if (career.first_year < basis.base.first_alike || career.first_year > basis.base.last_year) continue;
    basis.sire_entries[basis.base.place_of(career.first_year)].push_back({career.group, number});
  }
  for (std::vector<GroupEntry>& entries : basis.sire_entries) {
    std::stable_sort(entries.begin(), entries.end(),
                     [](const GroupEntry& a, const GroupEntry& b) { return a.group < b.group; });
  }
}

void gather_active(ModelBasis& basis) {
  for (const Sex sex : {male, female}) {
    const CareerRecords& careers = basis.base.careers.of(sex);
    for (std::int32_t k = 0; k < std::ssize(careers.careers); ++k) {
      const Career& career = careers.at(k);
      if (basis.records.last_year - career.last_year() > longest_pause) continue;
      basis.active.of(sex).push_back({basis.ancestors.number_of_animal[career.parent], k, career.last_year()});
    }
  }
}

void gather_candidates_of_years(ModelBasis& basis) {
  const FamilyRecords& records = basis.records;
  const PopulationStore& store = records.store;
  const ByNumber<Flag> is_parent = mark_parents(records);
  const std::size_t lists = lists_of(records.groups);
  basis.candidates.assign(basis.row_of(records.last_year) + 1,
                          {std::vector<Candidates>(lists), std::vector<std::int32_t>(lists)});
  RandomStream random = make_stream(0);
  for (std::int32_t position = 1; position <= store.animal_count; ++position) {
    if (!is_of_entry_age(basis, position)) continue;
    const Descent descent = descent_of(store, position);
    const Sex drawn = random.chance(basis.base.male_share[descent]) ? male : female;
    const Sex sex = records.are_sexes_known ? store.sex[position] : drawn;
    CandidateYear& year = basis.candidates[basis.row_of(store.birth_year[position])];
    const std::size_t list = list_of(records.group[position], sex, descent);
    ++year.born[list];
    if (is_parent[position] == 0) year.lists[list].push_back(-position);
  }
}

void note_last_litters(ModelBasis& basis) {
  basis.last_litter = ByNumber<std::int32_t>(basis.pedigree.count());
  for (const Family& family : basis.records.families) {  // from the first year on, so that the last one stays
    for (const std::int32_t parent : {family.sire, family.dam}) {
      basis.last_litter[basis.ancestors.number_of_animal[parent]] = family.year;
    }
  }
  basis.last_litter[0] = 0;
}

/// Leaves in the table whom replicates ask for: those that may still have young, and parents of those that may become
/// parents. The others were needed for the ranks of mates.
void shorten_table(ModelBasis& basis) {
  if (!basis.has_table()) return;
  ByNumber<Flag> is_wanted(basis.pedigree.count());
  for (const Sex sex : {male, female}) {
    for (const ActiveParent& active : basis.active.of(sex)) is_wanted[active.animal] = 1;
  }
  std::vector<std::int32_t> animals;
  for (const std::int32_t animal : basis.table.animal_of) {
    if (animal == 0) continue;
    const bool has_young_candidates = basis.last_litter[animal] >= basis.first_candidate_year;
    if (has_young_candidates || is_wanted[animal] != 0 || animal == basis.origin) animals.push_back(animal);
  }
  std::vector<float> cells;
  cells.reserve(animals.size() * animals.size());
  for (const std::int32_t first : animals) {
    for (const std::int32_t second : animals) cells.push_back(basis.table.between(first, second));
  }
  basis.table = make_kinship_table(animals, cells, basis.pedigree.count());
}

}  // namespace

void count_going_on(ModelBasis& basis) {
  const std::vector<std::vector<GroupYear>>& years = basis.base.years;
  for (const Sex sex : {male, female}) {
    std::vector<double>& means = basis.going_on.of(sex);
    means.assign(basis.records.groups, 0.0);
    for (const std::vector<GroupYear>& year : years) {
      for (std::size_t group = 0; group < means.size(); ++group) {
        const std::int32_t before = year[group].in_use.of(sex) - year[group].entered.of(sex);
        means[group] += before / static_cast<double>(years.size());
      }
    }
  }
}

ModelBasis make_model_basis(const FamilyRecords& records, BasePeriod base, std::uint64_t seed) {
  ModelBasis basis{records, std::move(base), {}, {}, 0, {}, {}, {}, {}, 1.0, 0.0, {}, {}, {1.0, 1.0}, {}, {}, 0, {}};
  const std::int32_t oldest = std::max(basis.base.oldest_entry.of_males, basis.base.oldest_entry.of_females);
  basis.first_candidate_year = records.last_year + 1 - oldest;
  const std::vector<std::int32_t> wanted = find_wanted_parents(basis);
  make_pedigree(basis, wanted);
  basis.origin = add_parent(basis.pedigree, 0, 0, f_of_origin(0.0));
  basis.pedigree.variance[basis.origin] = 0.0;
  make_table(basis, wanted);
  measure_mate_ranks(basis, seed);
  basis.nearness_seen = list_nearness_paths(records, basis.base.length());
  count_going_on(basis);
  sort_entries(basis);
  gather_active(basis);
  gather_candidates_of_years(basis);
  note_last_litters(basis);
  shorten_table(basis);
  return basis;
}

}  // namespace pedigreewatch
