// How far a forecast is, for whoever waits for it.
#pragma once

#include <cstdint>
#include <functional>

namespace pedigreewatch {

/// Told from time to time, and asked whether the work is to go on. Not called from two threads at once.
using ForecastProgress = std::function<bool(std::int64_t done_years, std::int64_t all_years)>;

}  // namespace pedigreewatch
