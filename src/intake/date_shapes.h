// Dates as exports write them: cut into their numbers, with or without a time of day or the name of a month, before
// anybody knows in which order day and month stand.
#pragma once

#include <cstdint>
#include <string_view>

namespace pedigreewatch {

enum class DateShape {
  empty,       ///< no digit: unknown
  year_first,  ///< 2005-12-31 or 2005-31-12
  year_last,   ///< 31-12-2005 or 12/31/2005
  compact,     ///< eight digits
  named,       ///< the month is a word
  year_only,   ///< 2005
  month_only,  ///< 12-2005 or 2005-12
  short_year,  ///< 31-12-05
  unreadable,
};

/// The pieces stand in the text; `first` and `second` are the numbers besides the year in their order, for `named` and
/// `month_only` the month is `second`.
struct DatePiecesFound {
  DateShape shape = DateShape::unreadable;
  std::string_view year, first_text, second_text;
  std::int32_t first = 0, second = 0;
  bool has_time = false;
};

/// Cuts one text, without blanks at its ends.
DatePiecesFound cut_date(std::string_view text);

}  // namespace pedigreewatch
