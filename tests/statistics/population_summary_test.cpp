#include "statistics/population_summary.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace pedigreewatch::test {
namespace {

using Counts = std::vector<std::int32_t>;
using Reals = std::vector<float>;

/// What the summary reads, of the years from 2001 on.
struct SummaryInput {
  BirthYears years;
  MonitorTables tables;
  YearRows<TopSireRow> top_sires;

  SummaryInput(std::int32_t year_count, std::int32_t oldest_sire, std::int32_t oldest_dam)
      : years{.first = 2001, .last = 2000 + year_count, .count = year_count}, top_sires(year_count) {
    tables.age_classes = make_age_classes(years, {oldest_sire, oldest_dam});
    tables.parent_counts = YearRows<ParentCounts>(year_count);
    tables.litters = YearRows<LitterCounts>(year_count);
  }
  void put_ages(Sex parent, Row row, const Counts& counts) {
    std::int64_t age = 0;
    for (const std::int32_t count : counts) tables.age_classes.of(parent).at(row, ++age) = count;
  }
  void put_later_parents(Row row, std::int32_t sires, std::int32_t dams) {
    // Animals that did not become parents and imported parents must not show.
    tables.parent_counts.at(row) = {{700, sires, 800}, {700, dams, 800}};
  }
  void put_shares(Row row, const Reals& shares) {
    std::copy(shares.begin(), shares.end(), top_sires.at(row).shares.begin());
  }
  PopulationSummary summary() const { return summarise_population(years, tables, top_sires); }
};

/// Eight years. The summary rests on 2 to 7, the later parents on 2 to 6; the years outside hold large numbers that
/// would show.
SummaryInput eight_years() {
  SummaryInput input(8, 2, 3);
  // 61 litters in six years.
  const std::int32_t litters[] = {1000, 10, 10, 10, 10, 10, 11, 1000};
  for (Row row = 1; row <= 8; ++row) input.tables.litters.at(row).litters = litters[row - 1];
  // Sizes count in all years: 152 litters, a mean of 1.52 for each of a hundred sizes.
  input.tables.litters.at(1).of_size(1) = 1;
  input.tables.litters.at(2).of_size(3) = 25;
  input.tables.litters.at(8).of_size(3) = 25;
  input.tables.litters.at(3).of_size(4) = 60;
  input.tables.litters.at(4).of_size(6) = 40;
  input.tables.litters.at(5).of_size(7) = 1;
  // Sires 0.6 and 0.4; dams 0.2, 0.5 and 0.3.
  input.put_ages(male, 1, {0, 900});
  input.put_ages(male, 2, {6, 1});
  input.put_ages(male, 7, {0, 3});
  input.put_ages(male, 8, {0, 900});
  input.put_ages(female, 1, {0, 0, 900});
  input.put_ages(female, 2, {2, 1, 0});
  input.put_ages(female, 7, {0, 4, 3});
  input.put_ages(female, 8, {0, 0, 900});
  // 20 later sires and 30 later dams.
  const std::int32_t sires[] = {500, 4, 4, 4, 4, 4, 500, 500};
  const std::int32_t dams[] = {500, 10, 5, 5, 5, 5, 500, 500};
  for (Row row = 1; row <= 8; ++row) input.put_later_parents(row, sires[row - 1], dams[row - 1]);
  // The four most used sires: 27 percent in five years and 30 in one, 27.5 on the average.
  input.put_shares(1, {25, 25, 25, 25});
  for (Row row = 2; row <= 6; ++row) input.put_shares(row, {10, 8, 6, 3, 3, 3, 3, 3, 3, 3});
  input.put_shares(7, {10, 8, 6, 6, 5});
  input.put_shares(8, {25, 25, 25, 25});
  return input;
}

void expect_years(std::int32_t year_count, const SummaryYears& wanted) {
  const SummaryYears years = SummaryInput(year_count, 0, 0).summary().years;
  EXPECT_EQ(years.first, wanted.first) << year_count;
  EXPECT_EQ(years.last, wanted.last) << year_count;
  EXPECT_EQ(years.last_parents, wanted.last_parents) << year_count;
  EXPECT_EQ(years.length, wanted.length) << year_count;
}

TEST(SummaryYears, AreUpToSixBeforeTheLastOne) {
  expect_years(1, {1, 0, 1, 0});
  expect_years(2, {1, 1, 1, 1});
  expect_years(3, {1, 2, 1, 2});
  expect_years(7, {1, 6, 5, 6});
  expect_years(8, {2, 7, 6, 6});
  expect_years(20, {14, 19, 18, 6});
}

TEST(SummaryYears, WithoutAnyBirthYearTheNumbersWrapAround) {
  const BirthYears years = {.first = 2147483647, .last = 0, .count = -2147483646};
  const SummaryYears summary = summarise_population(years, {}, {}).years;
  // -2147483652 wraps to 2147483644; the length of -4294967290 years to 6.
  EXPECT_EQ(summary.first, 2147483644);
  EXPECT_EQ(summary.last, -2147483647);
  EXPECT_EQ(summary.last_parents, 1);
  EXPECT_EQ(summary.length, 6);
}

TEST(PopulationSummary, LittersPerYear) {
  EXPECT_FLOAT_EQ(eight_years().summary().litters_per_year, 61.0F / 6.0F);
}

void expect_ages(const std::vector<AgeRow>& rows, const Reals& sires, const Reals& dams) {
  ASSERT_EQ(rows.size(), sires.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    EXPECT_EQ(rows[i].age, static_cast<std::int32_t>(i) + 1);
    EXPECT_FLOAT_EQ(rows[i].sires, sires[i]) << rows[i].age;
    EXPECT_FLOAT_EQ(rows[i].dams, dams[i]) << rows[i].age;
  }
}

TEST(PopulationSummary, PercentagesOfTheParentsAgesWithNoneAboveTheOldestSire) {
  // Three tenths of the dams are three years old, which is above the oldest sire.
  expect_ages(eight_years().summary().ages, {60, 40, 0}, {20, 50, 0});
}

TEST(PopulationSummary, AgesUpToTheHighestThatIsMoreThanAHundredthOfEitherSex) {
  SummaryInput input(3, 4, 3);
  input.put_ages(male, 1, {950, 4, 36, 10});
  input.put_ages(female, 2, {98, 1, 1});
  expect_ages(input.summary().ages, {95, 0.4F, 3.6F}, {98, 1, 1});
  input.put_ages(male, 1, {985, 15, 0, 0});
  expect_ages(input.summary().ages, {98.5F, 1.5F}, {98, 1});
}

TEST(PopulationSummary, BreedingStockOfFractionsThatNeverRiseWithAge) {
  // Dams: v is 0.5, 0.5, 0.3, its sum 1.3; r = 0.5 / 1.3; 30 / 6 = 5 are born, T = 5 / r = 13, A = 13 / 1.3 = 10.
  // Sires: v is 0.6, 0.4, its sum 1; r = 0.6; 20 / 6 are born, T = 20 / 6 / 0.6 = A.
  const PopulationSummary summary = eight_years().summary();
  const BreedingStock& dams = summary.stock.of(female);
  EXPECT_EQ(dams.later_parents_per_year, 5);
  EXPECT_FLOAT_EQ(dams.replacement_percent, 50.0F / 1.3F);
  EXPECT_FLOAT_EQ(dams.total, 13.0F);
  EXPECT_FLOAT_EQ(dams.available, 10.0F);
  const BreedingStock& sires = summary.stock.of(male);
  EXPECT_EQ(sires.later_parents_per_year, 3);
  EXPECT_FLOAT_EQ(sires.replacement_percent, 60.0F);
  EXPECT_FLOAT_EQ(sires.total, 20.0F / 3.6F);
  EXPECT_FLOAT_EQ(sires.available, 20.0F / 3.6F);
}

TEST(PopulationSummary, WithThreeYearsOneYearsParentsAreDividedByTwo) {
  SummaryInput input(3, 1, 1);
  const std::int32_t litters[] = {4, 6, 1000};
  for (Row row = 1; row <= 3; ++row) {
    input.tables.litters.at(row).litters = litters[row - 1];
    input.put_ages(male, row, {1});
    input.put_ages(female, row, {1});
  }
  input.put_later_parents(1, 8, 12);
  input.put_later_parents(2, 500, 500);
  input.put_later_parents(3, 500, 500);
  const PopulationSummary summary = input.summary();
  EXPECT_EQ(summary.litters_per_year, 5.0F);
  EXPECT_EQ(summary.stock.of(female).later_parents_per_year, 6);
  EXPECT_EQ(summary.stock.of(female).available, 6.0F);
  EXPECT_EQ(summary.stock.of(male).available, 4.0F);
  EXPECT_EQ(summary.stock.of(male).replacement_percent, 100.0F);
}

TEST(PopulationSummary, ShareOfTheFourMostUsedSires) {
  EXPECT_FLOAT_EQ(eight_years().summary().share_of_four, 27.5F);
}

TEST(PopulationSummary, LitterSizesThatOccurMoreOftenThanTheMeanOfAllHundred) {
  // 150 of 152 litters are kept: 50, 60 and 40. Sizes 1 and 7 occur once, which is below 1.52.
  const PopulationSummary summary = eight_years().summary();
  const Reals& percentages = summary.litter_percentages.entries;
  const Reals expected = {0, 0, 100.0F / 3.0F, 40, 0, 80.0F / 3.0F};
  ASSERT_EQ(percentages.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_FLOAT_EQ(percentages[i], expected[i]) << i + 1;
}

TEST(PopulationSummary, ASizeAsFrequentAsTheMeanIsNotKept) {
  // 100 litters, a mean of exactly 1.
  SummaryInput input(3, 0, 0);
  input.tables.litters.at(1).of_size(1) = 99;
  input.tables.litters.at(2).of_size(9) = 1;
  EXPECT_EQ(input.summary().litter_percentages.entries, (Reals{100}));
}

TEST(PopulationSummary, WithoutLittersNoSizeIsKept) {
  EXPECT_EQ(SummaryInput(3, 0, 0).summary().litter_percentages.count(), 0);
}

TEST(PopulationSummary, AgesUnknownToAllLeaveNoRowAndFiguresThatAreNotANumber) {
  SummaryInput input(3, 2, 0);
  input.put_later_parents(1, 8, 12);
  const PopulationSummary summary = input.summary();
  EXPECT_TRUE(summary.ages.empty());
  for (const Sex sex : {male, female}) {
    EXPECT_TRUE(std::isnan(summary.stock.of(sex).replacement_percent));
    EXPECT_TRUE(std::isnan(summary.stock.of(sex).total));
    EXPECT_TRUE(std::isnan(summary.stock.of(sex).available));
  }
  EXPECT_EQ(summary.stock.of(male).later_parents_per_year, 4);
}

TEST(PopulationSummary, SiresOfUnknownAgeBesideDamsOfKnownAgeAreNotANumber) {
  SummaryInput input(3, 1, 1);
  input.put_ages(female, 1, {3});
  const PopulationSummary summary = input.summary();
  ASSERT_EQ(summary.ages.size(), 1U);
  EXPECT_TRUE(std::isnan(summary.ages[0].sires));
  EXPECT_EQ(summary.ages[0].dams, 100.0F);
}

TEST(PopulationSummary, OneYearLeavesNoSpanAndNothingIsGuarded) {
  SummaryInput input(1, 1, 1);
  input.put_ages(male, 1, {5});
  input.put_ages(female, 1, {5});
  input.tables.litters.at(1).litters = 10;
  input.tables.litters.at(1).of_size(2) = 10;
  input.put_later_parents(1, 3, 4);
  input.put_shares(1, {40, 30, 20, 10});
  const PopulationSummary summary = input.summary();
  EXPECT_TRUE(std::isnan(summary.litters_per_year));
  EXPECT_TRUE(std::isnan(summary.share_of_four));
  EXPECT_TRUE(std::isnan(summary.stock.of(male).total));
  EXPECT_TRUE(summary.ages.empty());
  // There is no number of years to divide by; sizes count in all years.
  EXPECT_FALSE(summary.stock.of(male).later_parents_per_year);
  EXPECT_FALSE(summary.stock.of(female).later_parents_per_year);
  EXPECT_EQ(summary.litter_percentages.entries, (Reals{0, 100}));
}

}  // namespace
}  // namespace pedigreewatch::test
