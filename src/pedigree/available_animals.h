// Which animals can still be bred from.
#pragma once

#include <cstdint>

#include "core/by_number.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

struct AvailableAnimals {
  bool is_told = false;          ///< false: nobody has said who has gone, and all are taken
  ByNumber<Flag> marks;          ///< by position, where it is told
  std::int64_t count = 0;        ///< animals that are marked
  std::int64_t unknown_ids = 0;  ///< identifications of the list that no animal has

  bool has(std::int32_t position) const { return !is_told || marks[position] != 0; }
};

}  // namespace pedigreewatch
