#include "text/counted.h"

#include <gtest/gtest.h>

namespace pedigreewatch::test {
namespace {

TEST(Counted, OneHasAWordingOfItsOwn) {
  constexpr Counted years = {{"1 year, {2}", "1 jaar, {2}"}, {"{1} years, {2}", "{1} jaren, {2}"}};
  EXPECT_EQ(counted(years, 1, ToolLanguage::english, {"x"}), "1 year, x");
  EXPECT_EQ(counted(years, 0, ToolLanguage::english, {"x"}), "0 years, x");
  EXPECT_EQ(counted(years, 2, ToolLanguage::dutch, {"x"}), "2 jaren, x");
}

TEST(RangeText, SaysOneNumberWhereBothEndsAreTheSame) {
  EXPECT_EQ(range_text(2020, 2021, ToolLanguage::english), "2020 to 2021");
  EXPECT_EQ(range_text(2020, 2021, ToolLanguage::dutch), "2020 tot en met 2021");
  EXPECT_EQ(range_text(2, 2, ToolLanguage::dutch), "2");
}

}  // namespace
}  // namespace pedigreewatch::test
