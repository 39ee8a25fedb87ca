// What can be seen in a single date of birth.
#pragma once

#include <string_view>

#include "checks/calendar.h"
#include "pedigree/birth_date.h"

namespace pedigreewatch {

enum class DateKind {
  unknown,  ///< no digit, or a year of 0 and nothing else
  full,
  year_only,   ///< the day or the month is unknown
  repaired,    ///< a day or month that does not exist, or a year that is lost
  unreadable,  ///< stops the run
};

struct DateReading {
  DateKind kind = DateKind::unknown;
  BirthDate date;            ///< as the program takes it
  bool fits_layout = false;  ///< a month, a day and a year of four digits where the layout has them
};

/// Reads a date as the program does, and says what it is.
DateReading look_at_date(std::string_view field, const DateLayout& layout);

/// Whether the month is none and can be a day, and the day can be a month.
bool is_exchanged(std::string_view field, const DateLayout& layout);

/// Dates that programs write for an unknown one, such as 01-01-1900.
bool is_placeholder_date(const BirthDate& date);

}  // namespace pedigreewatch
