// Trial years of the model herd, by which it is fitted to what was observed.
#pragma once

#include "forecast/forecast_progress.h"
#include "forecast/model_herd.h"
#include "forecast/rule_reading.h"

namespace pedigreewatch {

/// Sets the powers of the sires' use for which the model herd uses its sires as unevenly as they were used in the years
/// of the practice, within a year and over the years.
/// False when it was told to stop, and the basis is not fitted.
bool fit_use(ModelBasis& basis, std::uint64_t seed, const ForecastProgress& progress = {});

/// Evenness and close matings that are said are reached when trial herds come as near to them as this.
inline constexpr double said_evenness_reached = 0.05;

struct SaidFit {
  bool is_stopped = false;
  std::vector<RuleProblem> problems;  ///< figures that cannot be reached
};

/// After `fit_use`: lengths of use, how unevenly sires are used and how often mates are close, as they are said of the
/// present practice.
SaidFit fit_as_said(ModelBasis& basis, const BreedingRules& present, std::uint64_t seed,
                    const ForecastProgress& progress = {});

}  // namespace pedigreewatch
