#include "reports/rates.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/report_frame.h"

namespace pedigreewatch::test {
namespace {

// ---- rates -----------------------------------------------------------------------------------------------------

// With an interval of 4 years: 4, 8, 2 and 1 percent per generation.
constexpr RateSummary plain_rates = {
    .delta_F_absolute = 0.01F, .delta_f_absolute = 0.005F, .delta_F_smoothed = 0.02F, .delta_f_smoothed = 0.0025F};

TEST(WriteRates, WholeTableInEnglish) {
  ReportSheet sheet = english_sheet(years_from(2001, 3));
  write_rates(sheet.frame(), rates_per_generation(plain_rates, 4.0F));
  expect_lines(sheet.output, {
                                 rule(45),
                                 "                 deltaF     deltaF      Ne    ",
                                 "                  year     generation         ",
                                 rule(45),
                                 "deltaF absolute       1.00%      4.00%     12.50",
                                 "deltaF smoothed       2.00%      8.00%      6.25",
                                 "deltaf absolute       0.50%      2.00%     25.00",
                                 "deltaf smoothed       0.25%      1.00%     50.00",
                                 rule(45),
                             });
}

TEST(WriteRates, WholeTableInDutch) {
  ReportSheet sheet = dutch_sheet(years_from(2001, 3));
  write_rates(sheet.frame(), rates_per_generation(plain_rates, 4.0F));
  expect_lines(sheet.output, {
                                 rule(45),
                                 "                 deltaF     deltaF      Ne    ",
                                 "                  jaar     generatie          ",
                                 rule(45),
                                 "deltaF absolute       1.00%      4.00%     12.50",
                                 "deltaF smoothed       2.00%      8.00%      6.25",
                                 "deltaf absolute       0.50%      2.00%     25.00",
                                 "deltaf smoothed       0.25%      1.00%     50.00",
                                 rule(45),
                             });
}

std::vector<std::string> rate_lines(const RateSummary& rates, float generation_interval) {
  ReportSheet sheet = english_sheet(years_from(2001, 1));
  write_rates(sheet.frame(), rates_per_generation(rates, generation_interval));
  const std::vector<std::string> lines = sheet.lines();
  EXPECT_EQ(lines.size(), 9U);
  return {lines.begin() + 4, lines.begin() + 8};
}

TEST(WriteRates, WithoutInbreedingTheEffectiveSizeIsInfinite) {
  EXPECT_EQ(rate_lines({}, 4.0F), (std::vector<std::string>{
                                      "deltaF absolute       0.00%      0.00%  Infinity",
                                      "deltaF smoothed       0.00%      0.00%  Infinity",
                                      "deltaf absolute       0.00%      0.00%  Infinity",
                                      "deltaf smoothed       0.00%      0.00%  Infinity",
                                  }));
}

TEST(WriteRates, AFallingSeriesGivesANegativeEffectiveSize) {
  EXPECT_EQ(rate_lines({-0.01F, -0.005F, -0.02F, -0.0025F}, 4.0F),
            (std::vector<std::string>{
                "deltaF absolute      -1.00%     -4.00%    -12.50",
                "deltaF smoothed      -2.00%     -8.00%     -6.25",
                "deltaf absolute      -0.50%     -2.00%    -25.00",
                "deltaf smoothed      -0.25%     -1.00%    -50.00",
            }));
}

TEST(WriteRates, AnEffectiveSizeTooWideForItsFieldIsAsterisks) {
  // 1e-9 a year is 4e-7 percent a generation: an effective size of 125 million.
  EXPECT_EQ(rate_lines({.delta_F_absolute = 1e-9F}, 4.0F)[0], "deltaF absolute       0.00%      0.00%**********");
}

TEST(WriteRates, AnUnknownGenerationIntervalLeavesTheYearlyRates) {
  EXPECT_EQ(rate_lines(plain_rates, std::numeric_limits<float>::quiet_NaN())[0],
            "deltaF absolute       1.00%       NaN%       NaN");
}

TEST(WriteRates, FirstLineMultipliesByHundredBeforeTheIntervalTheOthersAfterIt) {
  // In single precision this rate and interval come out on either side of 0.045 percent.
  constexpr float rate = 0x1.8d5ae8p-14F;
  EXPECT_EQ(rate_lines({rate, rate, rate, rate}, 4.75F), (std::vector<std::string>{
                                                             "deltaF absolute       0.01%      0.05%   1111.11",
                                                             "deltaF smoothed       0.01%      0.04%   1111.11",
                                                             "deltaf absolute       0.01%      0.04%   1111.11",
                                                             "deltaf smoothed       0.01%      0.04%   1111.11",
                                                         }));
}

// ---- rates per period ------------------------------------------------------------------------------------------

/// F and f that lose `of_F` and `of_f` of ln(1 - value) each year; the other columns hold what no rate may use.
YearRows<InbreedingRow> steady_rise(std::int32_t years, double of_F, double of_f) {
  YearRows<InbreedingRow> rows(years);
  for (std::int32_t row = 1; row <= years; ++row) {
    InbreedingRow& means = rows.at(row);
    means.F = static_cast<float>(1.0 - std::exp(-of_F * row));
    means.f_with_self = static_cast<float>(1.0 - std::exp(-of_f * row));
    means.f_without_self = row % 2 == 0 ? 0.9F : 0.0F;
  }
  return rows;
}

std::vector<std::string> period_lines(const YearRows<InbreedingRow>& rows, float generation_interval,
                                      bool english = true) {
  const std::int32_t years = static_cast<std::int32_t>(rows.row_count());
  ReportSheet sheet(years_from(2001, years), english);
  write_periods(sheet.frame(), rates_per_period(rows, years, generation_interval));
  return sheet.lines();
}

// The mean of the positions 1 to 6, 3.5, is cut to 3: the slope is 17.5 / 19 of the true one. So 4 percent per
// generation comes out as 3.684. The same holds for the positions 6 to 11.
TEST(WritePeriods, ElevenYearsHaveTwoPeriodsThatShareTheirSixthYear) {
  EXPECT_EQ(period_lines(steady_rise(11, 0.01, 0.02), 4.0F), (std::vector<std::string>{
                                                                 blank(),
                                                                 " Inbreeding rate for periods of            5  years",
                                                                 rule(45),
                                                                 "2001 - 2006         3.684 %         7.368%",
                                                                 "2006 - 2011         3.684 %         7.368%",
                                                                 rule(45),
                                                             }));
}

TEST(WritePeriods, PeriodsInDutch) {
  EXPECT_EQ(period_lines(steady_rise(11, 0.01, 0.02), 4.0F, false),
            (std::vector<std::string>{
                blank(),
                " Inteelttoename per periode van            5  jaar",
                rule(45),
                "2001 - 2006         3.684 %         7.368%",
                "2006 - 2011         3.684 %         7.368%",
                rule(45),
            }));
}

TEST(WritePeriods, TwentyFiveYearsHaveThreePeriodsOfNinePositions) {
  // ln(1 - F) falls by 0.01 a year up to position 9, by 0.02 up to 17, by 0.03 up to 25; ln(1 - f) by half of that.
  YearRows<InbreedingRow> rows(25);
  double log_of_F = 0.0;
  for (std::int32_t row = 1; row <= 25; ++row) {
    log_of_F -= row <= 9 ? 0.01 : (row <= 17 ? 0.02 : 0.03);
    rows.at(row).F = static_cast<float>(1.0 - std::exp(log_of_F));
    rows.at(row).f_with_self = static_cast<float>(1.0 - std::exp(0.5 * log_of_F));
  }
  EXPECT_EQ(period_lines(rows, 4.0F), (std::vector<std::string>{
                                          blank(),
                                          " Inbreeding rate for periods of            8  years",
                                          rule(45),
                                          "2001 - 2009         4.000 %         2.000%",
                                          "2009 - 2017         8.000 %         4.000%",
                                          "2017 - 2025        12.000 %         6.000%",
                                          rule(45),
                                      }));
}

TEST(WritePeriods, TwentyYearsHaveAFirstPeriodOfEightAndTwoOfSeven) {
  // 20 years: three periods, six years long by the heading; the first takes up the remainder.
  const std::vector<std::string> lines = period_lines(steady_rise(20, 0.0, 0.0), 4.0F);
  ASSERT_EQ(lines.size(), 7U);
  EXPECT_EQ(lines[1], " Inbreeding rate for periods of            6  years");
  EXPECT_EQ(lines[3].substr(0, 11), "2001 - 2008");
  EXPECT_EQ(lines[4].substr(0, 11), "2008 - 2014");
  EXPECT_EQ(lines[5].substr(0, 11), "2014 - 2020");
}

TEST(WritePeriods, APeriodWithoutAnyRiseHasARateOfZeroWithoutSign) {
  EXPECT_EQ(period_lines(steady_rise(11, 0.0, 0.0), 4.0F)[3], "2001 - 2006         0.000 %         0.000%");
}

TEST(WritePeriods, AValueOfOneMakesItsPeriodNotANumber) {
  YearRows<InbreedingRow> rows = steady_rise(11, 0.01, 0.02);
  rows.at(3).F = 1.0F;
  rows.at(9).f_with_self = 1.0F;
  const std::vector<std::string> lines = period_lines(rows, 4.0F);
  ASSERT_EQ(lines.size(), 6U);
  EXPECT_EQ(lines[3], "2001 - 2006           NaN %         7.368%");
  EXPECT_EQ(lines[4], "2006 - 2011         3.684 %           NaN%");
}

TEST(WritePeriods, AYearWithoutAnimalsCountsAsZeroInItsPeriod) {
  // Positions 1 to 6, mean 3; only position 6 has a value, ln 0.5. The deviations from 3 are -2, -1, 0, 1, 2, 3 and
  // their sum is 3: slope = (3 ln 0.5 - 3 ln 0.5 / 6) / 19 = 2.5 ln 0.5 / 19. Times -400: 36.481.
  YearRows<InbreedingRow> rows(11);
  rows.at(6).F = 0.5F;
  EXPECT_EQ(period_lines(rows, 4.0F)[3], "2001 - 2006        36.481 %         0.000%");
}

}  // namespace
}  // namespace pedigreewatch::test
