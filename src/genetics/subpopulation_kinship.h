// Mean inbreeding and kinship within each subpopulation, and mean relationships between each two, in one birth year.
#pragma once

#include <cstdint>
#include <optional>

#include "core/by_number.h"
#include "core/year_table.h"
#include "genetics/group_kinship.h"
#include "genetics/relationship_sums.h"
#include "pedigree/data_file_layout.h"
#include "pedigree/year_groups.h"

namespace pedigreewatch {

// The columns of the KinshipTable: two for each subpopulation, and behind those of all of them the mean relationships,
// twice the kinships, of the pairs (1,2), (1,3), ... (2,3), ...
constexpr std::int64_t inbreeding_column(std::int64_t k) {
  return 2 * k - 1;
}
constexpr std::int64_t kinship_column(std::int64_t k) {
  return 2 * k;
}
constexpr std::int64_t first_pair_column(std::int64_t subpopulation_count) {
  return 2 * subpopulation_count + 1;
}
constexpr std::int64_t kinship_column_count(std::int64_t subpopulation_count) {
  return subpopulation_count * (subpopulation_count - 1) / 2 + 2 * subpopulation_count;
}

/// The column that has the pair of the subpopulations k and l, k being the lower one, in a year in which subpopulation
/// m has `animals_of(m)` animals: one with fewer than two moves the pairs of all later ones to the left. Nothing when
/// the year has no figure for the pair.
template <typename AnimalsOf>
std::optional<std::int64_t> column_of_pair(std::int64_t subpopulation_count, std::int32_t k, std::int32_t l,
                                           AnimalsOf&& animals_of) {
  if (animals_of(k) <= 1 || animals_of(l) == 0) return std::nullopt;
  std::int64_t column = first_pair_column(subpopulation_count);
  for (std::int32_t m = 1; m < k; ++m) column += animals_of(m) > 1 ? subpopulation_count - m : 0;
  return column + l - k - 1;
}

/// The subpopulations of one cohort: those that have animals in it, as groups in the order in which they are met.
struct CohortSubpopulations {
  GroupedAnimals animals;
  ByNumber<std::int32_t> group_of_number;  ///< by number of the subpopulation; -1 without animals
  ByNumber<GroupTotal> totals;             ///< by group; without the sum of relationships
};

CohortSubpopulations split_cohort(const PopulationStore& store, const Subpopulations& subpopulations,
                                  YearAnimals cohort);

/// Fills one row from the sums of relationships within and between the groups of its year. A subpopulation with fewer
/// than two animals in the year stays 0.
void fill_kinship_row(const Subpopulations& subpopulations, CohortSubpopulations split, const RelationshipSums& sums,
                      Row row, YearTable<float>& table);

}  // namespace pedigreewatch
