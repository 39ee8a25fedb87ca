// From the identifications of the parents to their positions in the store.
#pragma once

#include "core/run_streams.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

/// Turns what stands for the parents into their positions and counts the offspring of every parent; then sorts the
/// store, so that afterwards parents stand before their offspring. `append_missing_parents` has seen to it that every
/// parent has a record. Of two records with one identification the first is the parent. A loop in the pedigree stops
/// the run. The index of the identifications is released.
void link_parents(PopulationStore& store, RunStreams& streams);

}  // namespace pedigreewatch
