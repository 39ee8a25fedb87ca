#include "intake/date_shapes.h"

#include <gtest/gtest.h>

namespace pedigreewatch::test {
namespace {

TEST(CutDate, TheYearStandsAtEitherEnd) {
  const DatePiecesFound first = cut_date("2005-12-31");
  EXPECT_EQ(first.shape, DateShape::year_first);
  EXPECT_EQ(first.year, "2005");
  EXPECT_EQ(first.first, 12);
  EXPECT_EQ(first.second, 31);
  const DatePiecesFound last = cut_date("1/5/2005");
  EXPECT_EQ(last.shape, DateShape::year_last);
  EXPECT_EQ(last.year, "2005");
  EXPECT_EQ(last.first_text, "1");
  EXPECT_EQ(last.second, 5);
}

TEST(CutDate, SeparatorsOfManyKinds) {
  for (const char* const text : {"31.12.2005", "31. 12. 2005", "31/12-2005", "31 12 2005", "31-12-02005"}) {
    EXPECT_EQ(cut_date(text).shape, DateShape::year_last) << text;
  }
}

TEST(CutDate, ATimeOfDayIsLeftOut) {
  for (const char* const text : {"2005-12-31T00:00:00", "2005-12-31 0:00", "2005-12-31T23:59:59.999+02:00",
                                 "2005-12-31T00:00Z", "2005-12-31 03:15 PM"}) {
    const DatePiecesFound found = cut_date(text);
    EXPECT_EQ(found.shape, DateShape::year_first) << text;
    EXPECT_TRUE(found.has_time) << text;
    EXPECT_EQ(found.second, 31) << text;
  }
}

TEST(CutDate, MonthsInWords) {
  for (const char* const text :
       {"3 mar 2005", "3-mrt-2005", "Mar 3, 2005", "3. M\xC3\xA4rz 2005", "03maart2005", "2005 mars 3"}) {
    const DatePiecesFound found = cut_date(text);
    EXPECT_EQ(found.shape, DateShape::named) << text;
    EXPECT_EQ(found.first, 3) << text;
    EXPECT_EQ(found.second, 3) << text;
    EXPECT_EQ(found.year, "2005") << text;
  }
  EXPECT_EQ(cut_date("3 foo 2005").shape, DateShape::unreadable);
}

TEST(CutDate, PartsOfDates) {
  EXPECT_EQ(cut_date("2005").shape, DateShape::year_only);
  EXPECT_EQ(cut_date("05-2005").shape, DateShape::month_only);
  EXPECT_EQ(cut_date("2005-05").second, 5);
  EXPECT_EQ(cut_date("2005-31").shape, DateShape::unreadable);
  EXPECT_EQ(cut_date("20051231").shape, DateShape::compact);
  EXPECT_EQ(cut_date("31-12-05").shape, DateShape::short_year);
}

TEST(CutDate, TextsWithoutDigitsAreUnknown) {
  for (const char* const text : {"", "NA", "?-?-?", "unknown"}) EXPECT_EQ(cut_date(text).shape, DateShape::empty);
}

TEST(CutDate, WhatIsNoDate) {
  for (const char* const text : {"31-o2-1998", "38352", "1-2-3-2005", "-1-2-2005", "2005-12-31-", "12:30",
                                 "2005-12-31 noon", "1/2", "99999999999999999999"}) {
    EXPECT_EQ(cut_date(text).shape, DateShape::unreadable) << text;
  }
}

TEST(CutDate, AYearHasMoreThanTwoDigits) {
  EXPECT_EQ(cut_date("31-12-105").shape, DateShape::year_last);
  EXPECT_EQ(cut_date("31-12-15").shape, DateShape::short_year);
}

}  // namespace
}  // namespace pedigreewatch::test
