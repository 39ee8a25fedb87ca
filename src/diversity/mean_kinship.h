// Mean kinships of the reference population, without a matrix of kinships.
#pragma once

#include <optional>
#include <vector>

#include "diversity/reference_pedigree.h"

namespace pedigreewatch {

struct MeanKinship {
  std::optional<double> mean;                       ///< over all cells, each animal with itself included
  std::optional<double> founder_genomes;            ///< fg = 1 / (2 mean) (Lacy, 1995, Zoo Biology 14: 565-577)
  std::optional<double> without_self;               ///< over the cells of different animals; none with fewer than two
  std::optional<double> lowest, highest;            ///< of one animal
  std::size_t lowest_place = 0, highest_place = 0;  ///< of the first such animal, in the reference population
  std::vector<double> of_members;  ///< of each with the reference population, itself included; by place in it
};

/// `genes` are those of `gene_contributions`, `store` has the F of the animals. No values without a reference
/// population.
MeanKinship compute_mean_kinship(const PopulationStore& store, const ReferencePedigree& pedigree,
                                 const ByNumber<double>& genes);

}  // namespace pedigreewatch
