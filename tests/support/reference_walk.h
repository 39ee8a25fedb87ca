// F by the plainest possible walk, the yardstick for the fast one: every animal from scratch, in single precision,
// with all working vectors as long as the pedigree that goes before the animal and cleared for it alone.
#pragma once

#include <cstdint>
#include <vector>

#include "pedigree/population_store.h"

namespace pedigreewatch::test {

/// F of all animals, by position - 1. Only `sire_no` and `dam_no` of the records are looked at.
std::vector<float> reference_inbreeding(const PopulationStore& store);

/// F of animal i by a walk of its own, whoever stands before it. `inbreeding` holds F of the animals up to i - 1, by
/// position - 1; animal i has two known parents.
float reference_walk(const PopulationStore& store, const std::vector<float>& inbreeding, std::int32_t i);

}  // namespace pedigreewatch::test
