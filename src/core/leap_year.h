// Years of the Gregorian calendar.
#pragma once

#include <cstdint>

namespace pedigreewatch {

/// Whether the year has a 29 February.
constexpr bool has_leap_day(std::int32_t year) {
  return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

}  // namespace pedigreewatch
