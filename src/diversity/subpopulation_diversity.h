// How the reference population is divided into subpopulations.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "genetics/relationship_sums.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

/// A subpopulation that has animals in the reference population.
struct DividedGroup {
  std::int32_t number = 0;  ///< of the subpopulation
  std::int64_t animals = 0;
  double mean_inbreeding = 0.0;
};

/// Kinships include those of each animal with itself. Animals of no subpopulation are left out.
struct SubpopulationDiversity {
  std::vector<DividedGroup> groups;                                         ///< in the order of the steer file
  RelationshipSums sums{0};                                                 ///< between the groups
  std::optional<double> mean_inbreeding, kinship_within, kinship_over_all;  ///< weighed by numbers of animals
  std::optional<double> f_is, f_st, f_it;

  /// The mean kinship of the animals of two groups (counted from 0), or of one.
  double kinship(std::size_t group, std::size_t other) const;
  /// Nei's minimum distance: the mean of both kinships within, less that between.
  double minimum_distance(std::size_t group, std::size_t other) const;
  /// Nei's standard distance: - ln [ between / sqrt(within * within) ]; none between groups that are not related.
  std::optional<double> standard_distance(std::size_t group, std::size_t other) const;
};

/// Of the animals at `positions`: with F their mean inbreeding, f_within the mean kinship within subpopulations and
/// f_all that over all animals, Fis = (F - f_within) / (1 - f_within), Fst = (f_within - f_all) / (1 - f_all) and
/// 1 - Fit = (1 - Fis) (1 - Fst) (Caballero and Toro, 2002, Conserv. Genet. 3: 289-299). No groups, and no values,
/// where fewer than two subpopulations have animals. F of all animals must be final.
SubpopulationDiversity describe_division(const PopulationStore& store, std::span<const std::int32_t> positions);

}  // namespace pedigreewatch
