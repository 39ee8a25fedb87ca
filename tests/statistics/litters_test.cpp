#include "statistics/litters.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "support/numbered_store.h"
#include "support/pedigrees.h"

namespace pedigreewatch::test {
namespace {

using Counts = std::vector<std::int32_t>;

/// Litters, fathers, and the numbers of litters of size 1, 2 ... 100.
Counts cells_of(const LitterCounts& counts) {
  Counts cells = {counts.litters, counts.fathers};
  cells.insert(cells.end(), counts.sizes.begin(), counts.sizes.end());
  return cells;
}

/// The one place where these tests call the operation.
Counts litters_of(const PopulationStore& store, const Counts& group) {
  LitterScratch scratch(store);
  const LitterCounts counts = litter_statistics(store, group, scratch);
  for (const std::int32_t size : scratch.litter_size.values) EXPECT_EQ(size, 0);
  for (const char seen : scratch.is_seen.values) EXPECT_EQ(seen, 0);
  return cells_of(counts);
}

/// A litter row: litters, fathers, and the numbers of litters of size 1, 2 ...; zeros behind them.
Counts litter_row(std::int32_t litters, std::int32_t fathers, Counts sizes) {
  Counts row = {litters, fathers};
  row.insert(row.end(), sizes.begin(), sizes.end());
  row.resize(102, 0);
  return row;
}

// Fathers 1 to 3, mothers 4 to 6.
constexpr auto litter_parents = "m\nm\nm\n.\n.\n.\n";

PopulationStore litter_store(std::string_view offspring) {
  return numbered_store(litter_parents + std::string(offspring));
}

TEST(LitterStatistics, OneLitterIsCountedWithoutItsFather) {
  const PopulationStore store = litter_store("s=1 d=4\ns=1 d=4\ns=1 d=4\n");
  EXPECT_EQ(litters_of(store, from_to(7, 9)), litter_row(1, 0, {0, 0, 1}));
}

TEST(LitterStatistics, TheFatherOfTheFirstAnimalIsNeverCounted) {
  // Father 1 comes back with another mother: still not counted. Fathers 2 and 3 are.
  const PopulationStore store = litter_store("s=1 d=4\ns=2 d=5\ns=1 d=5\ns=3 d=6\ns=1 d=6\n");
  EXPECT_EQ(litters_of(store, from_to(7, 11)), litter_row(3, 2, {1, 2}));
}

TEST(LitterStatistics, WithoutKnownFatherOfTheFirstAnimalAllFathersCount) {
  const PopulationStore store = litter_store("d=4\ns=1 d=4\ns=2 d=5\ns=1 d=5\n");
  EXPECT_EQ(litters_of(store, from_to(7, 10)), litter_row(2, 2, {0, 2}));
}

TEST(LitterStatistics, DatesWithinTheYearPlayNoPart) {
  const PopulationStore store = litter_store("2000-1-5 s=1 d=4\n2000-2-1 d=5\n2000-12-24 s=1 d=4\n");
  EXPECT_EQ(litters_of(store, from_to(7, 9)), litter_row(2, 0, {1, 1}));
}

TEST(LitterStatistics, AnimalsWithoutMotherAreInNoLitter) {
  const PopulationStore store = litter_store("s=1\ns=2\ns=3\ns=2\n");
  EXPECT_EQ(litters_of(store, from_to(7, 10)), litter_row(0, 2, {}));
}

TEST(LitterStatistics, AnImportedFirstMemberTakesTheWholeLitterOut) {
  // 7 is an import with mother 4: mother and father 1 count as seen, so 8 adds neither.
  const PopulationStore store = litter_store("s=1 d=4 import\ns=1 d=4\ns=2 d=5\n");
  EXPECT_EQ(litters_of(store, from_to(7, 9)), litter_row(1, 1, {1}));
}

TEST(LitterStatistics, AnImportedLaterMemberCountsInTheSize) {
  const PopulationStore store = litter_store("s=1 d=4\ns=1 d=4 import\n");
  EXPECT_EQ(litters_of(store, from_to(7, 8)), litter_row(1, 0, {0, 1}));
}

TEST(LitterStatistics, AnImportInTheMiddleMakesMotherAndFatherSeen) {
  // 8, an import, has mother 5 and father 2: 9 with the same parents adds nothing; 10 adds father 3.
  const PopulationStore store = litter_store("s=1 d=4\ns=2 d=5 import\ns=2 d=5\ns=3 d=4\n");
  EXPECT_EQ(litters_of(store, from_to(7, 10)), litter_row(1, 1, {0, 1}));
}

TEST(LitterStatistics, OnlyTheGroupCounts) {
  // The litter mate at position 8 is not in the group.
  const PopulationStore store = litter_store("s=1 d=4\ns=1 d=4\ns=2 d=4\n");
  EXPECT_EQ(litters_of(store, {7, 9}), litter_row(1, 1, {0, 1}));
}

PopulationStore large_litter(int size) {
  std::string text;
  for (int i = 0; i < size; ++i) text += "d=4\n";
  return litter_store(text);
}

TEST(LitterStatistics, ALitterOf150StandsInTheLastColumn) {
  const Counts row = litters_of(large_litter(150), from_to(7, 156));
  EXPECT_EQ(row[0], 1);
  EXPECT_EQ(row[101], 1);
  EXPECT_EQ(std::accumulate(row.begin() + 2, row.end(), 0), 1);
}

TEST(LitterStatistics, LittersOf99And100And101) {
  EXPECT_EQ(litters_of(large_litter(99), from_to(7, 105))[100], 1);
  EXPECT_EQ(litters_of(large_litter(100), from_to(7, 106))[101], 1);
  EXPECT_EQ(litters_of(large_litter(101), from_to(7, 107))[101], 1);
}

/// The plain way, animal by animal, with a look at all earlier ones.
Counts plain_litters(const PopulationStore& store, const Counts& group) {
  Counts row(102, 0);
  const auto size_of = [&](std::int32_t dam) {
    std::int32_t size = 0;
    for (const std::int32_t position : group) size += store.at(position).dam_no == dam ? 1 : 0;
    return std::min(size, 100);
  };
  std::set<std::int32_t> dams, sires;
  for (std::size_t i = 0; i < group.size(); ++i) {
    const AnimalRecord& animal = store.at(group[i]);
    if (!animal.is_import) {
      if (animal.dam_no != 0 && dams.count(animal.dam_no) == 0) {
        ++row[0];
        ++row[static_cast<std::size_t>(1 + size_of(animal.dam_no))];
      }
      if (i > 0 && animal.sire_no != 0 && sires.count(animal.sire_no) == 0) ++row[1];
    }
    dams.insert(animal.dam_no);
    sires.insert(animal.sire_no);
  }
  return row;
}

TEST(LitterStatistics, AgreeWithThePlainWayOnRandomPedigrees) {
  for (std::uint64_t seed = 1; seed <= 3; ++seed) {
    const PopulationStore store = random_pedigree(seed, 600, 10);
    for (std::int32_t year = 2000; year < 2010; ++year) {
      Counts group;
      for (std::int32_t position = 1; position <= store.animal_count; ++position) {
        if (store.at(position).birth_year == year) group.push_back(position);
      }
      EXPECT_EQ(litters_of(store, group), plain_litters(store, group));
    }
  }
}

// ---------------------------------------------------------------------------------------------------------------

struct YearOfLitters {
  std::int32_t fathers = 0;
  std::vector<std::pair<std::int32_t, std::int32_t>> sizes;  ///< a size, and how many litters have it
};

/// A year without any litter and father is not stored.
YearRows<LitterCounts> years_with(const std::vector<YearOfLitters>& years) {
  YearRows<LitterCounts> rows(static_cast<Row>(years.size()));
  Row row = 0;
  for (const YearOfLitters& year : years) {
    ++row;
    if (year.fathers == 0 && year.sizes.empty()) continue;
    LitterCounts& counts = rows.at(row);
    counts.fathers = year.fathers;
    for (const auto& [size, count] : year.sizes) {
      counts.of_size(size) = count;
      counts.litters += count;
    }
  }
  return rows;
}

void expect_means(const LitterMeans& got, const LitterMeans& wanted) {
  EXPECT_EQ(got.litters, wanted.litters);
  EXPECT_FLOAT_EQ(got.young_per_litter, wanted.young_per_litter);
  EXPECT_EQ(got.fathers, wanted.fathers);
  EXPECT_FLOAT_EQ(got.litters_per_father, wanted.litters_per_father);
  EXPECT_FLOAT_EQ(got.young_per_father, wanted.young_per_father);
}

TEST(LitterMeansOfYears, AreRatiosOfLittersYoungAndFathers) {
  // Year 1: 3 litters of 2 and 1 of 4: 10 young; 2 fathers. Year 3: one litter of 100.
  const YearRows<LitterMeans> means = means_of_years(years_with({{2, {{2, 3}, {4, 1}}}, {}, {1, {{100, 1}}}}));
  ASSERT_EQ(means.row_count(), 3);
  expect_means(means.of(1), {4, 2.5F, 2, 2.0F, 5.0F});
  expect_means(means.of(2), {});
  expect_means(means.of(3), {1, 100.0F, 1, 1.0F, 100.0F});
}

TEST(LitterMeansOfYears, WithoutLittersOrFathersThereIsNothingToDivideBy) {
  const YearRows<LitterMeans> means = means_of_years(years_with({{0, {{3, 2}}}, {2, {}}}));
  expect_means(means.of(1), {2, 3.0F, 0, 0.0F, 0.0F});
  expect_means(means.of(2), {0, 0.0F, 2, 0.0F, 0.0F});
}

TEST(MeansOfAllLitters, TakeYoungAndFathersFromThePopulationSize) {
  // 10 litters; 12 + 13 animals that did not become parents; 3 native and 2 imported sires.
  const YearRows<LitterCounts> litters = years_with({{7, {{2, 4}}}, {}, {7, {{3, 6}}}});
  const ReportTotals totals = {{12, 3, 2}, {13, 70, 70}};
  expect_means(means_of_all_litters(litters, totals), {10, 2.5F, 5, 2.0F, 5.0F});
}

TEST(MeansOfAllLitters, NothingGuardsTheDivisions) {
  const LitterMeans none = means_of_all_litters({}, {});
  EXPECT_EQ(none.litters, 0);
  EXPECT_EQ(none.fathers, 0);
  for (const float mean : {none.young_per_litter, none.litters_per_father, none.young_per_father}) {
    EXPECT_TRUE(std::isnan(mean));
  }
  EXPECT_TRUE(std::isinf(means_of_all_litters({}, {{5, 0, 0}, {}}).young_per_litter));
}

TEST(LitterSizes, HaveAColumnUpToTheLargestSizeThatOccurs) {
  const YearTable<std::int32_t> sizes = litter_sizes_of(years_with({{0, {{2, 3}, {5, 1}}}, {}, {0, {{1, 7}}}}));
  ASSERT_EQ(sizes.column_count, 5);
  EXPECT_EQ(row_of(sizes, 1), (Counts{0, 3, 0, 0, 1}));
  EXPECT_EQ(row_of(sizes, 2), Counts(5, 0));
  EXPECT_EQ(row_of(sizes, 3), (Counts{7, 0, 0, 0, 0}));
}

TEST(LitterSizes, ALitterOfHundredHasTheLastColumn) {
  const YearTable<std::int32_t> sizes = litter_sizes_of(years_with({{0, {{99, 1}}}, {0, {{100, 2}}}}));
  ASSERT_EQ(sizes.column_count, 100);
  EXPECT_EQ(sizes.value(1, 99), 1);
  EXPECT_EQ(sizes.value(2, 100), 2);
}

TEST(LitterSizes, WithoutLittersThereIsNoColumn) {
  EXPECT_EQ(litter_sizes_of(years_with({{}, {2, {}}})).column_count, 0);
}

}  // namespace
}  // namespace pedigreewatch::test
