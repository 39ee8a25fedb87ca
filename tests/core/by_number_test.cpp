#include "core/by_number.h"

#include <gtest/gtest.h>

#include <string>

namespace pedigreewatch::test {
namespace {

TEST(ByNumber, HasAnEntryForTheUnknownOne) {
  ByNumber<int> list(3, 7);
  EXPECT_EQ(list.last(), 3);
  EXPECT_EQ(list.values.size(), 4U);
  list[0] = 1;
  list[3] = 2;
  EXPECT_EQ(list.values, (std::vector<int>{1, 7, 7, 2}));
}

TEST(ByNumber, IsEmptyAtTheStart) {
  EXPECT_EQ(ByNumber<int>().last(), -1);
  EXPECT_EQ(ByNumber<int>(0).last(), 0);
}

TEST(NumberedList, CountsFromOne) {
  NumberedList<std::string> list;
  EXPECT_EQ(list.count(), 0);
  EXPECT_EQ(list.add("a"), 1);
  EXPECT_EQ(list.add("b"), 2);
  EXPECT_EQ(list.at(1), "a");
  list.at(2) = "c";
  EXPECT_EQ(list.entries, (std::vector<std::string>{"a", "c"}));
}

TEST(NumberedArray, CountsFromOne) {
  constexpr NumberedArray<int, 3> list = {{7, 8, 9}};
  EXPECT_EQ(list.at(1), 7);
  EXPECT_EQ(list.at(3), 9);
}

}  // namespace
}  // namespace pedigreewatch::test
