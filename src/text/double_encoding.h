// Texts that were turned into UTF-8 twice: read from UTF-8 as if it were Windows-1252, and saved as UTF-8 again, so
// that the u with two dots of a name became an A with a tilde and the sign of a quarter.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pedigreewatch {

/// A word as it stands in the text, and as it is meant.
struct DoubledWord {
  std::size_t place = 0;  ///< where its first such letter stands in the text
  std::string found, meant;
};

struct DoubledLetters {
  std::int64_t doubled = 0;        ///< letters that are meant, each of which stands there as two or three
  std::int64_t others = 0;         ///< letters beyond ASCII besides
  bool are_certain = false;        ///< no text holds these letters one behind the other by itself
  std::vector<DoubledWord> words;  ///< the first two different ones
};

/// Letters of Eastern Europe stand there as an A with two dots or a ring, and a sign, which may be a letter before a
/// quotation mark: only so many different ones are certain.
inline constexpr std::size_t fewest_doubled_letters = 3;

/// Looks for such letters in a text in UTF-8. Only letters and signs of European languages count as meant.
DoubledLetters find_doubled_letters(std::string_view text);

/// The text with those letters as they are meant, and all others as they are.
std::string without_doubled_letters(std::string_view text);

}  // namespace pedigreewatch
