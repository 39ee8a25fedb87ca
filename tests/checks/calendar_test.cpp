#include "checks/calendar.h"

#include <gtest/gtest.h>

#include "checks/date_checks.h"

namespace pedigreewatch::test {
namespace {

TEST(DayNumber, CountsEveryDayOfFourCenturies) {
  constexpr std::array<int, 12> lengths = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  std::int32_t expected = day_number({1800, 1, 1});
  for (std::int32_t year = 1800; year < 2200; ++year) {
    const bool is_leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    for (std::int32_t month = 1; month <= 12; ++month) {
      const int length = lengths[static_cast<std::size_t>(month) - 1] + (month == 2 && is_leap ? 1 : 0);
      for (std::int32_t day = 1; day <= length; ++day) ASSERT_EQ(day_number({year, month, day}), expected++);
    }
  }
}

TEST(DayNumber, GrowsAcrossYearZero) {
  EXPECT_EQ(day_number({1, 1, 1}) - day_number({0, 12, 31}), 1);
  EXPECT_EQ(day_number({0, 1, 1}) - day_number({-1, 12, 31}), 1);
  EXPECT_EQ(day_number({2147483647, 1, 1}), day_number({1000000, 1, 1}));
}

TEST(IsInCalendar, EndsEveryMonth) {
  for (std::int32_t month = 1; month <= 12; ++month) {
    const bool has_31 = month != 2 && month != 4 && month != 6 && month != 9 && month != 11;
    EXPECT_EQ(is_in_calendar({2021, month, 31}), has_31) << month;
    EXPECT_EQ(is_in_calendar({2021, month, 30}), month != 2) << month;
    EXPECT_TRUE(is_in_calendar({2021, month, 1})) << month;
    EXPECT_FALSE(is_in_calendar({2021, month, 32})) << month;
    EXPECT_FALSE(is_in_calendar({2021, month, 0})) << month;
  }
  EXPECT_TRUE(is_in_calendar({2020, 2, 29}));
  EXPECT_FALSE(is_in_calendar({2021, 2, 29}));
  EXPECT_FALSE(is_in_calendar({1900, 2, 29}));
  EXPECT_TRUE(is_in_calendar({2000, 2, 29}));
  EXPECT_FALSE(is_in_calendar({2021, 13, 1}));
  EXPECT_FALSE(is_in_calendar({2021, 0, 1}));
}

DateKind kind_of_date(std::string_view text, std::string_view layout = "dd-mm-yyyy") {
  return look_at_date(text, date_layout_of(layout)).kind;
}

TEST(LookAtDate, TellsTheKindsApart) {
  EXPECT_EQ(kind_of_date("31-12-2005"), DateKind::full);
  EXPECT_EQ(kind_of_date("unknown"), DateKind::unknown);
  EXPECT_EQ(kind_of_date("00-00-0000"), DateKind::unknown);
  EXPECT_EQ(kind_of_date("2005"), DateKind::year_only);
  EXPECT_EQ(kind_of_date("00-00-2005"), DateKind::year_only);
  EXPECT_EQ(kind_of_date("00-05-2005"), DateKind::year_only);
  EXPECT_EQ(kind_of_date("31-02-2005"), DateKind::repaired);
  EXPECT_EQ(kind_of_date("5-2005"), DateKind::repaired);
  EXPECT_EQ(kind_of_date("12 mar 2005"), DateKind::unreadable);
  EXPECT_EQ(kind_of_date("1012001", "ddmmyyyy"), DateKind::full) << "year 1, which is told as a year";
  EXPECT_EQ(kind_of_date("2005", "ddmmyyyy"), DateKind::repaired) << "the year is lost";
}

TEST(LookAtDate, KnowsDatesThatDoNotFitTheirLayout) {
  EXPECT_TRUE(look_at_date("31-12-2005", date_layout_of("dd-mm-yyyy")).fits_layout);
  EXPECT_FALSE(look_at_date("12-31-2005", date_layout_of("dd-mm-yyyy")).fits_layout);
  EXPECT_FALSE(look_at_date("2005-12-31", date_layout_of("dd-mm-yyyy")).fits_layout);
  EXPECT_TRUE(look_at_date("20051231", date_layout_of("yyyymmdd")).fits_layout);
}

}  // namespace
}  // namespace pedigreewatch::test
