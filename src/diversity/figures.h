// Everything of a population that goes beyond its reference population: figures of each animal, of each cohort, and the
// lists that people act on.
#pragma once

#include <cstdint>
#include <vector>

#include "core/by_number.h"
#include "diversity/action_lists.h"
#include "diversity/animal_figures.h"
#include "diversity/cohorts.h"
#include "diversity/diversity.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

/// Generations of the two figures of recent inbreeding.
inline constexpr std::int32_t fewer_recent_generations = 3, more_recent_generations = 5;

/// Of every animal, by position.
struct AnimalFigures {
  ByNumber<KnownLine> lines;
  ByNumber<float> recent_3, recent_5;  ///< F over the last generations
  ByNumber<float> ancestral;           ///< ancestral inbreeding
  ByNumber<float> mean_kinship;        ///< with the reference population; empty when that is
  ByNumber<float> import_shares;       ///< empty where imports are not told
  ByNumber<std::int32_t> breeding_offspring;
};

/// PCI of the animal at `position`.
double completeness_index(const PopulationStore& store, const AnimalFigures& figures, std::int32_t position);

struct PopulationFigures {
  AnimalFigures animals;
  std::vector<Cohort> cohorts;
  ActionLists lists;
};

/// `diversity` is that of the reference population; who is to be bred from is listed among those of `available`;
/// `wants_ancestors`: see `describe_cohorts`. Computes on so many threads.
PopulationFigures compute_figures(const PopulationStore& store, const Diversity& diversity,
                                  const AvailableAnimals& available = {}, bool wants_ancestors = false,
                                  std::int32_t threads = 1);

}  // namespace pedigreewatch
