#include "genetics/rates.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "genetics/subpopulation_kinship.h"

namespace pedigreewatch::test {
namespace {

constexpr float infinity = std::numeric_limits<float>::infinity();

/// Rows with F and f without self; the other columns hold what no rate of the whole population may use.
YearRows<InbreedingRow> rows_of(const std::vector<float>& F, const std::vector<float>& f) {
  YearRows<InbreedingRow> rows(static_cast<Row>(F.size()));
  for (std::size_t i = 0; i < F.size(); ++i) {
    rows.at(static_cast<Row>(i) + 1) = {F[i], 0.9F, f[i], 0.8F, 0.7F, 0.6F};
  }
  return rows;
}

/// The one place where these tests call the operation.
RateSummary rates_of(const YearRows<InbreedingRow>& rows) {
  return compute_rates(rows, static_cast<std::int32_t>(rows.row_count()));
}

RateSummary rates_of(const std::vector<float>& F, const std::vector<float>& f) {
  return rates_of(rows_of(F, f));
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

TEST(ComputeRates, TenYears) {
  // Exponent 1/8. F: 1 - (0.90 / 0.98)^(1/8); f: 0.02 in row 3 and 0.1 in row 10. For the regressions
  // the mean of x is 55 / 10 = 5 and the denominator 85.
  const RateSummary rates = rates_of({0.0F, 0.01F, 0.02F, 0.02F, 0.03F, 0.05F, 0.04F, 0.06F, 0.08F, 0.10F},
                                     {0.01F, 0.01F, 0.02F, 0.03F, 0.03F, 0.04F, 0.05F, 0.06F, 0.07F, 0.10F});
  EXPECT_NEAR(rates.delta_F_absolute, 0.01058827F, 2e-7F);
  EXPECT_NEAR(rates.delta_f_absolute, 0.01058827F, 2e-7F);
  EXPECT_NEAR(rates.delta_F_smoothed, 0.01030952F, 2e-7F);
  EXPECT_NEAR(rates.delta_f_smoothed, 0.00927449F, 2e-7F);
}

TEST(ComputeRates, FourYears) {
  // Exponent 1/2: 1 - sqrt(0.81 / 0.90). f stands still between rows 3 and 4.
  const RateSummary rates = rates_of({0.05F, 0.1F, 0.1F, 0.19F}, {0.05F, 0.05F, 0.1F, 0.1F});
  EXPECT_NEAR(rates.delta_F_absolute, 0.05131670F, 2e-7F);
  EXPECT_EQ(rates.delta_f_absolute, 0.0F);
  EXPECT_NEAR(rates.delta_F_smoothed, 0.03985693F, 2e-7F);
  EXPECT_NEAR(rates.delta_f_smoothed, 0.01802241F, 2e-7F);
}

TEST(ComputeRates, WithThreeYearsBothAbsoluteRatesAreExactlyZero) {
  const RateSummary rates = rates_of({0.3F, 0.1F, 0.2F}, {0.1F, 0.05F, 0.35F});
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
  const RateSummary rates = rates_of(YearRows<InbreedingRow>(2));
  EXPECT_EQ(rates.delta_F_absolute, 0.0F);
  EXPECT_EQ(rates.delta_F_smoothed, 0.0F);
}

TEST(ComputeRates, WithoutAnyYearItDoesNotFail) {
  // Known birth years but a wrapped, negative count.
  const RateSummary rates = compute_rates(YearRows<InbreedingRow>(0), -5);
  EXPECT_EQ(rates.delta_F_absolute, 0.0F);
}

TEST(ComputeRates, AConstantFHasNoSmoothedRate) {
  const RateSummary rates = rates_of(std::vector<float>(9, 0.125F), std::vector<float>(9, 0.125F));
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

// ---------------------------------------------------------------------------------------------------------------

/// The trend of subpopulation 2 of 3, from its F and f of each year; all other columns hold 0.9.
YearRows<InbreedingRow> trend_of(const std::vector<float>& F, const std::vector<float>& f) {
  YearTable<float> kinship(static_cast<Row>(F.size()), kinship_column_count(3));
  for (std::size_t i = 0; i < F.size(); ++i) {
    const Row row = static_cast<Row>(i) + 1;
    for (std::int64_t column = 1; column <= kinship.column_count; ++column) kinship.at(row, column) = 0.9F;
    kinship.at(row, inbreeding_column(2)) = F[i];
    kinship.at(row, kinship_column(2)) = f[i];
  }
  return trend_of_subpopulation(kinship, 2);
}

/// One row of a trend: F, f and the changes of both; nothing stands behind those.
void expect_trend(const YearRows<InbreedingRow>& trend, Row row, const std::vector<float>& wanted) {
  const InbreedingRow got = trend.of(row);
  EXPECT_EQ(got.F, wanted[0]) << "row " << row;
  EXPECT_EQ(got.f_with_self, wanted[1]) << "row " << row;
  EXPECT_NEAR(got.f_without_self, wanted[2], 2e-7F) << "row " << row;
  EXPECT_NEAR(got.f_of_parents, wanted[3], 2e-7F) << "row " << row;
  EXPECT_EQ(got.f_of_fathers, 0.0F);
  EXPECT_EQ(got.f_of_mothers, 0.0F);
}

TEST(TrendOfSubpopulation, YearlyChangesOfFAndKinship) {
  const auto trend = trend_of({0.1F, 0.2F, 0.3F, 0.4F}, {0.2F, 0.1F, 0.3F, 0.25F});
  expect_trend(trend, 1, {0.1F, 0.2F, 0.0F, 0.0F});
  expect_trend(trend, 2, {0.2F, 0.1F, 0.1F / 0.9F, -0.1F / 0.8F});
  expect_trend(trend, 3, {0.3F, 0.3F, 0.1F / 0.8F, 0.2F / 0.9F});
  expect_trend(trend, 4, {0.4F, 0.25F, 0.1F / 0.7F, -0.05F / 0.7F});
}

TEST(TrendOfSubpopulation, ChangesOnlyInYearsWithInbreeding) {
  // Year 3 has F 0: neither change is formed, although f rises. Year 4: (0.2 - 0) / 1 and (0.3 - 0.2) / 0.8.
  const auto trend = trend_of({0.0F, 0.1F, 0.0F, 0.2F}, {0.1F, 0.1F, 0.2F, 0.3F});
  expect_trend(trend, 1, {0.0F, 0.1F, 0.0F, 0.0F});
  expect_trend(trend, 2, {0.1F, 0.1F, 0.1F, 0.0F});
  expect_trend(trend, 3, {0.0F, 0.2F, 0.0F, 0.0F});
  expect_trend(trend, 4, {0.2F, 0.3F, 0.2F, 0.1F / 0.8F});
}

TEST(TrendOfSubpopulation, AYearWithoutMembersIsOnlyLookedBackAt) {
  // Year 2 has no values at all; year 3 starts from 0 again.
  const auto trend = trend_of({0.1F, 0.0F, 0.2F, 0.1F}, {0.2F, 0.0F, 0.3F, 0.1F});
  expect_trend(trend, 2, {0.0F, 0.0F, 0.0F, 0.0F});
  expect_trend(trend, 3, {0.2F, 0.3F, 0.2F, 0.3F});
  expect_trend(trend, 4, {0.1F, 0.1F, -0.125F, -0.2F / 0.7F});
}

TEST(TrendOfSubpopulation, WithoutAnyYearThereAreNoRows) {
  EXPECT_EQ(trend_of({}, {}).row_count(), 0);
}

TEST(RatesOfTrend, FirstAndLastYearAndPlainSlopes) {
  // F: 1 - (0.6 / 0.9)^(1/4); f: 1 - (0.75 / 0.8)^(1/4). Slopes on the plain values with x mean 10 / 4 = 2: 0.5 / 6
  // and 0.175 / 6 (f: -1 * (0.2 - m) + 0 + (0.3 - m) + 2 (0.25 - m) with m = 0.2125), with their sign.
  const RateSummary rates = rates_of_trend(trend_of({0.1F, 0.2F, 0.3F, 0.4F}, {0.2F, 0.1F, 0.3F, 0.25F}), 4);
  EXPECT_NEAR(rates.delta_F_absolute, 0.0963980F, 2e-7F);
  EXPECT_NEAR(rates.delta_f_absolute, 0.0160052F, 2e-7F);
  EXPECT_NEAR(rates.delta_F_smoothed, 0.5F / 6.0F, 2e-7F);
  EXPECT_NEAR(rates.delta_f_smoothed, 0.175F / 6.0F, 2e-7F);
}

TEST(RatesOfTrend, AFallingSeriesIsNegative) {
  // 1 - (0.9 / 0.6)^(1/4) and -0.5 / 6; without any f both of its rates are 0, not minus 0.
  const RateSummary rates = rates_of_trend(trend_of({0.4F, 0.3F, 0.2F, 0.1F}, {0.0F, 0.0F, 0.0F, 0.0F}), 4);
  EXPECT_NEAR(rates.delta_F_absolute, -0.1066819F, 2e-7F);
  EXPECT_NEAR(rates.delta_F_smoothed, -0.5F / 6.0F, 2e-7F);
  for (const float rate : {rates.delta_f_absolute, rates.delta_f_smoothed}) {
    EXPECT_EQ(rate, 0.0F);
    EXPECT_FALSE(std::signbit(rate));
  }
}

// ---------------------------------------------------------------------------------------------------------------

// With an interval of 4 years: 4, 8, 2 and 1 percent per generation.
constexpr RateSummary plain_rates = {
    .delta_F_absolute = 0.01F, .delta_f_absolute = 0.005F, .delta_F_smoothed = 0.02F, .delta_f_smoothed = 0.0025F};

void expect_rate(const GenerationRate& got, float per_year, float per_generation, float effective_size) {
  EXPECT_FLOAT_EQ(got.percent_per_year, per_year);
  EXPECT_FLOAT_EQ(got.percent_per_generation, per_generation);
  EXPECT_FLOAT_EQ(got.effective_size, effective_size);
}

TEST(RatesPerGeneration, AreTheYearlyRatesTimesTheInterval) {
  // The effective size is 1 / (2 * 0.04), 1 / (2 * 0.08), and so on.
  const GenerationRates rates = rates_per_generation(plain_rates, 4.0F);
  expect_rate(rates.F_absolute, 1.0F, 4.0F, 12.5F);
  expect_rate(rates.F_smoothed, 2.0F, 8.0F, 6.25F);
  expect_rate(rates.f_absolute, 0.5F, 2.0F, 25.0F);
  expect_rate(rates.f_smoothed, 0.25F, 1.0F, 50.0F);
}

TEST(RatesPerGeneration, WithoutInbreedingTheEffectiveSizeIsInfinite) {
  const GenerationRates rates = rates_per_generation({}, 4.0F);
  for (const GenerationRate& rate : {rates.F_absolute, rates.F_smoothed, rates.f_absolute, rates.f_smoothed}) {
    expect_rate(rate, 0.0F, 0.0F, infinity);
  }
}

TEST(RatesPerGeneration, AFallingSeriesGivesANegativeEffectiveSize) {
  const GenerationRates rates = rates_per_generation({-0.01F, -0.005F, -0.02F, -0.0025F}, 4.0F);
  expect_rate(rates.F_absolute, -1.0F, -4.0F, -12.5F);
  expect_rate(rates.f_smoothed, -0.25F, -1.0F, -50.0F);
}

TEST(RatesPerGeneration, AnUnknownGenerationIntervalLeavesTheYearlyRates) {
  const GenerationRates rates = rates_per_generation(plain_rates, std::numeric_limits<float>::quiet_NaN());
  EXPECT_FLOAT_EQ(rates.F_absolute.percent_per_year, 1.0F);
  EXPECT_TRUE(std::isnan(rates.F_absolute.percent_per_generation));
  EXPECT_TRUE(std::isnan(rates.F_absolute.effective_size));
  EXPECT_TRUE(std::isnan(rates.f_smoothed.percent_per_generation));
}

TEST(RatesPerGeneration, TheFirstMultipliesByHundredBeforeTheIntervalTheOthersAfterIt) {
  // In single precision this rate and interval come out on either side of 0.045 percent.
  constexpr float rate = 0x1.8d5ae8p-14F;
  const GenerationRates rates = rates_per_generation({rate, rate, rate, rate}, 4.75F);
  EXPECT_GT(rates.F_absolute.percent_per_generation, 0.045);
  for (const GenerationRate& other : {rates.F_smoothed, rates.f_absolute, rates.f_smoothed}) {
    EXPECT_LT(other.percent_per_generation, 0.045);
    EXPECT_FLOAT_EQ(other.percent_per_generation, 0.045F);
  }
}

// ---------------------------------------------------------------------------------------------------------------

/// F and f with self that lose `of_F` and `of_f` of ln(1 - value) each year; the other columns hold what no rate per
/// period may use.
YearRows<InbreedingRow> steady_rise(std::int32_t years, double of_F, double of_f) {
  YearRows<InbreedingRow> rows(years);
  for (std::int32_t row = 1; row <= years; ++row) {
    rows.at(row).F = static_cast<float>(1.0 - std::exp(-of_F * row));
    rows.at(row).f_with_self = static_cast<float>(1.0 - std::exp(-of_f * row));
    rows.at(row).f_without_self = row % 2 == 0 ? 0.9F : 0.0F;
  }
  return rows;
}

/// With a generation interval of four years.
PeriodRates periods_of(const YearRows<InbreedingRow>& rows) {
  return rates_per_period(rows, static_cast<std::int32_t>(rows.row_count()), 4.0F);
}

void expect_period(const PeriodRate& period, Row first, Row last, float F, float f) {
  EXPECT_EQ(period.first, first);
  EXPECT_EQ(period.last, last);
  EXPECT_NEAR(period.F, F, 1e-4F);
  EXPECT_NEAR(period.f, f, 1e-4F);
}

TEST(RatesPerPeriod, TenYearsOrFewerHaveNone) {
  for (const std::int32_t years : {1, 9, 10}) EXPECT_TRUE(periods_of(steady_rise(years, 0.01, 0.02)).periods.empty());
}

TEST(RatesPerPeriod, APopulationWithoutAnyYearHasNone) {
  EXPECT_TRUE(rates_per_period(YearRows<InbreedingRow>(0), -2147483646, 4.0F).periods.empty());
}

TEST(RatesPerPeriod, ElevenYearsHaveTwoPeriodsThatShareTheirSixthYear) {
  // The mean of the rows 1 to 6, 3.5, is cut to 3: the slope is 17.5 / 19 of the true one, 4 percent per generation
  // comes out as 3.684. The same holds for the rows 6 to 11.
  const PeriodRates rates = periods_of(steady_rise(11, 0.01, 0.02));
  EXPECT_EQ(rates.length, 5);
  ASSERT_EQ(rates.periods.size(), 2U);
  expect_period(rates.periods[0], 1, 6, 4.0F * 17.5F / 19.0F, 8.0F * 17.5F / 19.0F);
  expect_period(rates.periods[1], 6, 11, 4.0F * 17.5F / 19.0F, 8.0F * 17.5F / 19.0F);
}

TEST(RatesPerPeriod, TwentyFiveYearsHaveThreePeriodsOfNineRows) {
  // ln(1 - F) falls by 0.01 a year up to row 9, by 0.02 up to 17, by 0.03 up to 25; ln(1 - f) by half of that.
  YearRows<InbreedingRow> rows(25);
  double log_of_F = 0.0;
  for (Row row = 1; row <= 25; ++row) {
    log_of_F -= row <= 9 ? 0.01 : (row <= 17 ? 0.02 : 0.03);
    rows.at(row).F = static_cast<float>(1.0 - std::exp(log_of_F));
    rows.at(row).f_with_self = static_cast<float>(1.0 - std::exp(0.5 * log_of_F));
  }
  const PeriodRates rates = periods_of(rows);
  EXPECT_EQ(rates.length, 8);
  ASSERT_EQ(rates.periods.size(), 3U);
  expect_period(rates.periods[0], 1, 9, 4.0F, 2.0F);
  expect_period(rates.periods[1], 9, 17, 8.0F, 4.0F);
  expect_period(rates.periods[2], 17, 25, 12.0F, 6.0F);
}

TEST(RatesPerPeriod, TwentyYearsHaveAFirstPeriodOfEightAndTwoOfSeven) {
  // Three periods of six years; the first takes up the remainder.
  const PeriodRates rates = periods_of(steady_rise(20, 0.0, 0.0));
  EXPECT_EQ(rates.length, 6);
  ASSERT_EQ(rates.periods.size(), 3U);
  expect_period(rates.periods[0], 1, 8, 0.0F, 0.0F);
  expect_period(rates.periods[1], 8, 14, 0.0F, 0.0F);
  expect_period(rates.periods[2], 14, 20, 0.0F, 0.0F);
}

TEST(RatesPerPeriod, APeriodWithoutAnyRiseHasARateOfZeroWithoutSign) {
  for (const PeriodRate& period : periods_of(steady_rise(11, 0.0, 0.0)).periods) {
    for (const float rate : {period.F, period.f}) {
      EXPECT_EQ(rate, 0.0F);
      EXPECT_FALSE(std::signbit(rate));
    }
  }
}

TEST(RatesPerPeriod, AValueOfOneMakesItsPeriodNotANumber) {
  YearRows<InbreedingRow> rows = steady_rise(11, 0.01, 0.02);
  rows.at(3).F = 1.0F;
  rows.at(9).f_with_self = 1.0F;
  const PeriodRates rates = periods_of(rows);
  EXPECT_TRUE(std::isnan(rates.periods[0].F));
  EXPECT_NEAR(rates.periods[0].f, 8.0F * 17.5F / 19.0F, 1e-4F);
  EXPECT_NEAR(rates.periods[1].F, 4.0F * 17.5F / 19.0F, 1e-4F);
  EXPECT_TRUE(std::isnan(rates.periods[1].f));
}

TEST(RatesPerPeriod, AYearWithoutAnimalsCountsAsZeroInItsPeriod) {
  // Rows 1 to 6, mean 3; only row 6 has a value, ln 0.5. The deviations from 3 are -2, -1, 0, 1, 2, 3 and their sum is
  // 3: slope = (3 ln 0.5 - 3 ln 0.5 / 6) / 19 = 2.5 ln 0.5 / 19. Times -400: 36.481.
  YearRows<InbreedingRow> rows(11);
  rows.at(6).F = 0.5F;
  EXPECT_NEAR(periods_of(rows).periods[0].F, 36.4814F, 1e-4F);
  EXPECT_EQ(periods_of(rows).periods[0].f, 0.0F);
}

}  // namespace
}  // namespace pedigreewatch::test
