// Sums and slopes run in single precision and in the order of the years, as all reports so far; only powers and
// logarithms are taken in double precision, so that they come out alike on every machine.

#include "genetics/rates.h"

#include <cmath>

#include "core/integers.h"
#include "genetics/subpopulation_kinship.h"

namespace pedigreewatch {
namespace {

constexpr float percent = 100.0F;

/// The slope on the rows `first` to `last` of a value of each row.
template <typename ValueOfRow>
float slope_of_rows(Row first, Row last, ValueOfRow&& value_of_row) {
  std::vector<std::int32_t> x;
  std::vector<float> y;
  for (Row row = first; row <= last; ++row) {
    x.push_back(static_cast<std::int32_t>(row));
    y.push_back(value_of_row(row));
  }
  return regression_slope(x, y);
}

/// Minus the slope of ln(1 - value), over the rows `first` to `last` of one column.
float log_slope(const YearRows<InbreedingRow>& rows, float InbreedingRow::*column, Row first, Row last) {
  return 0.0F - slope_of_rows(first, last, [&](Row row) { return log_of_complement(rows.of(row).*column); });
}

GenerationRate generation_rate(float rate, float percent_per_generation) {
  return {rate * percent, percent_per_generation, 1.0F / (percent_per_generation * 0.02F)};
}

/// The relative change of a mean that approaches 1.
float change_between(float before, float now) {
  return (now - before) / (1.0F - before);
}

}  // namespace

float log_of_complement(float value) {
  return static_cast<float>(std::log(double{1.0F - value}));
}

float rate_between(float first, float last, float exponent) {
  const float ratio = (1.0F - last) / (1.0F - first);
  return 1.0F - static_cast<float>(std::pow(double{ratio}, double{exponent}));
}

float regression_slope(std::span<const std::int32_t> x, std::span<const float> y) {
  const std::int32_t n = static_cast<std::int32_t>(x.size());
  std::int32_t x_sum = 0;
  float y_sum = 0.0F;
  for (const std::int32_t value : x) x_sum = wrapped(std::int64_t{x_sum} + value);
  for (const float value : y) y_sum += value;
  const float x_mean = real(n == 0 ? 0 : x_sum / n);
  const float y_mean = y_sum / real(n);
  float products = 0.0F, squares = 0.0F;
  for (std::size_t i = 0; i < x.size(); ++i) {
    const float from_mean = real(x[i]) - x_mean;
    products += from_mean * (y[i] - y_mean);
    squares += from_mean * from_mean;
  }
  return products / squares;
}

RateSummary compute_rates(const YearRows<InbreedingRow>& rows, std::int32_t year_count) {
  constexpr Row base_row = 3;
  const float exponent = 1.0F / real(wrapped(std::int64_t{year_count} - 2));
  const InbreedingRow base = rows.of(base_row), last = rows.of(year_count);
  return {.delta_F_absolute = rate_between(base.F, last.F, exponent),
          .delta_f_absolute = rate_between(base.f_without_self, last.f_without_self, exponent),
          .delta_F_smoothed = log_slope(rows, &InbreedingRow::F, 1, rows.row_count()),
          .delta_f_smoothed = log_slope(rows, &InbreedingRow::f_without_self, 1, rows.row_count())};
}

YearRows<InbreedingRow> trend_of_subpopulation(const YearTable<float>& kinship_table, std::int32_t k) {
  YearRows<InbreedingRow> trend(kinship_table.row_count());
  for (Row row = 1; row <= trend.row_count(); ++row) {
    const float F = kinship_table.value(row, inbreeding_column(k));
    const float f = kinship_table.value(row, kinship_column(k));
    if (F == 0.0F && f == 0.0F) continue;
    const InbreedingRow before = trend.of(row - 1);
    InbreedingRow& now = trend.at(row);
    now.F = F;
    now.f_with_self = f;
    if (row == 1 || !(F > 0.0F)) continue;
    now.f_without_self = change_between(before.F, F);
    now.f_of_parents = change_between(before.f_with_self, f);
  }
  return trend;
}

RateSummary rates_of_trend(const YearRows<InbreedingRow>& trend, std::int32_t year_count) {
  const float exponent = 1.0F / real(year_count);
  const InbreedingRow first = trend.of(1), last = trend.of(year_count);
  const auto slope_of = [&](float InbreedingRow::*column) {
    return slope_of_rows(1, trend.row_count(), [&](Row row) { return trend.of(row).*column; });
  };
  return {.delta_F_absolute = rate_between(first.F, last.F, exponent),
          .delta_f_absolute = rate_between(first.f_with_self, last.f_with_self, exponent),
          .delta_F_smoothed = slope_of(&InbreedingRow::F),
          .delta_f_smoothed = slope_of(&InbreedingRow::f_with_self)};
}

GenerationRates rates_per_generation(const RateSummary& rates, float generation_interval) {
  const float generation_percent = generation_interval * percent;
  const auto rate_of = [&](float rate) { return generation_rate(rate, rate * generation_percent); };
  // The first rate is multiplied by 100 before the interval, the others after it; the last digit may differ.
  const float F_absolute = rates.delta_F_absolute * percent * generation_interval;
  return {.F_absolute = generation_rate(rates.delta_F_absolute, F_absolute),
          .F_smoothed = rate_of(rates.delta_F_smoothed),
          .f_absolute = rate_of(rates.delta_f_absolute),
          .f_smoothed = rate_of(rates.delta_f_smoothed)};
}

PeriodRates rates_per_period(const YearRows<InbreedingRow>& rows, std::int32_t year_count, float generation_interval) {
  constexpr std::int64_t years_per_period = 10;
  if (year_count <= years_per_period) return {};
  const std::int64_t later_periods = year_count / years_per_period;
  PeriodRates result{year_count / (later_periods + 1), {}};
  const float generation_percent = generation_interval * percent;
  const auto add_period = [&](Row first, Row last) {
    result.periods.push_back({first, last, log_slope(rows, &InbreedingRow::F, first, last) * generation_percent,
                              log_slope(rows, &InbreedingRow::f_with_self, first, last) * generation_percent});
  };
  const Row first_length = year_count - later_periods * result.length;
  add_period(1, first_length);
  for (Row last = first_length + result.length; last <= year_count; last += result.length) {
    add_period(last - result.length, last);
  }
  return result;
}

}  // namespace pedigreewatch
