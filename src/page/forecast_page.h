// A forecast as a page to hand out: what is foretold, in words and charts of past and future, what each rule gains and
// costs, and whether the last ten years would have been foretold.
#pragma once

#include <string>
#include <vector>

#include "forecast/forecast.h"
#include "forecast/forecast_summary.h"
#include "forecast/real_years.h"
#include "text/phrases.h"

namespace pedigreewatch {

/// A forecast from an earlier year, beside what really happened.
struct Hindcast {
  Forecast forecast;
  std::int32_t from = 0;  ///< the last year that it knew
};

/// What the page is made from. All of it outlives the making.
struct ForecastPageInput {
  const Forecast& forecast;
  const std::vector<ScenarioSummary>& summaries;
  const std::vector<RealYear>& past;         ///< up to the last full year
  const Hindcast* hindcast = nullptr;        ///< none: the page does not look back
  const std::vector<std::string>& practice;  ///< sentences
  const std::vector<std::string>& warnings;  ///< likewise, on what is stated
  std::string_view population_name;          ///< bytes of the steer file
  ToolLanguage language = ToolLanguage::english;
  std::int64_t corrections = 0;  ///< of the export, that the data contain
};

/// What stands below the main heading: to stand in an element of class "pw" of another page.
std::string forecast_body(const ForecastPageInput& input);

/// The whole page in UTF-8. It asks for nothing from anywhere.
std::string make_forecast_page(const ForecastPageInput& input);

}  // namespace pedigreewatch
