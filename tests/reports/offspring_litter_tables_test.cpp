#include "reports/offspring_litter_tables.h"

#include <gtest/gtest.h>

#include "support/report_frame.h"

namespace pedigreewatch::test {
namespace {

/// A table of litters: for each year the number of litters, of fathers, and litters by size from 1 on.
YearTable<std::int32_t> litters_of(std::initializer_list<std::vector<std::int32_t>> rows) {
  return table_of<std::int32_t>(litter_columns, rows);
}

// 2001: 2 litters of 3 and 2 of 5, 16 young, of 2 fathers; 2002: none; 2003: 3 litters of 2, their fathers unknown.
YearTable<std::int32_t> three_years_of_litters() {
  return litters_of({{4, 2, 0, 0, 2, 0, 2}, {}, {3, 0, 0, 3}});
}

// ---- parents and litters ---------------------------------------------------------------------------------------

TEST(WriteParentsAndLitters, WholeTableInEnglish) {
  ReportSheet sheet = english_sheet(years_from(2001, 3));
  // Young: the 10 and 9 animals that did not breed; fathers: 3 own and 1 imported; 7 litters.
  write_parents_and_litters(sheet.frame(), three_years_of_litters(), {10, 3, 1, 9, 5, 2});
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
  write_parents_and_litters(sheet.frame(), three_years_of_litters(), {10, 3, 1, 9, 5, 2});
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
  write_parents_and_litters(english.frame(), three_years_of_litters(), {});
  write_parents_and_litters(dutch.frame(), three_years_of_litters(), {});
  EXPECT_EQ(english.lines()[2].size(), 48U);
  EXPECT_EQ(english.lines()[5].size(), 49U);
  EXPECT_EQ(dutch.lines()[2].size(), 49U);
  EXPECT_EQ(dutch.lines()[5].size(), 49U);
}

TEST(WriteParentsAndLitters, AYearWithoutLittersHasAMeanOfZero) {
  ReportSheet sheet = english_sheet(years_from(2001, 1));
  write_parents_and_litters(sheet.frame(), litters_of({{0, 3}}), {});
  EXPECT_EQ(sheet.lines()[6], "    2001       0    0.00       3    0.00    0.00");
}

TEST(WriteParentsAndLitters, AYearWithoutFathersHasRatiosOfZero) {
  ReportSheet sheet = english_sheet(years_from(2001, 1));
  write_parents_and_litters(sheet.frame(), litters_of({{5, 0, 5}}), {});
  EXPECT_EQ(sheet.lines()[6], "    2001       5    1.00       0    0.00    0.00");
}

TEST(WriteParentsAndLitters, LittersOfSizeHundredCountTheirYoung) {
  YearTable<std::int32_t> litters(1, litter_columns);
  litters.at(1, litter_count) = 2;
  litters.at(1, father_count) = 1;
  litters.at(1, before_litter_sizes + 100) = 2;
  ReportSheet sheet = english_sheet(years_from(2001, 1));
  write_parents_and_litters(sheet.frame(), litters, {});
  EXPECT_EQ(sheet.lines()[6], "    2001       2  100.00       1    2.00  200.00");
}

TEST(WriteParentsAndLitters, TotalsComeFromThePopulationSizeWithoutTheParents) {
  // All 16 young of the litters became parents but 4: the total tells of 4 young, not of 16.
  ReportSheet sheet = english_sheet(years_from(2001, 1));
  write_parents_and_litters(sheet.frame(), litters_of({{4, 2, 0, 0, 2, 0, 2}}), {3, 6, 2, 1, 6, 9});
  EXPECT_EQ(sheet.lines()[6], "    2001       4    4.00       2    2.00    8.00");
  EXPECT_EQ(sheet.lines()[8], " totaal        4    1.00       8    0.50    0.50");
}

TEST(WriteParentsAndLitters, TotalsAreNotGuardedAgainstZero) {
  ReportSheet none = english_sheet(years_from(2001, 1));
  write_parents_and_litters(none.frame(), litters_of({{}}), {});
  EXPECT_EQ(none.lines()[8], " totaal        0     NaN       0     NaN     NaN");
  ReportSheet young_only = english_sheet(years_from(2001, 1));
  write_parents_and_litters(young_only.frame(), litters_of({{}}), {4, 0, 0, 1, 0, 0});
  EXPECT_EQ(young_only.lines()[8], " totaal        0Infinity       0     NaNInfinity");
}

TEST(WriteParentsAndLitters, ALineOfThreeBlanksFollowsMoreThanSixYears) {
  ReportSheet six = english_sheet(years_from(2001, 6));
  write_parents_and_litters(six.frame(), YearTable<std::int32_t>(6, litter_columns), {});
  EXPECT_EQ(six.lines().back(), rule(48));
  ReportSheet seven = english_sheet(years_from(2001, 7));
  write_parents_and_litters(seven.frame(), YearTable<std::int32_t>(7, litter_columns), {});
  EXPECT_EQ(seven.lines().back(), "    ");
  EXPECT_EQ(seven.lines().size(), six.lines().size() + 2);
}

// ---- litter sizes ----------------------------------------------------------------------------------------------

TEST(WriteLitterSizes, WholeTableInEnglish) {
  ReportSheet sheet = english_sheet(years_from(2001, 3));
  write_litter_sizes(sheet.frame(), three_years_of_litters());
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
  write_litter_sizes(sheet.frame(), three_years_of_litters());
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
    write_litter_sizes(sheet.frame(), litters_of({{4, 2}, {}}));
    expect_lines(sheet.output, {"  No littersizes known", blank()});
  }
}

TEST(WriteLitterSizes, LittersOfSizeHundredStandInTheLastColumn) {
  YearTable<std::int32_t> litters(1, litter_columns);
  litters.at(1, before_litter_sizes + 100) = 9;
  ReportSheet sheet = english_sheet(years_from(2001, 1));
  write_litter_sizes(sheet.frame(), litters);
  const std::vector<std::string> lines = sheet.lines();
  ASSERT_EQ(lines.size(), 9U);
  EXPECT_EQ(lines[3].size(), 808U);
  EXPECT_EQ(lines[3].substr(792), "      99     100");
  EXPECT_EQ(lines[5].substr(792), "       0       9");
  EXPECT_EQ(lines[7].substr(792), "       0       9");
}

TEST(WriteLitterSizes, LitterAndFatherCountsAreNoSizes) {
  ReportSheet sheet = english_sheet(years_from(2001, 1));
  write_litter_sizes(sheet.frame(), litters_of({{70, 60, 5}}));
  EXPECT_EQ(sheet.lines()[5], "    2001       5");
}

// ---- offspring -------------------------------------------------------------------------------------------------

AnimalRecord busiest_bull() {
  AnimalRecord animal;
  animal.name.assign("Sunny Boy");
  animal.id.assign("NL-0001");
  animal.birth_year = 1985;
  animal.native_offspring_count = 1234;
  animal.offspring_count = 9999;
  return animal;
}
AnimalRecord busiest_cow() {
  AnimalRecord animal;
  animal.name.assign("Klaske 12");
  animal.id.assign("NL-0002");
  animal.birth_year = 1990;
  animal.native_offspring_count = 17;
  animal.offspring_count = 8888;
  return animal;
}

YearTable<float> offspring_of_three_years() {
  return table_of<float>(6, {{3.5F, 1.25F, 12.0F, 2.0F, 0.0F, 2.0F}, {}, {1.0F, 0.5F, 1.0F, 10.75F, 4.5F, 345.0F}});
}

TEST(WriteOffspring, WholeTableInEnglish) {
  ReportSheet sheet = english_sheet(years_from(2001, 3));
  write_offspring(sheet.frame(), offspring_of_three_years(), busiest_bull(), busiest_cow());
  expect_lines(sheet.output, {
                                 blank(),
                                 "      total number OFFSPRING/PARENT per year of birth of parents",
                                 rule(56),
                                 "   Y of           bulls          |        cows        |",
                                 "  birth   mean   st.dev.    max.|  mean  st.dev.    max.|",
                                 rule(56),
                                 "    2001    3.50    1.25     12.    2.00    0.00      2.",
                                 "    2002    0.00    0.00      0.    0.00    0.00      0.",
                                 "    2003    1.00    0.50      1.   10.75    4.50    345.",
                                 "    ",
                                 pluses(),
                                 blank(),
                                 " Male with the highest number of offspring in the population",
                                 " name: " + padded("Sunny Boy", 50),
                                 " id-code: " + padded("NL-0001", 30),
                                 " Year of birth:         1985",
                                 " Number of offspring:         1234",
                                 blank(),
                                 " Female with the highest number of offspring in the population",
                                 " name: " + padded("Klaske 12", 50),
                                 " id-code: " + padded("NL-0002", 30),
                                 " Year of birth:         1990",
                                 " Number of offspring:           17",
                                 pluses(),
                             });
}

TEST(WriteOffspring, WholeTableInDutch) {
  ReportSheet sheet = dutch_sheet(years_from(2001, 3));
  write_offspring(sheet.frame(), offspring_of_three_years(), busiest_bull(), busiest_cow());
  expect_lines(sheet.output, {
                                 blank(),
                                 "      totaal aantal NAKOMELINGEN/OUDER per geboortejaar ouder",
                                 rule(56),
                                 "   geb.           stier         |         koe         |",
                                 "   jaar   gemid. st.dev.    max.| gemid. st.dev.    max.|",
                                 rule(56),
                                 "    2001    3.50    1.25     12.    2.00    0.00      2.",
                                 "    2002    0.00    0.00      0.    0.00    0.00      0.",
                                 "    2003    1.00    0.50      1.   10.75    4.50    345.",
                                 "    ",
                                 pluses(),
                                 blank(),
                                 " reu met de meeste nakomelingen in de populatie",
                                 " naam: " + padded("Sunny Boy", 50),
                                 " id-code: " + padded("NL-0001", 30),
                                 " geboortejaar:         1985",
                                 " aantal nakomelingen:         1234",
                                 blank(),
                                 " teef met de meeste nakomelingen in de populatie",
                                 " naam: " + padded("Klaske 12", 50),
                                 // The id-code of the top male.
                                 " id-code: " + padded("NL-0001", 30),
                                 " geboortejaar:         1990",
                                 " aantal nakomelingen:           17",
                                 pluses(),
                             });
}

TEST(WriteOffspring, DutchReportGivesTheTopFemaleTheIdOfTheTopMale) {
  ReportSheet sheet = dutch_sheet(years_from(2001, 1));
  write_offspring(sheet.frame(), YearTable<float>(1, 6), busiest_bull(), busiest_cow());
  EXPECT_EQ(sheet.output.pending.find("NL-0002"), std::string::npos);
  const std::vector<std::string> lines = sheet.lines();
  EXPECT_EQ(std::count(lines.begin(), lines.end(), " id-code: " + padded("NL-0001", 30)), 2);
}

TEST(WriteOffspring, DutchTitlesNameDogsForCattle) {
  ReportSheet sheet = dutch_sheet(years_from(2001, 1));
  write_offspring(sheet.frame(), YearTable<float>(1, 6), busiest_bull(), busiest_cow());
  EXPECT_TRUE(has_line(sheet.lines(), " reu met de meeste nakomelingen in de populatie"));
  EXPECT_TRUE(has_line(sheet.lines(), " teef met de meeste nakomelingen in de populatie"));
}

TEST(WriteOffspring, RoundsAMaximumToTheEvenWholeNumber) {
  ReportSheet sheet = english_sheet(years_from(2001, 1));
  write_offspring(sheet.frame(), table_of<float>(6, {{0.0F, 0.0F, 12.5F, 0.0F, 0.0F, 13.5F}}), busiest_bull(),
                  busiest_cow());
  EXPECT_EQ(sheet.lines()[6], "    2001    0.00    0.00     12.    0.00    0.00     14.");
}

}  // namespace
}  // namespace pedigreewatch::test
