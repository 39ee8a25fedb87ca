#include "tools/current_date.h"

#include <chrono>

namespace pedigreewatch {

CalendarDate current_date() {
  const auto now = std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now());
  const std::chrono::year_month_day date(now);
  return {static_cast<int>(date.year()), static_cast<std::int32_t>(static_cast<unsigned>(date.month())),
          static_cast<std::int32_t>(static_cast<unsigned>(date.day()))};
}

}  // namespace pedigreewatch
