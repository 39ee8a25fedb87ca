// What makes a date fit its layout, and which dates stand for an unknown one.
#include "checks/date_checks.h"

#include <gtest/gtest.h>

#include "support/check_runs.h"

namespace pedigreewatch::test {
namespace {

DateReading reading_of(std::string_view text) {
  return look_at_date(text, date_layout_of("dd-mm-yyyy"));
}

TEST(LookAtDate, AYearHasFourDigits) {
  EXPECT_FALSE(reading_of("31-12-999").fits_layout);
  EXPECT_TRUE(reading_of("31-12-1000").fits_layout);
  EXPECT_TRUE(reading_of("31-12-9999").fits_layout);
  EXPECT_FALSE(reading_of("31-12-10000").fits_layout);
}

TEST(LookAtDate, AMonthAloneIsOneOfTwelve) {
  EXPECT_EQ(reading_of("00-01-2005").kind, DateKind::year_only);
  EXPECT_EQ(reading_of("00-12-2005").kind, DateKind::year_only);
  EXPECT_TRUE(reading_of("00-12-2005").fits_layout);
  EXPECT_EQ(reading_of("00-13-2005").kind, DateKind::repaired);
  EXPECT_FALSE(reading_of("00-13-2005").fits_layout);
}

TEST(IsPlaceholderDate, KnowsTheFirstDaysOfProgramsAndTheirLastYear) {
  for (const BirthDate& date : {BirthDate{1900, 1, 1}, BirthDate{1900, 1, 0}, BirthDate{1899, 12, 30},
                                BirthDate{1899, 12, 31}, BirthDate{1753, 1, 1}, BirthDate{1601, 1, 1},
                                BirthDate{1, 1, 1}, BirthDate{1111, 11, 11}, BirthDate{9999, 6, 5}}) {
    EXPECT_TRUE(is_placeholder_date(date)) << date.day << " " << date.month << " " << date.year;
  }
  for (const BirthDate& date : {BirthDate{1900, 1, 2}, BirthDate{1899, 12, 29}, BirthDate{1901, 1, 1},
                                BirthDate{9998, 12, 31}, BirthDate{1111, 10, 11}}) {
    EXPECT_FALSE(is_placeholder_date(date)) << date.day << " " << date.month << " " << date.year;
  }
}

/// The findings of an animal born in a year.
CheckResult born_in(const std::string& date) {
  return checked_sheep("id;sex;birthdate;sire;dam\na;m;" + date + ";;\n");
}

TEST(CheckYear, AYearBelowAHundredHasTwoDigits) {
  EXPECT_EQ(count_of(born_in("05-06-99"), FindingCode::year_two_digits), 1);
  EXPECT_EQ(count_of(born_in("05-06-100"), FindingCode::year_two_digits), 0);
  EXPECT_EQ(count_of(born_in("01-01-01"), FindingCode::year_two_digits), 0) << "a placeholder";
}

TEST(CheckYear, YearsUpTo40AreOfThisCentury) {
  const auto meant = [](const std::string& date) { return born_in(date).findings.list.front(); };
  ASSERT_EQ(meant("05-06-40").code, FindingCode::year_two_digits);
  EXPECT_EQ(meant("05-06-40").other_number, 2040);
  EXPECT_EQ(meant("05-06-41").other_number, 1941);
}

}  // namespace
}  // namespace pedigreewatch::test
