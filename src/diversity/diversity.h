// The figures that studies of a breed print, for a reference population: founders and their contributions, effective
// numbers of founders, ancestors and founder genomes, completeness, effective sizes by individual increase of
// inbreeding and of coancestry, generation intervals on the four paths.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "diversity/reference_population.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

/// An ancestor and what it alone explains of the genes of the reference population.
struct MainAncestor {
  std::int32_t position = 0;  ///< in the store; of the half-founder when `is_unknown_parent`
  bool is_unknown_parent = false;
  double contribution = 0.0;  ///< marginal, as a fraction
};

/// An effective size with its standard error; without a value when it is not estimable: no increase, or a negative one.
struct EffectiveSizeEstimate {
  std::int64_t count = 0;                ///< animals, or pairs of animals, that it is estimated from
  std::optional<double> mean_increase;   ///< of inbreeding or coancestry per generation; none without animals
  std::optional<double> effective_size;  ///< 1 / (2 mean increase)
  std::optional<double> standard_error;
  bool is_sample = false;  ///< estimated from a random sample of the pairs
};

/// One of the four paths of selection, or all of them.
struct PathInterval {
  std::int64_t count = 0;            ///< parents of animals that are parents themselves, with both births known
  std::int64_t not_positive = 0;     ///< those of 0 and below, which count too
  std::optional<double> mean_years;  ///< none without any
};

enum class Path : std::uint8_t { sire_son, sire_daughter, dam_son, dam_daughter };

struct Diversity {
  ReferencePopulation reference;   ///< when it is empty there is nothing else
  std::int32_t founders = 0;       ///< without known parents, among the reference population and its ancestors
  std::int32_t half_founders = 0;  ///< with one known parent, likewise; each brings an unknown founder
  std::optional<double> effective_founders;        ///< fe (Lacy, 1989)
  std::optional<double> effective_ancestors;       ///< fa (Boichard, Maignel and Verrier, 1997)
  bool is_every_ancestor_chosen = true;            ///< false: the rest can no longer change the fifth digit of fa
  std::vector<MainAncestor> main_ancestors;        ///< at most ten, the largest contribution first
  std::optional<std::int32_t> ancestors_for_half;  ///< how many explain 50 % of the genes
  std::optional<double> mean_kinship;              ///< over all cells, each animal with itself included
  std::optional<double> founder_genomes;           ///< fg (Lacy, 1995)
  std::optional<double> lowest_mean_kinship, highest_mean_kinship;  ///< of one animal with the reference population
  std::vector<double> mean_kinship_of;                              ///< by place in `reference.positions`
  std::optional<double> maximum_generations, complete_generations, equivalent_generations;  ///< means
  std::optional<double> completeness_index;  ///< PCI over five generations (MacCluer and others, 1983), mean
  EffectiveSizeEstimate by_inbreeding;       ///< Gutierrez and others, 2008 and 2009
  EffectiveSizeEstimate by_coancestry;       ///< Cervantes and others, 2011
  std::array<PathInterval, 4> paths;         ///< by `Path`
  PathInterval all_paths;
};

/// Computes everything. F and completeness of all animals must be final.
Diversity compute_diversity(const PopulationStore& store, ReferencePopulation reference);

}  // namespace pedigreewatch
