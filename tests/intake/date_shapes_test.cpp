#include "intake/date_shapes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

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

TEST(CutDate, TheDayOfTheWeekBeforeItIsLeftOut) {
  for (const char* const text :
       {"Mo 12.03.2019", "Mo., 12.03.2019", "ma 12-03-2019", "maandag 12/03/2019", "mar 12/03/2019", "dim. 12/03/2019",
        "s\xC3\xA1"
        "b 12-03-2019",
        "donnerstag, 12.03.2019", "Mon, 12.03.2019 10:15"}) {
    const DatePiecesFound found = cut_date(text);
    EXPECT_EQ(found.shape, DateShape::year_last) << text;
    EXPECT_EQ(found.first, 12) << text;
    EXPECT_EQ(found.second, 3) << text;
  }
  for (const char* const text :
       {"Mon, 12 Mar 2019", "mar. 12 mars 2019", "Monday, March 12, 2019", "So 12. M\xC3\xA4rz 2019"}) {
    const DatePiecesFound found = cut_date(text);
    EXPECT_EQ(found.shape, DateShape::named) << text;
    EXPECT_EQ(found.first, 12) << text;
    EXPECT_EQ(found.second, 3) << text;
  }
  EXPECT_EQ(cut_date("Tue 2019-03-12").shape, DateShape::year_first);
  EXPECT_EQ(cut_date("vr 12-03-19").shape, DateShape::short_year);
  EXPECT_EQ(cut_date("vr 12 mrt 19").shape, DateShape::short_named);
  EXPECT_EQ(cut_date("di 12032019").shape, DateShape::compact);
}

