// Ticks stand at 1, 2 or 5 times a power of ten: numbers that people count in.

#include "page/chart_axis.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace pedigreewatch {
namespace {

constexpr double most_steps = 6.0;
constexpr double rounding = 1e-3;  // of a step: shares that sum to 1.0000001 need no tick above 1

/// The smallest round step that needs at most so many of them, and its decimals.
ValueAxis with_round_step(double span, bool counts_only) {
  ValueAxis axis;
  const double least = span / most_steps;
  const double exponent = std::floor(std::log10(least));
  const double power = std::pow(10.0, exponent);
  axis.step = power * 10.0;
  for (const double factor : {1.0, 2.0, 5.0}) {
    if (factor * power >= least * (1.0 - rounding)) {
      axis.step = factor * power;
      break;
    }
  }
  if (counts_only) axis.step = std::max(axis.step, 1.0);
  axis.decimals = std::max(0, static_cast<int>(-std::floor(std::log10(axis.step) + 1e-9)));
  return axis;
}

struct ValueRange {
  double lowest = 0.0, highest = 0.0;

  void add(double value) {
    lowest = std::min(lowest, value);
    highest = std::max(highest, value);
  }
};

/// What stands upon one another at a place.
double sum_at(const Chart& chart, std::size_t place) {
  double sum = 0.0;
  for (const Series& series : chart.series) sum += series.values[place].value_or(0.0);
  return sum;
}

bool are_counts(const Chart& chart) {
  for (const Series& series : chart.series) {
    for (const Value& value : series.values) {
      if (value && *value != std::floor(*value)) return false;
    }
  }
  return true;
}

}  // namespace

bool has_values(const Chart& chart) {
  if (std::any_of(chart.panels.begin(), chart.panels.end(), has_values)) return true;
  return std::any_of(chart.series.begin(), chart.series.end(), [&](const Series& series) {
    return std::any_of(series.values.begin(), series.values.end(),
                       [&](const Value& value) { return value && (chart.kind == ChartKind::lines || *value > 0.0); });
  });
}

int ValueAxis::tick_count() const {
  return static_cast<int>(std::lround((high - low) / step)) + 1;
}

ValueAxis make_value_axis(double lowest, double highest, bool counts_only) {
  lowest = std::min(lowest, 0.0);
  highest = std::max(highest, 0.0);
  constexpr double least_span = 1e-6;
  if (highest - lowest < least_span) highest = lowest + 1.0;  // all values are 0 but for rounding
  ValueAxis axis = with_round_step(highest - lowest, counts_only);
  axis.low = std::floor(lowest / axis.step + rounding) * axis.step;
  axis.high = std::ceil(highest / axis.step - rounding) * axis.step;
  if (axis.high <= axis.low) axis.high = axis.low + axis.step;
  return axis;
}

ValueAxis value_axis_of(const Chart& chart) {
  ValueRange range;
  for (std::size_t place = 0; place < chart.places.size(); ++place) {
    if (chart.kind == ChartKind::stacked_bars) range.add(sum_at(chart, place));
    for (const Series& series : chart.series) {
      if (series.values[place] && chart.kind == ChartKind::lines) range.add(*series.values[place]);
      if (place < series.high.size() && series.high[place]) range.add(*series.high[place]);
    }
  }
  for (const ReferenceLine& reference : chart.references) range.add(reference.value);
  for (const Slope& slope : chart.slopes) {
    range.add(slope.first_value);
    range.add(slope.last_value);
  }
  for (const Mark& mark : chart.marks) range.add(mark.value);
  return make_value_axis(range.lowest, range.highest, are_counts(chart));
}

ValueAxis value_axis_of_panels(const Chart& chart, std::string_view unit) {
  double low = 0.0, high = 0.0;
  for (const Chart& panel : chart.panels) {
    if (panel.unit != unit || !has_values(panel)) continue;
    const ValueAxis own = value_axis_of(panel);
    low = std::min(low, own.low);
    high = std::max(high, own.high);
  }
  return make_value_axis(low, high, false);
}

std::vector<std::size_t> labelled_places(const Chart& chart, double width) {
  constexpr double letter_width = 7.0, between = 14.0;
  constexpr auto round_steps = std::to_array<std::size_t>({1, 2, 5, 10, 20, 50, 100});
  std::size_t longest = 1;
  for (const std::string& place : chart.places) longest = std::max(longest, place.size());
  const double least =
      (static_cast<double>(longest) * letter_width + between) * static_cast<double>(chart.places.size());
  const auto fits = [&](std::size_t step) { return least <= static_cast<double>(step) * width; };
  std::size_t step = *std::find_if(round_steps.begin(), round_steps.end() - 1, fits);
  while (!fits(step)) step += round_steps.back();
  std::vector<std::size_t> labelled;
  for (std::size_t place = 0; place < chart.places.size(); ++place) {
    const std::int64_t number = chart.first_number.value_or(0) + static_cast<std::int64_t>(place);
    if (number % static_cast<std::int64_t>(step) == 0) labelled.push_back(place);
  }
  return labelled;
}

}  // namespace pedigreewatch
