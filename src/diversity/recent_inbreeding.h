// Inbreeding that comes from the last generations alone: old inbreeding has had time for selection against it, recent
// inbreeding has not.
#pragma once

#include <cstdint>

#include "core/by_number.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

/// F of every animal, by position, over its last `generations`: parents are the first of them, and an animal that is
/// met first in the last one counts as a founder, by whatever way it is met again. 0 with an unknown parent. F of all
/// animals must be final: it is what F over some generations cannot pass. 2 to 6 generations.
ByNumber<float> recent_inbreeding(const PopulationStore& store, std::int32_t generations);

}  // namespace pedigreewatch
