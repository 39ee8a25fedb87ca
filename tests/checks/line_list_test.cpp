#include "checks/line_list.h"

#include <gtest/gtest.h>

#include <vector>

namespace pedigreewatch::test {
namespace {

TEST(ListLines, NamesStretchesAndCountsTheRest) {
  const std::vector<std::int32_t> lines = {3, 5, 8, 9, 10, 40};
  EXPECT_EQ(list_lines(lines, all_places, ToolLanguage::english), "3, 5, 8-10, 40");
  EXPECT_EQ(list_lines(lines, 4, ToolLanguage::english), "3, 5, 8-10, 40");
  EXPECT_EQ(list_lines(lines, 2, ToolLanguage::english), "3, 5 and 4 more");
  EXPECT_EQ(list_lines(lines, 3, ToolLanguage::dutch), "3, 5, 8-10 en nog 1");
  EXPECT_EQ(list_lines({}, 3, ToolLanguage::dutch), "");
}

TEST(ListLines, NamesALineOnceOnWhichTwoAnimalsStand) {
  const std::vector<std::int32_t> lines = {3, 3, 7, 7};
  EXPECT_EQ(list_lines(lines, all_places, ToolLanguage::english), "3, 7");
}

}  // namespace
}  // namespace pedigreewatch::test
