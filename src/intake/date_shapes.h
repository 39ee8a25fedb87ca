// Dates as exports write them: cut into their numbers, with or without a time of day or the name of a month, before
// anybody knows in which order day and month stand.
#pragma once

#include <cstdint>
#include <string_view>

namespace pedigreewatch {

enum class DateShape {
  empty,        ///< no digit: unknown
  year_first,   ///< 2005-12-31 or 2005-31-12
  year_last,    ///< 31-12-2005 or 12/31/2005
  compact,      ///< eight digits
  named,        ///< the month is a word
  year_only,    ///< 2005
  month_only,   ///< 12-2005, 2005-12 or Dec 2005
  short_year,   ///< 31-12-05: `year` is the last piece, but the first one may be meant
  short_named,  ///< 31-Dec-05
  short_month,  ///< Dec 05
  serial,       ///< 38717, the number of a day in a spreadsheet, which stands in `year`
  unreadable,
};

/// Whether a year of two digits is part of it.
bool has_short_year(DateShape shape);

/// The pieces stand in the text; `first` and `second` are the numbers besides the year in their order. Where the month
/// is a word, and of month and year alone, the month is `second`.
struct DatePiecesFound {
  DateShape shape = DateShape::unreadable;
  std::string_view year, first_text, second_text;
  std::int32_t first = 0, second = 0;
  bool has_time = false;
  bool is_rough = false;  ///< "~ 1972", "circa 1998", "2018?": without the signs that say so
};

/// Cuts one text, without blanks at its ends.
DatePiecesFound cut_date(std::string_view text);

}  // namespace pedigreewatch
