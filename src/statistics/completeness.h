// How far back the pedigrees are known.
#pragma once

#include <array>

#include "pedigree/population_store.h"
#include "pedigree/year_groups.h"

namespace pedigreewatch {

/// Fills `generation_equivalents` (Maignel, Boichard and Verrier, 1996) and `complete_generations` of every animal.
/// Parents must stand before their offspring.
void determine_completeness(PopulationStore& store);

/// The animals of one year.
struct CompletenessRow {
  float equivalent_generations = 0.0F;          ///< their mean
  std::array<float, 5> generation_shares = {};  ///< animals with 1, 2, 3, 4 and at least 5 complete generations, 0 to 1
};

/// Describes the animals of a year; all 0 without any.
CompletenessRow completeness_of_year(const PopulationStore& store, YearAnimals animals);

}  // namespace pedigreewatch
