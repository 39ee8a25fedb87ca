#include "reports/litters.h"

#include <gtest/gtest.h>

#include "support/report_frame.h"

namespace pedigreewatch::test {
namespace {

/// 2001: 2 litters of 3 and 2 of 5, 16 young, of 2 fathers; 2002: none; 2003: 3 litters of 2, their fathers unknown.
YearRows<LitterCounts> three_years_of_litters() {
  return rows_of<LitterCounts>(3, {{1, {4, 2, {0, 0, 2, 0, 2}}}, {3, {3, 0, {0, 3}}}});
}

// ---- parents and litters ---------------------------------------------------------------------------------------

Block block_of_litters(const YearRows<LitterCounts>& litters, const ReportTotals& totals) {
  Block block;
  block.litter_means = means_of_years(litters);
  block.all_litters = means_of_all_litters(litters, totals);
  return block;
}

/// The lines that show the litters of a single year.
std::vector<std::string> lines_of_year(const LitterCounts& litters, const ReportTotals& totals = {}) {
  ReportSheet sheet = english_sheet(years_from(2001, 1));
  write_parents_and_litters(sheet.frame(), block_of_litters(rows_of<LitterCounts>(1, {{1, litters}}), totals));
  return sheet.lines();
}

TEST(WriteParentsAndLitters, WholeTableInEnglish) {
  ReportSheet sheet = english_sheet(years_from(2001, 3));
  // Young: the 10 and 9 animals that did not breed; fathers: 3 own and 1 imported; 7 litters.
  write_parents_and_litters(sheet.frame(), block_of_litters(three_years_of_litters(), {{10, 3, 1}, {9, 5, 2}}));
  expect_lines(sheet.output, {
                                 blank(),
                                 "      Number of parents and litter size per year",
                                 rule(47),
                                 "   Y of   number   calves/  number   nests  calves/ ",
                                 "  birth   nests     nest fathers /father father ",
                                 rule(48),
                                 "    2001       4    4.00       2    2.00    8.00",
                                 "    2002       0    0.00       0    0.00    0.00",
                                 "    2003       3    2.00       0    0.00    0.00",
                                 rule(48),
                                 " totaal        7    2.71       4    1.75    4.75",
                                 rule(48),
                             });
}

TEST(WriteParentsAndLitters, WholeTableInDutch) {
  ReportSheet sheet = dutch_sheet(years_from(2001, 3));
  write_parents_and_litters(sheet.frame(), block_of_litters(three_years_of_litters(), {{10, 3, 1}, {9, 5, 2}}));
  expect_lines(sheet.output, {
                                 blank(),
                                 "            aantal ouders en nestgrootte per jaar",
                                 rule(48),
                                 "   geb.   aantal   kalveren/  aantal  nesten  kalveren/ ",
                                 "   jaar   nesten    nest  vaders  /vader  vader ",
                                 rule(48),
                                 "    2001       4    4.00       2    2.00    8.00",
                                 "    2002       0    0.00       0    0.00    0.00",
                                 "    2003       3    2.00       0    0.00    0.00",
                                 rule(48),
                                 " totaal        7    2.71       4    1.75    4.75",
                                 rule(48),
                             });
}

TEST(WriteParentsAndLitters, FirstRuleIsOneShorterInEnglishOnly) {
  ReportSheet english = english_sheet(years_from(2001, 3));
  ReportSheet dutch = dutch_sheet(years_from(2001, 3));
  write_parents_and_litters(english.frame(), block_of_litters(three_years_of_litters(), {}));
  write_parents_and_litters(dutch.frame(), block_of_litters(three_years_of_litters(), {}));
  EXPECT_EQ(english.lines()[2].size(), 48U);
  EXPECT_EQ(english.lines()[5].size(), 49U);
  EXPECT_EQ(dutch.lines()[2].size(), 49U);
  EXPECT_EQ(dutch.lines()[5].size(), 49U);
}

TEST(WriteParentsAndLitters, AYearWithoutLittersHasAMeanOfZero) {
  EXPECT_EQ(lines_of_year({0, 3, {}})[6], "    2001       0    0.00       3    0.00    0.00");
}

TEST(WriteParentsAndLitters, AYearWithoutFathersHasRatiosOfZero) {
  EXPECT_EQ(lines_of_year({5, 0, {5}})[6], "    2001       5    1.00       0    0.00    0.00");
}

TEST(WriteParentsAndLitters, LittersOfSizeHundredCountTheirYoung) {
  LitterCounts litters{2, 1, {}};
  litters.of_size(100) = 2;
  EXPECT_EQ(lines_of_year(litters)[6], "    2001       2  100.00       1    2.00  200.00");
}

TEST(WriteParentsAndLitters, TotalsComeFromThePopulationSizeWithoutTheParents) {
  // All 16 young of the litters became parents but 4: the total tells of 4 young, not of 16.
  const std::vector<std::string> lines = lines_of_year({4, 2, {0, 0, 2, 0, 2}}, {{3, 6, 2}, {1, 6, 9}});
  EXPECT_EQ(lines[6], "    2001       4    4.00       2    2.00    8.00");
  EXPECT_EQ(lines[8], " totaal        4    1.00       8    0.50    0.50");
}

TEST(WriteParentsAndLitters, TotalsAreNotGuardedAgainstZero) {
  EXPECT_EQ(lines_of_year({})[8], " totaal        0     NaN       0     NaN     NaN");
  EXPECT_EQ(lines_of_year({}, {{4, 0, 0}, {1, 0, 0}})[8], " totaal        0Infinity       0     NaNInfinity");
}

TEST(WriteParentsAndLitters, ALineOfThreeBlanksFollowsMoreThanSixYears) {
  ReportSheet six = english_sheet(years_from(2001, 6));
  write_parents_and_litters(six.frame(), block_of_litters(YearRows<LitterCounts>(6), {}));
  EXPECT_EQ(six.lines().back(), rule(48));
  ReportSheet seven = english_sheet(years_from(2001, 7));
  write_parents_and_litters(seven.frame(), block_of_litters(YearRows<LitterCounts>(7), {}));
  EXPECT_EQ(seven.lines().back(), "    ");
  EXPECT_EQ(seven.lines().size(), six.lines().size() + 2);
}

// ---- litter sizes ----------------------------------------------------------------------------------------------

TEST(WriteLitterSizes, WholeTableInEnglish) {
  ReportSheet sheet = english_sheet(years_from(2001, 3));
  write_litter_sizes(sheet.frame(), litter_sizes_of(three_years_of_litters()));
  expect_lines(sheet.output, {
                                 "                 Litter Sizes",
                                 rule(56),
                                 "   born                     Litter size                     ",
                                 "  jaar         1       2       3       4       5",
                                 rule(56),
                                 "    2001       0       0       2       0       2",
                                 "    2002       0       0       0       0       0",
                                 "    2003       0       3       0       0       0",
                                 rule(56),
                                 " total         0       3       2       0       2",
                                 rule(56),
                             });
}

TEST(WriteLitterSizes, WholeTableInDutch) {
  ReportSheet sheet = dutch_sheet(years_from(2001, 3));
  write_litter_sizes(sheet.frame(), litter_sizes_of(three_years_of_litters()));
  expect_lines(sheet.output, {
                                 "      Worpgrootte",
                                 rule(56),
                                 "   geb.                     worpgrootte                     ",
                                 "  jaar         1       2       3       4       5",
                                 rule(56),
                                 "    2001       0       0       2       0       2",
                                 "    2002       0       0       0       0       0",
                                 "    2003       0       3       0       0       0",
                                 rule(56),
                                 " totaal        0       3       2       0       2",
                                 rule(56),
                             });
}

TEST(WriteLitterSizes, NoKnownSizeIsToldInEnglishInADutchReportToo) {
  for (const bool english : {false, true}) {
    ReportSheet sheet(years_from(2001, 2), english);
    write_litter_sizes(sheet.frame(), litter_sizes_of(rows_of<LitterCounts>(2, {{1, {4, 2, {}}}})));
    expect_lines(sheet.output, {"  No littersizes known", blank()});
  }
}

TEST(WriteLitterSizes, LittersOfSizeHundredStandInTheLastColumn) {
  YearRows<LitterCounts> litters(1);
  litters.at(1).of_size(100) = 9;
  ReportSheet sheet = english_sheet(years_from(2001, 1));
  write_litter_sizes(sheet.frame(), litter_sizes_of(litters));
  const std::vector<std::string> lines = sheet.lines();
  ASSERT_EQ(lines.size(), 9U);
  EXPECT_EQ(lines[3].size(), 808U);
  EXPECT_EQ(lines[3].substr(792), "      99     100");
  EXPECT_EQ(lines[5].substr(792), "       0       9");
  EXPECT_EQ(lines[7].substr(792), "       0       9");
}

TEST(WriteLitterSizes, LitterAndFatherCountsAreNoSizes) {
  ReportSheet sheet = english_sheet(years_from(2001, 1));
  write_litter_sizes(sheet.frame(), litter_sizes_of(rows_of<LitterCounts>(1, {{1, {70, 60, {5}}}})));
  EXPECT_EQ(sheet.lines()[5], "    2001       5");
}

}  // namespace
}  // namespace pedigreewatch::test
