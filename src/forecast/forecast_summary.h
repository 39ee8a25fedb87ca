// A forecast in a few figures a scenario, and what they differ by from the present practice: replicate by replicate, as
// both have the same random numbers.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "forecast/forecast.h"

namespace pedigreewatch {

enum class SummaryFigure : std::uint8_t {
  kinship_rate_per_year,  ///< which part of 1 - kinship (without self) is lost
  kinship_rate_per_generation,
  inbreeding_rate_per_year,  ///< likewise of 1 - F
  inbreeding_rate_per_generation,
  effective_size,     ///< 1 / 2 of the kinship's rate per generation; none where kinship does not rise
  diversity_kept_10,  ///< of the last real year's, after so many years
  diversity_kept_25,
  diversity_kept_50,
  last_mean_f,       ///< in the last year
  last_kinship,      ///< with self, in the last year
  refused_litters,   ///< a year: sires would have had them above their limits
  refused_sires,     ///< a year: such sires
  refused_pairs,     ///< a year
  refused_entrants,  ///< a year: animals that were not taken into use
  lost_litters,      ///< a year: not born, there being no permitted parent
};
inline constexpr std::size_t summary_figures = 15;

struct SummaryRow {
  SummaryFigure figure = SummaryFigure::kinship_rate_per_year;
  std::optional<Band> value, difference;  ///< the difference is that to the first scenario; none for itself
};

struct ScenarioSummary {
  std::array<SummaryRow, summary_figures> rows;
  std::int32_t died_out = 0;  ///< replicates that have not come to the last year

  const SummaryRow& of(SummaryFigure figure) const { return rows[static_cast<std::size_t>(figure)]; }
};

/// By scenario. Replicates that have died out count in no figure. Effective sizes are those of the rates of all others,
/// and infinite where kinship does not rise; their differences are of the replicates in which it rises with both.
std::vector<ScenarioSummary> summarise(const Forecast& forecast);

/// A figure of one replicate that has come to the last year.
std::optional<double> figure_of(const Forecast& forecast, const ReplicateYears& years, SummaryFigure figure);

}  // namespace pedigreewatch
