// Identifications that differ from a given one by a slip of the pen.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "checks/pedigree_columns.h"

namespace pedigreewatch {

/// For each of the identifications `wanted`, which no animal has: the first animal whose identification is the same but
/// for capitals, blanks, invisible letters and zeros in front. Those without one are left out.
std::unordered_map<std::int32_t, std::int32_t> find_same_but_spelling(const PedigreeColumns& animals,
                                                                      std::span<const std::int32_t> wanted);

/// The animals whose identification differs by one letter.
struct NearAnimals {
  std::vector<std::int32_t> animals;  ///< the first few
  bool are_all = true;                ///< there are no further ones
};

/// For each of the identifications `wanted` the animals that differ from it by one letter too many, too few or another
/// one, or by two neighbours changed over. Those without one are left out.
std::unordered_map<std::int32_t, NearAnimals> find_one_letter_off(const PedigreeColumns& animals,
                                                                  std::span<const std::int32_t> wanted);

/// Whether the texts differ by one such slip.
bool is_one_letter_off(std::string_view a, std::string_view b);

}  // namespace pedigreewatch
