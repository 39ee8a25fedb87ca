// A mark needs a point of the chart that it can stand on.

#include "page/page_marks.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "page/page_text.h"

namespace pedigreewatch {
namespace {

constexpr Wording rise = {
    "{1} to {2}: F rose from {3} to {4} %, {5} % per generation; the usual limit is 1 %",
    "{1} tot {2}: F steeg van {3} naar {4} %, {5} % per generatie; de gebruikelijke grens is 1 %"};
constexpr Wording lone_year = {"{1}: the first year stands alone, no animal was born in the year after it",
                               "{1}: het eerste jaar staat alleen, in het jaar erna is geen dier geboren"};
constexpr Wording negative = {
    "{1}: the mean age of {2} is below 0 ({3}): parents born after their offspring",
    "{1}: de gemiddelde leeftijd van {2} is kleiner dan 0 ({3}): ouders geboren na hun nakomelingen"};

/// A rise is one over at least so many years: what a year alone does is chance.
constexpr std::size_t least_years = 3;
constexpr double most_per_generation = 0.01;

struct Rise {
  std::size_t first = 0, last = 0;
  double per_generation = 0.0;
};

/// The rise of F, in per cent, between two places.
Rise rise_between(const std::vector<Value>& F, std::size_t first, std::size_t last, double generation_interval) {
  constexpr double hundred = 100.0;
  const double generations = static_cast<double>(last - first) / generation_interval;
  const double left = (hundred - *F[last]) / (hundred - *F[first]);
  return {first, last, 1.0 - std::pow(std::max(left, 0.0), 1.0 / generations)};
}

/// Spans of years in which F rose faster than the limit from each generation interval to the next; those that overlap
/// are one.
std::vector<Rise> find_rises(const Chart& chart, double generation_interval) {
  const std::vector<Value>& F = chart.series.front().values;
  const std::size_t span = std::max(least_years, static_cast<std::size_t>(std::lround(generation_interval)));
  const auto is_point = [&](std::size_t place) { return F[place] && *F[place] < 100.0 && !chart.is_hollow[place]; };
  std::vector<Rise> rises;
  for (std::size_t last = span; last < F.size(); ++last) {
    const std::size_t first = last - span;
    if (!is_point(first) || !is_point(last)) continue;
    if (rise_between(F, first, last, generation_interval).per_generation <= most_per_generation) continue;
    const bool goes_on = !rises.empty() && first <= rises.back().last;
    if (!goes_on) rises.push_back({first, last, 0.0});
    rises.back().last = last;
  }
  for (Rise& found : rises) found = rise_between(F, found.first, found.last, generation_interval);
  std::erase_if(rises, [](const Rise& found) { return found.per_generation <= most_per_generation; });
  return rises;
}

/// The fastest ones, in the order of the years.
void keep_fastest(std::vector<Rise>& rises, std::size_t most) {
  if (rises.size() <= most) return;
  std::stable_sort(rises.begin(), rises.end(),
                   [](const Rise& a, const Rise& b) { return a.per_generation > b.per_generation; });
  rises.resize(most);
  std::sort(rises.begin(), rises.end(), [](const Rise& a, const Rise& b) { return a.first < b.first; });
}

}  // namespace

void mark_rises(Chart& chart, const PageFrame& frame) {
  const double interval = frame.whole().interval.generation_interval;
  constexpr double longest = 1000.0, hundred = 100.0;
  if (!(interval > 0.0 && interval < longest)) return;
  std::vector<Rise> rises = find_rises(chart, interval);
  keep_fastest(rises, most_marks - std::min(most_marks, chart.marks.size()));
  const std::vector<Value>& F = chart.series.front().values;
  const auto figure = [&](double value) { return report_figure(value, 1, frame.language); };
  for (const Rise& found : rises) {
    chart.marks.push_back({found.last, *F[found.last],
                           phrase(rise, frame.language,
                                  {chart.places[found.first], chart.places[found.last], figure(*F[found.first]),
                                   figure(*F[found.last]), figure(hundred * found.per_generation)})});
  }
}

void mark_lone_first_year(Chart& chart, const PageFrame& frame) {
  if (frame.years.first != 1 || frame.years.count() < 2 || !frame.animals(2).empty()) return;
  double height = 0.0;
  for (const Series& series : chart.series) {
    const double value = series.values.front().value_or(0.0);
    height = chart.kind == ChartKind::stacked_bars ? height + value : std::max(height, value);
  }
  chart.marks.push_back({0, height, phrase(lone_year, frame.language, {chart.places.front()})});
}

void mark_negative_ages(Chart& chart, const PageFrame& frame) {
  for (std::size_t place = 0; place < chart.places.size(); ++place) {
    for (const Series& series : chart.series) {
      const Value& value = series.values[place];
      if (!value || *value >= 0.0) continue;
      chart.marks.push_back({place, *value,
                             phrase(negative, frame.language,
                                    {chart.places[place], series.name, report_figure(*value, 2, frame.language)})});
    }
  }
}

}  // namespace pedigreewatch
