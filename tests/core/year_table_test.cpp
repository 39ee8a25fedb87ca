#include "core/year_table.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace pedigreewatch::test {
namespace {

constexpr BirthYears nineties = {.first = 1990, .last = 1999, .count = 10};

TEST(BirthYears, EmptyStoreHasTwoRowsByWrapping) {
  const BirthYears years;
  EXPECT_EQ(years.first, 2147483647);
  EXPECT_EQ(years.last, INT32_MIN);
  EXPECT_EQ(years.count, 2);
  EXPECT_EQ(years.row_count(), 2);
  EXPECT_EQ(years.dated_row_count(), 0);
  EXPECT_EQ(years.year_of(1), 2147483647);
  EXPECT_EQ(years.year_of(2), INT32_MIN);
}

TEST(BirthYears, WithoutDatesHaveNoRows) {
  const BirthYears years = {.first = 2147483647, .last = 0, .count = -2147483646};
  EXPECT_EQ(years.row_count(), 0);
  EXPECT_EQ(years.dated_row_count(), 0);
  EXPECT_EQ(years.row_of(0), 0);
  EXPECT_EQ(years.row_of(1998), 0);
}

TEST(BirthYears, RowsAreCountedFromOne) {
  EXPECT_EQ(nineties.row_of(1990), 1);
  EXPECT_EQ(nineties.row_of(1999), 10);
  EXPECT_EQ(nineties.year_of(1), 1990);
  EXPECT_EQ(nineties.year_of(10), 1999);
  EXPECT_EQ(nineties.row_count(), 10);
  EXPECT_EQ(nineties.dated_row_count(), 10);
}

TEST(BirthYears, YearOutsideHasNoRow) {
  EXPECT_EQ(nineties.row_of(1989), 0);
  EXPECT_EQ(nineties.row_of(2000), 0);
  EXPECT_EQ(nineties.row_of(0), 0);
  EXPECT_EQ(nineties.row_of(INT32_MIN), 0);
  EXPECT_EQ(nineties.row_of(INT32_MAX), 0);
}

TEST(BirthYears, NegativeYears) {
  const BirthYears years = {.first = -3, .last = 2, .count = 6};
  EXPECT_EQ(years.row_of(-3), 1);
  EXPECT_EQ(years.row_of(0), 4);
  EXPECT_EQ(years.year_of(6), 2);
}

TEST(YearTable, StartsWithZeros) {
  const YearTable<std::int32_t> table(3, 2);
  EXPECT_EQ(table.row_count(), 3);
  EXPECT_EQ(table.column_count, 2);
  for (std::int64_t row = 1; row <= 3; ++row) {
    for (std::int64_t column = 1; column <= 2; ++column) EXPECT_EQ(table.value(row, column), 0);
  }
}

TEST(YearTable, KeepsEachCellWhateverTheOrderOfFilling) {
  YearTable<std::int32_t> table(4, 3);
  for (const std::int32_t row : {3, 1, 4}) {
    for (const std::int32_t column : {2, 1, 3}) table.at(row, column) = 10 * row + column;
  }
  table.at(3, 2) += 100;
  for (std::int32_t column = 1; column <= 3; ++column) {
    EXPECT_EQ(table.value(1, column), 10 + column);
    EXPECT_EQ(table.value(2, column), 0);
    EXPECT_EQ(table.value(3, column), 30 + column + (column == 2 ? 100 : 0));
    EXPECT_EQ(table.value(4, column), 40 + column);
  }
}

TEST(YearTable, OtherCellsOfATouchedRowStayZero) {
  YearTable<float> table(2, 3);
  table.at(2, 2) = 0.5F;
  EXPECT_EQ(table.value(2, 1), 0.0F);
  EXPECT_EQ(table.value(2, 2), 0.5F);
  EXPECT_EQ(table.value(2, 3), 0.0F);
}

TEST(YearTable, CellOutsideReadsAsZero) {
  YearTable<std::int32_t> table(2, 2);
  for (const std::int32_t row : {1, 2}) {
    for (const std::int32_t column : {1, 2}) table.at(row, column) = 7;
  }
  EXPECT_EQ(table.value(0, 1), 0);
  EXPECT_EQ(table.value(3, 1), 0);
  EXPECT_EQ(table.value(1, 0), 0);
  EXPECT_EQ(table.value(1, 3), 0);
  EXPECT_EQ(table.value(-1, -1), 0);
  EXPECT_FALSE(table.is_stored(0));
  EXPECT_FALSE(table.is_stored(3));
  EXPECT_TRUE(table.is_stored(2));
}

TEST(YearTable, WithoutRowsOrColumnsReadsAsZero) {
  const YearTable<std::int32_t> nothing;
  EXPECT_EQ(nothing.value(1, 1), 0);
  const YearTable<std::int32_t> no_columns(5, 0);
  EXPECT_EQ(no_columns.value(1, 1), 0);
  const YearTable<std::int32_t> no_rows(0, 5);
  EXPECT_EQ(no_rows.value(1, 1), 0);
}

TEST(YearTable, OneMistypedYearTakesNoMemoryForTheYearsBetween) {
  YearTable<std::int32_t> table(1000000, 200);
  table.at(1, 1) = 1;
  table.at(1000000, 200) = 2;
  EXPECT_EQ(table.stored.size(), 2U);
  EXPECT_EQ(table.value(1, 1), 1);
  EXPECT_EQ(table.value(1000000, 200), 2);
  EXPECT_EQ(table.value(500000, 100), 0);
}

TEST(YearTable, ColumnsBehindTheLastOneInUseTakeNoMemory) {
  YearTable<float> table(3, 12'500'000);
  table.at(2, 5) = 1.5F;
  EXPECT_EQ(table.stored.front().size(), 5U);
  EXPECT_EQ(table.value(2, 5), 1.5F);
  EXPECT_EQ(table.value(2, 6), 0.0F);
  EXPECT_EQ(table.value(2, 12'500'000), 0.0F);
}

struct Born {
  std::int32_t males = 0, females = 0;
};

TEST(YearRows, KeepsTheRecordOfEachYear) {
  YearRows<Born> rows(3);
  rows.at(3).males = 2;
  rows.at(1) = {4, 5};
  rows.at(3).females = 1;
  EXPECT_EQ(rows.row_count(), 3);
  EXPECT_EQ(rows.of(1).females, 5);
  EXPECT_EQ(rows.of(2).males, 0);
  EXPECT_EQ(rows.of(3).males, 2);
  EXPECT_EQ(rows.of(3).females, 1);
  EXPECT_EQ(rows.records.size(), 2U);
}

TEST(YearRows, ARowOutsideReadsAsZeros) {
  YearRows<Born> rows(1);
  rows.at(1) = {4, 5};
  for (const Row row : {Row{0}, Row{2}, Row{-1}, Row{-2147483646}}) EXPECT_EQ(rows.of(row).males, 0) << row;
  EXPECT_EQ(YearRows<Born>().of(1).males, 0);
}

}  // namespace
}  // namespace pedigreewatch::test
