#include "reports/parent_age_tables.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/report_frame.h"

namespace pedigreewatch::test {
namespace {

constexpr float not_a_number = std::numeric_limits<float>::quiet_NaN();

// ---- age classes -----------------------------------------------------------------------------------------------

YearTable<std::int32_t> sires_up_to_three() {
  return table_of<std::int32_t>(3, {{4, 2, 1}, {}, {0, 11, 5}});
}
YearTable<std::int32_t> dams_up_to_two() {
  return table_of<std::int32_t>(2, {{3, 4}, {}, {10, 6}});
}

TEST(WriteAgeTables, BothTablesInEnglish) {
  ReportSheet sheet = english_sheet(years_from(2001, 3));
  write_age_tables(sheet.frame(), sires_up_to_three(), dams_up_to_two());
  expect_lines(sheet.output, {
                                 blank(),
                                 "                 AGE fathers",
                                 rule(56),
                                 "   born                     age                     ",
                                 "  jaar         1       2       3",
                                 rule(56),
                                 "    2001       4       2       1",
                                 "    2002       0       0       0",
                                 "    2003       0      11       5",
                                 rule(56),
                                 " total         4      13       6",
                                 rule(56),
                                 blank(),
                                 "                 AGE mothers",
                                 rule(56),
                                 "   born                     age                     ",
                                 "  jaar         1       2",
                                 "  jaar         1       2",
                                 rule(56),
                                 "    2001       3       4",
                                 "    2002       0       0",
                                 "    2003      10       6",
                                 rule(56),
                                 " total        13      10",
                                 rule(56),
                             });
}

TEST(WriteAgeTables, BothTablesInDutch) {
  ReportSheet sheet = dutch_sheet(years_from(2001, 3));
  write_age_tables(sheet.frame(), sires_up_to_three(), dams_up_to_two());
  expect_lines(sheet.output, {
                                 blank(),
                                 "      LEEFTIJD vaders",
                                 rule(56),
                                 "   geb.                     leeftijd                     ",
                                 "  jaar         1       2       3",
                                 rule(56),
                                 "    2001       4       2       1",
                                 "    2002       0       0       0",
                                 "    2003       0      11       5",
                                 rule(56),
                                 " totaal        4      13       6",
                                 rule(56),
                                 blank(),
                                 "      LEEFTIJD moeders",
                                 rule(56),
                                 "   geb.                     leeftijd                     ",
                                 "  jaar         1       2",
                                 "  jaar         1       2",
                                 rule(56),
                                 "    2001       3       4",
                                 "    2002       0       0",
                                 "    2003      10       6",
                                 rule(56),
                                 " totaal       13      10",
                                 rule(56),
                             });
}

TEST(WriteAgeTables, MothersHeadingStandsTwiceAndFathersOnce) {
  for (const bool english : {false, true}) {
    ReportSheet sheet(years_from(2001, 3), english);
    write_age_tables(sheet.frame(), sires_up_to_three(), dams_up_to_two());
    const std::vector<std::string> lines = sheet.lines();
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "  jaar         1       2       3"), 1);
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "  jaar         1       2"), 2);
  }
}

TEST(WriteAgeTables, NoFatherWithBirthDateIsToldInEnglishInADutchReportToo) {
  for (const bool english : {false, true}) {
    ReportSheet sheet(years_from(2001, 3), english);
    write_age_tables(sheet.frame(), YearTable<std::int32_t>(3, 0), dams_up_to_two());
    const std::vector<std::string> lines = sheet.lines();
    ASSERT_EQ(lines.size(), 16U);
    EXPECT_EQ(lines[0], blank());
    EXPECT_EQ(lines[1], "  No fathers with Date of birth known");
    EXPECT_EQ(lines[2], blank());
    EXPECT_EQ(lines[3], blank());
    EXPECT_EQ(lines[4], english ? "                 AGE mothers" : "      LEEFTIJD moeders");
  }
}

TEST(WriteAgeTables, NoMotherWithBirthDateIsToldInEnglishInADutchReportToo) {
  for (const bool english : {false, true}) {
    ReportSheet sheet(years_from(2001, 3), english);
    write_age_tables(sheet.frame(), sires_up_to_three(), YearTable<std::int32_t>(3, 0));
    const std::vector<std::string> lines = sheet.lines();
    ASSERT_EQ(lines.size(), 14U);
    EXPECT_EQ(lines[11], rule(56));
    EXPECT_EQ(lines[12], "  No mothers with Date of birth known");
    EXPECT_EQ(lines[13], blank());
  }
}

