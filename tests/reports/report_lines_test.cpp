#include "reports/report_lines.h"

#include <gtest/gtest.h>

#include "support/report_frame.h"

namespace pedigreewatch::test {
namespace {

TEST(WriteBlankLine, HoldsItsBlanksBehindTheBlankOfEveryLine) {
  TextOutput report;
  write_blank_line(report);
  write_blank_line(report, 3);
  EXPECT_EQ(report.pending, "            \n    \n");
}

TEST(WriteRule, StandsBehindOneBlank) {
  TextOutput report;
  write_rule(report, 5);
  EXPECT_EQ(report.pending, " _____\n");
}

TEST(WriteRule, OfEightyUnderscoresIsPrintedWhole) {
  TextOutput report;
  write_rule(report, 80);
  EXPECT_EQ(report.pending, " " + std::string(80, '_') + "\n");
}

TEST(WritePlusRule, HasEightySixSignsAndNoLeadingBlank) {
  TextOutput report;
  write_plus_rule(report);
  EXPECT_EQ(report.pending, std::string(86, '+') + "\n");
}

TEST(WriteHeadings, TakesTheLanguageOfTheReport) {
  constexpr Wording headings[] = {{"sires", "vaders"}, {"dams", "moeders"}};
  ReportSheet english = english_sheet(years_from(2001, 1));
  ReportSheet dutch = dutch_sheet(years_from(2001, 1));
  write_headings(english.frame(), headings);
  write_headings(dutch.frame(), headings);
  EXPECT_EQ(english.output.pending, " sires\n dams\n");
  EXPECT_EQ(dutch.output.pending, " vaders\n moeders\n");
}

TEST(ColumnSums, AddsAllYearsAndLeavesAnEmptyTableAtZero) {
  const auto table = table_of<std::int32_t>(2, {{1, 20}, {}, {300, 4000}});
  EXPECT_EQ(column_sums(table), (std::vector<std::int64_t>{301, 4020}));
  EXPECT_EQ(column_sums(YearTable<std::int32_t>(0, 2)), (std::vector<std::int64_t>{0, 0}));
}

TEST(ColumnSums, OfATableWithoutColumnsIsEmpty) {
  EXPECT_TRUE(column_sums(YearTable<std::int32_t>(3, 0)).empty());
}

TEST(WriteColumnNumbers, CountsFromOneInEightColumnsEach) {
  TextOutput report;
  write_column_numbers(report, "  jaar  ", 3);
  EXPECT_EQ(report.pending, "  jaar         1       2       3\n");
}

TEST(WriteCountRows, GivesAYearWithoutAnimalsItsRowOfZeros) {
  ReportSheet sheet = english_sheet(years_from(2001, 3));
  write_count_rows(sheet.frame(), table_of<std::int32_t>(2, {{1, 20}, {}, {300, 4000}}));
  expect_lines(sheet.output, {"    2001       1      20",  //
                              "    2002       0       0",  //
                              "    2003     300    4000"});
}

TEST(WriteCountRows, ManyYearsWithoutAnimalsAllHaveTheirOwnYear) {
  ReportSheet sheet = english_sheet(years_from(2001, 7));
  write_count_rows(sheet.frame(), table_of<std::int32_t>(2, {{}, {}, {7, 8}, {}, {0, 0}, {}, {9, 1}}));
  expect_lines(sheet.output, {"    2001       0       0",  //
                              "    2002       0       0",  //
                              "    2003       7       8",  //
                              "    2004       0       0",  //
                              "    2005       0       0",  //
                              "    2006       0       0",  //
                              "    2007       9       1"});
}

TEST(WriteCountRows, PrintsAYearOfNineDigitsAsAsterisks) {
  ReportSheet sheet = english_sheet(years_from(99999998, 5));
  write_count_rows(sheet.frame(), table_of<std::int32_t>(1, {{}, {}, {}, {}, {3}}));
  expect_lines(sheet.output, {"99999998       0",  //
                              "99999999       0",  //
                              "********       0",  //
                              "********       0",  //
                              "********       3"});
}

TEST(WriteCountRows, PrintsACountOfNineDigitsAsEightAsterisksAndKeepsTheWidth) {
  ReportSheet sheet = english_sheet(years_from(2001, 1));
  write_count_rows(sheet.frame(), table_of<std::int32_t>(3, {{99999999, 100000000, 7}}));
  expect_lines(sheet.output, {"    200199999999********       7"});
}

TEST(WriteCountRows, PrintsANegativeCountOfEightDigitsAsAsterisks) {
  ReportSheet sheet = english_sheet(years_from(2001, 1));
  write_count_rows(sheet.frame(), table_of<std::int32_t>(2, {{-1234567, -12345678}}));
  expect_lines(sheet.output, {"    2001-1234567********"});
}

TEST(WriteCountRows, HasNoRowWithoutAnyBirthYear) {
  ReportSheet sheet = english_sheet(no_years());
  write_count_rows(sheet.frame(), YearTable<std::int32_t>(2, 3));
  expect_lines(sheet.output, {});
}

TEST(WriteCountRows, PrintsTheYearAloneWithoutColumns) {
  ReportSheet sheet = english_sheet(years_from(2001, 2));
  write_count_rows(sheet.frame(), YearTable<std::int32_t>(2, 0));
  expect_lines(sheet.output, {"    2001", "    2002"});
}

TEST(WriteCountTotal, JustifiesAShortLabelOnTheRight) {
  TextOutput report;
  const std::int64_t totals[] = {12, 345};
  write_count_total(report, "totaal ", totals);
  EXPECT_EQ(report.pending, " totaal       12     345\n");
}

}  // namespace
}  // namespace pedigreewatch::test
