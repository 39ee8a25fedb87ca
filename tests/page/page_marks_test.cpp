// What is marked as unusual, and what is just not.
#include "page/page_marks.h"

#include <gtest/gtest.h>

#include <cmath>

#include "page/chart_making.h"
#include "page/inbreeding_charts.h"
#include "support/analysed_population.h"
#include "support/lines.h"

namespace pedigreewatch::test {
namespace {

Chart chart_with(const std::vector<Value>& values) {
  Chart chart;
  for (std::size_t k = 0; k < values.size(); ++k) add_place(chart, std::to_string(2001 + k));
  add_series(chart, "F", values, 4);
  return chart;
}

/// How many marks a step puts on a chart with these values.
std::size_t marks_of(void (*mark)(Chart&, const PageFrame&), const std::vector<Value>& values) {
  const AnalysedPopulation population = analysed(animals_by_year({1, 1, 1}));
  const PageInput input{population};
  Chart chart = chart_with(values);
  mark(chart, make_frame(input));
  return chart.marks.size();
}

TEST(MarkRises, MoreThanOnePercentagePoint) {
  EXPECT_EQ(marks_of(mark_rises, {0.0, 0.01}), 0U);
  EXPECT_EQ(marks_of(mark_rises, {0.0, std::nextafter(0.01, 1.0)}), 1U);
  EXPECT_EQ(marks_of(mark_rises, {0.0, std::nullopt, 0.5}), 0U);
}

TEST(MarkNegativeAges, BelowNothing) {
  EXPECT_EQ(marks_of(mark_negative_ages, {0.0}), 0U);
  EXPECT_EQ(marks_of(mark_negative_ages, {-0.001}), 1U);
}

/// The chart of a period with this rise of F.
Chart rates_chart(float rate) {
  AnalysedPopulation population = analysed(animals_by_year({1, 1, 1}));
  PeriodRate period;
  period.first = 1;
  period.last = 3;
  period.F = rate;
  population.analysis.whole.periods.periods = {period};
  const PageInput input{population};
  return period_rates_chart(make_frame(input));
}

TEST(MarkRates, FromMinusFiveToTenPercentAreDrawn) {
  for (const float drawn : {-5.0F, 0.0F, 10.0F}) {
    EXPECT_EQ(rates_chart(drawn).series.front().values.front(), Value(static_cast<double>(drawn)));
    EXPECT_TRUE(rates_chart(drawn).marks.empty()) << drawn;
  }
  for (const float outside : {std::nextafter(-5.0F, -6.0F), std::nextafter(10.0F, 11.0F)}) {
    EXPECT_EQ(rates_chart(outside).series.front().values.front(), std::nullopt);
    EXPECT_EQ(rates_chart(outside).marks.size(), 1U) << outside;
  }
}

TEST(HollowPoints, AreYearsWithFewerThanTenAnimals) {
  const AnalysedPopulation population = analysed(animals_by_year({9, 10, 11}));
  const PageInput input{population};
  EXPECT_EQ(inbreeding_chart(make_frame(input)).is_hollow, (std::vector<bool>{true, false, false}));
}

TEST(InbreedingChart, TwoAnimalsHaveAKinship) {
  const AnalysedPopulation population = analysed(animals_by_year({2, 1, 2}));
  const PageInput input{population};
  const Chart chart = inbreeding_chart(make_frame(input));
  const auto without_self = chart.series.at(1).values;
  EXPECT_EQ(without_self, (std::vector<Value>{0.0, std::nullopt, 0.0}));
}

}  // namespace
}  // namespace pedigreewatch::test
