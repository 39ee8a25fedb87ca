// A mark needs a point of the chart that it can stand on.

#include "page/page_marks.h"

#include "page/page_text.h"

namespace pedigreewatch {
namespace {

constexpr Wording rise = {"{1}: F is {2} above the year before", "{1}: F ligt {2} boven het jaar ervoor"};
constexpr Wording lone_year = {"{1}: the first year stands alone, no animal was born in the year after it",
                               "{1}: het eerste jaar staat alleen, in het jaar erna is geen dier geboren"};
constexpr Wording negative = {
    "{1}: the mean age of {2} is below 0 ({3}): parents born after their offspring",
    "{1}: de gemiddelde leeftijd van {2} is kleiner dan 0 ({3}): ouders geboren na hun nakomelingen"};

}  // namespace

void mark_rises(Chart& chart, const PageFrame& frame) {
  constexpr double one_percent = 0.01;
  const std::vector<Value>& F = chart.series.front().values;
  for (std::size_t place = 1; place < F.size(); ++place) {
    if (!F[place] || !F[place - 1] || *F[place] - *F[place - 1] <= one_percent) continue;
    const std::string difference = report_figure(*F[place] - *F[place - 1], 4, frame.language);
    chart.marks.push_back({place, *F[place], phrase(rise, frame.language, {chart.places[place], difference})});
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
