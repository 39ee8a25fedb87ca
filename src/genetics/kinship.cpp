// Each year's animals are split into groups that do not overlap; one upward pass carries all groups as lanes side by
// side. For the whole cohort these are the fathers, the mothers and the animals that are neither; then follow the
// subpopulations.

#include "genetics/kinship.h"

#include <algorithm>

#include "core/line_writer.h"
#include "core/memory_hints.h"
#include "core/wording.h"

namespace pedigreewatch {
namespace {

constexpr Wording compute_kinships = {"compute kinships for year", "bereken verwantschappen voor jaar "};

/// The within-family variance of an animal; an unknown parent counts as 1 more and has no F.
double within_family_variance(double sire_f, double dam_f, int unknown_parents) {
  return (2.0 + unknown_parents - sire_f - dam_f) * 0.25;
}

double variance_of_parents(const PopulationStore& store, const AncestorPedigree& ancestors, ParentNumbers parents) {
  const auto f_of = [&](std::int32_t number) {
    return number == 0 ? 0.0
                       : static_cast<double>(store.at(ancestors.position[static_cast<std::size_t>(number)]).inbreeding);
  };
  return within_family_variance(f_of(parents.sire), f_of(parents.dam),
                                (parents.sire == 0 ? 1 : 0) + (parents.dam == 0 ? 1 : 0));
}

/// The groups of a cohort as a whole.
enum CohortGroup : std::int32_t { neither_parent, fathers, mothers, cohort_groups };

std::vector<std::int32_t> group_by_parenthood(const PopulationStore& store, std::span<const std::int32_t> cohort) {
  std::vector<std::int32_t> groups;
  groups.reserve(cohort.size());
  for (const std::int32_t position : cohort) {
    const AnimalRecord& animal = store.at(position);
    const CohortGroup of_parent = animal.sex == male ? fathers : mothers;
    groups.push_back(is_true(animal.is_native_parent) ? of_parent : neither_parent);
  }
  return groups;
}

/// Number of animals and sum of F of a group, in single precision.
struct GroupTotal {
  std::int64_t count = 0;
  float inbreeding_sum = 0.0F;
  float relationship_sum = 0.0F;

