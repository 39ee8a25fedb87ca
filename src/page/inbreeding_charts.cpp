// F and f as the report has them. What it prints as 0 for lack of animals is no point of a line.

#include "page/inbreeding_charts.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "page/chart_making.h"
#include "page/page_marks.h"

namespace pedigreewatch {
namespace {

constexpr ChartTexts inbreeding_texts = {
    "inbreeding",
    {"Inbreeding and kinship", "Inteelt en verwantschap"},
    {"F is the mean inbreeding of the animals born in a year and f the mean kinship of each two of them; the line of the parents ends one generation interval before the last year, because later animals are still to become parents. Straight lines: how fast F rose in each period, in per cent per generation; more than 1 % is commonly held to be too fast.",
     "F is de gemiddelde inteelt van de dieren die in een jaar geboren zijn en f de gemiddelde verwantschap van elke twee van hen; de lijn van de ouders eindigt een generatie-interval v\xC3\xB3\xC3\xB3r het laatste jaar, omdat latere dieren nog ouder moeten worden. Rechte lijnen: hoe snel F in elke periode steeg, in procenten per generatie; meer dan 1 % geldt algemeen als te snel."},
    {"%", "%"}};
constexpr Wording F_all = {"F, all animals", "F, alle dieren"};
constexpr Wording f_with = {"f, self included", "f, inclusief zelf"};
constexpr Wording f_without = {"f, without self", "f, zonder zelf"};
constexpr Wording f_parents = {"f, parents", "f, ouders"};
constexpr Wording f_sires = {"f, sires", "f, vaders"};
constexpr Wording f_dams = {"f, dams", "f, moeders"};

constexpr Wording period_heading = {"Period", "Periode"};
constexpr Wording F_rate = {"F, all animals (%)", "F, alle dieren (%)"};
constexpr Wording f_rate = {"f, self included (%)", "f, inclusief zelf (%)"};
constexpr Wording slope_text = {"{1} %", "{1} %"};

constexpr Wording way_heading = {"Rise of", "Toename van"};
constexpr Wording ways[] = {{"F, third and last year", "F, derde en laatste jaar"},
                            {"F, all years", "F, alle jaren"},
                            {"f, third and last year", "f, derde en laatste jaar"},
                            {"f, all years", "f, alle jaren"}};
constexpr Wording per_year = {"% per year", "% per jaar"};
constexpr Wording per_generation = {"% per generation", "% per generatie"};
constexpr Wording effective_size = {"Ne", "Ne"};
constexpr Wording not_estimable_words = {"not estimable", "niet te schatten"};

/// Rates are from the third year to the last one.
constexpr std::int32_t fewest_years = 3;

std::int64_t parents_of(const PageFrame& frame, Row row, Sex sex) {
  const ParentCount<std::int32_t> counts = frame.whole().tables.parent_counts.of(row).of(sex);
  return std::int64_t{counts.native_parents} + counts.imported_parents;
}

/// The last row whose animals have had a generation interval's time to become parents.
Row last_row_of_parents(const PageFrame& frame) {
  const double interval = frame.whole().interval.generation_interval;
  if (!std::isfinite(interval) || interval <= 0.0) return frame.years.last;
  const double years = std::min(std::ceil(interval), static_cast<double>(frame.years.last));
  return frame.years.last - static_cast<Row>(years);
}

/// One of the kinships of a year; known with at least two animals that it is about.
std::vector<Value> kinship_by_year(const PageFrame& frame, float InbreedingRow::*kinship, auto&& count_of) {
  constexpr std::int64_t fewest_animals = 2;
  return by_year(frame, [&](Row row) {
    return known_if(count_of(row) >= fewest_animals, std::max(frame.whole().inbreeding.of(row).*kinship, 0.0F));
  });
}

/// The mean place and the mean of what is drawn of some years.
struct MeanPoint {
  double place = 0.0, value = 0.0;
  std::int64_t years = 0;
};

MeanPoint mean_point(const std::vector<Value>& values, std::size_t first, std::size_t last) {
  MeanPoint mean;
  for (std::size_t place = first; place <= last; ++place) {
    if (!values[place]) continue;
    mean.place += static_cast<double>(place);
    mean.value += *values[place];
    ++mean.years;
  }
  if (mean.years == 0) return mean;
  mean.place /= static_cast<double>(mean.years);
  mean.value /= static_cast<double>(mean.years);
  return mean;
}

/// The rise of F of a period, from the report's rate, through the mean of its years. Rates of years with few animals or
/// few known ancestors may be so far off that they would press everything else flat: they stand in the table alone.
void add_slope(Chart& chart, const PageFrame& frame, const PeriodRate& period) {
  constexpr double lowest = -5.0, highest = 10.0;
  const double rate = period.F;
  const double interval = frame.whole().interval.generation_interval;
  if (period.first < frame.years.first || !(rate >= lowest && rate <= highest) || !(interval > 0.0)) return;
  const std::size_t first = static_cast<std::size_t>(period.first - frame.years.first);
  const std::size_t last = static_cast<std::size_t>(period.last - frame.years.first);
  const MeanPoint mean = mean_point(chart.series.front().values, first, last);
  if (mean.years < 2) return;
  constexpr double hundred = 100.0;
  const double a_year = rate / interval * (1.0 - mean.value / hundred);
  const auto height = [&](std::size_t place) {
    return std::max(0.0, mean.value + a_year * (static_cast<double>(place) - mean.place));
  };
  chart.slopes.push_back({first, last, height(first), height(last),
                          phrase(slope_text, frame.language, {report_figure(rate, 1, frame.language)})});
}

}  // namespace

Chart inbreeding_chart(const PageFrame& frame) {
  Chart chart = make_year_chart(frame, ChartKind::lines, inbreeding_texts);
  const auto animals = [&](Row row) { return std::ssize(frame.animals(row)); };
  const auto sires = [&](Row row) { return parents_of(frame, row, male); };
  const auto dams = [&](Row row) { return parents_of(frame, row, female); };
  const auto parents = [&](Row row) { return sires(row) + dams(row); };
  const auto any_animal = [&](Row row) { return animals(row) > 0 ? 2 : 0; };
  constexpr int decimals = 2;
  const auto percent = [&](float InbreedingRow::*kinship, auto&& count_of) {
    return in_percent(kinship_by_year(frame, kinship, count_of));
  };
  add_series(chart, frame.text(F_all), percent(&InbreedingRow::F, any_animal), decimals);
  add_column(chart, frame.text(f_with), percent(&InbreedingRow::f_with_self, any_animal), decimals);
  add_series(chart, frame.text(f_without), percent(&InbreedingRow::f_without_self, animals), decimals);
  std::vector<Value> of_parents = percent(&InbreedingRow::f_of_parents, parents);
  add_series(chart, frame.text(f_parents), of_parents, decimals);
  std::vector<Value>& drawn = chart.series.back().values;
  for (Row row = std::max(frame.years.first, last_row_of_parents(frame) + 1); row <= frame.years.last; ++row) {
    drawn[static_cast<std::size_t>(row - frame.years.first)].reset();  // the table has these years too
  }
  add_column(chart, frame.text(f_sires), percent(&InbreedingRow::f_of_fathers, sires), decimals);
  add_column(chart, frame.text(f_dams), percent(&InbreedingRow::f_of_mothers, dams), decimals);
  for (const PeriodRate& period : frame.whole().periods.periods) add_slope(chart, frame, period);
  add_rule_year(chart, frame);
  mark_lone_first_year(chart, frame);
  mark_rises(chart, frame);
  return chart;
}

FigureTable period_rates_table(const PageFrame& frame) {
  constexpr int decimals = 3;
  FigureTable table;
  table.headings = {frame.text(period_heading), frame.text(F_rate), frame.text(f_rate)};
  for (const PeriodRate& period : frame.whole().periods.periods) {
    if (period.first < frame.years.first) continue;
    table.rows.push_back(
        {frame.year(period.first) + "-" + frame.year(period.last),
         {report_figure(period.F, decimals, frame.language), report_figure(period.f, decimals, frame.language)}});
  }
  return table;
}

bool is_estimable(const PageFrame& frame, const GenerationRate& rate) {
  constexpr float beyond_populations = 100'000.0F;
  return frame.store().birth_years.dated_row_count() >= fewest_years && rate.effective_size > 0.0F &&
         rate.effective_size < beyond_populations;
}

std::string not_estimable(const PageFrame& frame) {
  return frame.text(not_estimable_words);
}

FigureTable effective_size_table(const PageFrame& frame, const GenerationRates& rates) {
  constexpr int decimals = 2;
  FigureTable table;
  table.headings = {frame.text(way_heading), frame.text(per_year), frame.text(per_generation),
                    frame.text(effective_size)};
  const GenerationRate* const all[] = {&rates.F_absolute, &rates.F_smoothed, &rates.f_absolute, &rates.f_smoothed};
  const bool has_meaning = frame.store().birth_years.dated_row_count() >= fewest_years;
  for (std::size_t way = 0; way < std::size(all); ++way) {
    const GenerationRate& rate = *all[way];
    const auto percent = [&](float value) {
      return has_meaning ? report_figure(value, decimals, frame.language) : std::string(no_figure);
    };
    table.rows.push_back({frame.text(ways[way]),
                          {percent(rate.percent_per_year), percent(rate.percent_per_generation),
                           is_estimable(frame, rate) ? report_figure(rate.effective_size, decimals, frame.language)
                                                     : not_estimable(frame)}});
  }
  return table;
}

}  // namespace pedigreewatch
