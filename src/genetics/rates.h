// How fast inbreeding and kinship rise, from the yearly means: per year, per generation and per period, and the
// effective size that follows (Falconer and Mackay, 1996).
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "core/year_table.h"
#include "genetics/yearly_inbreeding.h"

namespace pedigreewatch {

/// Rates per year, as fractions.
struct RateSummary {
  float delta_F_absolute = 0.0F;  ///< from two years of F
  float delta_f_absolute = 0.0F;  ///< from two years of f
  float delta_F_smoothed = 0.0F;  ///< from a regression on all years
  float delta_f_smoothed = 0.0F;
};

/// The rates of the whole population, from F and from f without self. The end points are the third and the last year;
/// the exponent is 1 / (years - 2) (the choice of rows is this program's own). Smoothed is minus the slope of
/// ln(1 - value). With fewer than three years the result has no meaning.
RateSummary compute_rates(const YearRows<InbreedingRow>& rows, std::int32_t year_count);

/// F and f of subpopulation `k` from the KinshipTable, in the columns of F and f with self. The two columns behind them
/// hold their relative changes from year to year instead of further kinships, formed only in years with inbreeding:
/// the block of a subpopulation shows them there.
YearRows<InbreedingRow> trend_of_subpopulation(const YearTable<float>& kinship_table, std::int32_t k);

/// The rates of such a trend. Unlike those of the whole population they run from the first year, with an exponent of
/// 1 / years, and the slopes are taken on the plain values and keep their sign.
RateSummary rates_of_trend(const YearRows<InbreedingRow>& trend, std::int32_t year_count);

/// One rate in the units of the report.
struct GenerationRate {
  float percent_per_year = 0.0F;
  float percent_per_generation = 0.0F;
  float effective_size = 0.0F;  ///< 1 / (2 rate per generation); nothing guards it against a rate of 0 or below
};

struct GenerationRates {
  GenerationRate F_absolute, F_smoothed, f_absolute, f_smoothed;
};

/// `generation_interval` is in years.
GenerationRates rates_per_generation(const RateSummary& rates, float generation_interval);

/// Minus the slope of ln(1 - value) on the years of a period, per generation and in percent.
struct PeriodRate {
  Row first = 0, last = 0;
  float F = 0.0F;
  float f = 0.0F;  ///< f with self
};

/// Periods of about ten years. The first one takes up the remainder, and every later one begins with the last year of
/// the one before. None when there are ten years or fewer.
struct PeriodRates {
  std::int64_t length = 0;  ///< in years, of all periods but the first
  std::vector<PeriodRate> periods;
};

PeriodRates rates_per_period(const YearRows<InbreedingRow>& rows, std::int32_t year_count, float generation_interval);

/// Slope of the least-squares line of y on x, in single precision; the mean of x is the truncated integer quotient.
/// x and y have the same length. Not a number when all x are equal.
float regression_slope(std::span<const std::int32_t> x, std::span<const float> y);

/// 1 - ((1 - last) / (1 - first)) to the power of `exponent`: the rate between two means.
float rate_between(float first, float last, float exponent);

/// ln(1 - value), correctly rounded to single precision on every machine.
float log_of_complement(float value);

}  // namespace pedigreewatch
