#include "page/chart_axis.h"

#include <gtest/gtest.h>

#include <limits>

namespace pedigreewatch::test {
namespace {

void expect_axis(const ValueAxis& axis, double low, double high, double step, int decimals) {
  EXPECT_DOUBLE_EQ(axis.low, low);
  EXPECT_DOUBLE_EQ(axis.high, high);
  EXPECT_DOUBLE_EQ(axis.step, step);
  EXPECT_EQ(axis.decimals, decimals);
}

TEST(MakeValueAxis, StepsAreOneTwoOrFiveTimesAPowerOfTen) {
  expect_axis(make_value_axis(0.0, 0.095, false), 0.0, 0.1, 0.02, 2);  // 0.095 / 6 = 0.0158
  expect_axis(make_value_axis(0.0, 168.0, true), 0.0, 200.0, 50.0, 0);
  expect_axis(make_value_axis(0.0, 59.0, true), 0.0, 60.0, 10.0, 0);
  expect_axis(make_value_axis(0.0, 4.4, false), 0.0, 5.0, 1.0, 0);
}

TEST(MakeValueAxis, HoldsNegativeValues) {
  expect_axis(make_value_axis(-7.4, 10.3, false), -10.0, 15.0, 5.0, 0);
  expect_axis(make_value_axis(-3.0, -1.0, false), -3.0, 0.0, 0.5, 1);
}

TEST(MakeValueAxis, CountsHaveWholeTicks) {
  expect_axis(make_value_axis(0.0, 2.0, true), 0.0, 2.0, 1.0, 0);
}

TEST(MakeValueAxis, ValuesThatAreAllZeroStillHaveAnAxis) {
  expect_axis(make_value_axis(0.0, 0.0, true), 0.0, 1.0, 1.0, 0);
  EXPECT_GT(make_value_axis(-1e-9, 1e-9, false).high, 0.0);
}

TEST(MakeValueAxis, RoundingOfASumNeedsNoTickMore) {
  EXPECT_DOUBLE_EQ(make_value_axis(0.0, 1.0000002, false).high, 1.0);
}

TEST(MakeValueAxis, HugeValuesHaveFewTicks) {
  EXPECT_LE(make_value_axis(-1e12, 3e15, true).tick_count(), 9);
}

Chart years_chart(std::int64_t first, std::size_t count) {
  Chart chart;
  chart.first_number = first;
  for (std::size_t k = 0; k < count; ++k) chart.places.push_back(std::to_string(first + static_cast<std::int64_t>(k)));
  return chart;
}

TEST(LabelledPlaces, AllWhenThereIsRoom) {
  EXPECT_EQ(labelled_places(years_chart(2001, 3), 600.0), (std::vector<std::size_t>{0, 1, 2}));
}

TEST(LabelledPlaces, RoundYearsWhenThereIsNot) {
  // 4 letters of 7 and 14 between: 42 units each, 63 years need 2646 of 646: every fifth year.
  const std::vector<std::size_t> labelled = labelled_places(years_chart(1963, 63), 646.0);
  ASSERT_FALSE(labelled.empty());
  EXPECT_EQ(labelled.front(), 2U);  // 1965
  EXPECT_EQ(labelled[1], 7U);       // 1970
}

TEST(LabelledPlaces, AnyNumberOfPlacesHasAnEnd) {
  EXPECT_LE(labelled_places(years_chart(1, 100000), 646.0).size(), 16U);
}

TEST(MakeValueAxis, HasSixStepsAtMost) {
  expect_axis(make_value_axis(0.0, 6.0, false), 0.0, 6.0, 1.0, 0);
  expect_axis(make_value_axis(0.0, 6.5, false), 0.0, 8.0, 2.0, 0);
}

TEST(MakeValueAxis, AThousandthOfAStepIsRounding) {
  EXPECT_DOUBLE_EQ(make_value_axis(0.0, 6.0009, false).high, 6.0);
  EXPECT_DOUBLE_EQ(make_value_axis(0.0, 4.0011, false).high, 5.0);
  EXPECT_DOUBLE_EQ(make_value_axis(-0.0009, 5.0, false).low, 0.0);
}

TEST(MakeValueAxis, SpansBelowAMillionthAreNone) {
  EXPECT_DOUBLE_EQ(make_value_axis(0.0, 0.9e-6, false).high, 1.0);
  EXPECT_LT(make_value_axis(0.0, 1.1e-6, false).high, 1e-5);
}

TEST(LabelledPlaces, ALabelNeedsSevenUnitsALetterAndFourteenBetween) {
  EXPECT_EQ(labelled_places(years_chart(2001, 10), 420.0).size(), 10U);
  EXPECT_EQ(labelled_places(years_chart(2001, 10), 419.0).size(), 5U);
}

}  // namespace
}  // namespace pedigreewatch::test
