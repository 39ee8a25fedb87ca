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
    {"F is the mean inbreeding of the animals born in a year and f the mean kinship of each two of them; the line of the parents ends one generation interval before the last year, because later animals are still to become parents.",
     "F is de gemiddelde inteelt van de dieren die in een jaar geboren zijn en f de gemiddelde verwantschap van elke twee van hen; de lijn van de ouders eindigt een generatie-interval v\xC3\xB3\xC3\xB3r het laatste jaar, omdat latere dieren nog ouder moeten worden."},
    {"F, f (0 to 1)", "F, f (0 tot 1)"}};
constexpr Wording F_all = {"F, all animals", "F, alle dieren"};
constexpr Wording f_with = {"f, self included", "f, inclusief zelf"};
constexpr Wording f_without = {"f, without self", "f, zonder zelf"};
constexpr Wording f_parents = {"f, parents", "f, ouders"};
constexpr Wording f_fathers = {"f, fathers", "f, vaders"};
constexpr Wording f_mothers = {"f, mothers", "f, moeders"};

constexpr ChartTexts period_texts = {
    "periods",
    {"Rate of inbreeding per generation, by period", "Inteelttoename per generatie, per periode"},
    {"How fast F and f (self included) rose within each period; above 1 % per generation is commonly held to be too fast, below half a per cent to be sustainable.",
     "Hoe snel F en f (inclusief zelf) in elke periode stegen; meer dan 1 % per generatie geldt algemeen als te snel, minder dan een half procent als duurzaam."},
    {"% per generation", "% per generatie"}};
constexpr Wording period_heading = {"Period", "Periode"};
constexpr Wording F_rate = {"F, all animals (%)", "F, alle dieren (%)"};
constexpr Wording f_rate = {"f, self included (%)", "f, inclusief zelf (%)"};

constexpr Wording outside_chart = {"{1}: {2} is {3}, outside of the chart", "{1}: {2} is {3}, buiten de grafiek"};

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
  const double interval = static_cast<double>(frame.whole().interval.generation_interval);
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

/// Rates of the first years, with few known ancestors, may be so far off that no other one could be read beside them.
void mark_rates_outside(Chart& chart, ToolLanguage language) {
  constexpr double lowest = -5.0, highest = 10.0;
  for (Series& series : chart.series) {
    for (std::size_t place = 0; place < series.values.size(); ++place) {
      Value& value = series.values[place];
      if (!value || (*value >= lowest && *value <= highest)) continue;
      chart.marks.push_back(
          {place, *value < lowest ? lowest : highest,
           phrase(outside_chart, language, {chart.places[place], series.name, report_figure(*value, 3, language)})});
      value.reset();
    }
  }
}

}  // namespace

Chart inbreeding_chart(const PageFrame& frame) {
  Chart chart = make_year_chart(frame, ChartKind::lines, inbreeding_texts);
  const auto animals = [&](Row row) { return std::ssize(frame.animals(row)); };
  const auto fathers = [&](Row row) { return parents_of(frame, row, male); };
  const auto mothers = [&](Row row) { return parents_of(frame, row, female); };
  const auto parents = [&](Row row) { return fathers(row) + mothers(row); };
  const auto any_animal = [&](Row row) { return animals(row) > 0 ? 2 : 0; };
  constexpr int decimals = 4;
  add_series(chart, frame.text(F_all), kinship_by_year(frame, &InbreedingRow::F, any_animal), decimals);
  add_column(chart, frame.text(f_with), kinship_by_year(frame, &InbreedingRow::f_with_self, any_animal), decimals);
  add_series(chart, frame.text(f_without), kinship_by_year(frame, &InbreedingRow::f_without_self, animals), decimals);
  std::vector<Value> of_parents = kinship_by_year(frame, &InbreedingRow::f_of_parents, parents);
  add_series(chart, frame.text(f_parents), of_parents, decimals);
  std::vector<Value>& drawn = chart.series.back().values;
  for (Row row = std::max(frame.years.first, last_row_of_parents(frame) + 1); row <= frame.years.last; ++row) {
    drawn[static_cast<std::size_t>(row - frame.years.first)].reset();  // the table has these years too
  }
  add_column(chart, frame.text(f_fathers), kinship_by_year(frame, &InbreedingRow::f_of_fathers, fathers), decimals);
  add_column(chart, frame.text(f_mothers), kinship_by_year(frame, &InbreedingRow::f_of_mothers, mothers), decimals);
  mark_lone_first_year(chart, frame);
  mark_rises(chart, frame);
  return chart;
}

Chart period_rates_chart(const PageFrame& frame) {
  Chart chart = make_chart(frame, ChartKind::lines, period_texts, period_heading);
  std::vector<Value> F, f;
  for (const PeriodRate& period : frame.whole().periods.periods) {
    if (period.first < frame.years.first) continue;
    add_place(chart, frame.year(period.first) + "-" + frame.year(period.last));
    F.push_back(known_if(true, period.F));
    f.push_back(known_if(true, period.f));
  }
  constexpr int decimals = 3;
  add_series(chart, frame.text(F_rate), F, decimals);
  add_series(chart, frame.text(f_rate), f, decimals);
  mark_rates_outside(chart, frame.language);
  chart.references = {{0.5, "0.5 %: Ne 100"}, {1.0, "1 %: Ne 50"}};
  return chart;
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
      return has_meaning ? report_figure(static_cast<double>(value), decimals, frame.language) : std::string(no_figure);
    };
    table.rows.push_back(
        {frame.text(ways[way]),
         {percent(rate.percent_per_year), percent(rate.percent_per_generation),
          is_estimable(frame, rate) ? report_figure(static_cast<double>(rate.effective_size), decimals, frame.language)
                                    : not_estimable(frame)}});
  }
  return table;
}

}  // namespace pedigreewatch
