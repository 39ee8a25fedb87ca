// The generation interval: the mean age of the parents at the births of their young.
#pragma once

#include <span>

#include "core/year_table.h"
#include "pedigree/population_store.h"
#include "pedigree/year_groups.h"

namespace pedigreewatch {

/// Mean ages of the parents of the animals of one year, in years; 0 where none is known.
struct MeanParentAges {
  float sires = 0.0F, dams = 0.0F;
  float parents = 0.0F;  ///< of both; one that is missing does not halve it
};

MeanParentAges mean_parent_ages(const PopulationStore& store, YearAnimals animals);

/// Over all births, in years. Not a number when no age is known.
struct GenerationInterval {
  float overall_sire_age = 0.0F, overall_dam_age = 0.0F;
  float generation_interval = 0.0F;  ///< the mean of the two
};

/// The interval of the animals at `positions`.
GenerationInterval overall_generation_interval(const PopulationStore& store, std::span<const std::int32_t> positions);

}  // namespace pedigreewatch
