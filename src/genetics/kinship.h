// Mean inbreeding and mean kinship of the animals of each birth year.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "core/text_output.h"
#include "core/year_table.h"
#include "genetics/ancestor_pedigree.h"
#include "pedigree/population_store.h"
#include "pedigree/subpopulation_membership.h"
#include "pedigree/year_groups.h"

namespace pedigreewatch {

/// Columns 2 to 6 hold mean relationships, twice the kinship, until the rates are computed; then kinships.
enum InbreedingColumn {
  mean_inbreeding = 1,
  kinship_with_self = 2,
  kinship_without_self = 3,
  kinship_of_parents = 4,
  kinship_of_fathers = 5,
  kinship_of_mothers = 6,
  inbreeding_columns = 6,
};

/// Columns of the KinshipTable: 2k - 1 and 2k are mean F and mean kinship of subpopulation k; behind those of all
/// subpopulations follow the mean relationships of the pairs (1,2), (1,3), ... (2,3), ...
std::int64_t kinship_column_count(std::int64_t subpopulation_count);

/// Fills both tables, year by year. F of all animals must be final. `membership` is null when there are fewer than
/// two subpopulations; the KinshipTable then stays 0.
///
/// The mean of a group needs no relationship matrix (Colleau, 2002, Genet. Sel. Evol. 34: 409-421): with w the genes
/// that the group has from each animal, found in one upward pass through the pedigree, the sum of all relationships
/// between two groups is the sum of w1 w2 d over all animals, d being the within-family variance.
void compute_kinship_by_year(const PopulationStore& store, const AncestorPedigree& ancestors, const YearGroups& years,
                             const SubpopulationMembership* membership, YearTable<float>& inbreeding_table,
                             YearTable<float>& kinship_table, TextOutput& console);

/// For groups of animals of one cohort the sums of relationships within and between them: entry (g, h) of a square
/// matrix, in double precision.
struct RelationshipSums {
  std::size_t group_count = 0;
  std::vector<double> sums;

  double between(std::size_t g, std::size_t h) const { return sums[g * group_count + h]; }
};

/// What the upward passes work on, kept between years.
struct KinshipScratch {
  std::vector<double> within_family_variance;  ///< by ancestor number
  std::vector<double> weights;                 ///< by ancestor number, a lane for each group; 0 between two passes
};

KinshipScratch make_kinship_scratch(const PopulationStore& store, const AncestorPedigree& ancestors);

/// `group_of_member` gives the group of each animal in `members`, counted from 0; -1 for a member of none.
RelationshipSums sum_relationships(const PopulationStore& store, const AncestorPedigree& ancestors,
                                   std::span<const std::int32_t> members, std::span<const std::int32_t> group_of_member,
                                   std::size_t group_count, KinshipScratch& scratch);

}  // namespace pedigreewatch
