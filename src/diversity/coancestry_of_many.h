// The mean increase of coancestry of more pairs than can be worked out one by one.
#pragma once

#include "diversity/coancestry_lanes.h"
#include "diversity/effective_sizes.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

/// As `estimate_by_coancestry` says of many animals.
EffectiveSizeEstimate estimate_from_many(const PopulationStore& store, const PairedAnimals& animals);

}  // namespace pedigreewatch
