// The words by which a run names its animals: rows 1 to 8 are Dutch, rows 9 to 16 English, in the same order.
#pragma once

#include <cstdint>

#include "reports/species_nouns.h"

namespace pedigreewatch {

/// The nouns of row `species_index`, 1 to 16.
SpeciesNouns species_row(std::int32_t species_index);

/// The row of the steer file's species word. The eight bytes are compared exactly, with rows 1 to 15; a word in no
/// row gives 16. An English run moves a Dutch word to the English row of its species.
std::int32_t species_index_of(const SpeciesWord& word, bool english);

}  // namespace pedigreewatch
