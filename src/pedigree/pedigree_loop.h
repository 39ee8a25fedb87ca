// What is printed when an animal turns out to be its own ancestor.
#pragma once

#include <cstdint>
#include <span>

#include "core/run_streams.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

/// Prints the animals on a loop, and those among `unplaced` that descend from one, on console and report; then stops
/// the run. `unplaced` holds the positions of all animals that could not be sorted, ascending.
[[noreturn]] void report_pedigree_loop(const PopulationStore& store, std::span<const std::int32_t> unplaced,
                                       RunStreams& streams);

}  // namespace pedigreewatch
