// Parents that are named in an animal's line but have no line of their own.
#pragma once

#include "core/text_output.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

/// Appends a record for each parent that has none: the fathers first, each sex in the order of first mention. An
/// identification that is missing as a father and as a mother gets two records. From here on `animal_count` is final.
void append_missing_parents(PopulationStore& store, TextOutput& console);

}  // namespace pedigreewatch
