// Parents that are named in an animal's line but have no line of their own.
#pragma once

#include "core/text_output.h"
#include "pedigree/id_index.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

/// Numbers the records, and appends a record for each parent that has none: the fathers first, each sex in the order of
/// first mention. An identification that is missing as a father and as a mother gets two records. From here on
/// `animal_count` is final. `sire_no` and `dam_no` hold the parents found on the way, for `link_parents`. Yields the
/// index of all identifications.
IdIndex append_missing_parents(PopulationStore& store, TextOutput& console);

}  // namespace pedigreewatch