TEST(CutDate, AMonthThatIsADayElsewhereStaysAMonth) {
  EXPECT_EQ(cut_date("Mar 2019").shape, DateShape::month_only);
  EXPECT_EQ(cut_date("Mar 12 2019").shape, DateShape::named);
  EXPECT_EQ(cut_date("mar 12, 2019").second, 3);
  EXPECT_EQ(cut_date("Mar 19").shape, DateShape::short_month);
  for (const char* const text :
       {"So 2019", "Mo 12", "Mo 12.13", "Mon", "Qq 12.03.2019", "Mo-12.03.2019", "Mo 31-o2-2001"}) {
    const DateShape shape = cut_date(text).shape;
    EXPECT_TRUE(shape == DateShape::unreadable || shape == DateShape::empty) << text;
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
  EXPECT_EQ(cut_date("14 Mar 1990 7").shape, DateShape::unreadable);
}

TEST(CutDate, AllMonthsOfSixLanguagesShortAndInFull) {
  const std::vector<std::vector<const char*>> months = {
      {"Jan", "january", "jan.", "januari", "Januar", "J\xC3\xA4nner", "janv.", "janvier", "ene", "enero", "gen",
       "gennaio"},
      {"Feb", "february", "februari", "Februar", "f\xC3\xA9vr.", "f\xC3\xA9vrier", "febrero", "febbraio"},
      {"Mar", "march", "mrt", "maart", "M\xC3\xA4r", "Mrz", "M\xC3\xA4rz", "Maerz", "mars", "marzo"},
      {"Apr", "april", "avr", "avril", "abr", "abril", "aprile"},
      {"May", "mei", "Mai", "mayo", "mag", "maggio"},
      {"Jun", "june", "juni", "juin", "junio", "giu", "giugno"},
      {"Jul", "july", "juli", "juil.", "juillet", "julio", "lug", "luglio"},
      {"Aug", "august", "augustus", "ao\xC3\xBBt", "aout", "ago", "agosto"},
      {"Sep", "sept", "september", "septembre", "septiembre", "set", "settembre"},
      {"Oct", "october", "okt", "oktober", "octobre", "octubre", "ott", "ottobre"},
      {"Nov", "november", "novembre", "noviembre"},
      {"Dec", "december", "Dez", "Dezember",
       "d\xC3\xA9"
       "c",
       "d\xC3\xA9"
       "cembre",
       "dic", "diciembre", "dicembre"},
  };
  for (std::size_t month = 0; month < months.size(); ++month) {
    for (const char* const name : months[month]) {
      const DatePiecesFound found = cut_date("7 " + std::string(name) + " 1998");
      EXPECT_EQ(found.shape, DateShape::named) << name;
      EXPECT_EQ(found.second, static_cast<int>(month) + 1) << name;
    }
  }
}

TEST(CutDate, WordsBetweenThePartsSayNothing) {
  for (const char* const text : {"3 de marzo de 2005", "3rd of March 2005", "March 3rd, 2005", "3 maart, 2005"}) {
    const DatePiecesFound found = cut_date(text);
    EXPECT_EQ(found.shape, DateShape::named) << text;
    EXPECT_EQ(found.first, 3) << text;
    EXPECT_EQ(found.second, 3) << text;
  }
  EXPECT_EQ(cut_date("1er janvier 2005").first, 1);
}

TEST(CutDate, MonthInWordsWithAYearOfTwoDigits) {
  for (const char* const text : {"3-Mar-19", "3 mrt '19", "Mar 3, 19"}) {
    const DatePiecesFound found = cut_date(text);
    EXPECT_EQ(found.shape, DateShape::short_named) << text;
    EXPECT_EQ(found.first, 3) << text;
    EXPECT_EQ(found.second, 3) << text;
    EXPECT_EQ(found.year, "19") << text;
  }
  const DatePiecesFound year_first = cut_date("98-mar-3");
  EXPECT_EQ(year_first.year, "98");
  EXPECT_EQ(year_first.first, 3);
  EXPECT_EQ(cut_date("31-mar-32").year, "32");
  EXPECT_EQ(cut_date("32-mar-31").year, "32") << "no day 32";
}

TEST(CutDate, MonthAndYear) {
  for (const char* const text : {"Jul 2012", "juillet 2012", "2012 jul", "07-2012"}) {
    const DatePiecesFound found = cut_date(text);
    EXPECT_EQ(found.shape, DateShape::month_only) << text;
    EXPECT_EQ(found.second, 7) << text;
    EXPECT_EQ(found.year, "2012") << text;
  }
  EXPECT_EQ(cut_date("Jul-12").shape, DateShape::short_month);
  EXPECT_EQ(cut_date("Jul-12").year, "12");
  EXPECT_EQ(cut_date("12-Jul").shape, DateShape::unreadable) << "a day without a year";
}

TEST(CutDate, WhatIsNotKnownExactly) {
  for (const char* const text :
       {"~ 1972", "~1972", "circa 1972", "ca. 1972", "c1972", "1972?", "1972 (?)", "(1972)", "\xC2\xB1 1972", "um 1972",
        "vers 1972", "hacia 1972", "ABT 1972", "1972 ca.", "?\?-?\?-1972", "1972-xx-xx"}) {
    const DatePiecesFound found = cut_date(text);
    EXPECT_EQ(found.shape, DateShape::year_only) << text;
    EXPECT_EQ(found.year, "1972") << text;
    EXPECT_TRUE(found.is_rough) << text;
  }
  EXPECT_EQ(cut_date("?\?-03-1972").shape, DateShape::month_only);
  EXPECT_EQ(cut_date("12-03-1972?").shape, DateShape::year_last);
  EXPECT_FALSE(cut_date("1972").is_rough);
  EXPECT_EQ(cut_date("before 1972").shape, DateShape::unreadable);
}

TEST(CutDate, BeforeOrAfterAYearIsNotKnownExactly) {
  for (const char* const text : {"<1998", "> 1998", "< 1998"}) {
    EXPECT_EQ(cut_date(text).shape, DateShape::year_only) << text;
    EXPECT_TRUE(cut_date(text).is_rough) << text;
  }
}

TEST(CutDate, NumbersOfDays) {
  for (const char* const text : {"43536", "43536.75", "43536,5"}) {
    EXPECT_EQ(cut_date(text).shape, DateShape::serial) << text;
    EXPECT_EQ(cut_date(text).year, "43536") << text;
  }
  for (const char* const text : {"4353", "435361", "03536", "43536.", "43536.x"}) {
    EXPECT_NE(cut_date(text).shape, DateShape::serial) << text;
  }
}

TEST(CutDate, PartsOfDates) {
  EXPECT_EQ(cut_date("2005").shape, DateShape::year_only);
  EXPECT_EQ(cut_date("05-2005").shape, DateShape::month_only);
  EXPECT_EQ(cut_date("2005-05").second, 5);
  EXPECT_EQ(cut_date("2005-12").second, 12);
  EXPECT_EQ(cut_date("2005-13").shape, DateShape::unreadable);
  EXPECT_EQ(cut_date("20051231").shape, DateShape::compact);
  EXPECT_EQ(cut_date("31-12-05").shape, DateShape::short_year);
}

TEST(CutDate, TextsWithoutDigitsAreUnknown) {
  for (const char* const text : {"", "NA", "?-?-?", "unknown"}) EXPECT_EQ(cut_date(text).shape, DateShape::empty);
}

TEST(CutDate, WhatIsNoDate) {
  for (const char* const text : {"31-o2-1998", "383521", "1-2-3-2005", "-1-2-2005", "2005-12-31-", "12:30",
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
