#include "reports/completeness.h"

#include <gtest/gtest.h>

#include "support/report_frame.h"

namespace pedigreewatch::test {
namespace {

YearRows<CompletenessRow> three_years() {
  return rows_of<CompletenessRow>(3, {{1, {3.25F, {0.5F, 0.25F, 0.125F, 0.0F, 0.0F}}},  //
                                      {3, {12.5F, {1.0F, 1.0F, 0.75F, 0.5F, 0.25F}}}});
}

TEST(WriteCompleteness, WholeTableInEnglish) {
  ReportSheet sheet = english_sheet(years_from(2001, 3));
  write_completeness(sheet.frame(), three_years());
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
  write_completeness(sheet.frame(), three_years());
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
  write_completeness(sheet.frame(), three_years());
  EXPECT_EQ(sheet.lines()[2].size(), 65U);
  EXPECT_EQ(sheet.lines()[6].size(), 65U);
  EXPECT_EQ(sheet.lines().back().size(), 49U);
}

}  // namespace
}  // namespace pedigreewatch::test
