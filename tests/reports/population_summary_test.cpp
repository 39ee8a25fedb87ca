#include "reports/population_summary.h"

#include <gtest/gtest.h>

#include <array>

#include "support/report_frame.h"

namespace pedigreewatch::test {
namespace {

void put_row(YearTable<std::int32_t>& table, std::int64_t row, const std::vector<std::int32_t>& cells) {
  for (std::size_t i = 0; i < cells.size(); ++i) table.at(row, static_cast<std::int64_t>(i) + 1) = cells[i];
}

/// What the summary is made from.
struct SummaryInput {
  MonitorTables tables;
  YearRows<TopSireRow> top_sires;

  SummaryInput(std::int32_t years, std::int32_t oldest_sire, std::int32_t oldest_dam) : top_sires(years) {
    tables.age_classes = {{years, oldest_sire}, {years, oldest_dam}};
    tables.parent_counts = YearRows<ParentCounts>(years);
    tables.litters = YearRows<LitterCounts>(years);
  }
  YearTable<std::int32_t>& sire_ages() { return tables.age_classes.of(male); }
  YearTable<std::int32_t>& dam_ages() { return tables.age_classes.of(female); }
  void put_litters_of_size(Row row, std::int32_t size, std::int32_t count) {
    tables.litters.at(row).of_size(size) = count;
  }
  void put_later_parents(Row row, std::int32_t sires, std::int32_t dams) {
    tables.parent_counts.at(row).of(male).native_parents = sires;
    tables.parent_counts.at(row).of(female).native_parents = dams;
  }
  void put_shares(Row row, const std::array<float, top_sire_columns>& shares) { top_sires.at(row).shares = shares; }
};

std::vector<std::string> summary_lines(const SummaryInput& input, const BirthYears& years, bool english) {
  ReportSheet sheet(years, english);
  write_summary(sheet.frame(), summarise_population(years, input.tables, input.top_sires));
  return sheet.lines();
}

std::vector<std::string> summary_lines(const SummaryInput& input, bool english = true) {
  return summary_lines(input, years_from(2001, static_cast<std::int32_t>(input.top_sires.row_count())), english);
}

/// Eight years from 2001 on. The summary rests on 2002 to 2007, the later parents on 2002 to 2006; the years outside
/// hold large numbers that would show.
SummaryInput eight_years() {
  SummaryInput input(8, 2, 3);
  // 61 litters in six years.
  const std::int32_t litters[] = {1000, 10, 10, 10, 10, 10, 11, 1000};
  for (std::int64_t row = 1; row <= 8; ++row) input.tables.litters.at(row).litters = litters[row - 1];
  // Sizes count in all years: 152 litters, a mean of 1.52 for each of a hundred sizes.
  input.put_litters_of_size(1, 1, 1);
  input.put_litters_of_size(2, 3, 25);
  input.put_litters_of_size(8, 3, 25);
  input.put_litters_of_size(3, 4, 60);
  input.put_litters_of_size(4, 6, 40);
  input.put_litters_of_size(5, 7, 1);
  // Sires 0.6 and 0.4; dams 0.2, 0.5 and 0.3.
  put_row(input.sire_ages(), 1, {0, 900});
  put_row(input.sire_ages(), 2, {6, 1});
  put_row(input.sire_ages(), 7, {0, 3});
  put_row(input.sire_ages(), 8, {0, 900});
  put_row(input.dam_ages(), 1, {0, 0, 900});
  put_row(input.dam_ages(), 2, {2, 1, 0});
  put_row(input.dam_ages(), 7, {0, 4, 3});
  put_row(input.dam_ages(), 8, {0, 0, 900});
  // 20 later sires and 30 later dams.
  const std::int32_t sires[] = {500, 4, 4, 4, 4, 4, 500, 500};
  const std::int32_t dams[] = {500, 10, 5, 5, 5, 5, 500, 500};
  for (std::int64_t row = 1; row <= 8; ++row) input.put_later_parents(row, sires[row - 1], dams[row - 1]);
  // The four most used sires: 27 percent in five years and 30 in one, 27.5 on the average.
  input.put_shares(1, {25, 25, 25, 25});
  for (std::int64_t row = 2; row <= 6; ++row) input.put_shares(row, {10, 8, 6, 3, 3, 3, 3, 3, 3, 3});
  input.put_shares(7, {10, 8, 6, 6, 5});
  input.put_shares(8, {25, 25, 25, 25});
  return input;
}

// Dams: v is 0.5, 0.5, 0.3, its sum 1.3; r = 0.5 / 1.3 = 38.46 %; 30 / 6 = 5 are born, T = 5 / r = 13, A = 13 / 1.3
// = 10. Sires: v is 0.6, 0.4, its sum 1; r = 60 %; 20 / 6 = 3.33 are born, T = 3.33 / 0.6 = 5.56 = A.

TEST(WriteSummary, WholeSummaryInEnglish) {
  EXPECT_EQ(summary_lines(eight_years(), true),
            (std::vector<std::string>{
                rule(73),
                blank(),
                "      Summary population data",
                "      based on        2002  -         2007",
                rule(73),
                " Number litters per year ",
                "          11.",
                blank(),
                " Number dams available for breeding per year ",
                "          10.",
                blank(),
                "        |  explanation derivation:",
                "        |  based on        2002  -         2006",
                "       |     5 females are born per year that later will become mother",
                "       |  38.5% of breeding females are replaced each year",
                "        |  giving a total of    13.breeding females including those ",
                "       |                 that will not yet breed, but will in later years",
                "        |  and    10.excluding those young animals",
                blank(),
                " Number sires available for breeding per year ",
                "           6.",
                blank(),
                "        |  explanation derivation:",
                "        |  based on        2002  -         2006",
                "       |     3 males are born per year that later will become father",
                "       |  60.0% of breeding males are replaced each year",
                "        |  giving a total of     6.breeding males including those ",
                "       |                 that will not yet breed, but will in later years",
                "        |  and     6.excluding those young animals",
                blank(),
                " Contribution of the 4 most popular sires ",
                "          28.%",
                blank(),
                " Litter size ",
                "   Number of sizes:            6",
                "   Litter size    Fraction  ",
                "       1              0.",
                "       2              0.",
                "       3             33.",
                "       4             40.",
                "       5              0.",
                "       6             27.",
                blank(),
                " Age parents ",
                "   Number of ages:            3",
                "   Age    Fraction  Fraction",
                "          fathers   mothers",
                "     1       60.       20.",
                "     2       40.       50.",
                "     3        0.        0.",
                blank(),
                rule(73),
            }));
}

TEST(WriteSummary, WholeSummaryInDutch) {
  EXPECT_EQ(summary_lines(eight_years(), false),
            (std::vector<std::string>{
                rule(73),
                blank(),
                "      Samenvatting populatie data",
                "      gebaseerd op        2002  -         2007",
                rule(73),
                " Aantal worpen per jaar",
                "          11.",
                blank(),
                " Aantal wijfjes beschikbaarvoor fokkerij per jaar ",
                "          10.",
                blank(),
                "        |  uitleg afleiding",
                "        |  gebaseerd op        2002  -         2006",
                "       |     5 wijfjes geboren per jaar die later moeder zullen worden",
                "       |  38.5% van vrouwelijke fokdieren worden elk jaar vervangen",
                "       |  geeft een totaal van    13.vrouwelijke fokdieren inclusief dieren",
                "       |    die nog te jong zijn om nu te fokken, maar later wel moeder zullen worden",
                "       |  en    10.exclusief nog niet fokkende dieren",
                blank(),
                " Aantal mannetjes beschikbaarvoor fokkerij per jaar ",
                "           6.",
                blank(),
                "        |  uitleg afleiding",
                "        |  gebaseerd op        2002  -         2006",
                "       |     3 mannetjes geboren per jaar die later vader zullen worden",
                // The females' share stands here too.
                "       |  38.5% van mannelijke fokdieren worden elk jaar vervangen",
                "       |  geeft een totaal van     6.mannelijke fokdieren inclusief dieren",
                "       |    die nog te jong zijn om nu te fokken, maar later wel vader zullen worden",
                "       |  en     6.exclusief nog niet fokkende dieren",
                blank(),
                " Bijdrage van de 4 populairste mannetjes aan totaal aantal jongen",
                "          28.%",
                blank(),
                " Worpgrootte ",
                "   Aantal groottes:            6",
                "   Worpgrootte    Fractie  ",
                "       1              0.",
                "       2              0.",
                "       3             33.",
                "       4             40.",
                "       5              0.",
                "       6             27.",
                blank(),
                " Leeftijd ouders ",
                "   Aantal leeftijden:            3",
                "   Leef   Fractie   Fractie",
                "   tijd   vaders    moeders",
                "     1       60.       20.",
                "     2       40.       50.",
                "     3        0.        0.",
                blank(),
                rule(73),
            }));
}

// ---- the span --------------------------------------------------------------------------------------------------

TEST(WriteSummary, EightYearsRestOnTheSecondToTheSeventh) {
  const std::vector<std::string> lines = summary_lines(eight_years());
  EXPECT_EQ(lines[3], "      based on        2002  -         2007");
  EXPECT_EQ(lines[12], "        |  based on        2002  -         2006");
}

TEST(WriteSummary, ThreeYearsRestOnTheFirstTwo) {
  SummaryInput input(3, 1, 1);
  const std::int32_t litters[] = {4, 6, 1000};
  for (std::int64_t row = 1; row <= 3; ++row) {
    input.tables.litters.at(row).litters = litters[row - 1];
    put_row(input.sire_ages(), row, {1});
    put_row(input.dam_ages(), row, {1});
  }
  // Only the first year's later parents count, but they are divided by two years.
  input.put_later_parents(1, 8, 12);
  input.put_later_parents(2, 500, 500);
  input.put_later_parents(3, 500, 500);
  const std::vector<std::string> lines = summary_lines(input);
  EXPECT_EQ(lines[3], "      based on        2001  -         2002");
  EXPECT_EQ(lines[6], "           6.");  // 10 / 2 + 0.5 = 5.5, rounded to the even number
  EXPECT_EQ(lines[9], "           6.");
  EXPECT_EQ(lines[12], "        |  based on        2001  -         2001");
  EXPECT_EQ(lines[13], "       |     6 females are born per year that later will become mother");
  EXPECT_EQ(lines[14], "       | 100.0% of breeding females are replaced each year");
  EXPECT_EQ(lines[20], "           4.");
  EXPECT_EQ(lines[24], "       |     4 males are born per year that later will become father");
}

TEST(WriteSummary, SevenYearsRestOnTheFirstSix) {
  const std::vector<std::string> lines = summary_lines(SummaryInput(7, 1, 1));
  EXPECT_EQ(lines[3], "      based on        2001  -         2006");
  EXPECT_EQ(lines[12], "        |  based on        2001  -         2005");
}

TEST(WriteSummary, TwentyYearsRestOnSixOfTheLastSeven) {
  const std::vector<std::string> lines = summary_lines(SummaryInput(20, 1, 1));
  EXPECT_EQ(lines[3], "      based on        2014  -         2019");
  EXPECT_EQ(lines[12], "        |  based on        2014  -         2018");
}

TEST(WriteSummary, OneYearLeavesNoSpanAndNothingIsGuarded) {
  SummaryInput input(1, 1, 1);
  put_row(input.sire_ages(), 1, {5});
  put_row(input.dam_ages(), 1, {5});
  input.tables.litters.at(1).litters = 10;
  input.put_litters_of_size(1, 2, 10);
  input.put_later_parents(1, 3, 4);
  input.put_shares(1, {40, 30, 20, 10});
  EXPECT_EQ(summary_lines(input), (std::vector<std::string>{
                                      rule(73),
                                      blank(),
                                      "      Summary population data",
                                      "      based on        2001  -         2000",
                                      rule(73),
                                      " Number litters per year ",
                                      "          NaN",
                                      blank(),
                                      " Number dams available for breeding per year ",
                                      "          NaN",
                                      blank(),
                                      "        |  explanation derivation:",
                                      "        |  based on        2001  -         2001",
                                      "       | ***** females are born per year that later will become mother",
                                      "       |   NaN% of breeding females are replaced each year",
                                      "        |  giving a total of    NaNbreeding females including those ",
                                      "       |                 that will not yet breed, but will in later years",
                                      "        |  and    NaNexcluding those young animals",
                                      blank(),
                                      " Number sires available for breeding per year ",
                                      "          NaN",
                                      blank(),
                                      "        |  explanation derivation:",
                                      "        |  based on        2001  -         2001",
                                      "       | ***** males are born per year that later will become father",
                                      "       |   NaN% of breeding males are replaced each year",
                                      "        |  giving a total of    NaNbreeding males including those ",
                                      "       |                 that will not yet breed, but will in later years",
                                      "        |  and    NaNexcluding those young animals",
                                      blank(),
                                      " Contribution of the 4 most popular sires ",
                                      "          NaN%",
                                      blank(),
                                      " Litter size ",
                                      "   Number of sizes:            2",
                                      "   Litter size    Fraction  ",
                                      "       1              0.",
                                      "       2            100.",
                                      blank(),
                                      " Age parents ",
                                      "   Number of ages:            0",
                                      "   Age    Fraction  Fraction",
                                      "          fathers   mothers",
                                      blank(),
                                      rule(73),
                                  }));
}

TEST(WriteSummary, AnEmptyStoreHasASummary) {
  const std::vector<std::string> lines = summary_lines(SummaryInput(2, 0, 0), no_years(), true);
  EXPECT_EQ(lines[3], "      based on  2147483647  -   2147483647");
  EXPECT_EQ(lines.back(), rule(73));
}

TEST(WriteSummary, APopulationWithoutAnyDateHasASummary) {
  // First year above the last: the number of years wraps to a negative one.
  const BirthYears years = {.first = 2147483647, .last = 0, .count = -2147483646};
  const std::vector<std::string> lines = summary_lines(SummaryInput(0, 0, 0), years, true);
  EXPECT_EQ(lines.front(), rule(73));
  EXPECT_EQ(lines.back(), rule(73));
}

// ---- breeding animals ------------------------------------------------------------------------------------------

TEST(WriteSummary, DutchReportShowsTheFemalesShareForTheMales) {
  const std::vector<std::string> lines = summary_lines(eight_years(), false);
  EXPECT_EQ(lines[14].substr(0, 15), "       |  38.5%");
  EXPECT_EQ(lines[25].substr(0, 15), "       |  38.5%");
}

TEST(WriteSummary, EnglishReportShowsTheMalesOwnShare) {
  const std::vector<std::string> lines = summary_lines(eight_years(), true);
  EXPECT_EQ(lines[14].substr(0, 15), "       |  38.5%");
  EXPECT_EQ(lines[25].substr(0, 15), "       |  60.0%");
}

TEST(WriteSummary, SharesThatRiseWithAgeAreLevelled) {
  // 0.1, 0.2, 0.3, 0.4: all become 0.4, their sum 1.6; a quarter is replaced each year.
  SummaryInput input(3, 1, 4);
  put_row(input.dam_ages(), 1, {1, 2, 3, 4});
  input.put_later_parents(1, 0, 8);
  const std::vector<std::string> lines = summary_lines(input);
  EXPECT_EQ(lines[9], "          10.");  // 8 / 2 years / 0.25 = 16; 16 / 1.6
  EXPECT_EQ(lines[14], "       |  25.0% of breeding females are replaced each year");
  EXPECT_EQ(lines[15], "        |  giving a total of    16.breeding females including those ");
  EXPECT_EQ(lines[17], "        |  and    10.excluding those young animals");
}

TEST(WriteSummary, BornPerYearIsTruncated) {
  SummaryInput input(3, 1, 1);
  input.put_later_parents(1, 3, 199);
  const std::vector<std::string> lines = summary_lines(input);
  EXPECT_EQ(lines[13], "       |    99 females are born per year that later will become mother");
  EXPECT_EQ(lines[24], "       |     1 males are born per year that later will become father");
}

TEST(WriteSummary, WithoutLaterParentsNobodyIsAvailable) {
  SummaryInput input(3, 1, 1);
  put_row(input.dam_ages(), 1, {4});
  const std::vector<std::string> lines = summary_lines(input);
  EXPECT_EQ(lines[9], "           0.");
  EXPECT_EQ(lines[13], "       |     0 females are born per year that later will become mother");
}

TEST(WriteSummary, WithoutKnownAgesTheFiguresAreNotNumbers) {
  SummaryInput input(3, 0, 0);
  input.put_later_parents(1, 6, 8);
  const std::vector<std::string> lines = summary_lines(input);
  EXPECT_EQ(lines[9], "          NaN");
  EXPECT_EQ(lines[13], "       |     4 females are born per year that later will become mother");
  EXPECT_EQ(lines[14], "       |   NaN% of breeding females are replaced each year");
  EXPECT_EQ(lines[20], "          NaN");
}

TEST(WriteSummary, SiresOfTheSecondAgeOnlyCountAsUsedFromTheFirstOn) {
  // 0 and 1 become 1 and 1: half is replaced each year.
  SummaryInput input(3, 2, 1);
  put_row(input.sire_ages(), 1, {0, 7});
  input.put_later_parents(1, 4, 0);
  const std::vector<std::string> lines = summary_lines(input);
  EXPECT_EQ(lines[20], "           2.");  // 4 / 2 years / 0.5 = 4; 4 / 2
  EXPECT_EQ(lines[25], "       |  50.0% of breeding males are replaced each year");
}

// ---- sires, litters, ages --------------------------------------------------------------------------------------

TEST(WriteSummary, HalfIsAddedBeforeTheFieldRounds) {
  // Two litters in six years: a third, and a half is 0.83.
  SummaryInput input(8, 1, 1);
  input.tables.litters.at(3).litters = 2;
  input.put_shares(4, {1.0F, 1.0F});
  const std::vector<std::string> lines = summary_lines(input);
  EXPECT_EQ(lines[6], "           1.");
  EXPECT_EQ(lines[31], "           1.%");
}

TEST(WriteSummary, OnlyTheFourMostUsedSiresCount) {
  SummaryInput input(2, 1, 1);
  input.put_shares(1, {16, 8, 4, 2, 2, 2, 2, 2, 2, 2});
  EXPECT_EQ(summary_lines(input)[31], "          30.%");  // 30.5, rounded to the even number
}

std::vector<std::string> size_lines(const SummaryInput& input) {
  const std::vector<std::string> lines = summary_lines(input);
  const std::size_t first = line_with(lines, "Number of sizes");
  const std::size_t last = line_with(lines, "Age parents") - 1;  // without the blank line
  return {lines.begin() + static_cast<std::ptrdiff_t>(first), lines.begin() + static_cast<std::ptrdiff_t>(last)};
}

TEST(WriteSummary, ASizeIsKeptWhenItOccursMoreOftenThanTheMeanOfHundred) {
  // 100 litters, a mean of 1: the one litter of size 5 is left out, the two of size 4 are kept.
  SummaryInput input(3, 1, 1);
  input.put_litters_of_size(1, 2, 97);
  input.put_litters_of_size(2, 4, 2);
  input.put_litters_of_size(3, 5, 1);
  EXPECT_EQ(size_lines(input), (std::vector<std::string>{
                                   "   Number of sizes:            4",
                                   "   Litter size    Fraction  ",
                                   "       1              0.",
                                   "       2             98.",
                                   "       3              0.",
                                   "       4              2.",
                               }));
}

TEST(WriteSummary, AGapAmongTheKeptSizesIsARowOfZero) {
  SummaryInput input(3, 1, 1);
  input.put_litters_of_size(1, 1, 3);
  input.put_litters_of_size(1, 3, 1);
  EXPECT_EQ(size_lines(input), (std::vector<std::string>{
                                   "   Number of sizes:            3",
                                   "   Litter size    Fraction  ",
                                   "       1             75.",
                                   "       2              0.",
                                   "       3             25.",
                               }));
}

TEST(WriteSummary, LittersOfSizeHundredAreASize) {
  SummaryInput input(3, 1, 1);
  input.put_litters_of_size(1, 100, 3);
  const std::vector<std::string> lines = size_lines(input);
  ASSERT_EQ(lines.size(), 102U);
  EXPECT_EQ(lines.back(), "     100            100.");
}

TEST(WriteSummary, WithoutLittersNoSizeIsShown) {
  EXPECT_EQ(size_lines(SummaryInput(3, 1, 1)),
            (std::vector<std::string>{"   Number of sizes:            0", "   Litter size    Fraction  "}));
}

std::vector<std::string> age_lines(const SummaryInput& input) {
  const std::vector<std::string> lines = summary_lines(input);
  const std::size_t first = line_with(lines, "Number of ages");
  return {lines.begin() + static_cast<std::ptrdiff_t>(first), lines.end() - 2};
}

TEST(WriteSummary, AnAgeWithExactlyOneHundredthIsNotKept) {
  SummaryInput input(3, 3, 2);
  put_row(input.sire_ages(), 1, {98, 1, 1});
  put_row(input.dam_ages(), 1, {99, 1});
  EXPECT_EQ(age_lines(input), (std::vector<std::string>{
                                  "   Number of ages:            1",
                                  "   Age    Fraction  Fraction",
                                  "          fathers   mothers",
                                  "     1       98.       99.",
                              }));
}

TEST(WriteSummary, AnAgeWithLittleMoreThanOneHundredthIsKept) {
  SummaryInput input(3, 2, 1);
  put_row(input.sire_ages(), 1, {986, 14});
  put_row(input.dam_ages(), 1, {7});
  EXPECT_EQ(age_lines(input), (std::vector<std::string>{
                                  "   Number of ages:            2",
                                  "   Age    Fraction  Fraction",
                                  "          fathers   mothers",
                                  "     1       99.      100.",
                                  "     2        1.        0.",
                              }));
}

TEST(WriteSummary, AgesUpToTheLargestKeptOneAreShown) {
  // The sires of age 2 are too few to be kept, those of age 3 are not.
  SummaryInput input(3, 4, 2);
  put_row(input.sire_ages(), 1, {950, 4, 40, 6});
  put_row(input.dam_ages(), 2, {1, 3});
  EXPECT_EQ(age_lines(input), (std::vector<std::string>{
                                  "   Number of ages:            3",
                                  "   Age    Fraction  Fraction",
                                  "          fathers   mothers",
                                  "     1       95.       25.",
                                  "     2        0.       75.",
                                  "     3        4.        0.",
                              }));
}

TEST(WriteSummary, MothersOlderThanTheOldestSireShowZero) {
  SummaryInput input(3, 1, 3);
  put_row(input.sire_ages(), 1, {7});
  put_row(input.dam_ages(), 1, {1, 1, 2});
  EXPECT_EQ(age_lines(input), (std::vector<std::string>{
                                  "   Number of ages:            3",
                                  "   Age    Fraction  Fraction",
                                  "          fathers   mothers",
                                  "     1      100.       25.",
                                  "     2        0.        0.",
                                  "     3        0.        0.",
                              }));
}

}  // namespace
}  // namespace pedigreewatch::test
