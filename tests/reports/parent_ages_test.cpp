#include "reports/parent_ages.h"

#include <gtest/gtest.h>

#include "support/report_frame.h"

namespace pedigreewatch::test {
namespace {

YearTable<std::int32_t> sires_up_to_three() {
  return table_of<std::int32_t>(3, {{4, 2, 1}, {}, {0, 11, 5}});
}
YearTable<std::int32_t> dams_up_to_two() {
  return table_of<std::int32_t>(2, {{3, 4}, {}, {10, 6}});
}

TEST(WriteAgeTables, BothTablesInEnglish) {
  ReportSheet sheet = english_sheet(years_from(2001, 3));
  write_age_tables(sheet.frame(), {sires_up_to_three(), dams_up_to_two()});
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
  write_age_tables(sheet.frame(), {sires_up_to_three(), dams_up_to_two()});
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
    write_age_tables(sheet.frame(), {sires_up_to_three(), dams_up_to_two()});
    const std::vector<std::string> lines = sheet.lines();
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "  jaar         1       2       3"), 1);
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "  jaar         1       2"), 2);
  }
}

TEST(WriteAgeTables, NoFatherWithBirthDateIsToldInEnglishInADutchReportToo) {
  for (const bool english : {false, true}) {
    ReportSheet sheet(years_from(2001, 3), english);
    write_age_tables(sheet.frame(), {YearTable<std::int32_t>(3, 0), dams_up_to_two()});
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
    write_age_tables(sheet.frame(), {sires_up_to_three(), YearTable<std::int32_t>(3, 0)});
    const std::vector<std::string> lines = sheet.lines();
    ASSERT_EQ(lines.size(), 14U);
    EXPECT_EQ(lines[11], rule(56));
    EXPECT_EQ(lines[12], "  No mothers with Date of birth known");
    EXPECT_EQ(lines[13], blank());
  }
}

TEST(WriteAgeTables, WithoutAnyAgeBothAreTold) {
  ReportSheet sheet = dutch_sheet(years_from(2001, 3));
  write_age_tables(sheet.frame(), {YearTable<std::int32_t>(3, 0), YearTable<std::int32_t>(3, 0)});
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
  write_age_tables(sheet.frame(), {table_of<std::int32_t>(1, {{6}}), table_of<std::int32_t>(1, {{7}})});
  const std::vector<std::string> lines = sheet.lines();
  EXPECT_TRUE(has_line(lines, "    2001       6"));
  EXPECT_TRUE(has_line(lines, " total         7"));
}

TEST(WriteAgeTables, HeadingIsDutchInAnEnglishReport) {
  ReportSheet sheet = english_sheet(years_from(2001, 3));
  write_age_tables(sheet.frame(), {sires_up_to_three(), dams_up_to_two()});
  EXPECT_EQ(sheet.lines()[4].substr(0, 8), "  jaar  ");
  EXPECT_EQ(sheet.lines()[16].substr(0, 8), "  jaar  ");
}

}  // namespace
}  // namespace pedigreewatch::test
