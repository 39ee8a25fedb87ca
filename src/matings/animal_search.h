// Finds animals while their identification or name is being typed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "pedigree/population_store.h"

namespace pedigreewatch {

/// The positions of at most `most` animals whose identification or name begins with `beginning`, which is UTF-8;
/// capitals make no difference, nor do blanks around it. First the animal with exactly this identification, then those
/// by identification, then those by name, each in the order of the data file. None for a blank text. One pass through
/// the texts: some 20 ms for a million animals.
std::vector<std::int32_t> find_animals(const PopulationStore& store, std::string_view beginning, std::size_t most);

}  // namespace pedigreewatch
