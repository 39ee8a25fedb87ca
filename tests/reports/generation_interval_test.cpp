#include "reports/generation_interval.h"

#include <gtest/gtest.h>

#include "statistics/parent_ages.h"
#include "support/report_frame.h"

namespace pedigreewatch::test {
namespace {

/// The table of these ages, of years from 2001 on.
ReportSheet interval_sheet(const YearRows<MeanParentAges>& ages, const GenerationInterval& overall, bool english) {
  ReportSheet sheet(years_from(2001, static_cast<std::int32_t>(ages.row_count())), english);
  Block block;
  block.tables.parent_ages = ages;
  block.interval = overall;
  write_generation_interval(sheet.frame(), block);
  return sheet;
}

YearRows<MeanParentAges> four_years() {
  return rows_of<MeanParentAges>(4, {{1, {4.5F, 3.0F, 3.75F}}, {3, {4.25F, 0.0F, 4.25F}}, {4, {6.0F, 2.5F, 4.25F}}});
}

/// An animal whose parents had these ages at its birth, in days.
struct BirthAges {
  std::int32_t sire = unknown_age, dam = unknown_age;
};

PopulationStore store_of_births(const std::vector<BirthAges>& births) {
  std::vector<AnimalRecord> animals(births.size());
  for (std::size_t i = 0; i < births.size(); ++i) {
    animals[i].sire_age_days = births[i].sire;
    animals[i].dam_age_days = births[i].dam;
  }
  return finished_store_of(animals);
}

MeanParentAges mean_ages_of(const std::vector<BirthAges>& births) {
  const PopulationStore store = store_of_births(births);
  return mean_parent_ages(store, all_positions(store));
}

TEST(WriteGenerationInterval, WholeTableInEnglish) {
  const ReportSheet sheet = interval_sheet(four_years(), {4.5F, 3.0F, 3.75F}, true);
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
}

TEST(WriteGenerationInterval, WholeTableInDutch) {
  const ReportSheet sheet = interval_sheet(four_years(), {4.5F, 3.0F, 3.75F}, false);
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
}

TEST(WriteGenerationInterval, AgesOfOneSexOnlyAreTheParentsMean) {
  // 5.5 years of 365 days, and about 7.25.
  const auto ages = rows_of<MeanParentAges>(
      2, {{1, mean_ages_of({{2007, unknown_age}, {2008, unknown_age}})}, {2, mean_ages_of({{unknown_age, 2646}})}});
  const ReportSheet sheet = interval_sheet(ages, {}, true);
  EXPECT_TRUE(has_line(sheet.lines(), "    2001    5.50    0.00    5.50"));
  EXPECT_TRUE(has_line(sheet.lines(), "    2002    0.00    7.25    7.25"));
}

TEST(WriteGenerationInterval, AMeanAgeOfExactlyATenthCountsAsMissing) {
  // 36.5 days on the average are a tenth of a year, 73 days a fifth; 1168 days are 3.2 years, 1460 days 4.
  const auto ages = rows_of<MeanParentAges>(3, {{1, mean_ages_of({{36, 1168}, {37, 1168}})},
                                                {2, mean_ages_of({{1460, 36}, {1460, 37}})},
                                                {3, mean_ages_of({{73, 1460}})}});
  const ReportSheet sheet = interval_sheet(ages, {}, true);
  EXPECT_TRUE(has_line(sheet.lines(), "    2001    0.10    3.20    3.30"));
  EXPECT_TRUE(has_line(sheet.lines(), "    2002    4.00    0.10    4.10"));
  EXPECT_TRUE(has_line(sheet.lines(), "    2003    0.20    4.00    2.10"));
}

TEST(WriteGenerationInterval, TheLongestNounStandsWithoutTrailingBlanks) {
  ReportSheet sheet = english_sheet(years_from(2001, 1));
  sheet.nouns.youngs.assign("kalveren");
  write_generation_interval(sheet.frame(), Block());
  EXPECT_EQ(sheet.lines()[1], "      GENERATION INTERVAL  mean age parents at birth kalveren");
}

TEST(WriteGenerationInterval, UnknownOverallAgesReachTheTotalAndTheInterval) {
  const PopulationStore store = store_of_births({{unknown_age, 1095}});
  const GenerationInterval overall = overall_generation_interval(store, all_positions(store));
  const ReportSheet sheet = interval_sheet(YearRows<MeanParentAges>(1), overall, true);
  EXPECT_TRUE(has_line(sheet.lines(), " total       NaN    3.00     NaN"));
}

}  // namespace
}  // namespace pedigreewatch::test
