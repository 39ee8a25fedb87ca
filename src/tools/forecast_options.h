// What stands on the command line of `pedigreewatch-tools forecast`.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "forecast/forecast.h"

namespace pedigreewatch {

struct ForecastOptions {
  ForecastSettings settings;
  std::optional<std::int32_t> years;  ///< to forecast
  std::optional<std::int32_t> from;   ///< the last year that is known
  std::string rules_file;
  bool is_plain = false;  ///< names like formulas are written as they are
  BreedingRules present;  ///< figures of the practice, in place of what was measured
  BreedingRules rules;    ///< of options; a scenario of their own where there is any
};

/// Yields what is wrong with the arguments; empty: nothing.
std::string read_forecast_options(std::span<const std::string_view> arguments, ForecastOptions& options);

}  // namespace pedigreewatch
