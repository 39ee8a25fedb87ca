// What spreadsheets do to identifications that they take for numbers: signs between the thousands, which can be left
// out again, and digits that are gone for good.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "intake/noted_texts.h"

namespace pedigreewatch {

/// What was noticed of the texts of one column.
struct NumberForms {
  std::int64_t of_thousands = 0;  ///< 1.200.012
  std::int64_t below_thousand = 0;
  std::int64_t other = 0;           ///< anything else: of too many no further one is looked at for thousands
  NotedTexts with_exponent;         ///< 5.28E+14
  NotedTexts ending_in_zeros;       ///< of 15 digits and more
  NotedTexts cut_to_fifteen;        ///< longer than 15 digits, all behind them zeros
  std::int64_t beyond_fifteen = 0;  ///< longer than 15 digits
};

/// Looks at one more text that is neither empty nor a word for unknown.
void note_number(NumberForms& forms, std::string_view text, std::int64_t line);

/// Whether a text is a number of a thousand and more with one sign between each three digits: a dot, a comma, an
/// apostrophe, a blank or a no-break space.
bool is_of_thousands(std::string_view text);

/// The digits of such a text.
std::string without_thousands_signs(std::string_view text);

/// Whether all texts of the column but one in fifty are numbers, those of a thousand and more with signs between.
bool has_thousands_signs(const NumberForms& forms);
bool may_have_thousands_signs(const NumberForms& forms);

/// Digits at the end that are zeros by rounding.
inline constexpr std::size_t rounded_digits = 5;
/// By chance fewer identifications end in so many zeros.
inline constexpr std::int64_t fewest_rounded_ids = 3;
/// So many identifications beyond 15 digits have to end in zeros, and all of them.
inline constexpr std::int64_t fewest_cut_ids = 20;

/// The texts whose last digits are lost; none when there is no sign of that.
NotedTexts destroyed_numbers(const NumberForms& forms);

}  // namespace pedigreewatch
