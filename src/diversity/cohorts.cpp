// The animals of one year after the other are counted, whole and by subpopulation; years that belong to one interval
// are added up. Kinship and founders are sums over all genes of a cohort, for each span of years by a pass of its own.

#include "diversity/cohorts.h"

#include <algorithm>
#include <utility>

#include "core/side_by_side.h"
#include "diversity/cohort_genes.h"
#include "diversity/effective_ancestors.h"
#include "diversity/effective_sizes.h"
#include "diversity/reference_pedigree.h"

namespace pedigreewatch {
namespace {

constexpr double rounding = 1e-6;  // of F in single precision

/// Adds `more` to `sums`, item by item, so many times.
template <typename Number, std::size_t Count>
void add_all(std::array<Number, Count>& sums, const std::array<Number, Count>& more, std::int64_t times) {
  for (std::size_t k = 0; k < Count; ++k) sums[k] += static_cast<Number>(times) * more[k];
}

void add(CohortSums& sums, const CohortSums& more, std::int64_t times = 1) {
  const double real_times = static_cast<double>(times);
  sums.animals += times * more.animals;
  sums.inbreeding += real_times * more.inbreeding;
  sums.equivalents += real_times * more.equivalents;
  sums.completeness_index += real_times * more.completeness_index;
  sums.import_shares += real_times * more.import_shares;
  sums.increases += real_times * more.increases;
  sums.increase_count += times * more.increase_count;
  add_all(sums.sire_side, more.sire_side, times);
  add_all(sums.dam_side, more.dam_side, times);
  add_all(sums.classes, more.classes, times);
  sums.both_parents_known += times * more.both_parents_known;
  add_all(sums.born_of, more.born_of, times);
  sums.matings += times * more.matings;
  add_all(sums.matings_of, more.matings_of, times);
}

void add_line(std::array<double, line_generations>& shares, const KnownLine& parent) {
  double places = 1.0;
  for (std::size_t g = 0; g < line_generations; ++g) {
    shares[g] += parent.known[g] / places;
    places *= 2.0;
  }
}

/// What an animal adds to its cohorts. All but the share of imports is the same for litter mates.
struct AnimalShare {
  KnownParents parents;
  CohortSums sums;
  MatingKin kin = MatingKin::distant;
};

AnimalShare share_of(const CohortRequest& request, std::int32_t position) {
  const PopulationStore& store = request.store;
  AnimalShare share;
  share.parents = known_parents(store, position);
  const float inbreeding = store.inbreeding[position];
  const double equivalents = double{store.generation_equivalents[position]};
  const KnownLine &sire = request.lines[share.parents.sire], &dam = request.lines[share.parents.dam];
  CohortSums& sums = share.sums;
  sums.animals = 1;
  sums.inbreeding = double{inbreeding};
  sums.equivalents = equivalents;
  sums.completeness_index = completeness_index(sire, dam);
  if (const auto increase = individual_increase(inbreeding, equivalents)) {
    sums.increases = *increase;
    sums.increase_count = 1;
  }
  add_line(sums.sire_side, sire);
  add_line(sums.dam_side, dam);
  sums.classes[inbreeding_class(inbreeding)] = 1;
  if (share.parents.sire == 0 || share.parents.dam == 0) return share;
  sums.both_parents_known = 1;
  share.kin = kin_of_mating(store, share.parents, inbreeding);
  if (share.kin != MatingKin::distant) sums.born_of[static_cast<std::size_t>(share.kin)] = 1;
  return share;
}

/// A mating of a year in one group of cohorts.
struct YearMating {
  KnownParents parents;
  std::int32_t group = 0;
  MatingKin kin = MatingKin::distant;

