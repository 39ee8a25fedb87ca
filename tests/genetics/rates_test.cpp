#include "genetics/rates.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "genetics/kinship.h"
#include "support/numbered_store.h"

namespace pedigreewatch::test {
namespace {

constexpr float infinity = std::numeric_limits<float>::infinity();

/// A table with F and, as relationships, f excluding self; the other columns hold what must be halved too.
YearTable<float> table_of(const std::vector<float>& F, const std::vector<float>& relationship) {
  YearTable<float> table(static_cast<std::int64_t>(F.size()), inbreeding_columns);
  for (std::size_t i = 0; i < F.size(); ++i) {
    const std::int64_t row = static_cast<std::int64_t>(i) + 1;
    table.at(row, mean_inbreeding) = F[i];
    table.at(row, kinship_without_self) = relationship[i];
  }
  return table;
}

/// The one place where these tests call the operation.
RateSummary rates_of(YearTable<float>& table) {
  return compute_rates(static_cast<std::int32_t>(table.row_count), table);
}

RateSummary rates_of(const std::vector<float>& F, const std::vector<float>& relationship) {
  YearTable<float> table = table_of(F, relationship);
  return rates_of(table);
}

float slope_of(const std::vector<std::int32_t>& x, const std::vector<float>& y) {
  return regression_slope(x, y);
}

TEST(RegressionSlope, OddNumberOfYearsIsTheLeastSquaresFit) {
  // Means 2 and 3: (-1)(-1) + 0 + (1)(1) = 2 over 2.
  EXPECT_EQ(slope_of({1, 2, 3}, {2.0F, 3.0F, 4.0F}), 1.0F);
  // Means 3 and 3: (-2)(-2) + (-1)(-1) + 0 + (1)(2) + (2)(1) = 9 over 10.
  EXPECT_FLOAT_EQ(slope_of({1, 2, 3, 4, 5}, {1.0F, 2.0F, 3.0F, 5.0F, 4.0F}), 0.9F);
}

TEST(RegressionSlope, EvenNumberOfYearsIsFlatterByTheTruncatedMean) {
  // The mean of x is 2 instead of 2.5: the denominator is 1 + 0 + 1 + 4 = 6 instead of 5; the numerator stays 5.
  EXPECT_FLOAT_EQ(slope_of({1, 2, 3, 4}, {1.0F, 2.0F, 3.0F, 4.0F}), 5.0F / 6.0F);
  EXPECT_FLOAT_EQ(slope_of({1, 2}, {0.0F, 1.0F}), 0.5F);
}

TEST(RegressionSlope, TheMeanOfXIsTruncatedTowardsZero) {
  // Sum -3 over 2 is -1: deviations -1 and 0, y deviations -1/2 and 1/2.
  EXPECT_EQ(slope_of({-2, -1}, {0.0F, 1.0F}), 0.5F);
  // Sum 21 over 2 is 10.
  EXPECT_EQ(slope_of({10, 11}, {0.0F, 1.0F}), 0.5F);
}

TEST(RegressionSlope, AConstantSeriesHasNoSlope) {
  EXPECT_EQ(slope_of({1, 2, 3, 4, 5}, std::vector<float>(5, 0.25F)), 0.0F);
}

TEST(RegressionSlope, AFallingSeriesKeepsItsSign) {
  EXPECT_EQ(slope_of({1, 2, 3}, {4.0F, 3.0F, 2.0F}), -1.0F);
}

TEST(RegressionSlope, OneYearIsNotANumber) {
  EXPECT_TRUE(std::isnan(slope_of({1}, {0.5F})));
}

TEST(RegressionSlope, NoYearsAreNotANumber) {
  EXPECT_TRUE(std::isnan(slope_of({}, {})));
}

TEST(ComputeRates, HalvesAllColumnsButTheFirstInAllRows) {
  YearTable<float> table(4, inbreeding_columns);
  for (const std::int64_t row : {1, 2, 4}) {  // nothing was ever put into row 3
    for (std::int64_t column = 1; column <= inbreeding_columns; ++column) {
      table.at(row, column) = 0.01F * static_cast<float>(10 * row + column);
    }
  }
  rates_of(table);
  for (const std::int64_t row : {1, 2, 4}) {
    EXPECT_EQ(table.value(row, 1), 0.01F * static_cast<float>(10 * row + 1));
    for (std::int64_t column = 2; column <= inbreeding_columns; ++column) {
      EXPECT_EQ(table.value(row, column), 0.01F * static_cast<float>(10 * row + column) * 0.5F);
    }
  }
  EXPECT_EQ(row_of(table, 3), std::vector<float>(6, 0.0F));
}

TEST(ComputeRates, OneFounderAloneShowsOneHalfIncludingSelf) {
  YearTable<float> table(1, inbreeding_columns);
  table.at(1, kinship_with_self) = 1.0F;
  rates_of(table);
  EXPECT_EQ(row_of(table, 1), (std::vector<float>{0, 0.5F, 0, 0, 0, 0}));
}

TEST(ComputeRates, TenYears) {
  // Exponent 1/8. F: 1 - (0.90 / 0.98)^(1/8); f: 0.02 in row 3 and 0.1 in row 10, once halved. For the regressions
  // the mean of x is 55 / 10 = 5 and the denominator 85.
  const RateSummary rates = rates_of({0.0F, 0.01F, 0.02F, 0.02F, 0.03F, 0.05F, 0.04F, 0.06F, 0.08F, 0.10F},
                                     {0.02F, 0.02F, 0.04F, 0.06F, 0.06F, 0.08F, 0.10F, 0.12F, 0.14F, 0.20F});
  EXPECT_NEAR(rates.delta_F_absolute, 0.01058827F, 2e-7F);
  EXPECT_NEAR(rates.delta_f_absolute, 0.01058827F, 2e-7F);
  EXPECT_NEAR(rates.delta_F_smoothed, 0.01030952F, 2e-7F);
  EXPECT_NEAR(rates.delta_f_smoothed, 0.00927449F, 2e-7F);
}

TEST(ComputeRates, FourYears) {
  // Exponent 1/2: 1 - sqrt(0.81 / 0.90). f stands still between rows 3 and 4.
  const RateSummary rates = rates_of({0.05F, 0.1F, 0.1F, 0.19F}, {0.1F, 0.1F, 0.2F, 0.2F});
  EXPECT_NEAR(rates.delta_F_absolute, 0.05131670F, 2e-7F);
  EXPECT_EQ(rates.delta_f_absolute, 0.0F);
  EXPECT_NEAR(rates.delta_F_smoothed, 0.03985693F, 2e-7F);
  EXPECT_NEAR(rates.delta_f_smoothed, 0.01802241F, 2e-7F);
}

TEST(ComputeRates, WithThreeYearsBothAbsoluteRatesAreExactlyZero) {
  const RateSummary rates = rates_of({0.3F, 0.1F, 0.2F}, {0.2F, 0.1F, 0.7F});
  EXPECT_EQ(rates.delta_F_absolute, 0.0F);
  EXPECT_EQ(rates.delta_f_absolute, 0.0F);
  // (ln 0.7 - ln 0.8) / 2 on both ends.
  EXPECT_NEAR(rates.delta_F_smoothed, -0.0667657F, 2e-7F);
}

TEST(ComputeRates, WithTwoYearsTheThirdRowReadsAsZero) {
  // The exponent is infinite: a ratio below 1 falls to 0, a ratio of 1 stays.
  const RateSummary rates = rates_of({0.1F, 0.2F}, {0.0F, 0.0F});
  EXPECT_EQ(rates.delta_F_absolute, 1.0F);
  EXPECT_EQ(rates.delta_f_absolute, 0.0F);
  EXPECT_NEAR(rates.delta_F_smoothed, 0.05889152F, 2e-7F);  // (ln 0.9 - ln 0.8) / 2
  EXPECT_EQ(rates.delta_f_smoothed, 0.0F);
  EXPECT_EQ(rates_of({0.1F, -0.1F}, {0.0F, 0.0F}).delta_F_absolute, -infinity);
}

TEST(ComputeRates, WithOneYearItOnlyDoesNotFail) {
  // Exponent -1: 1 - 1 / 0.8. A regression on one point is not a number.
  const RateSummary rates = rates_of({0.2F}, {0.0F});
  EXPECT_FLOAT_EQ(rates.delta_F_absolute, -0.25F);
  EXPECT_EQ(rates.delta_f_absolute, 0.0F);
  EXPECT_TRUE(std::isnan(rates.delta_F_smoothed));
  EXPECT_TRUE(std::isnan(rates.delta_f_smoothed));
}

TEST(ComputeRates, AnEmptyStoreHasTwoRowsOfZeros) {
  YearTable<float> table(2, inbreeding_columns);
  const RateSummary rates = rates_of(table);
  EXPECT_EQ(rates.delta_F_absolute, 0.0F);
  EXPECT_EQ(rates.delta_F_smoothed, 0.0F);
}

TEST(ComputeRates, WithoutAnyYearItDoesNotFail) {
  // Known birth years but a wrapped, negative count.
  YearTable<float> table(0, inbreeding_columns);
  const RateSummary rates = compute_rates(-5, table);
  EXPECT_EQ(rates.delta_F_absolute, 0.0F);
}

TEST(ComputeRates, AConstantFHasNoSmoothedRate) {
  const RateSummary rates = rates_of(std::vector<float>(9, 0.125F), std::vector<float>(9, 0.25F));
  EXPECT_NEAR(rates.delta_F_smoothed, 0.0F, 1e-8F);
  EXPECT_NEAR(rates.delta_f_smoothed, 0.0F, 1e-8F);
  EXPECT_EQ(rates.delta_F_absolute, 0.0F);
}

TEST(ComputeRates, WithoutInbreedingAllRatesArePlainZero) {
  // Zero with a plus sign: the effective size then reads "Infinity" without a minus.
  const RateSummary rates = rates_of(std::vector<float>(6, 0.0F), std::vector<float>(6, 0.0F));
  for (const float rate :
       {rates.delta_F_absolute, rates.delta_f_absolute, rates.delta_F_smoothed, rates.delta_f_smoothed}) {
    EXPECT_EQ(rate, 0.0F);
    EXPECT_FALSE(std::signbit(rate));
  }
}

TEST(ComputeRates, ALastYearWithoutKnownAncestorsGivesANegativeAbsoluteRate) {
  // 1 - (1 / 0.84)^(1/2), with F(4) = 0.
  const RateSummary rates = rates_of({0.0F, 0.1F, 0.16F, 0.0F}, {0.0F, 0.0F, 0.0F, 0.0F});
  EXPECT_NEAR(rates.delta_F_absolute, 1.0F - 1.0910894F, 2e-7F);
}

TEST(ComputeRates, YearsWithoutAnimalsCountAsZeroInTheRegression) {
  // ln 0.75 everywhere but in the year without animals. In the middle that year changes nothing; in row 2 it stands
  // one year before the mean: slope (-1)(0 - ln 0.75) / 10.
  const std::vector<float> none(5, 0.0F);
  EXPECT_NEAR(rates_of({0.25F, 0.25F, 0.0F, 0.25F, 0.25F}, none).delta_F_smoothed, 0.0F, 1e-7F);
  const float log_of_three_quarters = -0.2876821F;
  EXPECT_NEAR(rates_of({0.25F, 0.0F, 0.25F, 0.25F, 0.25F}, none).delta_F_smoothed, -log_of_three_quarters / 10.0F,
              1e-7F);
}

TEST(ComputeRates, TheFirstTwoYearsPlayNoPartInTheAbsoluteRates) {
  const RateSummary one = rates_of({0.0F, 0.0F, 0.1F, 0.2F, 0.3F}, std::vector<float>(5, 0.1F));
  const RateSummary other = rates_of({0.5F, 0.7F, 0.1F, 0.9F, 0.3F}, std::vector<float>(5, 0.1F));
  EXPECT_EQ(one.delta_F_absolute, other.delta_F_absolute);
}

TEST(RateBetween, IsOneMinusTheRatioToThePower) {
  EXPECT_FLOAT_EQ(rate_between(0.0F, 0.19F, 0.5F), 0.1F);
  EXPECT_EQ(rate_between(0.3F, 0.3F, 0.125F), 0.0F);
}

TEST(RateBetween, ATotallyInbredStartIsLeftToTheArithmetic) {
  EXPECT_EQ(rate_between(1.0F, 0.5F, 1.0F), -infinity);
  EXPECT_TRUE(std::isnan(rate_between(1.0F, 1.0F, 1.0F)));
}

TEST(LogOfComplement, IsTheNaturalLogarithm) {
  EXPECT_FLOAT_EQ(log_of_complement(0.5F), -0.6931472F);
  EXPECT_EQ(log_of_complement(0.0F), 0.0F);
  EXPECT_EQ(log_of_complement(1.0F), -infinity);
}

}  // namespace
}  // namespace pedigreewatch::test
