#include "statistics/population_size.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string_view>
#include <vector>

#include "support/numbered_store.h"

namespace pedigreewatch::test {
namespace {

using Counts = std::vector<std::int32_t>;

/// The males without native offspring, native and imported sires, and the same of the females.
Counts cells_of(const ParentCounts& counts) {
  Counts cells;
  for (const Sex sex : {male, female}) {
    cells.push_back(counts.of(sex).unused);
    cells.push_back(counts.of(sex).native_parents);
    cells.push_back(counts.of(sex).imported_parents);
  }
  return cells;
}

/// The counts of the first `last` animals; the one place where these tests call the operation.
Counts counts_of(std::string_view numbered, std::int32_t last) {
  return cells_of(parent_year_statistics(numbered_store(numbered), from_to(1, last)));
}

TEST(ParentYearStatistics, CountsParentsBySexAndOrigin) {
  // Group 1 to 9. Males: 1 and 2 native sires, 3 native without offspring, 4 native with imported offspring only, 5
  // imported sire, 6 import without offspring. Females: 7 native dam, 8 native without offspring, 9 imported dam.
  EXPECT_EQ(counts_of("m\nm\nm\nm\nm import\nm import\n.\n.\nimport\n"
                      "s=1 d=7\ns=1 d=7\ns=2 d=9\ns=5 d=9\ns=4 import\n",
                      9),
            (Counts{2, 2, 1, 1, 1, 1}));
}

TEST(ParentYearStatistics, ImportedOffspringMakeNoParent) {
  // 1 has one native and one imported child; 2 has an imported child only and is no parent here.
  EXPECT_EQ(counts_of("m\nm\ns=1\ns=1 import\ns=2 import\n", 2), (Counts{1, 1, 0, 0, 0, 0}));
}

TEST(ParentYearStatistics, WithoutParentsOnlyNativeAnimalsCount) {
  EXPECT_EQ(counts_of("m\n.\nimport\n", 3), (Counts{1, 0, 0, 1, 0, 0}));
}

TEST(ParentYearStatistics, WithoutAnimalsAllIsZero) {
  EXPECT_EQ(counts_of("", 0), Counts(6, 0));
}

/// Males, sires and imported sires of each year, and the same of the females.
YearRows<ParentCounts> years_with(const std::vector<Counts>& years) {
  YearRows<ParentCounts> rows(static_cast<Row>(years.size()));
  Row row = 0;
  for (const Counts& c : years) {
    ++row;
    if (!c.empty()) rows.at(row) = {{c[0], c[1], c[2]}, {c[3], c[4], c[5]}};
  }
  return rows;
}

TEST(TotalOfYears, SumsEveryColumnOfAllYears) {
  const ReportTotals totals = total_of_years(years_with({{1, 2, 3, 4, 5, 6}, {}, {10, 20, 30, 40, 50, 60}}));
  EXPECT_EQ(totals.of(male).unused, 11);
  EXPECT_EQ(totals.of(male).native_parents, 22);
  EXPECT_EQ(totals.of(male).imported_parents, 33);
  EXPECT_EQ(totals.of(female).unused, 44);
  EXPECT_EQ(totals.of(female).native_parents, 55);
  EXPECT_EQ(totals.of(female).imported_parents, 66);
}

TEST(TotalOfYears, SumsBeyond32BitsDoNotWrap) {
  const Counts many = {2'000'000'000, 0, 0, 0, 0, 2'000'000'000};
  const ReportTotals totals = total_of_years(years_with({many, many}));
  EXPECT_EQ(totals.of(male).unused, 4'000'000'000);
  EXPECT_EQ(totals.of(female).imported_parents, 4'000'000'000);
}

TEST(SharesOfParents, LeaveTheLastFourYearsOut) {
  // Years 1 and 3 of 7: 1 + 2 of 4 + 8 native males and 1 + 5 of 6 + 6 native females became parents. Imports play no
  // part.
  const Counts recent = {100, 100, 100, 100, 100, 100};
  const BySex<float> shares =
      shares_of_parents(years_with({{3, 1, 7, 5, 1, 7}, {}, {6, 2, 7, 1, 5, 7}, recent, recent, recent, recent}), 7);
  EXPECT_EQ(shares.of(male), 25.0F);
  EXPECT_EQ(shares.of(female), 50.0F);
}

TEST(SharesOfParents, WithoutAnyAnimalAreNotANumber) {
  const Counts recent = {100, 100, 100, 100, 100, 100};
  const BySex<float> shares = shares_of_parents(years_with({recent, recent, recent, recent}), 4);
  EXPECT_TRUE(std::isnan(shares.of(male)));
  EXPECT_TRUE(std::isnan(shares.of(female)));
}

TEST(SharesOfParents, AWrappedNumberOfYearsHasNoYears) {
  EXPECT_TRUE(std::isnan(shares_of_parents({}, -2147483646).of(male)));
}

}  // namespace
}  // namespace pedigreewatch::test
