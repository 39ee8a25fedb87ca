// Trial years of the model herd, by which it is fitted to what was observed.
#pragma once

#include "forecast/forecast_progress.h"
#include "forecast/model_herd.h"

namespace pedigreewatch {

/// Sets the powers of the sires' use for which the model herd uses its sires as unevenly as they were used in the years
/// of the practice, within a year and over the years.
/// False when it was told to stop, and the basis is not fitted.
bool fit_use(ModelBasis& basis, std::uint64_t seed, const ForecastProgress& progress = {});

}  // namespace pedigreewatch
