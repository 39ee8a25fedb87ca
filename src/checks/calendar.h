// Days of the calendar as numbers, so that ages are differences.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "core/leap_year.h"

namespace pedigreewatch {

struct CalendarDate {
  std::int32_t year = 0, month = 1, day = 1;
};

/// The number of a day, with leap days as they are. Beyond a million years, or a thousand days in a month, the number
/// stays where it is.
constexpr std::int32_t day_number(const CalendarDate& date) {
  constexpr std::array<std::int32_t, 12> days_before_month = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
  constexpr std::int32_t most_years = 1'000'000, most_days = 1000;
  const std::int32_t year = std::clamp(date.year, -most_years, most_years);
  const std::int32_t past = year - 1;
  const auto quotient = [](std::int32_t number, std::int32_t divisor) {  // rounded down
    return number >= 0 ? number / divisor : -((divisor - 1 - number) / divisor);
  };
  const std::int32_t leap_days = quotient(past, 4) - quotient(past, 100) + quotient(past, 400);
  const std::size_t month = static_cast<std::size_t>(std::clamp(date.month, 1, 12) - 1);
  return 365 * past + leap_days + days_before_month[month] + (month > 1 && has_leap_day(year) ? 1 : 0) +
         std::clamp(date.day, -most_days, most_days);
}

/// Whether the calendar has such a day: no 30 February and no 13th month.
constexpr bool is_in_calendar(const CalendarDate& date) {
  if (date.month < 1 || date.month > 12 || date.day < 1) return false;
  const CalendarDate next_month =
      date.month == 12 ? CalendarDate{date.year + 1, 1, 1} : CalendarDate{date.year, date.month + 1, 1};
  return day_number(date) < day_number(next_month);
}

/// "31-12-2005", as the data file's own texts may be cut.
inline std::string text_of(const CalendarDate& date) {
  const auto two_digits = [](std::int32_t number) {
    return (number >= 0 && number < 10 ? "0" : "") + std::to_string(number);
  };
  return two_digits(date.day) + "-" + two_digits(date.month) + "-" + std::to_string(date.year);
}

}  // namespace pedigreewatch
