// Mean inbreeding and kinship within each subpopulation, and mean relationships between each two, in one birth year.
#pragma once

#include <cstdint>

#include "core/year_table.h"
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

/// Fills one row from the animals of its year. A subpopulation with fewer than two animals in the year stays 0.
void fill_kinship_row(RelationshipWork& work, const Subpopulations& subpopulations, YearAnimals cohort, Row row,
                      YearTable<float>& table);

}  // namespace pedigreewatch
