#include "reports/imports.h"

#include <gtest/gtest.h>

#include "support/report_frame.h"

namespace pedigreewatch::test {
namespace {

const std::vector<std::string> printed_table = {
    "            IMPORT: aantal pups geboren uit nederlandse of importouders",
    rule(52),
    "   geb.   NL x NL  imp. x NL  NL x imp imp. x imp.   ",
    "  jaar ",
    rule(52),
    "      2001        11         2         3         4",
    "      2002         0         0         0         0",
    "      2003       100        20        30        40",
    rule(53),
    " totaal        111        22        33        44",
    rule(53),
};

YearRows<ImportPairs> three_years() {
  return rows_of<ImportPairs>(3, {{1, {11, 2, 3, 4}}, {3, {100, 20, 30, 40}}});
}

TEST(WriteImports, WholeTableInDutch) {
  ReportSheet sheet = dutch_sheet(years_from(2001, 3));
  write_imports(sheet.frame(), three_years());
  expect_lines(sheet.output, printed_table);
}

TEST(WriteImports, WholeTableIsDutchInAnEnglishReportToo) {
  ReportSheet sheet = english_sheet(years_from(2001, 3));
  write_imports(sheet.frame(), three_years());
  expect_lines(sheet.output, printed_table);
}

TEST(WriteImports, TitleSaysPupsForCattle) {
  ReportSheet sheet = english_sheet(years_from(2001, 3));
  write_imports(sheet.frame(), three_years());
  EXPECT_NE(sheet.lines()[0].find("aantal pups geboren"), std::string::npos);
}

TEST(WriteImports, LowerRulesAreOneLongerThanTheUpperOnes) {
  ReportSheet sheet = english_sheet(years_from(2001, 3));
  write_imports(sheet.frame(), three_years());
  const std::vector<std::string> lines = sheet.lines();
  EXPECT_EQ(lines[1].size(), 53U);
  EXPECT_EQ(lines[4].size(), 53U);
  EXPECT_EQ(lines[8].size(), 54U);
  EXPECT_EQ(lines[10].size(), 54U);
}

TEST(WriteImports, TotalsStandTwoColumnsToTheLeftOfTheRows) {
  ReportSheet sheet = dutch_sheet(years_from(2001, 3));
  write_imports(sheet.frame(), three_years());
  EXPECT_EQ(sheet.lines()[7].size(), 50U);
  EXPECT_EQ(sheet.lines()[9].size(), 48U);
}

}  // namespace
}  // namespace pedigreewatch::test
