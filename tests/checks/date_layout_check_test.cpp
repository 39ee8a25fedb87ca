// Whether the dates are in another layout than the steer file says, dd-mm-yyyy here: how many must not fit, and how
// many must fit the other one.
#include "checks/date_layout_check.h"

#include <gtest/gtest.h>

#include <string>

#include "support/check_runs.h"

namespace pedigreewatch::test {
namespace {

/// Animals with a date that only mm-dd-yyyy has, with one that only dd-mm-yyyy has, and with one that both have.
struct DateCounts {
  int month_first = 0, day_first = 0, either = 0;
};

std::string lines_of(const DateCounts& counts) {
  std::string data;
  const auto add = [&](int count, const char* date) {
    for (int k = 0; k < count; ++k) data += "a" + std::to_string(data.size()) + ";m;" + date + ";;\n";
  };
  add(counts.month_first, "01-13-2000");
  add(counts.day_first, "13-01-2000");
  add(counts.either, "02-03-2000");
  return data;
}

bool is_mended(const std::string& lines) {
  const CheckResult result = checked_sheep("id;sex;birthdate;sire;dam\n" + lines);
  return count_of(result, FindingCode::date_layout) == 1;
}

TEST(MendDateLayout, MoreThanATenthDoesNotFit) {
  EXPECT_FALSE(is_mended(lines_of({.month_first = 1, .either = 9})));
  EXPECT_TRUE(is_mended(lines_of({.month_first = 2, .either = 8})));
  EXPECT_TRUE(is_mended(lines_of({.month_first = 1, .either = 8})));
}

TEST(MendDateLayout, NineTenthsFitTheOtherLayout) {
  EXPECT_TRUE(is_mended(lines_of({.month_first = 18, .day_first = 2})));
  EXPECT_FALSE(is_mended(lines_of({.month_first = 17, .day_first = 3})));
  EXPECT_TRUE(is_mended(lines_of({.month_first = 9, .day_first = 2, .either = 9})));
}

TEST(MendDateLayout, TwentyThousandLinesDecide) {
  // The header and 19,999 dates: nine tenths of them are 17,999.1. What stands behind them is not looked at.
  const std::string behind = lines_of({.month_first = 3});
  EXPECT_FALSE(is_mended(lines_of({.month_first = 17'999, .day_first = 2'000}) + behind));
  EXPECT_TRUE(is_mended(lines_of({.month_first = 18'000, .day_first = 1'999}) + behind));
}

}  // namespace
}  // namespace pedigreewatch::test
