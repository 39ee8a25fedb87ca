#include "forecast/forecast_summary.h"

#include <cmath>
#include <limits>

#include "core/shares.h"

namespace pedigreewatch {
namespace {

/// The slope of -ln(1 - value) over the years, as a part that is lost each year.
std::optional<double> rate_of(const ReplicateYears& years, double YearKinship::*value, double years_each) {
  constexpr std::size_t least_years = 3;
  if (years.size() < least_years) return std::nullopt;
  const double count = static_cast<double>(years.size()), middle = (count - 1.0) / 2.0;
  double products = 0.0, squares = 0.0, place = 0.0;
  for (const ModelYear& year : years) {
    const double loss = -std::log1p(-std::min(year.kinship.*value, 1.0 - 1e-9));
    products += (place - middle) * loss;
    squares += (place - middle) * (place - middle);
    place += 1.0;
  }
  return -std::expm1(-products / squares * years_each);
}

std::optional<double> interval_of(const ReplicateYears& years) {
  double sum = 0.0, count = 0.0;
  for (const ModelYear& year : years) {
    if (!year.parent_age) continue;
    sum += *year.parent_age;
    count += 1.0;
  }
  return count > 0.0 ? std::optional(sum / count) : std::nullopt;
}

std::optional<double> rate_per_generation(const ReplicateYears& years, double YearKinship::*value) {
  const std::optional<double> interval = interval_of(years);
  return interval ? rate_of(years, value, *interval) : std::nullopt;
}

std::optional<double> diversity_kept(const Forecast& forecast, const ReplicateYears& years, std::size_t after) {
  if (after > years.size() || forecast.start.with_self >= 1.0) return std::nullopt;
  return (1.0 - years[after - 1].kinship.with_self) / (1.0 - forecast.start.with_self);
}

std::optional<double> refused_a_year(const ReplicateYears& years, std::int64_t RefusedCounts::*count) {
  double sum = 0.0;
  for (const ModelYear& year : years) sum += static_cast<double>(year.refused.*count);
  return mean_over(sum, years.size());
}

std::optional<double> effective_size(const ReplicateYears& years) {
  const std::optional<double> rate = rate_per_generation(years, &YearKinship::without_self);
  if (!rate || *rate <= 0.0) return std::nullopt;
  return 0.5 / *rate;
}

/// The sizes of these rates: without limit where kinship does not rise. Of a median rate the size is the median one.
Band sizes_of(const Band& rate) {
  const auto size = [](double loss) { return loss > 0.0 ? 0.5 / loss : std::numeric_limits<double>::infinity(); };
  return {size(rate.high), size(rate.median), size(rate.low), rate.replicates, size(rate.most), size(rate.least)};
}

}  // namespace

std::optional<double> figure_of(const Forecast& forecast, const ReplicateYears& years, SummaryFigure figure) {
  if (years.empty()) return std::nullopt;
  switch (figure) {
    case SummaryFigure::kinship_rate_per_year: return rate_of(years, &YearKinship::without_self, 1.0);
    case SummaryFigure::kinship_rate_per_generation: return rate_per_generation(years, &YearKinship::without_self);
    case SummaryFigure::inbreeding_rate_per_year: return rate_of(years, &YearKinship::mean_f, 1.0);
    case SummaryFigure::inbreeding_rate_per_generation: return rate_per_generation(years, &YearKinship::mean_f);
    case SummaryFigure::effective_size: return effective_size(years);
    case SummaryFigure::diversity_kept_10: return diversity_kept(forecast, years, 10);
    case SummaryFigure::diversity_kept_25: return diversity_kept(forecast, years, 25);
    case SummaryFigure::diversity_kept_50: return diversity_kept(forecast, years, 50);
    case SummaryFigure::last_mean_f: return years.back().kinship.mean_f;
    case SummaryFigure::last_kinship: return years.back().kinship.with_self;
    case SummaryFigure::refused_litters: return refused_a_year(years, &RefusedCounts::litters);
    case SummaryFigure::refused_sires: return refused_a_year(years, &RefusedCounts::sires);
    case SummaryFigure::refused_pairs: return refused_a_year(years, &RefusedCounts::pairs);
    case SummaryFigure::refused_entrants: return refused_a_year(years, &RefusedCounts::entrants);
    case SummaryFigure::lost_litters: return refused_a_year(years, &RefusedCounts::lost);
  }
  return std::nullopt;
}

std::vector<ScenarioSummary> summarise(const Forecast& forecast) {
  std::vector<ScenarioSummary> summaries;
  for (const ScenarioForecast& scenario : forecast.scenarios) {
    ScenarioSummary& summary = summaries.emplace_back();
    summary.died_out = scenario.died_out(forecast.years - 1);
    for (std::size_t k = 0; k < summary_figures; ++k) {
      const auto figure = static_cast<SummaryFigure>(k);
      std::vector<double> values, differences;
      for (std::size_t replicate = 0; replicate < scenario.replicates.size(); ++replicate) {
        const ReplicateYears& years = scenario.replicates[replicate];
        const ReplicateYears& first = forecast.scenarios.front().replicates[replicate];
        if (std::ssize(years) < forecast.years) continue;
        const auto value = figure_of(forecast, years, figure);
        if (!value) continue;
        values.push_back(*value);
        if (&years == &first || std::ssize(first) < forecast.years) continue;
        if (const auto present = figure_of(forecast, first, figure)) differences.push_back(*value - *present);
      }
      summary.rows[k] = {figure, band_of(std::move(values)), band_of(std::move(differences))};
    }
    const auto& rate = summary.of(SummaryFigure::kinship_rate_per_generation).value;
    if (rate) summary.rows[static_cast<std::size_t>(SummaryFigure::effective_size)].value = sizes_of(*rate);
  }
  return summaries;
}

}  // namespace pedigreewatch
