// Sorts the store so that parents stand before their offspring: from the back, by generations of descendants.
#pragma once

#include "core/run_streams.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

/// Reorders and renumbers the store. Afterwards a non-zero `sire_no` or `dam_no` is smaller than the position of the
/// animal that refers to it, and animals placed in one sweep keep their order. Animals born before a parent are
/// reported; a loop stops the run. (More than 1000 generations in the unlucky order leave the animals that are still
/// unplaced at the front, in store order.)
void sort_pedigree(PopulationStore& store, RunStreams& streams);

}  // namespace pedigreewatch
