// The animals of a year are split by subpopulation, and one sum of relationships between all groups serves the whole
// row.

#include "genetics/subpopulation_kinship.h"

#include "core/integers.h"

namespace pedigreewatch {
namespace {

/// One row of the table while it is filled.
struct KinshipRow {
  const Subpopulations& subpopulations;
  const CohortSubpopulations& split;
  const RelationshipSums& sums;
  YearTable<float>& table;
  Row row;

  /// The group of subpopulation k; -1 when it has no animal in the cohort.
  std::int32_t group_of(std::int32_t k) const { return split.group_of_number[subpopulations.first_numbers.at(k)]; }
  bool is_passed_over(std::int32_t k) const { return group_of(k) < 0 || split.totals[group_of(k)].count <= 1; }
};

/// The pairs of subpopulation k with those behind it, from column `pair_column` on.
void fill_pairs(KinshipRow& at, std::int32_t k, std::int64_t pair_column) {
  const std::int32_t group = at.group_of(k);
  for (std::int32_t l = k + 1; l <= at.subpopulations.count(); ++l, ++pair_column) {
    const std::int32_t other = at.group_of(l);
    if (other < 0) continue;
    const float sum = static_cast<float>(at.sums.between(group, other));
    const std::int64_t pairs = at.split.totals[other].count * at.split.totals[group].count;
    at.table.at(at.row, pair_column) = sum / real(pairs);
  }
}

void fill_row(KinshipRow& at) {
  const std::int32_t last = at.subpopulations.count();
  std::int64_t pair_column = first_pair_column(last);
  for (std::int32_t k = 1; k <= last; ++k) {
    // A subpopulation that is passed over does not move the pairs on: those that follow stand further to the left.
    if (at.is_passed_over(k)) continue;
    const GroupTotal& own = at.split.totals[at.group_of(k)];
    at.table.at(at.row, inbreeding_column(k)) = mean_inbreeding(own);
    at.table.at(at.row, kinship_column(k)) =
        k < last ? kinship_taking_inbreeding_first(own) : kinship_taking_count_first(own);
    fill_pairs(at, k, pair_column);
    pair_column += last - k;
  }
}

}  // namespace

CohortSubpopulations split_cohort(const PopulationStore& store, const Subpopulations& subpopulations,
                                  YearAnimals cohort) {
  CohortSubpopulations split{{cohort, {}, 0}, ByNumber<std::int32_t>(subpopulations.names.entries.size(), -1), {}};
  split.animals.groups.reserve(cohort.size());
  for (const std::int32_t position : cohort) {
    const std::int32_t number = store.subpopulation_no(position);
    std::int32_t& group = split.group_of_number[number];
    if (number != 0 && group < 0) {
      group = split.animals.group_count++;
      split.totals.values.emplace_back();
    }
    if (group >= 0) split.totals[group].add(store.inbreeding[position]);
    split.animals.groups.push_back(group);
  }
  return split;
}

void fill_kinship_row(const Subpopulations& subpopulations, CohortSubpopulations split, const RelationshipSums& sums,
                      Row row, YearTable<float>& table) {
  for (std::int32_t group = 0; group < split.animals.group_count; ++group) {
    split.totals[group].relationship_sum = static_cast<float>(sums.between(group, group));
  }
  KinshipRow at{subpopulations, split, sums, table, row};
  fill_row(at);
}

}  // namespace pedigreewatch
