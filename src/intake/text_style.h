// What the texts of a column are made of: letters, digits, signs. A text that is written like none of the others is no
// identification but a remark, a total, or a word for "unknown".
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace pedigreewatch {

/// How often each sign occurs; all letters count as 'a', all digits as '0'.
struct StyleCounts {
  std::int64_t texts = 0;
  std::array<std::int64_t, 128> with = {};
  std::size_t longest_word = 0;  ///< letters in a row
  std::size_t shortest = SIZE_MAX;
};

/// How texts are written, as one look at each byte tells.
struct TextStyle {
  bool is_known = false;                ///< false: there are too few texts to tell
  std::array<bool, 256> is_usual = {};  ///< bytes that belong to the style
  bool needs_digit = false, needs_letter = false;
  std::size_t longest_word = 0, shortest = 0;
};

/// Fewer texts have no style.
inline constexpr std::int64_t fewest_styled_texts = 20;
/// A sign belongs to the style when more than one text in so many has it; one that all but so few have has to be there.
inline constexpr std::int64_t rare_style = 100;

/// Adds one more text of the column.
void count_signs(StyleCounts& counts, std::string_view text);

TextStyle style_of(const StyleCounts& counts);

/// Whether a text is digits alone.
bool is_plain_number(std::string_view text);

/// Whether a number has no letter where all texts have one, or fewer digits than any of them has signs. False for
/// other texts, and where the style is not known.
bool is_unlike_number(const TextStyle& style, std::string_view text);

/// Whether a text is written unlike the others: with a sign that they lack, with a longer word, or without the digits
/// that they have. False where the style is not known.
bool is_unlike(const TextStyle& style, std::string_view text);

}  // namespace pedigreewatch
