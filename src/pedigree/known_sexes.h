// Which sex an animal has, as far as it is known. Where a line does not say so the animal counts as female in all
// figures; who breeds must not hang on that.
#pragma once

#include <optional>

#include "pedigree/population_store.h"

namespace pedigreewatch {

/// Who was a parent, by position.
struct SexEvidence {
  ByNumber<Flag> was_sire, was_dam;
};

SexEvidence find_sex_evidence(const PopulationStore& store);

/// The sex of the animal's line; where that says nothing, what it was a parent as. None where neither tells, or the
/// animal was both.
std::optional<Sex> known_sex(const PopulationStore& store, const SexEvidence& evidence, std::int32_t position);

/// Likewise of a single animal: where its line says nothing, all animals are looked through for its young.
std::optional<Sex> known_sex(const PopulationStore& store, std::int32_t position);

}  // namespace pedigreewatch
