// What is marked as unusual, and what is just not.
#include "page/page_marks.h"

#include <gtest/gtest.h>

#include <algorithm>
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

/// What is marked of F, in per cent, of years of ten animals with a generation interval of three years.
std::vector<std::string> rises_of(const std::vector<Value>& F, float interval = 3.0F, bool is_hollow = false) {
  AnalysedPopulation population = analysed(animals_by_year({1, 1, 1}));
  population.analysis.whole.interval.generation_interval = interval;
  const PageInput input{population};
  Chart chart = chart_with(F);
  chart.is_hollow.assign(F.size(), is_hollow);
  mark_rises(chart, make_frame(input));
  std::vector<std::string> texts;
  for (const Mark& mark : chart.marks) texts.push_back(mark.text);
  return texts;
}

TEST(MarkRises, MoreThanOnePerCentPerGeneration) {
  EXPECT_TRUE(rises_of({0.0, 0.0, 0.0, 0.999}).empty());
  EXPECT_EQ(rises_of({0.0, 0.0, 0.0, 1.001}),
            (std::vector<std::string>{
                "2001 to 2004: F rose from 0.0 to 1.0 %, 1.0 % per generation; the usual limit is 1 %"}));
  EXPECT_TRUE(rises_of({0.0, 0.0, 0.0, 9.0}, 3.0F, true).empty()) << "years of few animals";
  EXPECT_TRUE(rises_of({0.0, 0.0, 0.0, 9.0}, std::nanf("")).empty()) << "no generation interval";
}

TEST(MarkRises, GoOverAGenerationIntervalAndThreeYearsAtLeast) {
  EXPECT_TRUE(rises_of({0.0, 0.0, 9.0}, 1.0F).empty());
  EXPECT_EQ(rises_of({0.0, 0.0, 0.0, 9.0}, 1.0F).size(), 1U);
  EXPECT_TRUE(rises_of({0.0, 0.0, 0.0, 9.0}, 4.0F).empty());
}

TEST(MarkRises, AnIntervalOfAThousandYearsIsNone) {
  std::vector<Value> F(1101, 0.0);
  std::fill(F.end() - 50, F.end(), 90.0);
  EXPECT_EQ(rises_of(F, 999.5F).size(), 1U);
  EXPECT_TRUE(rises_of(F, 1000.0F).empty());
}

TEST(MarkRises, ThoseThatOverlapAreOne) {
  EXPECT_EQ(rises_of({0.0, 2.0, 4.0, 6.0, 8.0, 10.0}),
            (std::vector<std::string>{
                "2001 to 2006: F rose from 0.0 to 10.0 %, 6.1 % per generation; the usual limit is 1 %"}));
}

TEST(MarkRises, AtMostFiveAreMarked) {
  const auto jumps = [](std::size_t count) {
    std::vector<Value> F;
    for (std::size_t k = 0; k < count; ++k)
      F.insert(F.end(), {0.0, std::nullopt, std::nullopt, 5.0 + double(k), std::nullopt});
    return F;
  };
  EXPECT_EQ(rises_of(jumps(5)).size(), 5U);
  const std::vector<std::string> six = rises_of(jumps(6));
  ASSERT_EQ(six.size(), 5U);
  EXPECT_TRUE(six.front().starts_with("2006 to 2009")) << "the slowest one is left out";
}

TEST(MarkNegativeAges, BelowNothing) {
  EXPECT_EQ(marks_of(mark_negative_ages, {0.0}), 0U);
  EXPECT_EQ(marks_of(mark_negative_ages, {-0.001}), 1U);
}

/// The chart of a period with this rise of F.
Chart chart_of_rate(float rate) {
  AnalysedPopulation population = analysed(animals_by_year({1, 1, 1}));
  PeriodRate period;
  period.first = 1;
  period.last = 3;
  period.F = rate;
  population.analysis.whole.periods.periods = {period};
  population.analysis.whole.interval.generation_interval = 2.0F;
  const PageInput input{population};
  return inbreeding_chart(make_frame(input));
}

TEST(Slopes, FromMinusFiveToTenPercentAreDrawn) {
  for (const float drawn : {-5.0F, 0.0F, 10.0F}) EXPECT_EQ(chart_of_rate(drawn).slopes.size(), 1U) << drawn;
  for (const float outside : {std::nextafter(-5.0F, -6.0F), std::nextafter(10.0F, 11.0F)}) {
    EXPECT_TRUE(chart_of_rate(outside).slopes.empty()) << outside;
  }
}

// F is 0 in all three years: 4 % per generation of two years is 2 % a year around the middle one, and nothing is below
// 0.
TEST(Slopes, GoThroughTheMeanOfTheirYears) {
  const Slope slope = chart_of_rate(4.0F).slopes.at(0);
  EXPECT_EQ(slope.first, 0U);
  EXPECT_EQ(slope.last, 2U);
  EXPECT_DOUBLE_EQ(slope.first_value, 0.0);
  EXPECT_DOUBLE_EQ(slope.last_value, 2.0);
  EXPECT_EQ(slope.text, "4.0 %");
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
