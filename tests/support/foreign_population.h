// A population for an export in another language: generations with a few much used sires.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "support/foreign_export.h"
#include "support/foreign_words.h"

namespace pedigreewatch::test {

/// Draws without the distributions of the library, which differ from machine to machine.
struct Dice {
  std::mt19937 random;

  int below(int limit) { return static_cast<int>(random() % static_cast<std::uint32_t>(limit)); }
  bool one_in(int count) { return below(count) == 0; }
  std::string_view one_of(std::span<const std::string_view> words) {
    return words[static_cast<std::size_t>(below(static_cast<int>(words.size())))];
  }
};

/// How identifications are written: each is a way of an office.
enum class IdStyle {
  numbers,         ///< 1, 2, 3
  leading_zeros,   ///< 00012
  prefix,          ///< NL10012
  hyphens,         ///< HS-00012
  blanks,          ///< DE 09 123 00012
  slashes,         ///< 12/B/0012
  tags,            ///< 528000000000127
  formula,         ///< ="00012"
  apostrophe,      ///< '00012
  thousands,       ///< 1.200.012
  destroyed_tags,  ///< 5.28E+14, as a spreadsheet leaves them
  count
};

std::string_view name_of(IdStyle style);

/// `count` animals in the order of their births, ids in plain form: without the formula, apostrophe or dots that the
/// export puts around them.
std::vector<ForeignAnimal> make_foreign_population(Dice& dice, int count, IdStyle style,
                                                   std::span<const std::string_view> names);

/// The id as the export writes it. The number of a destroyed tag cannot be read back.
std::string written_id(const std::string& id, IdStyle style);

}  // namespace pedigreewatch::test
