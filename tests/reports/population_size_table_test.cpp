#include "reports/population_size_table.h"

#include <gtest/gtest.h>

#include "support/report_frame.h"

namespace pedigreewatch::test {
namespace {

// Males, sires among them, imported sires; females, dams among them, imported dams. Nobody was born in 2002.
YearTable<std::int32_t> three_years() {
  return table_of<std::int32_t>(6, {{5, 2, 1, 6, 3, 2}, {}, {4, 0, 0, 3, 1, 10}});
}

// The first three years have 20 males, 5 of them sires, and 16 females, 3 of them dams.
YearTable<std::int32_t> seven_years() {
  return table_of<std::int32_t>(6, {{10, 2, 0, 8, 1, 0},
                                    {5, 1, 0, 8, 2, 0},
                                    {5, 2, 0, 0, 0, 0},
                                    {9, 9, 0, 9, 9, 0},
                                    {},
                                    {9, 9, 0, 9, 9, 0},
                                    {9, 9, 0, 9, 9, 0}});
}

TEST(WritePopulationSize, WholeTableWithoutImportsInEnglish) {
  ReportSheet sheet = english_sheet(years_from(2001, 3));
  auto counts = three_years();
  write_population_size(sheet.frame(), false, 50, counts);
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
  ReportSheet sheet = dutch_sheet(years_from(2001, 3));
  auto counts = three_years();
  write_population_size(sheet.frame(), false, 50, counts);
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
  ReportSheet sheet = english_sheet(years_from(2001, 3));
  auto counts = three_years();
  write_population_size(sheet.frame(), true, 50, counts);
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
  ReportSheet sheet = dutch_sheet(years_from(2001, 3));
  auto counts = three_years();
  write_population_size(sheet.frame(), true, 50, counts);
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

TEST(WritePopulationSize, YieldsTheColumnSumsWithoutTheParents) {
  ReportSheet sheet = english_sheet(years_from(2001, 3));
  auto counts = three_years();
  const ReportTotals totals = write_population_size(sheet.frame(), true, 50, counts);
  EXPECT_EQ(totals, (ReportTotals{7, 2, 1, 5, 4, 12}));
}

TEST(WritePopulationSize, TakesTheParentsOutOfTheAnimalsForLaterReaders) {
  for (const bool has_import : {false, true}) {
    ReportSheet sheet = english_sheet(years_from(2001, 3));
    auto counts = three_years();
    write_population_size(sheet.frame(), has_import, 50, counts);
    EXPECT_EQ(counts.value(1, native_males), 3);
    EXPECT_EQ(counts.value(1, native_sires), 2);
    EXPECT_EQ(counts.value(1, imported_sires), 1);
    EXPECT_EQ(counts.value(1, native_females), 3);
    EXPECT_EQ(counts.value(1, native_dams), 3);
    EXPECT_EQ(counts.value(1, imported_dams), 2);
  }
}

TEST(WritePopulationSize, TotalColumnOfTheImportTableHoldsTheAnimalsThatDidNotBreed) {
  ReportSheet sheet = english_sheet(years_from(2001, 1));
  auto counts = table_of<std::int32_t>(6, {{10, 10, 0, 7, 6, 0}});
  write_population_size(sheet.frame(), true, 17, counts);
  EXPECT_TRUE(
      has_line(sheet.lines(), "    2001       0      10       0       1       6       0       1      16       0"));
}

TEST(WritePopulationSize, RulesOfEightyUnderscoresStandOnOneLineOfEightyOneColumns) {
  ReportSheet sheet = english_sheet(years_from(2001, 3));
  auto counts = three_years();
  write_population_size(sheet.frame(), true, 50, counts);
  EXPECT_EQ(sheet.lines()[1].size(), 81U);
  EXPECT_EQ(sheet.lines()[4].size(), 81U);
  EXPECT_EQ(sheet.lines()[5].size(), 81U);
}

TEST(WritePopulationSize, AnimalsWithoutBirthYearShowOnlyInTheLastLine) {
  ReportSheet sheet = english_sheet(years_from(2001, 1));
  auto counts = table_of<std::int32_t>(6, {{2, 1, 0, 3, 1, 0}});
  write_population_size(sheet.frame(), false, 1005, counts);
  const std::vector<std::string> lines = sheet.lines();
  ASSERT_EQ(lines.size(), 11U);
  EXPECT_EQ(lines[5], "    2001       1       1       2       1       3       2");
  EXPECT_EQ(lines[9], " total number of animals in pedigree         1005  of which         1000");
}

TEST(WritePopulationSize, CountsAnimalsOfOtherSubpopulationsAsWithoutBirthYear) {
  // A subpopulation of 5 animals in a store of 300, all of them with a birth year.
  ReportSheet sheet = dutch_sheet(years_from(2001, 1));
  auto counts = table_of<std::int32_t>(6, {{2, 0, 0, 3, 0, 0}});
  write_population_size(sheet.frame(), false, 300, counts);
  EXPECT_TRUE(has_line(sheet.lines(), " totaal aantal dieren in stamboom          300  waarvan          295"));
}

TEST(WritePopulationSize, SixYearsEndBehindTheAnimalsWithoutBirthYear) {
  ReportSheet sheet = english_sheet(years_from(2001, 6));
  YearTable<std::int32_t> counts(6, 6);
  counts.at(1, native_males) = 3;
  write_population_size(sheet.frame(), false, 3, counts);
  EXPECT_EQ(sheet.lines().back(), "  without year of birth.");
}

TEST(WritePopulationSize, SevenYearsShowTheSharesThatBecomeParentsInEnglish) {
  ReportSheet sheet = english_sheet(years_from(2001, 7));
  auto counts = seven_years();
  write_population_size(sheet.frame(), false, 100, counts);
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
  ReportSheet sheet = dutch_sheet(years_from(2001, 7));
  auto counts = seven_years();
  write_population_size(sheet.frame(), false, 100, counts);
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
  ReportSheet sheet = dutch_sheet(years_from(2001, 7));
  auto counts = seven_years();
  write_population_size(sheet.frame(), true, 100, counts);
  const std::vector<std::string> lines = sheet.lines();
  ASSERT_EQ(lines.size(), 24U);
  EXPECT_EQ(lines[19], "    ");
  EXPECT_EQ(lines[21], "  25.0% van de mannelijke kalveren  wordt later vader");
}

TEST(WritePopulationSize, ShareOfFirstYearsWithoutAnimalsIsNotANumber) {
  ReportSheet sheet = english_sheet(years_from(2001, 8));
  YearTable<std::int32_t> counts(8, 6);
  counts.at(5, native_males) = 3;  // the fifth of eight years is one of the last four
  counts.at(5, native_females) = 3;
  write_population_size(sheet.frame(), false, 6, counts);
  EXPECT_TRUE(has_line(sheet.lines(), "   NaN% of the male calves   will become father later in life"));
  EXPECT_TRUE(has_line(sheet.lines(), "   NaN% of the femalecalves   will become mother later in life"));
}

TEST(WritePopulationSize, FourthYearFromTheEndIsLeftOutAndTheFifthIsNot) {
  ReportSheet sheet = english_sheet(years_from(2001, 8));
  YearTable<std::int32_t> counts(8, 6);
  counts.at(4, native_males) = 4;
  counts.at(4, native_sires) = 1;
  counts.at(5, native_males) = 100;
  counts.at(4, native_females) = 1;
  counts.at(4, native_dams) = 1;
  counts.at(5, native_females) = 100;
  write_population_size(sheet.frame(), false, 205, counts);
  EXPECT_TRUE(has_line(sheet.lines(), "  25.0% of the male calves   will become father later in life"));
  EXPECT_TRUE(has_line(sheet.lines(), " 100.0% of the femalecalves   will become mother later in life"));
}

TEST(WritePopulationSize, WithoutAnyBirthYearHasHeadingsAndTotalsOnly) {
  ReportSheet sheet = english_sheet(no_years());
  YearTable<std::int32_t> counts(2, 6);
  write_population_size(sheet.frame(), false, -1, counts);
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
