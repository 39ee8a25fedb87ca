// Finds animals while a part of their identification or name is being typed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "core/by_number.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

/// What is looked for.
struct AnimalSearch {
  std::string_view text;                     ///< UTF-8; each of its words must stand in the identification or the name
  std::size_t most = 0;                      ///< animals that are named
  std::optional<Sex> sex;                    ///< none: either; those of which nothing tells the sex are of either
  const ByNumber<Flag>* may_live = nullptr;  ///< by position; none: nothing is known of that
};

struct FoundAnimals {
  std::vector<std::int32_t> positions;  ///< the first of them
  std::int64_t count = 0;               ///< all of them
};

/// Capitals and accents make no difference. First the animal with exactly this identification, then those that may be
/// living, then all others; among them those of which the identification or a word of the name begins so; the youngest
/// first, of one year in the order of the data file. None for a blank text. One pass through the texts: some 50 ms for
/// a million animals.
FoundAnimals find_animals(const PopulationStore& store, const AnimalSearch& search);

}  // namespace pedigreewatch