TEST(WriteAgeTables, WithoutAnyAgeBothAreTold) {
  ReportSheet sheet = dutch_sheet(years_from(2001, 3));
  write_age_tables(sheet.frame(), YearTable<std::int32_t>(3, 0), YearTable<std::int32_t>(3, 0));
  expect_lines(sheet.output, {
                                 blank(),
                                 "  No fathers with Date of birth known",
                                 blank(),
                                 "  No mothers with Date of birth known",
                                 blank(),
                             });
}

TEST(WriteAgeTables, ALargestAgeOfOneIsATable) {
  ReportSheet sheet = english_sheet(years_from(2001, 1));
  write_age_tables(sheet.frame(), table_of<std::int32_t>(1, {{6}}), table_of<std::int32_t>(1, {{7}}));
  const std::vector<std::string> lines = sheet.lines();
  EXPECT_TRUE(has_line(lines, "    2001       6"));
  EXPECT_TRUE(has_line(lines, " total         7"));
}

TEST(WriteAgeTables, HeadingIsDutchInAnEnglishReport) {
  ReportSheet sheet = english_sheet(years_from(2001, 3));
  write_age_tables(sheet.frame(), sires_up_to_three(), dams_up_to_two());
  EXPECT_EQ(sheet.lines()[4].substr(0, 8), "  jaar  ");
  EXPECT_EQ(sheet.lines()[16].substr(0, 8), "  jaar  ");
}

// ---- generation interval ---------------------------------------------------------------------------------------

TEST(WriteGenerationInterval, WholeTableInEnglish) {
  ReportSheet sheet = english_sheet(years_from(2001, 4));
  const float interval =
      write_generation_interval(sheet.frame(), table_of<float>(1, {{4.5F}, {}, {4.25F}, {6.0F}}),
                                table_of<float>(1, {{3.0F}, {}, {0.0F}, {2.5F}}), {.sire = 4.5F, .dam = 3.0F});
  expect_lines(sheet.output, {
                                 blank(),
                                 "      GENERATION INTERVAL  mean age parents at birth calves",
                                 rule(56),
                                 "  Y. of        mean age      ",
                                 "  birth   fathers  mothers   parents",
                                 rule(56),
                                 "    2001    4.50    3.00    3.75",
                                 "    2002    0.00    0.00    0.00",
                                 "    2003    4.25    0.00    4.25",
                                 "    2004    6.00    2.50    4.25",
                                 rule(56),
                                 " total      4.50    3.00    3.75",
                                 rule(56),
                             });
  EXPECT_EQ(interval, 3.75F);
}

TEST(WriteGenerationInterval, WholeTableInDutch) {
  ReportSheet sheet = dutch_sheet(years_from(2001, 4));
  const float interval =
      write_generation_interval(sheet.frame(), table_of<float>(1, {{4.5F}, {}, {4.25F}, {6.0F}}),
                                table_of<float>(1, {{3.0F}, {}, {0.0F}, {2.5F}}), {.sire = 4.5F, .dam = 3.0F});
  expect_lines(sheet.output, {
                                 blank(),
                                 "      GENERATIEINTERVAL  gemiddelde leeftijd ouders bij geboortekalf",
                                 rule(56),
                                 "   geb.      gemiddelde leeftijd      ",
                                 "   jaar   vaders   moeders   ouders",
                                 rule(56),
                                 "    2001    4.50    3.00    3.75",
                                 "    2002    0.00    0.00    0.00",
                                 "    2003    4.25    0.00    4.25",
                                 "    2004    6.00    2.50    4.25",
                                 rule(56),
                                 " totaal     4.50    3.00    3.75",
                                 rule(56),
                             });
  EXPECT_EQ(interval, 3.75F);
}

TEST(WriteGenerationInterval, AgesOfOneSexOnlyAreTheParentsMean) {
  ReportSheet sheet = english_sheet(years_from(2001, 2));
  write_generation_interval(sheet.frame(), table_of<float>(1, {{5.5F}, {}}), table_of<float>(1, {{}, {7.25F}}), {});
  EXPECT_TRUE(has_line(sheet.lines(), "    2001    5.50    0.00    5.50"));
  EXPECT_TRUE(has_line(sheet.lines(), "    2002    0.00    7.25    7.25"));
}

