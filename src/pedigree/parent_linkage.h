// From the identifications of the parents to their positions in the store.
#pragma once

#include "core/run_streams.h"
#include "pedigree/id_index.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

/// Fills `sire_no` and `dam_no`, counts the offspring of every parent and sets the parent flags; then sorts the
/// store, so that afterwards parents stand before their offspring. A number that is there already was found by
/// `append_missing_parents` and is kept; the others are looked up in `index`, which holds all identifications. Of two
/// records with one identification the first is the parent. A loop in the pedigree stops the run.
void link_parents(PopulationStore& store, const IdIndex& index, RunStreams& streams);

}  // namespace pedigreewatch
