// How fast inbreeding and kinship rise, from the yearly means.
#pragma once

#include <cstdint>
#include <span>

#include "core/year_table.h"

namespace pedigreewatch {

/// Rates per year, as fractions.
struct RateSummary {
  float delta_F_absolute = 0.0F;  ///< end points of F
  float delta_f_absolute = 0.0F;  ///< end points of f, self excluded
  float delta_F_smoothed = 0.0F;  ///< regression of ln(1 - F) on all years
  float delta_f_smoothed = 0.0F;
};

/// Halves columns 2 to 6 of the InbreedingTable, from relationships to kinships, and yields the rates. Must run once
/// only. The end points are the third and the last year; the exponent is 1 / (years - 2) (Falconer and Mackay, 1996,
/// for the rate; the choice of rows is this program's own). With fewer than three years the result has no meaning.
RateSummary compute_rates(std::int32_t year_count, YearTable<float>& inbreeding_table);

/// Slope of the least-squares line of y on x, in single precision; the mean of x is the truncated integer quotient.
/// x and y have the same length. Not a number when all x are equal.
float regression_slope(std::span<const std::int32_t> x, std::span<const float> y);

/// 1 - ((1 - last) / (1 - first)) to the power of `exponent`: the rate between two means.
float rate_between(float first, float last, float exponent);

/// ln(1 - value), correctly rounded to single precision on every machine.
float log_of_complement(float value);

}  // namespace pedigreewatch
