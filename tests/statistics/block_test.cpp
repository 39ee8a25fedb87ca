#include "statistics/block.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

#include "support/numbered_store.h"

namespace pedigreewatch::test {
namespace {

using Counts = std::vector<std::int32_t>;

/// Fathers 1 and 2, mother 3, her litters 4 and 5 (of 2001) and 6 (of 2002); ages of the parents 1, 1 and 2 years.
PopulationStore small_kennel() {
  std::vector<AnimalRecord> animals =
      numbered_records("2000 m\n2000 m\n2000\n2001 s=1 d=3\n2001 s=1 d=3 m\n2002 s=2 d=3\n");
  for (AnimalRecord& animal : animals) animal.sire_age_days = animal.dam_age_days = -1;
  for (const std::size_t i : {3U, 4U, 5U}) animals[i].sire_age_days = animals[i].dam_age_days = i == 5 ? 730 : 365;
  return finished_store_of(animals);
}

/// The tables from which the block is made, with two litters.
MonitorTables kennel_tables() {
  MonitorTables tables;
  tables.parent_counts = YearRows<ParentCounts>(3);
  tables.parent_counts.at(1) = {{0, 2, 0}, {0, 1, 0}};
  tables.parent_counts.at(2) = {{1, 0, 0}, {1, 0, 0}};
  tables.parent_counts.at(3) = {{0, 0, 0}, {1, 0, 0}};
  tables.litters = YearRows<LitterCounts>(3);
  LitterCounts& first = tables.litters.at(2);
  first.litters = first.fathers = 1;
  first.of_size(2) = 1;
  LitterCounts& second = tables.litters.at(3);
  second.litters = 1;
  second.of_size(1) = 1;
  return tables;
}

Block kennel_block(const std::vector<std::int32_t>& positions) {
  return make_block(small_kennel(), {"Kennel  ", positions, kennel_tables(), YearRows<InbreedingRow>(3), {}});
}

TEST(MakeBlock, KeepsTheNameWithItsBlanks) {
  EXPECT_EQ(kennel_block({1}).name, "Kennel  ");
}

TEST(MakeBlock, EveryAnimalThatIsNotInTheTotalsCountsAsOneWithoutBirthYear) {
  // The tables count 2 + 1 + 1 + 1 + 1 animals; the store holds 6, and then three more.
  PopulationStore store = small_kennel();
  const std::vector<std::int32_t> positions = {4, 5};
  const auto without_birth_year = [&] {
    return make_block(store, {"", positions, kennel_tables(), YearRows<InbreedingRow>(3), {}}).without_birth_year;
  };
  EXPECT_EQ(without_birth_year(), 0);
  store.animal_count += 3;
  EXPECT_EQ(without_birth_year(), 3);
}

TEST(MakeBlock, SumsThePopulationSize) {
  const Block block = kennel_block(from_to(1, 6));
  EXPECT_EQ(block.tables.parent_counts.row_count(), 3);
  EXPECT_EQ(block.totals.of(male).unused, 1);
  EXPECT_EQ(block.totals.of(male).native_parents, 2);
  EXPECT_EQ(block.totals.of(female).unused, 2);
  EXPECT_EQ(block.totals.of(female).native_parents, 1);
  // Three years: the last four are left out, and none remains.
  EXPECT_TRUE(std::isnan(block.shares_of_parents.of(male)));
}

TEST(MakeBlock, MeansAndSizesOfTheLitters) {
  const Block block = kennel_block(from_to(1, 6));
  EXPECT_EQ(block.litter_means.of(2).young_per_litter, 2.0F);
  EXPECT_EQ(block.litter_means.of(3).young_per_litter, 1.0F);
  // Three young without offspring, two litters, two sires.
  EXPECT_EQ(block.all_litters.litters, 2);
  EXPECT_EQ(block.all_litters.young_per_litter, 1.5F);
  EXPECT_EQ(block.all_litters.litters_per_father, 1.0F);
  EXPECT_EQ(row_of(block.litter_sizes, 2), (Counts{0, 1}));
  EXPECT_EQ(row_of(block.litter_sizes, 3), (Counts{1, 0}));
}

TEST(MakeBlock, BusiestParentsAndIntervalAreThoseOfThePositions) {
  const Block whole = kennel_block(from_to(1, 6)), some = kennel_block({2, 3, 6});
  EXPECT_EQ(whole.busiest.of(male), 1);
  EXPECT_EQ(some.busiest.of(male), 2);
  EXPECT_EQ(some.busiest.of(female), 3);
  EXPECT_FLOAT_EQ(whole.interval.generation_interval, 4.0F / 3.0F);
  EXPECT_EQ(some.interval.generation_interval, 2.0F);
}

TEST(MakeBlock, RatesArePerGenerationOfTheBlocksOwnInterval) {
  PopulationStore store = small_kennel();
  store.birth_years.count = 11;
  YearRows<InbreedingRow> rows(11);
  rows.at(6).F = 0.5F;
  const std::vector<std::int32_t> positions = {6};
  const Block block = make_block(
      store, {"", positions, kennel_tables(), std::move(rows), {.delta_F_absolute = 0.01F, .delta_F_smoothed = 0.02F}});
  EXPECT_EQ(block.inbreeding.of(6).F, 0.5F);
  EXPECT_FLOAT_EQ(block.rates.F_absolute.percent_per_generation, 2.0F);
  EXPECT_FLOAT_EQ(block.rates.F_smoothed.percent_per_generation, 4.0F);
  // Rows 1 to 6 around the mean 3: the slope of ln(1 - F) is 2.5 ln 0.5 / 19; times -200.
  ASSERT_EQ(block.periods.periods.size(), 2U);
  EXPECT_NEAR(block.periods.periods[0].F, 18.2407F, 1e-4F);
}

}  // namespace
}  // namespace pedigreewatch::test
