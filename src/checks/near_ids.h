// Identifications that can be a slip of the pen of others.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "checks/pedigree_columns.h"

namespace pedigreewatch {

/// The identification without what offices write in one way and in another: capitals, without blanks, signs and
/// invisible letters, without zeros in front of a number, and, where there is a digit at all, O as 0 and I and L as 1.
std::string loose_id(std::string_view id);

/// The same with the zeros.
std::string compact_id(std::string_view id);

/// How an identification became another one.
enum class Slip : std::uint8_t {
  none,
  format,        ///< both are the same loosely
  prefix,        ///< letters in front of the number are lacking, or too many
  beginning,     ///< several letters or digits in front are lacking
  exchange,      ///< two neighbours changed over
  doubled,       ///< a letter written twice, or once instead of twice
  last_lacking,  ///< the last letter or digit
  lacking,       ///< another one
  too_many,      ///< one that does not belong there
  look_alike,    ///< 8 and B, 5 and S, ...
  digit,         ///< one digit for another
  letter,        ///< any other single one
  two,           ///< two of these
};

/// By which slip somebody writes `written` who means `meant`, both as `compact_id` yields them.
Slip slip_between(std::string_view written, std::string_view meant);

/// The same of identifications as they stand in the file: the zeros of a number that is written without them may be
/// lacking, or others, but they count where another letter or digit is wrong.
Slip slip_of_ids(std::string_view written, std::string_view meant);

/// How likely somebody who means an identification of this length, and slips, writes just this other one.
double chance_of(Slip slip, std::size_t length);

/// Whether the texts differ by one letter too many, too few or another one, or by two neighbours changed over.
bool is_one_letter_off(std::string_view a, std::string_view b);

struct NearAnimal {
  std::int32_t animal = 0;
  Slip slip = Slip::none;
};

/// For each of the identifications `wanted` the animals that can be meant by it. Two slips are looked for in files of a
/// usual size only, and for the first `compared_count` of them. The animals are shared out to so many threads.
std::vector<std::vector<NearAnimal>> find_near_animals(const PedigreeColumns& animals,
                                                       std::span<const std::int32_t> wanted,
                                                       std::size_t compared_count = SIZE_MAX, std::int32_t threads = 1);

}  // namespace pedigreewatch
