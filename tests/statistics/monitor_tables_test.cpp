#include "statistics/monitor_tables.h"

#include <gtest/gtest.h>

namespace pedigreewatch::test {
namespace {

constexpr BirthYears four_years = {.first = 1998, .last = 2001, .count = 4};

TEST(MakeMonitorTables, TablesHaveARowForEachYearAndTheirColumns) {
  const MonitorTables tables = make_monitor_tables(four_years, {.sire = 12, .dam = 9}, 5, 10);
  EXPECT_EQ(tables.equivalent_generations.column_count, 1);
  EXPECT_EQ(tables.complete_generation_shares.column_count, 5);
  EXPECT_EQ(tables.sire_age_classes.column_count, 12);
  EXPECT_EQ(tables.dam_age_classes.column_count, 9);
  EXPECT_EQ(tables.parent_counts.column_count, 6);
  EXPECT_EQ(tables.parent_offspring.column_count, 6);
  EXPECT_EQ(tables.import_pairs.column_count, 4);
  EXPECT_EQ(tables.litters.column_count, 102);
  EXPECT_EQ(tables.mean_sire_age.column_count, 1);
  EXPECT_EQ(tables.mean_dam_age.column_count, 1);
  EXPECT_EQ(tables.colour_counts.column_count, 5);
  EXPECT_EQ(tables.top_breeders.column_count, 22);
  EXPECT_EQ(tables.litters.row_count, 4);
  EXPECT_EQ(tables.top_breeders.row_count, 4);
}

TEST(MakeMonitorTables, WithoutTopBreedersThereAreTwoColumns) {
  EXPECT_EQ(make_monitor_tables(four_years, {}, 1, 0).top_breeders.column_count, 2);
}

TEST(MakeMonitorTables, AgesNotAboveZeroGiveNoAgeClasses) {
  // An empty store has the quotient of the smallest integer and 365.
  const MonitorTables tables = make_monitor_tables({}, {.sire = -5883516, .dam = 0}, 1, 0);
  EXPECT_EQ(tables.sire_age_classes.column_count, 0);
  EXPECT_EQ(tables.dam_age_classes.column_count, 0);
  EXPECT_EQ(tables.litters.row_count, 2);
}

}  // namespace
}  // namespace pedigreewatch::test