TEST(WriteGenerationInterval, AMeanAgeOfExactlyATenthCountsAsMissing) {
  ReportSheet sheet = english_sheet(years_from(2001, 3));
  write_generation_interval(sheet.frame(), table_of<float>(1, {{0.1F}, {4.0F}, {0.2F}}),
                            table_of<float>(1, {{3.2F}, {0.1F}, {4.0F}}), {});
  EXPECT_TRUE(has_line(sheet.lines(), "    2001    0.10    3.20    3.30"));
  EXPECT_TRUE(has_line(sheet.lines(), "    2002    4.00    0.10    4.10"));
  EXPECT_TRUE(has_line(sheet.lines(), "    2003    0.20    4.00    2.10"));
}

TEST(WriteGenerationInterval, TheLongestNounStandsWithoutTrailingBlanks) {
  ReportSheet sheet = english_sheet(years_from(2001, 1));
  sheet.nouns.youngs.assign("kalveren");
  write_generation_interval(sheet.frame(), YearTable<float>(1, 1), YearTable<float>(1, 1), {});
  EXPECT_EQ(sheet.lines()[1], "      GENERATION INTERVAL  mean age parents at birth kalveren");
}

TEST(WriteGenerationInterval, UnknownOverallAgesReachTheTotalAndTheInterval) {
  ReportSheet sheet = english_sheet(years_from(2001, 1));
  const float interval = write_generation_interval(sheet.frame(), YearTable<float>(1, 1), YearTable<float>(1, 1),
                                                   {.sire = not_a_number, .dam = 3.0F});
  EXPECT_TRUE(has_line(sheet.lines(), " total       NaN    3.00     NaN"));
  EXPECT_NE(interval, interval);
}

// ---- completeness ----------------------------------------------------------------------------------------------

YearTable<float> equivalents() {
  return table_of<float>(1, {{3.25F}, {}, {12.5F}});
}
YearTable<float> shares() {
  return table_of<float>(5, {{0.5F, 0.25F, 0.125F, 0.0F, 0.0F}, {}, {1.0F, 1.0F, 0.75F, 0.5F, 0.25F}});
}

TEST(WriteCompleteness, WholeTableInEnglish) {
  ReportSheet sheet = english_sheet(years_from(2001, 3));
  write_completeness(sheet.frame(), equivalents(), shares());
  expect_lines(sheet.output, {
                                 blank(),
                                 "            PEDIGREE COMPLETENESS",
                                 rule(64),
                                 "   Y of   average    | percentage animals with # of generations ",
                                 "   birth  generation | in pedigree completely known ",
                                 "          equivalent   |    1       2       3       4    >5  ",
                                 rule(64),
                                 // An exact tie is rounded to the even digit: 0.125 gives 0.12.
                                 "    2001      3.25        0.50    0.25    0.12    0.00    0.00",
                                 "    2002      0.00        0.00    0.00    0.00    0.00    0.00",
                                 "    2003     12.50        1.00    1.00    0.75    0.50    0.25",
                                 rule(48),
                             });
}

TEST(WriteCompleteness, WholeTableInDutch) {
  ReportSheet sheet = dutch_sheet(years_from(2001, 3));
  write_completeness(sheet.frame(), equivalents(), shares());
  expect_lines(sheet.output, {
                                 blank(),
                                 "            COMPLEETHEID stamboom",
                                 rule(64),
                                 "   geb.   gemiddeld    | percentage dieren met aantal generaties ",
                                 "   jaar   generatie    | in stamboom compleet bekend ",
                                 "          equivalent   |    1       2       3       4    >5  ",
                                 rule(64),
                                 "    2001      3.25        0.50    0.25    0.12    0.00    0.00",
                                 "    2002      0.00        0.00    0.00    0.00    0.00    0.00",
                                 "    2003     12.50        1.00    1.00    0.75    0.50    0.25",
                                 rule(48),
                             });
}

TEST(WriteCompleteness, ClosingRuleIsShorterThanTheOthers) {
  ReportSheet sheet = english_sheet(years_from(2001, 3));
  write_completeness(sheet.frame(), equivalents(), shares());
  EXPECT_EQ(sheet.lines()[2].size(), 65U);
  EXPECT_EQ(sheet.lines()[6].size(), 65U);
  EXPECT_EQ(sheet.lines().back().size(), 49U);
}

}  // namespace
}  // namespace pedigreewatch::test
