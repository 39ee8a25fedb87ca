#include "standing/verdict.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace pedigreewatch::test {
namespace {

RateEstimate estimate_of(double effective_size, double relative_error = 0.0) {
  return {1.0 / (2.0 * effective_size), relative_error, 2.0};
}

constexpr Evidence enough = {20, 5.0, 0.9, 0};

std::uint32_t obstacles_with(Evidence evidence) {
  return obstacles_of(estimate_of(70.0, 0.1), evidence);
}

TEST(Verdict, TheUsualLimitsAreFiftyAndAHundred) {
  EXPECT_EQ(pace_of_size(49.99), Pace::too_fast);
  EXPECT_EQ(pace_of_size(50.0), Pace::on_the_edge);
  EXPECT_EQ(pace_of_size(100.0), Pace::on_the_edge);
  EXPECT_EQ(pace_of_size(100.01), Pace::within_limit);
  EXPECT_EQ(pace_of_size(effective_size_of(0.0)), Pace::within_limit);
}

TEST(Verdict, NothingIsSaidBelowAnyOfTheBounds) {
  EXPECT_EQ(obstacles_with(enough), no_obstacle);
  EXPECT_EQ(obstacles_with({19, 5.0, 0.9, false}), obstacle_few_animals);
  EXPECT_EQ(obstacles_with({20, 3.0, 0.9, false}), no_obstacle);
  EXPECT_EQ(obstacles_with({20, 2.99, 0.9, false}), obstacle_shallow);
  EXPECT_EQ(obstacles_with({20, 5.0, 0.80, false}), no_obstacle);
  EXPECT_EQ(obstacles_with({20, 5.0, 0.799, false}), obstacle_unknown_parents);
  EXPECT_EQ(obstacles_with({20, 5.0, 0.9, true}), obstacle_faults);
  EXPECT_EQ(obstacles_with({0, 0.0, 0.0, true}),
            obstacle_few_animals | obstacle_shallow | obstacle_unknown_parents | obstacle_faults);
}

TEST(Verdict, WithoutAnIntervalThereIsNoCohortToCount) {
  EXPECT_EQ(obstacles_with({0, 5.0, 0.9, false, false}), obstacle_no_interval);
  EXPECT_EQ(obstacles_of({}, {0, 2.99, 0.79, true, false}),
            obstacle_no_interval | obstacle_shallow | obstacle_unknown_parents | obstacle_faults);
}

TEST(Verdict, TwoFaultyAnimalsOfAHundredAreNotTooMany) {
  EXPECT_FALSE(are_too_many({0, 2}, 100));
  EXPECT_TRUE(are_too_many({0, 3}, 100));
  EXPECT_TRUE(are_too_many({1, 0}, 100)) << "what concerns the whole file";
  EXPECT_FALSE(are_too_many({}, 0));
}

TEST(Verdict, NothingIsSaidWhereLinesCannotBeFollowed) {
  RateEstimate estimate = estimate_of(30.0);
  estimate.generations = 1.0;
  EXPECT_EQ(obstacles_of(estimate, enough), no_obstacle);
  estimate.generations = 0.99;
  EXPECT_EQ(obstacles_of(estimate, enough), obstacle_shallow);
  EXPECT_EQ(obstacles_of({}, enough), obstacle_shallow);
}

TEST(Verdict, AMarginFromTooFastToWithinTheLimitSaysNothing) {
  // Of 70: 50 to 98 with an error of ln(1.4) / 1.96; both ends must leave the middle.
  EXPECT_EQ(obstacles_of(estimate_of(70.0, std::log(1.42) / 1.96), enough), no_obstacle);
  EXPECT_EQ(obstacles_of(estimate_of(70.0, std::log(1.44) / 1.96), enough), obstacle_wide_margin);
  EXPECT_EQ(obstacles_of(estimate_of(40.0, std::log(2.49) / 1.96), enough), no_obstacle);
  EXPECT_EQ(obstacles_of(estimate_of(40.0, std::log(2.51) / 1.96), enough), obstacle_wide_margin);
}

TEST(Verdict, MarginsAreFactors) {
  const Margin margin = margin_of({0.01, std::log(2.0) / 1.96, 3.0});
  EXPECT_DOUBLE_EQ(margin.low, 0.005);
  EXPECT_DOUBLE_EQ(margin.high, 0.02);
}

TEST(Verdict, ItIsSurestWhenAllEstimatesSayTheSame) {
  const RateEstimate fast = estimate_of(30.0, 0.05), edge = estimate_of(70.0, 0.05), within = estimate_of(150.0, 0.05);
  EXPECT_EQ(sureness_of(std::vector{fast, fast, fast}, 5.0), 3);
  EXPECT_EQ(sureness_of(std::vector{fast, fast, edge}, 5.0), 2);
  EXPECT_EQ(sureness_of(std::vector{fast, edge, within}, 5.0), 1);
  EXPECT_EQ(sureness_of(std::vector{fast, fast, fast}, 4.99), 2);
  EXPECT_EQ(sureness_of(std::vector{fast, edge, within}, 4.99), 1);
  EXPECT_EQ(sureness_of(std::vector{fast, {}, {}}, 5.0), 3);
}

TEST(Verdict, AMarginIntoAnotherPaceMakesItLessSure) {
  const RateEstimate near = estimate_of(45.0, 0.1);  // 37 to 55
  EXPECT_EQ(sureness_of(std::vector{near, near, near}, 5.0), 2);
  const RateEstimate far = estimate_of(40.0, 0.1);  // 33 to 49
  EXPECT_EQ(sureness_of(std::vector{far, far, far}, 5.0), 3);
}

TEST(Verdict, AChangeIsRealWhenMarginsDoNotOverlap) {
  const double error = std::log(1.4) / 1.96;  // 0.01: 0.00714 to 0.014
  EXPECT_TRUE(is_real_change({0.01, error, 3.0}, {0.0051, error, 3.0}));
  EXPECT_FALSE(is_real_change({0.01, error, 3.0}, {0.0052, error, 3.0}));
  EXPECT_TRUE(is_real_change({0.0051, error, 3.0}, {0.01, error, 3.0}));
  EXPECT_FALSE(is_real_change({}, {0.01, error, 3.0}));
  EXPECT_FALSE(is_real_change({0.01, error, 3.0}, {}));
}

}  // namespace
}  // namespace pedigreewatch::test
