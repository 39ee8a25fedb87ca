#include "pedigree/year_groups.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/pedigrees.h"

namespace pedigreewatch::test {
namespace {

using Numbers = std::vector<std::int32_t>;

Numbers animals_of(const YearGroups& groups, std::int64_t row) {
  const std::span<const std::int32_t> animals = groups.of_row(row);
  return {animals.begin(), animals.end()};
}

constexpr auto seven_animals =
    "a 0 0 m 2003\n"
    "b 0 0 m 2000\n"
    "c 0 0 m 0\n"
    "d 0 0 m 2003\n"
    "e 0 0 m 2000\n"
    "f 0 0 m 2001\n"
    "g 0 0 m 2003\n";

TEST(GroupByYear, KeepsStoreOrderWithinAYear) {
  const YearGroups groups = group_by_year(animals_from_text(seven_animals));
  EXPECT_EQ(animals_of(groups, 1), (Numbers{2, 5}));
  EXPECT_EQ(animals_of(groups, 2), (Numbers{6}));
  EXPECT_EQ(animals_of(groups, 3), Numbers{});
  EXPECT_EQ(animals_of(groups, 4), (Numbers{1, 4, 7}));
}

TEST(GroupByYear, RowsOutsideTheTableAreEmpty) {
  const YearGroups groups = group_by_year(animals_from_text(seven_animals));
  EXPECT_EQ(animals_of(groups, 0), Numbers{});
  EXPECT_EQ(animals_of(groups, 5), Numbers{});
  EXPECT_EQ(animals_of(groups, -1), Numbers{});
}

TEST(GroupByYear, TakesOnlyTheAnimalsAtThePositions) {
  const PopulationStore store = animals_from_text(seven_animals);
  const YearGroups groups = group_by_year(store, Numbers{3, 4, 5, 7});
  EXPECT_EQ(animals_of(groups, 1), (Numbers{5}));
  EXPECT_EQ(animals_of(groups, 2), Numbers{});
  EXPECT_EQ(animals_of(groups, 4), (Numbers{4, 7}));
}

TEST(GroupByYear, StoreWithoutYearsHasNoGroups) {
  EXPECT_EQ(animals_of(group_by_year(animals_from_text("a 0 0 m 0\nb 0 0 m 0\n")), 1), Numbers{});
  const YearGroups empty = group_by_year(animals_from_text(""));
  EXPECT_EQ(animals_of(empty, 1), Numbers{});
  EXPECT_EQ(animals_of(empty, 2), Numbers{});
}

TEST(GroupByYear, SingleYearIsOneGroup) {
  EXPECT_EQ(animals_of(group_by_year(animals_from_text("a 0 0 m 1999\nb 0 0 m 1999\n")), 1), (Numbers{1, 2}));
}

}  // namespace
}  // namespace pedigreewatch::test
