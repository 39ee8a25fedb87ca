// From the identifications of the parents to their positions in the store.
#pragma once

#include "core/run_streams.h"
#include "pedigree/id_index.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

/// Fills `sire_no` and `dam_no`, counts the offspring of every parent and sets the parent flags; then sorts the
/// store, so that afterwards parents stand before their offspring. `index` holds all identifications; of two records
/// with one identification the first is the parent. A loop in the pedigree stops the run.
void link_parents(PopulationStore& store, const IdIndex& index, bool english, RunStreams& streams);

}  // namespace pedigreewatch
