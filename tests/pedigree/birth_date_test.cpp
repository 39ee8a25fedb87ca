#include "pedigree/birth_date.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace pedigreewatch::test {
namespace {

constexpr DateLayout mmddyyyy = {false, false, false};
constexpr DateLayout ddmmyyyy = {false, false, true};
constexpr DateLayout yyyymmdd = {false, true, false};
constexpr DateLayout yyyyddmm = {false, true, true};
constexpr DateLayout m_d_y = {true, false, false};
constexpr DateLayout d_m_y = {true, false, true};
constexpr DateLayout y_m_d = {true, true, false};
constexpr DateLayout y_d_m = {true, true, true};

/// Day, month and year.
using Day = std::array<std::int32_t, 3>;

Day on(std::int32_t day, std::int32_t month, std::int32_t year) {
  return {day, month, year};
}

Day date_of(std::string_view field, const DateLayout& layout) {
  BirthDate date = {-7, -7, -7};
  EXPECT_TRUE(read_birth_date(field, layout, date)) << field;
  return on(date.day, date.month, date.year);
}

/// Whether the field is no date; the date that was there must then be as it was.
bool is_refused(std::string_view field, const DateLayout& layout) {
  BirthDate date = {1, 2, 3};
  if (read_birth_date(field, layout, date)) return false;
  EXPECT_EQ(on(date.day, date.month, date.year), on(3, 2, 1)) << field;
  return true;
}

TEST(ReadBirthDate, CutsAllEightLayouts) {
  EXPECT_EQ(date_of("04251998", mmddyyyy), on(25, 4, 1998));
  EXPECT_EQ(date_of("25041998", ddmmyyyy), on(25, 4, 1998));
  EXPECT_EQ(date_of("19980425", yyyymmdd), on(25, 4, 1998));
  EXPECT_EQ(date_of("19982504", yyyyddmm), on(25, 4, 1998));
  EXPECT_EQ(date_of("4-25-1998", m_d_y), on(25, 4, 1998));
  EXPECT_EQ(date_of("25-4-1998", d_m_y), on(25, 4, 1998));
  EXPECT_EQ(date_of("1998-4-25", y_m_d), on(25, 4, 1998));
  EXPECT_EQ(date_of("1998-25-4", y_d_m), on(25, 4, 1998));
}

TEST(ReadBirthDate, IgnoresTrailingBlanks) {
  for (const DateLayout& layout : {ddmmyyyy, d_m_y}) {
    const std::string text = layout.has_delimiters ? "25-04-1998" : "25041998";
    EXPECT_EQ(date_of(text + std::string(500, ' '), layout), on(25, 4, 1998));
  }
  EXPECT_EQ(date_of("1998-4-25   ", y_m_d), on(25, 4, 1998));
}

TEST(ReadBirthDate, TakesAnyCharacterThatIsNoDigitAsSeparator) {
  for (const std::string_view text : {"25/4/1998", "25.4.1998", "25 4 1998", "25/4-1998", "25x4y1998",
                                      "25\t4\xEB"
                                      "1998"}) {
    EXPECT_EQ(date_of(text, d_m_y), on(25, 4, 1998)) << text;
  }
}

TEST(ReadBirthDate, TakesPiecesOfAnyLengthBetweenSeparators) {
  EXPECT_EQ(date_of("0025-00004-01998", d_m_y), on(25, 4, 1998));
  EXPECT_EQ(date_of("5-4-98", d_m_y), on(5, 4, 98));
  EXPECT_EQ(date_of("98-4-5", y_m_d), on(5, 4, 98));
  EXPECT_EQ(date_of("1-2-123456", d_m_y), on(1, 2, 123456));
}

TEST(ReadBirthDate, DateWithoutDigitsIsUnknown) {
  for (const std::string_view text : {"unknown", "", "     ", "-", "\?\?-\?\?-\?\?\?\?", "--"}) {
    for (const DateLayout& layout : {mmddyyyy, ddmmyyyy, yyyymmdd, yyyyddmm, m_d_y, d_m_y, y_m_d, y_d_m}) {
      EXPECT_EQ(date_of(text, layout), on(1, 1, 0)) << text;
    }
  }
}

TEST(ReadBirthDate, QuestionMarksBeforeAYearAreNoNumbers) {
  EXPECT_TRUE(is_refused("\?\?-\?\?-2004", d_m_y));
  EXPECT_TRUE(is_refused("????2004", ddmmyyyy));
  EXPECT_TRUE(is_refused("2004????", yyyymmdd));
}

TEST(ReadBirthDate, SevenDigitsAreCutByPlaceAllTheSame) {
  EXPECT_EQ(date_of("1012001", ddmmyyyy), on(10, 12, 1));
  EXPECT_EQ(date_of("1012001", mmddyyyy), on(12, 10, 1));
}

TEST(ReadBirthDate, PiecesBehindTheEndOfTheTextAreZero) {
  EXPECT_EQ(date_of("1998", yyyymmdd), on(0, 1, 1998));
  EXPECT_EQ(date_of("199804", yyyymmdd), on(0, 4, 1998));
  EXPECT_EQ(date_of("2504", ddmmyyyy), on(25, 4, 0));
}

TEST(ReadBirthDate, DigitsBehindTheEighthDoNotCount) {
  EXPECT_EQ(date_of("250419981", ddmmyyyy), on(25, 4, 1998));
  EXPECT_EQ(date_of("25041998 12:30", ddmmyyyy), on(25, 4, 1998));
}

TEST(ReadBirthDate, BlanksInAPieceDoNotCount) {
  EXPECT_EQ(date_of(" 5 41998", ddmmyyyy), on(5, 4, 1998));
  EXPECT_EQ(date_of("5 4 1998", ddmmyyyy), on(5, 4, 1998));
  EXPECT_EQ(date_of("2504  98", ddmmyyyy), on(25, 4, 98));
  EXPECT_EQ(date_of("1 9 0425", yyyymmdd), on(25, 4, 19));
}

TEST(ReadBirthDate, LastDayOfFebruaryIsThe29thInEveryYear) {
  EXPECT_EQ(date_of("29-2-2001", d_m_y), on(29, 2, 2001));
  EXPECT_EQ(date_of("29-2-1900", d_m_y), on(29, 2, 1900));
  EXPECT_EQ(date_of("30-2-2004", d_m_y), on(1, 2, 2004));
  EXPECT_EQ(date_of("31-02-2005", d_m_y), on(1, 2, 2005));
}

TEST(ReadBirthDate, DayBehindTheEndOfTheMonthBecomesTheFirst) {
  const std::int32_t lengths[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  for (std::int32_t month = 1; month <= 12; ++month) {
    const std::int32_t length = lengths[month - 1];
    const std::string rest = "-" + std::to_string(month) + "-2003";
    EXPECT_EQ(date_of(std::to_string(length) + rest, d_m_y), on(length, month, 2003));
    EXPECT_EQ(date_of(std::to_string(length + 1) + rest, d_m_y), on(1, month, 2003));
  }
}

TEST(ReadBirthDate, MonthIsRepairedBeforeTheDay) {
  EXPECT_EQ(date_of("31-13-2005", d_m_y), on(31, 1, 2005));
  EXPECT_EQ(date_of("31-0-2005", d_m_y), on(31, 1, 2005));
  EXPECT_EQ(date_of("32-13-2005", d_m_y), on(1, 1, 2005));
}

TEST(ReadBirthDate, DayOfZeroOrBelowStays) {
  EXPECT_EQ(date_of("0-4-1998", d_m_y), on(0, 4, 1998));
  EXPECT_EQ(date_of("00041998", ddmmyyyy), on(0, 4, 1998));
  EXPECT_EQ(date_of("-5041998", ddmmyyyy), on(-5, 4, 1998));
}

TEST(ReadBirthDate, SignBelongsToAPieceOfALayoutWithoutSeparators) {
  EXPECT_EQ(date_of("+5+41998", ddmmyyyy), on(5, 4, 1998));
  EXPECT_EQ(date_of("25-41998", ddmmyyyy), on(25, 1, 1998));
  EXPECT_EQ(date_of("2504-998", ddmmyyyy), on(25, 4, -998));
  EXPECT_TRUE(is_refused("25+-1998", ddmmyyyy));
  EXPECT_TRUE(is_refused("5-041998", ddmmyyyy));
  EXPECT_TRUE(is_refused(" -041998", ddmmyyyy));
}

TEST(ReadBirthDate, LettersInAPieceAreNoNumber) {
  EXPECT_TRUE(is_refused("31-o2-1998", d_m_y));
  EXPECT_TRUE(is_refused("31-2a-1998", d_m_y));
  EXPECT_TRUE(is_refused("2504199x", ddmmyyyy));
  EXPECT_TRUE(is_refused("25-04-1998", ddmmyyyy));  // the month would be "-0", the year "4-19"
}

TEST(ReadBirthDate, LeadingBlankIsASeparator) {
  // The first piece is empty, the middle one "1-2".
  EXPECT_TRUE(is_refused(" 1-2-2003", d_m_y));
  EXPECT_EQ(date_of(" 2-2003", d_m_y), on(0, 2, 2003));
}

TEST(ReadBirthDate, MoreThanTwoSeparatorsLeaveThemInTheMiddlePiece) {
  EXPECT_TRUE(is_refused("25-4-19-98", d_m_y));
  EXPECT_TRUE(is_refused("25.-4-1998x1", d_m_y));
  // A blank in the middle piece does not count.
  EXPECT_EQ(date_of("25- 4 -1998", d_m_y), on(25, 4, 1998));
  // The first one that is no digit ends the day, so that the month is "-4", and "-02".
  EXPECT_EQ(date_of("25 -4-1998", d_m_y), on(25, 1, 1998));
  EXPECT_EQ(date_of("3a-02-1998", d_m_y), on(3, 1, 1998));
}

TEST(ReadBirthDate, OnlyOneSeparatorGivesAnEmptyMiddlePiece) {
  EXPECT_EQ(date_of("3-1999", d_m_y), on(3, 1, 1999));
  EXPECT_EQ(date_of("3-1999", m_d_y), on(0, 3, 1999));
  EXPECT_EQ(date_of("1999-3", y_m_d), on(3, 1, 1999));
  EXPECT_EQ(date_of("1999-3", y_d_m), on(0, 3, 1999));
}

TEST(ReadBirthDate, SeparatorAtTheEndGivesAnEmptyLastPiece) {
  EXPECT_EQ(date_of("25-4-", d_m_y), on(25, 4, 0));
  EXPECT_EQ(date_of("1998-4-", y_m_d), on(0, 4, 1998));
}

TEST(ReadBirthDate, BareYearIsAYearInEveryLayoutWithSeparators) {
  // It serves as the first and as the last piece; the middle one is empty.
  EXPECT_EQ(date_of("1999", d_m_y), on(1, 1, 1999));
  EXPECT_EQ(date_of("1999", y_m_d), on(1, 1, 1999));
  EXPECT_EQ(date_of("1999", m_d_y), on(0, 1, 1999));
  EXPECT_EQ(date_of("1999", y_d_m), on(0, 1, 1999));
}

TEST(ReadBirthDate, PiecesOfMoreThanNineDigitsAreNumbersToo) {
  EXPECT_EQ(date_of("1-2-123456789", d_m_y), on(1, 2, 123456789));
  EXPECT_EQ(date_of("1-2-1234567890", d_m_y), on(1, 2, 1234567890));
  EXPECT_EQ(date_of("0000000001-0000000012-2004", d_m_y), on(1, 12, 2004));
}

TEST(ReadBirthDate, PieceOutside32BitsIsRefused) {
  EXPECT_EQ(date_of("1-2-2147483647", d_m_y), on(1, 2, 2147483647));
  EXPECT_TRUE(is_refused("1-2-2147483648", d_m_y));
  EXPECT_TRUE(is_refused("1-99999999999999999999999999-2004", d_m_y));
  EXPECT_EQ(date_of("1-2-00000000000000000000000002004", d_m_y), on(1, 2, 2004));
}

}  // namespace
}  // namespace pedigreewatch::test
