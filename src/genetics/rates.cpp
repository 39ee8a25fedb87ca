#include "genetics/rates.h"

#include <cmath>
#include <vector>

#include "core/integers.h"
#include "genetics/kinship.h"

namespace pedigreewatch {
namespace {

/// Minus the slope of ln(1 - value) on the row numbers, over all rows of one column.
float smoothed_rate(const YearTable<float>& table, std::int64_t column) {
  std::vector<std::int32_t> x;
  std::vector<float> y;
  for (std::int32_t row = 1; row <= table.row_count; ++row) {
    x.push_back(row);
    y.push_back(log_of_complement(table.value(row, column)));
  }
  return 0.0F - regression_slope(x, y);
}

}  // namespace

float log_of_complement(float value) {
  return static_cast<float>(std::log(static_cast<double>(1.0F - value)));
}

float rate_between(float first, float last, float exponent) {
  const float ratio = (1.0F - last) / (1.0F - first);
  return 1.0F - static_cast<float>(std::pow(static_cast<double>(ratio), static_cast<double>(exponent)));
}

float regression_slope(std::span<const std::int32_t> x, std::span<const float> y) {
  const std::int32_t n = static_cast<std::int32_t>(x.size());
  std::int32_t x_sum = 0;
  float y_sum = 0.0F;
  for (const std::int32_t value : x) x_sum = wrapped(std::int64_t{x_sum} + value);
  for (const float value : y) y_sum += value;
  const float x_mean = static_cast<float>(n == 0 ? 0 : x_sum / n);
  const float y_mean = y_sum / static_cast<float>(n);
  float products = 0.0F, squares = 0.0F;
  for (std::size_t i = 0; i < x.size(); ++i) {
    const float from_mean = static_cast<float>(x[i]) - x_mean;
    products += from_mean * (y[i] - y_mean);
    squares += from_mean * from_mean;
  }
  return products / squares;
}

RateSummary compute_rates(std::int32_t year_count, YearTable<float>& inbreeding_table) {
  const std::int64_t columns = inbreeding_table.column_count;
  for (std::size_t i = 0; i < inbreeding_table.cells.size(); ++i) {
    if (static_cast<std::int64_t>(i) % columns + 1 >= kinship_with_self) inbreeding_table.cells[i] *= 0.5F;
  }
  constexpr std::int64_t base_row = 3;
  const float exponent = 1.0F / static_cast<float>(wrapped(std::int64_t{year_count} - 2));
  const auto absolute_rate = [&](InbreedingColumn column) {
    return rate_between(inbreeding_table.value(base_row, column), inbreeding_table.value(year_count, column), exponent);
  };
  return {.delta_F_absolute = absolute_rate(mean_inbreeding),
          .delta_f_absolute = absolute_rate(kinship_without_self),
          .delta_F_smoothed = smoothed_rate(inbreeding_table, mean_inbreeding),
          .delta_f_smoothed = smoothed_rate(inbreeding_table, kinship_without_self)};
}

}  // namespace pedigreewatch