  friend bool operator<(const YearMating& a, const YearMating& b) {
    if (a.group != b.group) return a.group < b.group;
    return a.parents.sire != b.parents.sire ? a.parents.sire < b.parents.sire : a.parents.dam < b.parents.dam;
  }
};

/// The sums of one year: those of the whole population in entry 0, and those of the subpopulations by their numbers.
struct YearSums {
  std::vector<CohortSums> groups;
  std::vector<YearMating> matings;  ///< working space
};

void count_matings(YearSums& year) {
  std::sort(year.matings.begin(), year.matings.end());
  const YearMating* last = nullptr;
  for (const YearMating& mating : year.matings) {
    if (last != nullptr && !(*last < mating)) continue;
    last = &mating;
    CohortSums& sums = year.groups[static_cast<std::size_t>(mating.group)];
    ++sums.matings;
    if (mating.kin != MatingKin::distant) ++sums.matings_of[static_cast<std::size_t>(mating.kin)];
  }
}

/// The number of the subpopulation that an animal is counted with; 0 for none.
std::int32_t group_of(const CohortRequest& request, std::int32_t position) {
  return request.store.subpopulation_count() > 1 ? request.store.subpopulation_no(position) : 0;
}

/// Litter mates that are counted alike, until the next animal differs.
struct AlikeAnimals {
  AnimalShare share;
  std::int32_t group = 0;
  std::int64_t count = 0;
};

void add_alike(const AlikeAnimals& alike, YearSums& year) {
  if (alike.count == 0) return;
  const auto add_to = [&](std::int32_t group) {
    add(year.groups[static_cast<std::size_t>(group)], alike.share.sums, alike.count);
    if (alike.share.sums.both_parents_known != 0) {
      year.matings.push_back({alike.share.parents, group, alike.share.kin});
    }
  };
  add_to(0);
  if (alike.group != 0) add_to(alike.group);
}

void sum_year(const CohortRequest& request, YearAnimals animals, YearSums& year) {
  std::fill(year.groups.begin(), year.groups.end(), CohortSums{});
  year.matings.clear();
  AlikeAnimals alike;
  for (const std::int32_t position : animals) {
    const KnownParents parents = known_parents(request.store, position);
    const std::int32_t group = group_of(request, position);
    const double imports = request.import_shares.values.empty() ? 0.0 : double{request.import_shares[position]};
    const bool is_litter_mate = parents.sire != 0 && parents.dam != 0 && parents.sire == alike.share.parents.sire &&
                                parents.dam == alike.share.parents.dam;
    if (is_litter_mate && group == alike.group && imports == alike.share.sums.import_shares) {
      ++alike.count;
      continue;
    }
    add_alike(alike, year);
    if (!is_litter_mate) alike.share = share_of(request, position);
    alike.share.sums.import_shares = imports;
    alike.group = group;
    alike.count = 1;
  }
  add_alike(alike, year);
  count_matings(year);
}

/// The groups that have animals, the whole population first, with a cohort each.
std::vector<Cohort> cohorts_of(const Cohort& span, std::span<const CohortSums> groups) {
  std::vector<Cohort> cohorts;
  for (std::size_t group = 0; group < groups.size(); ++group) {
    if (groups[group].animals == 0) continue;
    Cohort& cohort = cohorts.emplace_back(span);
    cohort.subpopulation = static_cast<std::int32_t>(group);
    cohort.sums = groups[group];
  }
  return cohorts;
}

void put_genes(const GroupGenes& genes, Cohort& cohort) {
  const double animals = static_cast<double>(cohort.sums.animals);
  cohort.kinship_with_self = 0.5 * genes.relationships / (animals * animals);
  cohort.effective_founders = animals * animals / genes.founder_squares;
  if (cohort.sums.animals < 2) return;
  const double with_themselves = animals + cohort.sums.inbreeding;
  const double of_pairs = 0.5 * (genes.relationships - with_themselves) / (animals * (animals - 1.0));
  cohort.kinship_without_self = std::max(0.0, of_pairs);
}

/// Fills kinship and founders of cohorts of the same years, as many at a time as there are lanes.
void describe_genes(const CohortRequest& request, GeneWork& work, std::span<const std::int32_t> animals,
                    std::span<Cohort> cohorts) {
  std::vector<GroupedAnimal> grouped;
  std::vector<std::uint32_t> lanes_of(static_cast<std::size_t>(request.store.subpopulation_count()) + 1, 0);
  for (std::size_t first = 0; first < cohorts.size(); first += gene_lanes) {
    const std::span<Cohort> side_by_side = cohorts.subspan(first, std::min(gene_lanes, cohorts.size() - first));
    grouped.clear();
    std::uint32_t of_all = 0;
    for (std::size_t lane = 0; lane < side_by_side.size(); ++lane) {
      const std::int32_t group = side_by_side[lane].subpopulation;
      (group == 0 ? of_all : lanes_of[static_cast<std::size_t>(group)]) = std::uint32_t{1} << lane;
    }
    for (const std::int32_t position : animals) {
      const std::uint32_t groups = of_all | lanes_of[static_cast<std::size_t>(group_of(request, position))];
      if (groups != 0) grouped.push_back({position, groups});
    }
    for (const Cohort& cohort : side_by_side) lanes_of[static_cast<std::size_t>(cohort.subpopulation)] = 0;
    const std::vector<GroupGenes> genes = sum_genes(work, grouped, side_by_side.size());
    for (std::size_t lane = 0; lane < side_by_side.size(); ++lane) put_genes(genes[lane], side_by_side[lane]);
  }
}

/// The animals born in the years of a cohort, in store order; without those of no birth year.
std::vector<std::int32_t> animals_of(const CohortRequest& request, const Cohort& cohort) {
  const BirthYears& years = request.store.birth_years;
  std::vector<std::int32_t> animals;
  for (std::int32_t row = years.row_of(cohort.first_year); row <= years.row_of(cohort.last_year); ++row) {
    if (years.year_of(row) == 0) continue;
    for (const std::int32_t position : request.years.of_row(row)) {
      if (cohort.subpopulation == 0 || group_of(request, position) == cohort.subpopulation) animals.push_back(position);
    }
  }
  std::sort(animals.begin(), animals.end());
  return animals;
}

void choose_ancestors_of(const CohortRequest& request, std::vector<Cohort>& cohorts) {
  const std::int64_t work = std::int64_t{request.store.animal_count} * std::ssize(cohorts);
  if (work > most_ancestor_work && !request.wants_ancestors) return;
  std::vector<Task> tasks;
  tasks.reserve(cohorts.size());
  for (Cohort& cohort : cohorts) {
    tasks.emplace_back([&request, &cohort] {
      const ReferencePedigree pedigree = make_reference_pedigree(request.store, animals_of(request, cohort));
      cohort.effective_ancestors = choose_ancestors(pedigree).effective_ancestors;
    });
  }
  do_side_by_side(tasks, request.threads);
}

/// What is gathered while the years are gone through.
struct CohortList {
  const CohortRequest& request;
  GeneWork work;
  std::vector<Cohort> years, intervals;
  YearSums year;
  std::vector<CohortSums> interval;     ///< sums of the interval at hand, by group
  std::vector<std::int32_t> positions;  ///< of its animals
};

void end_interval(CohortList& list, std::int32_t first_year, std::int32_t last_year) {
  std::vector<Cohort> cohorts =
      cohorts_of({CohortSpan::interval, first_year, last_year, 0, {}, {}, {}, {}, {}}, list.interval);
  describe_genes(list.request, list.work, list.positions, cohorts);
  list.intervals.insert(list.intervals.end(), cohorts.begin(), cohorts.end());
  std::fill(list.interval.begin(), list.interval.end(), CohortSums{});
  list.positions.clear();
}

void add_year(CohortList& list, std::int32_t year, YearAnimals animals) {
  sum_year(list.request, animals, list.year);
  std::vector<Cohort> cohorts = cohorts_of({CohortSpan::year, year, year, 0, {}, {}, {}, {}, {}}, list.year.groups);
  describe_genes(list.request, list.work, animals, cohorts);
  list.years.insert(list.years.end(), cohorts.begin(), cohorts.end());
  if (list.request.interval_years <= 0) return;
  for (std::size_t group = 0; group < list.interval.size(); ++group) add(list.interval[group], list.year.groups[group]);
  list.positions.insert(list.positions.end(), animals.begin(), animals.end());
}

}  // namespace

std::size_t inbreeding_class(float inbreeding) {
  constexpr std::array<double, inbreeding_classes - 1> bounds = {0.0, 0.0625, 0.125, 0.25};
  std::size_t place = 0;
  while (place < bounds.size() && double{inbreeding} > bounds[place] + rounding) ++place;
  return place;
}

std::optional<double> Cohort::founder_genomes() const {
  if (!kinship_with_self) return std::nullopt;
  return 0.5 / *kinship_with_self;
}

std::optional<double> Cohort::gene_diversity() const {
  if (!kinship_with_self) return std::nullopt;
  return 1.0 - *kinship_with_self;
}

std::optional<double> Cohort::lost_by_founders() const {
  if (!effective_founders) return std::nullopt;
  return 0.5 / *effective_founders;
}

std::optional<double> Cohort::lost_since() const {
  if (!kinship_with_self || !effective_founders) return std::nullopt;
  return *kinship_with_self - 0.5 / *effective_founders;
}

std::optional<double> Cohort::mean_increase() const {
  if (sums.increase_count == 0) return std::nullopt;
  return sums.increases / static_cast<double>(sums.increase_count);
}

std::optional<double> Cohort::effective_size() const {
  EffectiveSizeEstimate estimate;
  estimate.mean_increase = mean_increase();
  complete_estimate(estimate, std::nullopt);
  return estimate.effective_size;
}

std::vector<Cohort> describe_cohorts(const CohortRequest& request) {
  const PopulationStore& store = request.store;
  const AncestorPedigree ancestors = make_ancestor_pedigree(store);
  const std::size_t groups = static_cast<std::size_t>(store.subpopulation_count()) + 1;
  CohortList list{request, make_gene_work(store, ancestors), {}, {}, {}, std::vector<CohortSums>(groups), {}};
  list.year.groups.resize(groups);
  const BirthYears& years = store.birth_years;
  const std::int32_t rows = years.dated_row_count(), length = std::max(request.interval_years, 1);
  std::int32_t first_row = 1;  // of the interval
  for (std::int32_t row = 1; row <= rows; ++row) {
    const YearAnimals animals = request.years.of_row(row);
    if (!animals.empty() && years.year_of(row) != 0) add_year(list, years.year_of(row), animals);
    if (request.interval_years <= 0 || (rows - row) % length != 0) continue;
    if (!list.positions.empty()) end_interval(list, years.year_of(first_row), years.year_of(row));
    first_row = row + 1;
  }
  std::vector<Cohort> cohorts = std::move(list.years);
  cohorts.insert(cohorts.end(), list.intervals.begin(), list.intervals.end());
  choose_ancestors_of(request, cohorts);
  return cohorts;
}

}  // namespace pedigreewatch