  void add(float inbreeding) {
    ++count;
    inbreeding_sum += inbreeding;
  }
};

float pairs_of(std::int64_t count) {
  return static_cast<float>(count * (count - 1));
}

/// The mean relationship of different animals: the diagonal, count + sum of F, is taken away. The two orders of
/// subtraction differ in the last digit.
float mean_taking_inbreeding_first(const GroupTotal& group) {
  return ((group.relationship_sum - group.inbreeding_sum) - static_cast<float>(group.count)) / pairs_of(group.count);
}

float mean_taking_count_first(const GroupTotal& group) {
  return ((group.relationship_sum - static_cast<float>(group.count)) - group.inbreeding_sum) / pairs_of(group.count);
}

GroupTotal total_of(const PopulationStore& store, std::span<const std::int32_t> cohort,
                    std::span<const std::int32_t> groups, std::initializer_list<CohortGroup> wanted,
                    const RelationshipSums& sums) {
  GroupTotal total;
  for (std::size_t i = 0; i < cohort.size(); ++i) {
    const bool is_wanted = std::find(wanted.begin(), wanted.end(), groups[i]) != wanted.end();
    if (is_wanted) total.add(store.at(cohort[i]).inbreeding);
  }
  double sum = 0.0;
  for (const CohortGroup g : wanted) {
    for (const CohortGroup h : wanted) sum += sums.between(static_cast<std::size_t>(g), static_cast<std::size_t>(h));
  }
  total.relationship_sum = static_cast<float>(sum);
  return total;
}

void cohort_kinship(const PopulationStore& store, const AncestorPedigree& ancestors,
                    std::span<const std::int32_t> cohort, std::int64_t row, KinshipScratch& scratch,
                    YearTable<float>& table) {
  const std::vector<std::int32_t> groups = group_by_parenthood(store, cohort);
  const RelationshipSums sums = sum_relationships(store, ancestors, cohort, groups, cohort_groups, scratch);
  const GroupTotal all = total_of(store, cohort, groups, {neither_parent, fathers, mothers}, sums);
  table.at(row, mean_inbreeding) = all.inbreeding_sum / static_cast<float>(all.count);
  table.at(row, kinship_with_self) = all.relationship_sum / static_cast<float>(all.count * all.count);
  if (all.count <= 1) return;
  table.at(row, kinship_without_self) = mean_taking_inbreeding_first(all);
  const GroupTotal parents = total_of(store, cohort, groups, {fathers, mothers}, sums);
  if (parents.count <= 1) return;
  table.at(row, kinship_of_parents) = mean_taking_count_first(parents);
  const GroupTotal sires = total_of(store, cohort, groups, {fathers}, sums);
  if (sires.count > 1) table.at(row, kinship_of_fathers) = mean_taking_count_first(sires);
  const GroupTotal dams = total_of(store, cohort, groups, {mothers}, sums);
  if (dams.count > 1) table.at(row, kinship_of_mothers) = mean_taking_count_first(dams);
}

/// The subpopulations of one cohort: those that have animals in it, numbered in the order they are met.
struct CohortSubpopulations {
  std::vector<std::int32_t> group_of_member;  ///< lane of each member, -1 for none
  std::vector<std::int32_t> lane_of_group;    ///< by subpopulation group; -1 without members
  std::vector<GroupTotal> totals;             ///< by lane
};

CohortSubpopulations split_cohort(const PopulationStore& store, const SubpopulationMembership& membership,
                                  std::span<const std::int32_t> cohort) {
  CohortSubpopulations split;
  split.lane_of_group.assign(membership.names_of_group.size(), -1);
  split.group_of_member.reserve(cohort.size());
  for (const std::int32_t position : cohort) {
    const std::int32_t group = membership.of_animal(position);
    if (group == 0) {
      split.group_of_member.push_back(-1);
      continue;
    }
    std::int32_t& lane = split.lane_of_group[static_cast<std::size_t>(group)];
    if (lane < 0) {
      lane = static_cast<std::int32_t>(split.totals.size());
      split.totals.emplace_back();
    }
    split.totals[static_cast<std::size_t>(lane)].add(store.at(position).inbreeding);
    split.group_of_member.push_back(lane);
  }
  return split;
}

/// One subpopulation's part of a row; nothing when it has at most one animal in the cohort.
const GroupTotal* total_of_name(const CohortSubpopulations& split, const SubpopulationMembership& membership,
                                std::int64_t k) {
  const std::int32_t group = membership.group_of_name[static_cast<std::size_t>(k) - 1];
  const std::int32_t lane = split.lane_of_group[static_cast<std::size_t>(group)];
  return lane < 0 ? nullptr : &split.totals[static_cast<std::size_t>(lane)];
}

void subpopulation_kinship(const PopulationStore& store, const AncestorPedigree& ancestors,
                           const SubpopulationMembership& membership, std::span<const std::int32_t> cohort,
                           std::int64_t row, KinshipScratch& scratch, YearTable<float>& table) {
  CohortSubpopulations split = split_cohort(store, membership, cohort);
  const RelationshipSums sums =
      sum_relationships(store, ancestors, cohort, split.group_of_member, split.totals.size(), scratch);
  for (std::size_t lane = 0; lane < split.totals.size(); ++lane) {
    split.totals[lane].relationship_sum = static_cast<float>(sums.between(lane, lane));
  }
  const std::int64_t last = static_cast<std::int64_t>(membership.group_of_name.size());
  const auto lane_of = [&](const GroupTotal* total) { return static_cast<std::size_t>(total - split.totals.data()); };
  std::int64_t pair_column = 2 * last + 1;
  for (std::int64_t k = 1; k < last; ++k) {
    const GroupTotal* const own = total_of_name(split, membership, k);
    // A subpopulation that is passed over does not move the pairs on: those that follow stand further to the left.
    if (own == nullptr || own->count <= 1) continue;
    table.at(row, 2 * k - 1) = own->inbreeding_sum / static_cast<float>(own->count);
    table.at(row, 2 * k) = 0.5F * mean_taking_inbreeding_first(*own);
    for (std::int64_t l = k + 1; l <= last; ++l, ++pair_column) {
      const GroupTotal* const other = total_of_name(split, membership, l);
      if (other == nullptr) continue;
      const float sum = static_cast<float>(sums.between(lane_of(own), lane_of(other)));
      table.at(row, pair_column) = sum / static_cast<float>(other->count * own->count);
    }
  }
  const GroupTotal* const own = total_of_name(split, membership, last);
  if (own == nullptr || own->count <= 1) return;
  table.at(row, 2 * last - 1) = own->inbreeding_sum / static_cast<float>(own->count);
  table.at(row, 2 * last) = 0.5F * mean_taking_count_first(*own);
}

/// Lanes that one pass carries side by side.
constexpr std::size_t lane_limit = 16;

/// The groups of each upward pass. With many groups a pass carries two blocks of them, so that every two groups meet
/// in one pass.
std::vector<std::vector<std::size_t>> plan_passes(std::size_t group_count) {
  std::vector<std::vector<std::size_t>> passes;
  const auto add_block = [&](std::vector<std::size_t>& pass, std::size_t from, std::size_t size) {
    for (std::size_t g = from; g < std::min(from + size, group_count); ++g) pass.push_back(g);
  };
  if (group_count <= lane_limit) {
    add_block(passes.emplace_back(), 0, group_count);
    return passes;
  }
  constexpr std::size_t block = lane_limit / 2;
  for (std::size_t first = 0; first < group_count; first += block) {
    for (std::size_t second = first + block; second < group_count; second += block) {
      std::vector<std::size_t>& pass = passes.emplace_back();
      add_block(pass, first, block);
      add_block(pass, second, block);
    }
  }
  return passes;
}

/// The upward passes' view of a cohort.
struct PassMembers {
  std::span<const std::int32_t> positions;
  std::vector<std::int32_t> lanes;  ///< of each member; -1 for one that has no part in this pass
};

/// Puts the members' genes onto their lanes: an ancestor's onto itself, another animal's onto its parents. Adds the
/// part that the other animals have in the sums, and yields the highest ancestor that has a weight.
std::int32_t place_weights(const PopulationStore& store, const AncestorPedigree& ancestors, const PassMembers& members,
                           std::size_t width, std::vector<double>& weights, std::vector<double>& sums) {
  std::int32_t highest = 0;
  const auto add_weight = [&](std::int32_t number, std::size_t lane, double weight) {
    weights[static_cast<std::size_t>(number) * width + lane] += weight;
    highest = std::max(highest, number);
  };
  for (std::size_t i = 0; i < members.positions.size(); ++i) {
    if (members.lanes[i] < 0) continue;
    const std::size_t lane = static_cast<std::size_t>(members.lanes[i]);
    if (const std::int32_t number = ancestors.number_at(members.positions[i]); number > 0) {
      add_weight(number, lane, 1.0);
      continue;
    }
    const ParentNumbers parents = parent_numbers(store, ancestors, members.positions[i]);
    sums[lane * width + lane] += variance_of_parents(store, ancestors, parents);
    add_weight(parents.sire, lane, 0.5);
    add_weight(parents.dam, lane, 0.5);
  }
  return highest;
}

/// Yields the sums within and between the lanes, a square matrix of `width` rows.
std::vector<double> run_upward_pass(const PopulationStore& store, const AncestorPedigree& ancestors,
                                    const PassMembers& members, std::size_t width, KinshipScratch& scratch) {
  std::vector<double> sums(width * width, 0.0);
  std::vector<double>& weights = scratch.weights;
  reserve_large(weights, ancestors.position.size() * width);
  weights.resize(std::max(weights.size(), ancestors.position.size() * width), 0.0);
  const std::int32_t highest = place_weights(store, ancestors, members, width, weights, sums);
  for (std::size_t j = static_cast<std::size_t>(highest); j > 0; --j) {
    if (j > look_ahead) {
      fetch_early(&weights[static_cast<std::size_t>(ancestors.sire[j - look_ahead]) * width]);
      fetch_early(&weights[static_cast<std::size_t>(ancestors.dam[j - look_ahead]) * width]);
    }
    double* const own = &weights[j * width];
    double* const sire = &weights[static_cast<std::size_t>(ancestors.sire[j]) * width];
    double* const dam = &weights[static_cast<std::size_t>(ancestors.dam[j]) * width];
    const double variance = scratch.within_family_variance[j];
    for (std::size_t g = 0; g < width; ++g) {
      if (own[g] == 0.0) continue;
      for (std::size_t h = 0; h <= g; ++h) sums[g * width + h] += own[g] * own[h] * variance;
    }
    for (std::size_t g = 0; g < width; ++g) {  // the unknown parent's entry takes what nobody reads
      sire[g] += 0.5 * own[g];
      dam[g] += 0.5 * own[g];
      own[g] = 0.0;
    }
  }
  std::fill_n(weights.begin(), width, 0.0);
  for (std::size_t g = 0; g < width; ++g) {
    for (std::size_t h = 0; h < g; ++h) sums[h * width + g] = sums[g * width + h];
  }
  return sums;
}

}  // namespace

std::int64_t kinship_column_count(std::int64_t subpopulation_count) {
  return subpopulation_count * (subpopulation_count - 1) / 2 + 2 * subpopulation_count;
}

KinshipScratch make_kinship_scratch(const PopulationStore& store, const AncestorPedigree& ancestors) {
  KinshipScratch scratch;
  scratch.within_family_variance.reserve(ancestors.position.size());
  for (std::size_t j = 0; j < ancestors.position.size(); ++j) {
    scratch.within_family_variance.push_back(
        variance_of_parents(store, ancestors, {ancestors.sire[j], ancestors.dam[j]}));
  }
  return scratch;
}

RelationshipSums sum_relationships(const PopulationStore& store, const AncestorPedigree& ancestors,
                                   std::span<const std::int32_t> members, std::span<const std::int32_t> group_of_member,
                                   std::size_t group_count, KinshipScratch& scratch) {
  RelationshipSums result{group_count, std::vector<double>(group_count * group_count, 0.0)};
  PassMembers pass_members{members, std::vector<std::int32_t>(members.size())};
  for (const std::vector<std::size_t>& groups : plan_passes(group_count)) {
    std::vector<std::int32_t> lane_of_group(group_count, -1);
    for (std::size_t lane = 0; lane < groups.size(); ++lane) {
      lane_of_group[groups[lane]] = static_cast<std::int32_t>(lane);
    }
    for (std::size_t i = 0; i < members.size(); ++i) {
      const std::int32_t group = group_of_member[i];
      pass_members.lanes[i] = group < 0 ? -1 : lane_of_group[static_cast<std::size_t>(group)];
    }
    const std::vector<double> sums = run_upward_pass(store, ancestors, pass_members, groups.size(), scratch);
    for (std::size_t g = 0; g < groups.size(); ++g) {
      for (std::size_t h = 0; h < groups.size(); ++h) {
        result.sums[groups[g] * group_count + groups[h]] = sums[g * groups.size() + h];
      }
    }
  }
  return result;
}

void compute_kinship_by_year(const PopulationStore& store, const AncestorPedigree& ancestors, const YearGroups& years,
                             const SubpopulationMembership* membership, YearTable<float>& inbreeding_table,
                             YearTable<float>& kinship_table, TextOutput& console) {
  KinshipScratch scratch = make_kinship_scratch(store, ancestors);
  for (std::int64_t row = 1; row <= store.birth_years.row_count(); ++row) {
    const std::int32_t year = store.birth_years.year_of(row);
    write_free_line(console, {compute_kinships, year});
    const std::span<const std::int32_t> cohort = years.of_row(row);
    if (cohort.empty() || year == 0) continue;  // an animal without a birth year belongs to no cohort
    cohort_kinship(store, ancestors, cohort, row, scratch, inbreeding_table);
    if (membership != nullptr) {
      subpopulation_kinship(store, ancestors, *membership, cohort, row, scratch, kinship_table);
    }
  }
}

}  // namespace pedigreewatch
