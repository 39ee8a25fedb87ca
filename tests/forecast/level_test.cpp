#include "forecast/level.h"

#include <gtest/gtest.h>

namespace pedigreewatch::test {
namespace {

Level level_of_counts(std::initializer_list<double> counts) {
  std::vector<YearCount> years;
  for (const double count : counts) years.push_back({count, 1.0});
  return level_of(years);
}

TEST(LevelOf, BringsYearsToWhereTheLineEnds) {
  const Level level = level_of_counts({100.0, 120.0, 140.0, 160.0, 180.0});
  EXPECT_TRUE(level.is_trend);
  EXPECT_DOUBLE_EQ(level.last, 180.0);
  ASSERT_EQ(level.factors.size(), 5U);
  EXPECT_DOUBLE_EQ(level.factors[0], 1.8);
  EXPECT_DOUBLE_EQ(level.factors[2], 180.0 / 140.0);
  EXPECT_DOUBLE_EQ(level.factors[4], 1.0);
}

// Of five years with a mean of 90 the slope has a standard error of the root of 90 / 10, which is 3.
TEST(LevelOf, TakesNoChanceForATrend) {
  const auto slope = [](double by) {
    return level_of_counts({90.0 - 2.0 * by, 90.0 - by, 90.0, 90.0 + by, 90.0 + 2.0 * by});
  };
  EXPECT_TRUE(slope(9.1).is_trend);
  EXPECT_TRUE(slope(-9.1).is_trend);
  const Level chance = slope(8.9);
  EXPECT_FALSE(chance.is_trend);
  EXPECT_DOUBLE_EQ(chance.last, 90.0);
  EXPECT_DOUBLE_EQ(chance.factors[0], 1.0);
}

// The same slope, but the years lie 40 off the line, up and down: a variance of 5 x 40 x 40 / 3, not of 90.
TEST(LevelOf, TakesUnevenYearsForNoTrend) {
  EXPECT_FALSE(level_of_counts({50.0 + 40.0, 70.0 - 60.0, 90.0 + 40.0, 110.0 - 60.0, 130.0 + 40.0}).is_trend);
}

TEST(LevelOf, CountsAmongOthers) {
  // 30, 20 and 10 % of a thousand: a mean of 0.2, an error of the root of 0.2 / 1000 / 2.
  const std::vector<YearCount> years = {{300.0, 1000.0}, {200.0, 1000.0}, {100.0, 1000.0}};
  const Level level = level_of(years);
  EXPECT_TRUE(level.is_trend);
  EXPECT_NEAR(level.last, 0.1, 1e-12);
  EXPECT_NEAR(level.factors[0], 1.0 / 3.0, 1e-12);
  EXPECT_FALSE(level_of(std::vector<YearCount>{{3.0, 10.0}, {2.0, 10.0}, {1.0, 10.0}}).is_trend);
}

TEST(LevelOf, IsBounded) {
  EXPECT_DOUBLE_EQ(level_of_counts({40.0, 100.0, 160.0}).factors[0], 3.0);
  EXPECT_DOUBLE_EQ(level_of_counts({54.0, 100.0, 146.0}).factors[0], 146.0 / 54.0);
  const Level none = level_of_counts({100.0, 50.0, 0.0});
  EXPECT_DOUBLE_EQ(none.last, 0.0);
  EXPECT_DOUBLE_EQ(none.factors[0], 0.0);
}

TEST(LevelOf, NeedsThreeYears) {
  EXPECT_FALSE(level_of_counts({10.0, 1000.0}).is_trend);
  EXPECT_FALSE(level_of_counts({0.0, 0.0, 0.0}).is_trend);
  EXPECT_TRUE(level_of_counts({100.0, 500.0, 900.0}).is_trend);
}

}  // namespace
}  // namespace pedigreewatch::test
