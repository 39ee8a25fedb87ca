// Dates of birth as they stand in the data file.
#pragma once

#include <cstdint>
#include <string_view>

namespace pedigreewatch {

/// How a date is cut into its pieces.
struct DateLayout {
  bool has_delimiters = false, year_first = false, day_first = false;
};

/// The layout that a text such as "dd-mm-jjjj" describes: j and y stand for the year, in lower case only; any byte that
/// is no letter of a date makes a layout with delimiters.
DateLayout date_layout_of(std::string_view text);

struct BirthDate {
  std::int32_t year = 0;  ///< 0 for unknown
  std::int32_t month = 1;
  std::int32_t day = 1;
};

/// Cuts `field` by the layout into its numbers, as they stand: an empty piece is 0, a month may be 13. A field without
/// any digit is an unknown date. Yields false when a piece is no number of 32 bits; `date` is then as it was.
bool cut_birth_date(std::string_view field, const DateLayout& layout, BirthDate& date);

/// The date as it counts: a month outside 1 to 12 becomes 1, then a day beyond the end of the month (29 for February)
/// becomes 1; a day of 0 or below stays.
BirthDate repaired(BirthDate date);

/// Cuts `field` by the layout and repairs the date. Yields false when a piece is no number of 32 bits; `date` is then
/// as it was.
bool read_birth_date(std::string_view field, const DateLayout& layout, BirthDate& date);

}  // namespace pedigreewatch
