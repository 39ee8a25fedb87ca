#include "reports/population_size.h"

#include <gtest/gtest.h>

#include <utility>

#include "support/report_frame.h"

namespace pedigreewatch::test {
namespace {

// Nobody was born in 2002.
YearRows<ParentCounts> three_years() {
  return rows_of<ParentCounts>(3, {{1, {{3, 2, 1}, {3, 3, 2}}}, {3, {{4, 0, 0}, {2, 1, 10}}}});
}

// The first three years have 20 males, 5 of them sires, and 16 females, 3 of them dams.
YearRows<ParentCounts> seven_years() {
  return rows_of<ParentCounts>(7, {{1, {{8, 2, 0}, {7, 1, 0}}},
                                   {2, {{4, 1, 0}, {6, 2, 0}}},
                                   {3, {{3, 2, 0}, {0, 0, 0}}},
                                   {4, {{0, 9, 0}, {0, 9, 0}}},
                                   {6, {{0, 9, 0}, {0, 9, 0}}},
                                   {7, {{0, 9, 0}, {0, 9, 0}}}});
}

/// The table of these years, from 2001 on, of a store of `animal_count` animals with or without a column of imports.
ReportSheet size_sheet(const YearRows<ParentCounts>& counts, std::int32_t animal_count, bool has_import, bool english,
                       const BirthYears& years) {
  ReportSheet sheet(years, english);
  sheet.store.animal_count = animal_count;
  sheet.store.has_import = has_import;
  MonitorTables tables;
  tables.parent_counts = counts;
  write_population_size(sheet.frame(), make_block(sheet.store, {"", {}, std::move(tables), {}, {}}));
  return sheet;
}

ReportSheet size_sheet(const YearRows<ParentCounts>& counts, std::int32_t animal_count, bool has_import, bool english) {
  return size_sheet(counts, animal_count, has_import, english,
                    years_from(2001, static_cast<std::int32_t>(counts.row_count())));
}

TEST(WritePopulationSize, WholeTableWithoutImportsInEnglish) {
  const ReportSheet sheet = size_sheet(three_years(), 50, false, true);
  expect_lines(sheet.output, {
                                 "            POPULATIONSIZE: number of calves born per year",
                                 rule(56),
                                 "   geb.      bulls      |    cows       |      total     ",
                                 "   jaar   unused fathers| unused mothers| unused parents ",
                                 rule(56),
                                 "    2001       3       2       3       3       6       5",
                                 "    2002       0       0       0       0       0       0",
                                 "    2003       4       0       2       1       6       1",
                                 rule(56),
                                 "  total        7       2       5       4      12       6",
                                 rule(56),
                                 // Of 50 animals 12 and 6 are in the table, and so are 13 imported parents.
                                 " total number of animals in pedigree           50  of which           19",
                                 "  without year of birth.",
                             });
}

TEST(WritePopulationSize, WholeTableWithoutImportsInDutch) {
  const ReportSheet sheet = size_sheet(three_years(), 50, false, false);
  expect_lines(sheet.output, {
                                 "            POPULATIEOMVANG: aantal kalf geboren per jaar",
                                 rule(56),
                                 "   geb.      stieren    |    koeien     |     totaal     ",
                                 "   jaar   nt.fok  vaders| nt.fok moeders| nt.fok  ouders ",
                                 rule(56),
                                 "    2001       3       2       3       3       6       5",
                                 "    2002       0       0       0       0       0       0",
                                 "    2003       4       0       2       1       6       1",
                                 rule(56),
                                 " totaal        7       2       5       4      12       6",
                                 rule(56),
                                 " totaal aantal dieren in stamboom           50  waarvan           19",
                                 "  zonder geboortejaar.",
                             });
}

TEST(WritePopulationSize, WholeTableWithImportsInEnglish) {
  const ReportSheet sheet = size_sheet(three_years(), 50, true, true);
  expect_lines(sheet.output, {
                                 "           POPULATION SIZE: number of calves born per year",
                                 rule(80),
                                 "   geb.          bulls          |        cows    ",
                                 "        |          total         ",
                                 "   jaar   total  fathers fathers|  total mothers mothers|  total parents parents ",
                                 "           own     own    other |   own    own    other |   own    own    other  ",
                                 rule(80),
                                 "    2001       3       2       1       3       3       2       6       5       3",
                                 "    2002       0       0       0       0       0       0       0       0       0",
                                 "    2003       4       0       0       2       1      10       6       1      10",
                                 rule(80),
                                 "  total        7       2       1       5       4      12      12       6      13",
                                 rule(80),
                                 " total number of animals in pedigree           50  of which           19",
                                 "  without year of birth.",
                             });
}

TEST(WritePopulationSize, WholeTableWithImportsInDutch) {
  const ReportSheet sheet = size_sheet(three_years(), 50, true, false);
  expect_lines(sheet.output, {
                                 "            POPULATIEOMVANG: aantal kalf geboren per jaar",
                                 rule(80),
                                 "   geb.           stier         |         koe     ",
                                 "       |           totaal       ",
                                 "   jaar   totaal  vaders  vaders| totaal moeders moeders| totaal  ouders  ouders ",
                                 "           in NL   in NL  import|  in NL   in NL  import|  in NL   in NL  import ",
                                 rule(80),
                                 "    2001       3       2       1       3       3       2       6       5       3",
                                 "    2002       0       0       0       0       0       0       0       0       0",
                                 "    2003       4       0       0       2       1      10       6       1      10",
                                 rule(80),
                                 " totaal        7       2       1       5       4      12      12       6      13",
                                 rule(80),
                                 " totaal aantal dieren in stamboom           50  waarvan           19",
                                 "  zonder geboortejaar.",
                             });
}

TEST(WritePopulationSize, TotalColumnOfTheImportTableHoldsTheAnimalsThatDidNotBreed) {
  const ReportSheet sheet = size_sheet(rows_of<ParentCounts>(1, {{1, {{0, 10, 0}, {1, 6, 0}}}}), 17, true, true);
  EXPECT_TRUE(
      has_line(sheet.lines(), "    2001       0      10       0       1       6       0       1      16       0"));
}

TEST(WritePopulationSize, RulesOfEightyUnderscoresStandOnOneLineOfEightyOneColumns) {
  const ReportSheet sheet = size_sheet(three_years(), 50, true, true);
  EXPECT_EQ(sheet.lines()[1].size(), 81U);
  EXPECT_EQ(sheet.lines()[4].size(), 81U);
  EXPECT_EQ(sheet.lines()[5].size(), 81U);
}

TEST(WritePopulationSize, AnimalsWithoutBirthYearShowOnlyInTheLastLine) {
  const ReportSheet sheet = size_sheet(rows_of<ParentCounts>(1, {{1, {{1, 1, 0}, {2, 1, 0}}}}), 1005, false, true);
  const std::vector<std::string> lines = sheet.lines();
  ASSERT_EQ(lines.size(), 11U);
  EXPECT_EQ(lines[5], "    2001       1       1       2       1       3       2");
  EXPECT_EQ(lines[9], " total number of animals in pedigree         1005  of which         1000");
}

TEST(WritePopulationSize, CountsAnimalsOfOtherSubpopulationsAsWithoutBirthYear) {
  // A subpopulation of 5 animals in a store of 300, all of them with a birth year.
  const ReportSheet sheet = size_sheet(rows_of<ParentCounts>(1, {{1, {{2, 0, 0}, {3, 0, 0}}}}), 300, false, false);
  EXPECT_TRUE(has_line(sheet.lines(), " totaal aantal dieren in stamboom          300  waarvan          295"));
}

TEST(WritePopulationSize, SixYearsEndBehindTheAnimalsWithoutBirthYear) {
  const ReportSheet sheet = size_sheet(rows_of<ParentCounts>(6, {{1, {{3, 0, 0}, {}}}}), 3, false, true);
  EXPECT_EQ(sheet.lines().back(), "  without year of birth.");
}

TEST(WritePopulationSize, SevenYearsShowTheSharesThatBecomeParentsInEnglish) {
  const ReportSheet sheet = size_sheet(seven_years(), 100, false, true);
  const std::vector<std::string> lines = sheet.lines();
  ASSERT_EQ(lines.size(), 22U);
  EXPECT_EQ(lines[16], "  without year of birth.");
  EXPECT_EQ(lines[17], "    ");
  EXPECT_EQ(lines[18], std::string(86, '+'));
  EXPECT_EQ(lines[19], "  25.0% of the male calves   will become father later in life");
  EXPECT_EQ(lines[20], "  18.8% of the femalecalves   will become mother later in life");
  EXPECT_EQ(lines[21], std::string(86, '+'));
}

TEST(WritePopulationSize, SevenYearsShowTheSharesThatBecomeParentsInDutch) {
  const ReportSheet sheet = size_sheet(seven_years(), 100, false, false);
  const std::vector<std::string> lines = sheet.lines();
  ASSERT_EQ(lines.size(), 22U);
  EXPECT_EQ(lines[16], "  zonder geboortejaar.");
  EXPECT_EQ(lines[17], "    ");
  EXPECT_EQ(lines[18], std::string(86, '+'));
  EXPECT_EQ(lines[19], "  25.0% van de mannelijke kalveren  wordt later vader");
  EXPECT_EQ(lines[20], "  18.8% van de vrouwelijke kalveren wordt later moeder");
  EXPECT_EQ(lines[21], std::string(86, '+'));
}

TEST(WritePopulationSize, SharesStandInTheImportTableToo) {
  const ReportSheet sheet = size_sheet(seven_years(), 100, true, false);
  const std::vector<std::string> lines = sheet.lines();
  ASSERT_EQ(lines.size(), 24U);
  EXPECT_EQ(lines[19], "    ");
  EXPECT_EQ(lines[21], "  25.0% van de mannelijke kalveren  wordt later vader");
}

TEST(WritePopulationSize, ShareOfFirstYearsWithoutAnimalsIsNotANumber) {
  // The fifth of eight years is one of the last four.
  const ReportSheet sheet = size_sheet(rows_of<ParentCounts>(8, {{5, {{3, 0, 0}, {3, 0, 0}}}}), 6, false, true);
  EXPECT_TRUE(has_line(sheet.lines(), "   NaN% of the male calves   will become father later in life"));
  EXPECT_TRUE(has_line(sheet.lines(), "   NaN% of the femalecalves   will become mother later in life"));
}

TEST(WritePopulationSize, FourthYearFromTheEndIsLeftOutAndTheFifthIsNot) {
  const auto counts = rows_of<ParentCounts>(8, {{4, {{3, 1, 0}, {0, 1, 0}}}, {5, {{100, 0, 0}, {100, 0, 0}}}});
  const ReportSheet sheet = size_sheet(counts, 205, false, true);
  EXPECT_TRUE(has_line(sheet.lines(), "  25.0% of the male calves   will become father later in life"));
  EXPECT_TRUE(has_line(sheet.lines(), " 100.0% of the femalecalves   will become mother later in life"));
}

TEST(WritePopulationSize, WithoutAnyBirthYearHasHeadingsAndTotalsOnly) {
  const ReportSheet sheet = size_sheet(YearRows<ParentCounts>(2), -1, false, true, no_years());
  expect_lines(sheet.output, {
                                 "            POPULATIONSIZE: number of calves born per year",
                                 rule(56),
                                 "   geb.      bulls      |    cows       |      total     ",
                                 "   jaar   unused fathers| unused mothers| unused parents ",
                                 rule(56),
                                 rule(56),
                                 "  total        0       0       0       0       0       0",
                                 rule(56),
                                 " total number of animals in pedigree           -1  of which           -1",
                                 "  without year of birth.",
                             });
}

}  // namespace
}  // namespace pedigreewatch::test
