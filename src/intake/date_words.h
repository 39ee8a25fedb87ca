// The words of dates: months, what is said of a date that is not known exactly, and what stands between its parts, in
// English, Dutch, German, French, Spanish and Italian.
#pragma once

#include <cstdint>
#include <string_view>

namespace pedigreewatch {

/// The month that a word names, short or in full ("Mar", "maart", "M\u00E4rz", "gennaio"), in UTF-8; 0 for none.
std::int32_t month_named(std::string_view word);

/// Whether a word in a date says nothing: "3 de marzo de 2005", "3rd of March", "1er janvier".
bool is_filler_of_date(std::string_view word);

/// The text behind the day of the week at its start, short or in full: "12.03.2019" of "Mo., 12.03.2019". The whole
/// text where there is none. "Mar" is a month in some languages and a day in others.
std::string_view behind_weekday(std::string_view text);

/// Takes off what says that a date is not known exactly: "~ 1972", "circa 1998", "2018?", "<1998", "??-03-1998". Yields
/// whether there was any.
bool take_rough_signs(std::string_view& text);

}  // namespace pedigreewatch
