#include "reports/yearly_inbreeding.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "support/report_frame.h"

namespace pedigreewatch::test {
namespace {

YearRows<InbreedingRow> three_years() {
  return rows_of<InbreedingRow>(3, {{1, {0.125F, 0.25F, 0.0625F, 0.5F, 0.75F, 1.0F}},  //
                                    {3, {0.0625F, 0.125F, 0.1875F, 0.3F, 0.2F, 0.1F}}});
}

// With an interval of 4 years: 4, 8, 2 and 1 percent per generation.
constexpr RateSummary plain_rates = {
    .delta_F_absolute = 0.01F, .delta_f_absolute = 0.005F, .delta_F_smoothed = 0.02F, .delta_f_smoothed = 0.0025F};

/// The section of these years, from 2001 on.
ReportSheet inbreeding_sheet(const YearRows<InbreedingRow>& rows, bool english) {
  const std::int32_t years = static_cast<std::int32_t>(rows.row_count());
  ReportSheet sheet(years_from(2001, years), english);
  constexpr float generation_interval = 4.0F;
  Block block;
  block.inbreeding = rows;
  block.rates = rates_per_generation(plain_rates, generation_interval);
  block.periods = rates_per_period(rows, years, generation_interval);
  write_inbreeding(sheet.frame(), block);
  return sheet;
}

TEST(WriteInbreeding, WholeTablesInEnglish) {
  const ReportSheet sheet = inbreeding_sheet(three_years(), true);
  expect_lines(sheet.output, {
                                 blank(),
                                 "            INBREEDING",
                                 rule(64),
                                 "  Yr.of     F       f       f       f       f     f    ",
                                 "  birth    all     incl.  excl. parents fathers mothers",
                                 "    -    animals   self   self        ",
                                 rule(64),
                                 "    2001  0.1250  0.2500  0.0625  0.5000  0.7500  1.0000",
                                 "    2002  0.0000  0.0000  0.0000  0.0000  0.0000  0.0000",
                                 "    2003  0.0625  0.1250  0.1875  0.3000  0.2000  0.1000",
                                 rule(64),
                                 blank(),
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

TEST(WriteInbreeding, WholeTablesInDutch) {
  const ReportSheet sheet = inbreeding_sheet(three_years(), false);
  expect_lines(sheet.output, {
                                 blank(),
                                 "            INTEELT",
                                 rule(64),
                                 "   geb.     F       f       f       f       f     f    ",
                                 "   jaar    alle    incl.  excl.   ouders  vaders moeders         ",
                                 "          dieren   zelf   zelf                 \t\t\t      ",
                                 rule(64),
                                 "    2001  0.1250  0.2500  0.0625  0.5000  0.7500  1.0000",
                                 "    2002  0.0000  0.0000  0.0000  0.0000  0.0000  0.0000",
                                 "    2003  0.0625  0.1250  0.1875  0.3000  0.2000  0.1000",
                                 rule(64),
                                 blank(),
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

TEST(WriteInbreeding, ThirdDutchHeadingHoldsThreeTabCharacters) {
  const ReportSheet sheet = inbreeding_sheet(three_years(), false);
  const std::string heading = sheet.lines()[5];
  EXPECT_EQ(heading.size(), 56U);  // 55 characters behind the leading blank
  EXPECT_EQ(std::count(heading.begin(), heading.end(), '\t'), 3);
}

std::string line_of_year(const InbreedingRow& means) {
  return inbreeding_sheet(rows_of<InbreedingRow>(1, {{1, means}}), true).lines()[7];
}

TEST(WriteInbreeding, ThePartsOfARowStandInTheOrderOfTheHeading) {
  EXPECT_EQ(line_of_year({0.1F, 0.2F, 0.3F, 0.4F, 0.5F, 0.6F}),
            "    2001  0.1000  0.2000  0.3000  0.4000  0.5000  0.6000");
}

TEST(WriteInbreeding, NotANumberIsPrintedInTheYearTable) {
  constexpr float nan = std::numeric_limits<float>::quiet_NaN();
  constexpr float infinite = std::numeric_limits<float>::infinity();
  EXPECT_EQ(line_of_year({nan, infinite, -infinite, 0.5F, -0.5F, 100.0F}),
            "    2001     NaNInfinity********  0.5000 -0.5000100.0000");
}

TEST(WriteInbreeding, TenYearsHaveNoPeriods) {
  const ReportSheet sheet = inbreeding_sheet(YearRows<InbreedingRow>(10), true);
  EXPECT_EQ(sheet.lines().size(), 28U);
  EXPECT_EQ(sheet.lines()[26].substr(0, 16), "deltaf smoothed ");
  EXPECT_EQ(sheet.lines()[27], rule(45));
}

TEST(WriteInbreeding, PeriodsOfElevenYearsFollowTheRates) {
  const ReportSheet sheet = inbreeding_sheet(YearRows<InbreedingRow>(11), true);
  const std::vector<std::string> lines = sheet.lines();
  ASSERT_EQ(lines.size(), 35U);
  EXPECT_EQ(lines[28], rule(45));
  EXPECT_EQ(lines[29], blank());
  EXPECT_EQ(lines[30], " Inbreeding rate for periods of            5  years");
}

}  // namespace
}  // namespace pedigreewatch::test
