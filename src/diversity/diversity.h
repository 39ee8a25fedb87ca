// The figures that studies of a breed print, for a reference population: founders and their contributions, effective
// numbers of founders, ancestors and founder genomes, completeness, effective sizes by individual increase of
// inbreeding and of coancestry, generation intervals on the four paths.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "diversity/effective_ancestors.h"
#include "diversity/effective_sizes.h"
#include "diversity/family_sizes.h"
#include "diversity/generation_paths.h"
#include "diversity/reference_population.h"
#include "diversity/subpopulation_diversity.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

struct Diversity {
  ReferencePopulation reference;   ///< when it is empty there is nothing else
  std::int32_t founders = 0;       ///< without known parents, among the reference population and its ancestors
  std::int32_t half_founders = 0;  ///< with one known parent, likewise; each brings an unknown founder
  std::optional<double> effective_founders;         ///< fe (Lacy, 1989)
  std::optional<double> effective_ancestors;        ///< fa (Boichard, Maignel and Verrier, 1997)
  std::int32_t chosen_ancestors = 0;                ///< how many fa is worked out from
  bool is_every_ancestor_chosen = true;             ///< false: the rest can no longer change the fifth digit of fa
  std::vector<MainAncestor> main_ancestors;         ///< at most ten, the largest contribution first
  std::optional<std::int32_t> ancestors_for_half;   ///< how many explain 50 % of the genes
  std::optional<double> mean_kinship;               ///< over all cells, each animal with itself included
  std::optional<double> mean_kinship_without_self;  ///< over the cells of different animals
  std::optional<double> founder_genomes;            ///< fg (Lacy, 1995)
  std::optional<double> lowest_mean_kinship, highest_mean_kinship;  ///< of one animal with the reference population
  std::int32_t lowest_animal = 0, highest_animal = 0;               ///< their positions in the store; 0 for none
  std::vector<double> mean_kinship_of;                              ///< by place in `reference.positions`
  std::optional<double> maximum_generations, complete_generations, equivalent_generations;  ///< means
  std::optional<double> completeness_index;  ///< PCI over five generations (MacCluer and others, 1983), mean
  EffectiveSizeEstimate by_inbreeding;       ///< Gutierrez and others, 2008; Gutierrez, Cervantes and Goyache, 2009
  EffectiveSizeEstimate by_coancestry;       ///< Cervantes and others, 2011
  std::array<PathInterval, 4> paths;         ///< by `Path`
  PathInterval all_paths;
  FamilySizeEstimate families;                ///< of the whole population (Hill, 1979)
  SubpopulationDiversity division;            ///< into subpopulations
  std::optional<double> import_contribution;  ///< the share of the genes that come from imports, where those are told
};

/// Computes everything, on so many threads. F and completeness of all animals must be final.
Diversity compute_diversity(const PopulationStore& store, ReferencePopulation reference, std::int32_t threads = 1);

}  // namespace pedigreewatch
