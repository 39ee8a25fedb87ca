// Native offspring of the parents born in a year, and the parents that have most of them.
#pragma once

#include <cstdint>
#include <span>

#include "pedigree/population_store.h"
#include "pedigree/year_groups.h"

namespace pedigreewatch {

/// Offspring of the parents of one sex; all 0 without a parent.
struct OffspringMoments {
  float mean = 0.0F;
  float deviation = 0.0F;  ///< standard deviation; 0 with a single parent
  float maximum = 0.0F;
};

using ParentOffspring = BySex<OffspringMoments>;

/// Describes the offspring of the sires and dams among the animals of one year, imports included.
ParentOffspring offspring_year_statistics(const PopulationStore& store, YearAnimals animals);

/// Positions of the male and the female with the most native offspring.
using BusiestParents = BySex<std::int32_t>;

/// The busiest parents among the animals at `positions`, the first in store order on a tie; 1 where a sex has none.
BusiestParents find_busiest_parents(const PopulationStore& store, std::span<const std::int32_t> positions);

}  // namespace pedigreewatch
