#include "forecast/level.h"

#include <algorithm>
#include <cmath>

namespace pedigreewatch {

namespace {

constexpr std::size_t least_years = 3;

/// A straight line: at a place counted from the middle of the years.
struct Line {
  double mean = 0.0, slope = 0.0, squares = 0.0;

  double at(double distance) const { return mean + slope * distance; }
};

double distance_of(std::size_t year, std::size_t years) {
  return static_cast<double>(year) - 0.5 * static_cast<double>(years - 1);
}

Line line_through(std::span<const double> rates) {
  Line line;
  for (std::size_t k = 0; k < rates.size(); ++k) {
    const double distance = distance_of(k, rates.size());
    line.mean += rates[k] / static_cast<double>(rates.size());
    line.slope += distance * rates[k];
    line.squares += distance * distance;
  }
  line.slope /= line.squares;
  return line;
}

bool is_trend(const Line& line, std::span<const double> rates, double mean_among) {
  double residuals = 0.0;
  for (std::size_t k = 0; k < rates.size(); ++k) {
    const double residual = rates[k] - line.at(distance_of(k, rates.size()));
    residuals += residual * residual;
  }
  const double variance = std::max(line.mean / mean_among, residuals / static_cast<double>(rates.size() - 2));
  return std::abs(line.slope) >= errors_of_trend * std::sqrt(variance / line.squares);
}

}  // namespace

Level level_of(std::span<const YearCount> years) {
  Level level;
  level.factors.assign(years.size(), 1.0);
  const auto count = static_cast<double>(years.size());
  std::vector<double> rates;
  double mean_among = 0.0;
  for (const YearCount& year : years) {
    if (year.among <= 0.0) return level;
    rates.push_back(year.count / year.among);
    level.last += rates.back() / count;
    mean_among += year.among / count;
  }
  if (years.size() < least_years || level.last <= 0.0) return level;
  const Line line = line_through(rates);
  if (!is_trend(line, rates, mean_among)) return level;
  level.is_trend = true;
  level.last = std::max(line.at(distance_of(years.size() - 1, years.size())), 0.0);
  for (std::size_t k = 0; k < years.size() && level.last > 0.0; ++k) {
    const double here = line.at(distance_of(k, years.size()));
    level.factors[k] = level.last < most_level * here ? level.last / here : most_level;
  }
  if (level.last <= 0.0) level.factors.assign(years.size(), 0.0);
  return level;
}

}  // namespace pedigreewatch
