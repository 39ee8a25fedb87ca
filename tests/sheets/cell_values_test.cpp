#include "sheets/cell_values.h"

#include <gtest/gtest.h>

#include <string>

namespace pedigreewatch::test {
namespace {

TEST(FormatOfCode, TellsDatesFromNumbers) {
  EXPECT_EQ(format_of_code("dd/mm/yyyy").kind, CellKind::date);
  EXPECT_EQ(format_of_code("[$-413]d\\ mmmm\\ yyyy;@").kind, CellKind::date);
  EXPECT_EQ(format_of_code("D-M-YY").kind, CellKind::date);
  EXPECT_EQ(format_of_code("dd mmm").kind, CellKind::date);
  EXPECT_EQ(format_of_code("mmm-yy").kind, CellKind::month);
  EXPECT_EQ(format_of_code("yyyy").kind, CellKind::year);
  EXPECT_EQ(format_of_code("yyyy-mm-dd\\Thh:mm:ss").kind, CellKind::date_time);
  EXPECT_EQ(format_of_code("hh:mm").kind, CellKind::time);
  EXPECT_EQ(format_of_code("[h]:mm").kind, CellKind::time);
  EXPECT_EQ(format_of_code("mm:ss").kind, CellKind::time);
  for (const char* const code : {"General", "Standard", "@", "0.00", "#,##0;[Red]-#,##0", "0\" days\"", "\"day\" 0",
                                 "\\d0", "_-* #,##0_-", "0.00E+00", ""}) {
    EXPECT_EQ(format_of_code(code).kind, CellKind::number) << code;
  }
}

TEST(FormatOfCode, ZerosAloneAreDigitsToShow) {
  EXPECT_EQ(format_of_code("00000").digits, 5U);
  EXPECT_EQ(format_of_code("0").digits, 1U);
  EXPECT_EQ(format_of_code("0.00").digits, 0U);
  EXPECT_EQ(format_of_code("#00").digits, 0U);
}

TEST(FormatOfNumber, KnowsThoseOfEveryWorkbook) {
  EXPECT_EQ(format_of_number(13).kind, CellKind::number);
  EXPECT_EQ(format_of_number(14).kind, CellKind::date);
  EXPECT_EQ(format_of_number(16).kind, CellKind::date);
  EXPECT_EQ(format_of_number(17).kind, CellKind::month);
  EXPECT_EQ(format_of_number(18).kind, CellKind::time);
  EXPECT_EQ(format_of_number(21).kind, CellKind::time);
  EXPECT_EQ(format_of_number(22).kind, CellKind::date_time);
  EXPECT_EQ(format_of_number(23).kind, CellKind::number);
  EXPECT_EQ(format_of_number(45).kind, CellKind::time);
  EXPECT_EQ(format_of_number(49).kind, CellKind::number);
}

std::string date(double serial, CellKind kind = CellKind::date, DateSystem system = DateSystem::since_1900) {
  std::string text;
  return append_date_of_serial(text, serial, kind, system) ? text : "none";
}

TEST(AppendDateOfSerial, CountsFrom1900WithTheDayThatNeverWas) {
  EXPECT_EQ(date(1), "1900-01-01");
  EXPECT_EQ(date(59), "1900-02-28");
  EXPECT_EQ(date(60), "1900-02-29");
  EXPECT_EQ(date(61), "1900-03-01");
  EXPECT_EQ(date(36526), "2000-01-01");
  EXPECT_EQ(date(43536), "2019-03-12");
  EXPECT_EQ(date(43890), "2020-02-29");
  EXPECT_EQ(date(2958465), "9999-12-31");
}

TEST(AppendDateOfSerial, CountsFrom1904) {
  EXPECT_EQ(date(0, CellKind::date, DateSystem::since_1904), "1904-01-01");
  EXPECT_EQ(date(43536 - 1462, CellKind::date, DateSystem::since_1904), "2019-03-12");
}

TEST(AppendDateOfSerial, NoDayOutsideOfTheCalendar) {
  EXPECT_EQ(date(0), "none");
  EXPECT_EQ(date(-1), "none");
  EXPECT_EQ(date(2958466), "none");
  EXPECT_EQ(date(2958465, CellKind::date, DateSystem::since_1904), "none");
  EXPECT_EQ(date(1e300), "none");
}

TEST(AppendDateOfSerial, ShowsWhatItsKindShows) {
  EXPECT_EQ(date(43536.5), "2019-03-12");
  EXPECT_EQ(date(43536.5, CellKind::date_time), "2019-03-12T12:00:00");
  EXPECT_EQ(date(43536, CellKind::date_time), "2019-03-12");
  EXPECT_EQ(date(43525, CellKind::month), "2019-03");
  EXPECT_EQ(date(43526, CellKind::month), "2019-03-02");
  EXPECT_EQ(date(43466, CellKind::year), "2019");
  EXPECT_EQ(date(43525, CellKind::year), "2019-03-01");
  EXPECT_EQ(date(0.75, CellKind::time), "18:00:00");
  // Half a second before midnight is midnight.
  EXPECT_EQ(date(43536.999999, CellKind::date_time), "2019-03-13");
}

std::string number(const std::string& raw, std::size_t digits = 0) {
  std::string text;
  return append_number(text, raw, {CellKind::number, digits}) ? text : "none";
}

TEST(AppendNumber, HasNoExponent) {
  EXPECT_EQ(number("5.28E+14"), "528000000000000");
  EXPECT_EQ(number("5.28000000001234E14"), "528000000001234");
  EXPECT_EQ(number("1E-3"), "0.001");
  EXPECT_EQ(number("1.5E3"), "1500");
  EXPECT_EQ(number("-2.5"), "-2.5");
  EXPECT_EQ(number("1E20"), "100000000000000000000");
}

TEST(AppendNumber, FifteenDigitsOfWhatWasComputedCount) {
  EXPECT_EQ(number("0.30000000000000004"), "0.3");
  EXPECT_EQ(number("12.299999999999999"), "12.3");
  EXPECT_EQ(number("4.0"), "4");
  EXPECT_EQ(number("0.0"), "0");
}

TEST(AppendNumber, WholeNumbersKeepAllTheirDigits) {
  EXPECT_EQ(number("528000000001234567"), "528000000001234567");
  EXPECT_EQ(number("007"), "007");
}

TEST(AppendNumber, LeadingZerosAreThoseOfTheFormat) {
  EXPECT_EQ(number("12", 5), "00012");
  EXPECT_EQ(number("1.2E1", 5), "00012");
  EXPECT_EQ(number("123456", 5), "123456");
}

TEST(AppendNumber, OtherTextsAreNone) {
  for (const char* const raw : {"", "x", "inf", "nan", "0x10", "1e999", "1-2", "1e", "."})
    EXPECT_EQ(number(raw), "none") << raw;
}

}  // namespace
}  // namespace pedigreewatch::test
