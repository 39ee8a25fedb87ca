// Inbreeding coefficients of all animals.
#pragma once

#include "core/text_output.h"
#include "genetics/ancestor_pedigree.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

/// Fills `inbreeding` of every animal, in store order, by the walk through the animal's ancestors of Meuwissen and
/// Luo (1992, Genet. Sel. Evol. 24: 305-313), in single precision, from the youngest ancestor to the oldest. An animal
/// with an unknown parent has 0; tiny negative values from rounding stay. Parents must stand before their offspring.
void compute_inbreeding(PopulationStore& store, const AncestorPedigree& ancestors, TextOutput& console);

}  // namespace pedigreewatch
