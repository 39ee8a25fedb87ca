#include "core/line_writer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "support/pedigrees.h"
#include "support/streams.h"

namespace pedigreewatch::test {
namespace {

std::string format_line(std::string_view field_list, std::initializer_list<LineItem> items) {
  TextOutput output;
  write_format_line(output, field_list, items);
  return output.pending;
}

std::string free_line(std::initializer_list<LineItem> items) {
  TextOutput output;
  write_free_line(output, items);
  return output.pending;
}

bool refuses_field_list(std::string_view field_list, std::initializer_list<LineItem> items = {}) {
  TextOutput output;
  try {
    write_format_line(output, field_list, items);
  } catch (const std::invalid_argument&) {
    return true;
  }
  return false;
}

std::string blanks(std::size_t count) {
  return std::string(count, ' ');
}

/// A text of `length` characters whose places can be told apart: "abc...zabc...".
std::string text_of(std::size_t length) {
  std::string text;
  for (std::size_t i = 0; i < length; ++i) text.push_back(static_cast<char>('a' + i % 26));
  return text;
}

constexpr float not_a_number = std::numeric_limits<float>::quiet_NaN();
constexpr float infinite = std::numeric_limits<float>::infinity();

// ---- format lines: texts ---------------------------------------------------------------------------------------

TEST(FormatLineText, WithoutWidthTakesItsOwnLength) {
  EXPECT_EQ(format_line("A", {"jaar"}), "jaar\n");
  EXPECT_EQ(format_line("A", {""}), "\n");
  EXPECT_EQ(format_line("A,A", {"a ", " b"}), "a  b\n");
}

TEST(FormatLineText, ShorterThanItsFieldGetsLeadingBlanks) {
  EXPECT_EQ(format_line("A20", {"inbreeding"}), blanks(10) + "inbreeding\n");
  EXPECT_EQ(format_line("A2", {"%"}), " %\n");
  EXPECT_EQ(format_line("A3", {""}), "   \n");
}

TEST(FormatLineText, LongerThanItsFieldIsCutOnTheRight) {
  EXPECT_EQ(format_line("A15", {"% of the female "}), "% of the female\n");
  EXPECT_EQ(format_line("A4", {"stallion"}), "stal\n");
  EXPECT_EQ(format_line("A1", {"%%"}), "%\n");
}

TEST(FormatLineText, FixedTextKeepsItsTrailingBlanks) {
  const FixedText<8> noun("dogs");
  EXPECT_EQ(format_line("A,A", {noun, "|"}), "dogs    |\n");
  EXPECT_EQ(format_line("A10", {noun}), "  dogs    \n");
  EXPECT_EQ(format_line("A6", {noun}), "dogs  \n");
}

TEST(FormatLineText, BytesAboveAsciiAreOneColumnEach) {
  EXPECT_EQ(format_line("A6", {"vari\xEB"}), " vari\xEB\n");
}

// ---- format lines: integers ------------------------------------------------------------------------------------

TEST(FormatLineInteger, IsRightJustified) {
  EXPECT_EQ(format_line("I8", {1998}), "    1998\n");
  EXPECT_EQ(format_line("I8", {0}), "       0\n");
  EXPECT_EQ(format_line("I1", {7}), "7\n");
}

TEST(FormatLineInteger, NegativeNumberTakesAColumnForItsSign) {
  EXPECT_EQ(format_line("I8", {-12}), "     -12\n");
  EXPECT_EQ(format_line("I8", {-1234567}), "-1234567\n");
  EXPECT_EQ(format_line("I8", {-12345678}), "********\n");
}

TEST(FormatLineInteger, TooWideForItsFieldIsAsterisks) {
  EXPECT_EQ(format_line("I8", {99999999}), "99999999\n");
  EXPECT_EQ(format_line("I8", {100000000}), "********\n");
  EXPECT_EQ(format_line("I8", {123456789}), "********\n");
  EXPECT_EQ(format_line("I1", {-1}), "*\n");
}

TEST(FormatLineInteger, RowKeepsItsWidthBesideAsterisks) {
  EXPECT_EQ(format_line("(I8,002I8) ", {1998, 100000000, 5}), "    1998********       5\n");
}

TEST(FormatLineInteger, SmallestAndLargestOf32Bits) {
  EXPECT_EQ(format_line("I11,I11", {INT32_MIN, INT32_MAX}), "-2147483648 2147483647\n");
  EXPECT_EQ(format_line("I10", {INT32_MIN}), "**********\n");
}

TEST(FormatLineInteger, WiderThan32BitsIsShownInFull) {
  EXPECT_EQ(format_line("I20", {INT64_MIN}), "-9223372036854775808\n");
  EXPECT_EQ(format_line("I20", {INT64_MAX}), " 9223372036854775807\n");
}

TEST(FormatLineInteger, LeastDigitsAreLeadingZeros) {
  EXPECT_EQ(format_line("I3.3", {7}), "007\n");
  EXPECT_EQ(format_line("I3.3", {12}), "012\n");
  EXPECT_EQ(format_line("I3.3", {0}), "000\n");
  EXPECT_EQ(format_line("I3.3", {999}), "999\n");
  EXPECT_EQ(format_line("I3.3", {1000}), "***\n");
  EXPECT_EQ(format_line("I6.3", {42}), "   042\n");
}

TEST(FormatLineInteger, LeadingZerosStandBehindTheSign) {
  EXPECT_EQ(format_line("I4.3", {-7}), "-007\n");
  EXPECT_EQ(format_line("I6.3", {-42}), "  -042\n");
  EXPECT_EQ(format_line("I3.3", {-7}), "***\n");
}

TEST(FormatLineInteger, UndefinedValueIsAsterisks) {
  EXPECT_EQ(format_line("I8,I3", {UndefinedInteger{}, 5}), "********  5\n");
}

// ---- format lines: reals ---------------------------------------------------------------------------------------

TEST(FormatLineReal, IsRoundedAndRightJustified) {
  EXPECT_EQ(format_line("F8.2", {3.14159F}), "    3.14\n");
  EXPECT_EQ(format_line("F8.2", {0.0F}), "    0.00\n");
  EXPECT_EQ(format_line("F8.4", {0.0625F}), "  0.0625\n");
  EXPECT_EQ(format_line("F10.2", {-25.0F}), "    -25.00\n");
  EXPECT_EQ(format_line("F8.2", {99999.99F}), "99999.99\n");
}

TEST(FormatLineReal, WithoutDecimalsKeepsItsPoint) {
  EXPECT_EQ(format_line("F8.0", {12.0F}), "     12.\n");
  EXPECT_EQ(format_line("F8.0", {0.0F}), "      0.\n");
  EXPECT_EQ(format_line("F3.0", {99.0F}), "99.\n");
  EXPECT_EQ(format_line("F2.0", {99.0F}), "**\n");
}

TEST(FormatLineReal, ExactTiesGoToTheEvenDigit) {
  EXPECT_EQ(format_line("F13.0", {12.5F}), "          12.\n");
  EXPECT_EQ(format_line("F13.0", {13.5F}), "          14.\n");
  EXPECT_EQ(format_line("F5.0", {-12.5F}), " -12.\n");
  EXPECT_EQ(format_line("F5.0", {-13.5F}), " -14.\n");
  EXPECT_EQ(format_line("F5.0", {0.5F}), "   0.\n");
  EXPECT_EQ(format_line("F5.0", {1.5F}), "   2.\n");
  EXPECT_EQ(format_line("F5.2", {0.125F}), " 0.12\n");
  EXPECT_EQ(format_line("F5.2", {0.375F}), " 0.38\n");
}

TEST(FormatLineReal, RoundsTheExactBinaryValueAndNotItsDecimalShape) {
  // The nearest singles are 1.00499999523..., 12.34500026702... and 2.67499995231...
  EXPECT_EQ(format_line("F6.2", {1.005F}), "  1.00\n");
  EXPECT_EQ(format_line("F6.2", {12.345F}), " 12.35\n");
  EXPECT_EQ(format_line("F6.2", {2.675F}), "  2.67\n");
}

TEST(FormatLineReal, NegativeValueThatRoundsToZeroKeepsItsSign) {
  EXPECT_EQ(format_line("F8.2", {-0.001F}), "   -0.00\n");
  EXPECT_EQ(format_line("F8.2", {-0.0F}), "   -0.00\n");
  EXPECT_EQ(format_line("F8.0", {-0.25F}), "     -0.\n");
  EXPECT_EQ(format_line("F8.2", {0.001F}), "    0.00\n");
}

TEST(FormatLineReal, TooWideForItsFieldIsAsterisks) {
  EXPECT_EQ(format_line("F8.2", {123456.78F}), "********\n");
  EXPECT_EQ(format_line("F8.2", {-12345.67F}), "********\n");
  EXPECT_EQ(format_line("F6.2", {999.99F}), "999.99\n");
  EXPECT_EQ(format_line("F6.2", {999.996F}), "******\n");  // 1000.00 after rounding
}

TEST(FormatLineReal, DigitBeforeThePointGivesWayToATightField) {
  EXPECT_EQ(format_line("F4.2", {0.5F}), "0.50\n");
  EXPECT_EQ(format_line("F3.2", {0.5F}), ".50\n");
  EXPECT_EQ(format_line("F5.2", {-0.5F}), "-0.50\n");
  EXPECT_EQ(format_line("F4.2", {-0.5F}), "-.50\n");
  EXPECT_EQ(format_line("F3.2", {-0.5F}), "***\n");
  EXPECT_EQ(format_line("F3.2", {1.5F}), "***\n");
}

TEST(FormatLineReal, NotANumberFitsInThreeColumns) {
  EXPECT_EQ(format_line("F8.2", {not_a_number}), "     NaN\n");
  EXPECT_EQ(format_line("F3.0", {not_a_number}), "NaN\n");
  EXPECT_EQ(format_line("F2.0", {not_a_number}), "**\n");
}

TEST(FormatLineReal, NotANumberHasNoSign) {
  EXPECT_EQ(format_line("F8.2", {std::copysign(not_a_number, -1.0F)}), "     NaN\n");
}

TEST(FormatLineReal, InfinityFitsInEightColumns) {
  EXPECT_EQ(format_line("F10.2", {infinite}), "  Infinity\n");
  EXPECT_EQ(format_line("F8.2", {infinite}), "Infinity\n");
  EXPECT_EQ(format_line("F7.2", {infinite}), "*******\n");
}

TEST(FormatLineReal, NegativeInfinityFitsInNineColumns) {
  EXPECT_EQ(format_line("F10.2", {-infinite}), " -Infinity\n");
  EXPECT_EQ(format_line("F9.2", {-infinite}), "-Infinity\n");
  EXPECT_EQ(format_line("F8.2", {-infinite}), "********\n");
}

TEST(FormatLineReal, LargestSingleHasAllItsDigits) {
  EXPECT_EQ(format_line("F42.0", {std::numeric_limits<float>::max()}), "  340282346638528859811704183484516925440.\n");
  EXPECT_EQ(format_line("F8.2", {std::numeric_limits<float>::max()}), "********\n");
}

// ---- format lines: blanks, repeats, brackets -------------------------------------------------------------------

TEST(FormatLine, HasNoLeadingBlank) {
  EXPECT_EQ(format_line("A,I4,F6.2", {"F", 1998, 0.25F}), "F1998  0.25\n");
}

TEST(FormatLine, BlanksAreWrittenAlsoAtTheEnd) {
  EXPECT_EQ(format_line("3X", {}), "   \n");
  EXPECT_EQ(format_line("X", {}), " \n");
  EXPECT_EQ(format_line("2X,A,3X", {"jaar"}), "  jaar   \n");
}

TEST(FormatLine, RepeatedFields) {
  EXPECT_EQ(format_line("5I10", {1, 2, 3, 4, 5}), "         1         2         3         4         5\n");
  EXPECT_EQ(format_line("3F8.2", {0.5F, 1.0F, -2.25F}), "    0.50    1.00   -2.25\n");
  EXPECT_EQ(format_line("2A3,2A", {"a", "b", "c", "d"}), "  a  bcd\n");
  EXPECT_EQ(format_line("2I3.3", {1, 22}), "001022\n");
}

TEST(FormatLine, RepeatWithLeadingZeros) {
  EXPECT_EQ(format_line("(I8,003I8) ", {1998, 1, 2, 3}), "    1998       1       2       3\n");
  EXPECT_EQ(format_line("(A8,000I8) ", {"total"}), "   total\n");
}

TEST(FormatLine, BracketsAndBlanksAroundTheListDoNotCount) {
  EXPECT_EQ(format_line("(I4)", {7}), "   7\n");
  EXPECT_EQ(format_line("(I4)   ", {7}), "   7\n");
  EXPECT_EQ(format_line("I4 ", {7}), "   7\n");
}

TEST(FormatLine, FieldsBeyondTheLastItemAreNotWritten) {
  EXPECT_EQ(format_line("I4,5I4", {1, 2, 3}), "   1   2   3\n");
  EXPECT_EQ(format_line("I4,A,F8.2", {1}), "   1\n");
}

TEST(FormatLine, ItemsBeyondTheLastFieldAreNotWritten) {
  EXPECT_EQ(format_line("2I4", {1, 2, 3}), "   1   2\n");
}

TEST(FormatLine, EmptyListIsAnEmptyLine) {
  EXPECT_EQ(format_line("", {}), "\n");
  EXPECT_EQ(format_line("()", {}), "\n");
}

TEST(FormatLine, IsNeverWrapped) {
  const std::vector<LineItem> items(40, LineItem(1234567));
  TextOutput output;
  write_format_line(output, "40I8", items);
  std::string expected;
  for (int i = 0; i < 40; ++i) expected += " 1234567";
  EXPECT_EQ(output.pending, expected + "\n");
}

TEST(FormatLine, LinesFollowEachOther) {
  TextOutput output;
  write_format_line(output, "I2", {1});
  write_format_line(output, "I2", {2});
  EXPECT_EQ(output.pending, " 1\n 2\n");
}

// ---- field lists made at run time ------------------------------------------------------------------------------

TEST(RowFields, PutsTheColumnsBehindTheFirstField) {
  EXPECT_EQ(row_fields("I8", 12, "I8"), "I8,12I8");
  EXPECT_EQ(row_fields("A8", 31, "I16"), "A8,31I16");
  EXPECT_EQ(row_fields("I8", 100002, "F10.4"), "I8,100002F10.4");
}

TEST(RowFields, WithoutColumnsPrintsTheFirstFieldAlone) {
  for (const std::int64_t none : {0, -3}) {
    TextOutput output;
    write_format_line(output, row_fields("A8", none, "I8"), {"  jaar  "});
    EXPECT_EQ(output.pending, "  jaar  \n") << none;
  }
}

TEST(RowFields, ManyColumnsAreAllPrinted) {
  std::vector<LineItem> items = {LineItem(1998)};
  std::string expected = "    1998";
  for (std::int32_t column = 1; column <= 1200; ++column) {
    items.emplace_back(column);
    const std::string digits = std::to_string(column);
    expected += blanks(8 - digits.size()) + digits;
  }
  TextOutput output;
  write_format_line(output, row_fields("I8", 1200, "I8"), items);
  EXPECT_EQ(output.pending, expected + "\n");
}

// ---- field lists that are mistakes -----------------------------------------------------------------------------

TEST(FormatLineMistakes, MalformedFieldListsAreRefused) {
  EXPECT_TRUE(refuses_field_list("I"));                           // an integer without a width
  EXPECT_TRUE(refuses_field_list("I0"));                          // or with none
  EXPECT_TRUE(refuses_field_list("F"));                           // a real without a width
  EXPECT_TRUE(refuses_field_list("F8"));                          // and without decimals
  EXPECT_TRUE(refuses_field_list("A20.3"));                       // a text with decimals
  EXPECT_TRUE(refuses_field_list("Q8"));                          // no such letter
  EXPECT_TRUE(refuses_field_list("i8"));                          // small letters are none
  EXPECT_TRUE(refuses_field_list("8"));                           // a repeat of nothing
  EXPECT_TRUE(refuses_field_list("X3"));                          // the count stands before the X
  EXPECT_TRUE(refuses_field_list("I8 I8"));                       // a comma is missing
  EXPECT_TRUE(refuses_field_list("I8I8"));                        // here too
  EXPECT_TRUE(refuses_field_list("I8,,I8"));                      // a field is missing
  EXPECT_TRUE(refuses_field_list(",I8"));                         // here too
  EXPECT_TRUE(refuses_field_list("(I8"));                         // a bracket is missing
  EXPECT_TRUE(refuses_field_list("I8)"));                         // here too
  EXPECT_TRUE(refuses_field_list("-3I8"));                        // repeats have no sign
  EXPECT_TRUE(refuses_field_list("I99999999999999999999999"));    // more than a number holds
  EXPECT_TRUE(refuses_field_list("99999999999999999999999I8"));   // here too
  EXPECT_TRUE(refuses_field_list("A999999999"));                  // wider than any line
  EXPECT_TRUE(refuses_field_list("999999999X"));                  // here too
  EXPECT_FALSE(refuses_field_list("(I8,005I8,3X,A,A20,F8.2) "));  // what is well formed is not
}

TEST(FormatLineMistakes, FieldThatDoesNotSuitItsItemIsRefused) {
  EXPECT_TRUE(refuses_field_list("I8", {"jaar"}));
  EXPECT_TRUE(refuses_field_list("I8", {1.0F}));
  EXPECT_TRUE(refuses_field_list("F8.2", {1}));
  EXPECT_TRUE(refuses_field_list("F8.2", {"jaar"}));
  EXPECT_TRUE(refuses_field_list("F8.2", {UndefinedInteger{}}));
  EXPECT_TRUE(refuses_field_list("A", {1}));
  EXPECT_TRUE(refuses_field_list("A8", {1.0F}));
  EXPECT_TRUE(refuses_field_list("I8,A", {1, 2}));
}

TEST(FormatLineMistakes, MessageNamesTheFieldList) {
  TextOutput output;
  try {
    write_format_line(output, "I8,Q8", {1, 2});
    FAIL() << "an unknown letter was taken";
  } catch (const std::invalid_argument& mistake) {
    EXPECT_NE(std::string_view(mistake.what()).find("\"I8,Q8\""), std::string_view::npos) << mistake.what();
  }
}

// ---- free-form lines: items side by side -----------------------------------------------------------------------

TEST(FreeLine, BeginsWithOneBlankBeforeAText) {
  EXPECT_EQ(free_line({"all records read"}), " all records read\n");
  EXPECT_EQ(free_line({"    F        f"}), "     F        f\n");
}

TEST(FreeLine, BeginsWithTheFieldOfANumber) {
  EXPECT_EQ(free_line({25}), blanks(10) + "25\n");
  EXPECT_EQ(free_line({-5883516}), blanks(4) + "-5883516\n");
}

TEST(FreeLine, TextsFollowEachOtherWithNothingBetween) {
  EXPECT_EQ(free_line({"herdbook number ", "NL-12"}), " herdbook number NL-12\n");
  EXPECT_EQ(free_line({"a", "b", "c"}), " abc\n");
}

TEST(FreeLine, FixedTextKeepsItsTrailingBlanks) {
  EXPECT_EQ(free_line({"animal ", FixedText<10>("Rex"), "|"}), " animal Rex       |\n");
}

TEST(FreeLine, IntegerTakesTwelveColumns) {
  EXPECT_EQ(free_line({"total number records = ", 11}), " total number records = " + blanks(10) + "11\n");
  EXPECT_EQ(free_line({1, 2}), blanks(11) + "1" + blanks(11) + "2\n");
  EXPECT_EQ(free_line({INT32_MIN, INT32_MAX}), " -2147483648  2147483647\n");
}

TEST(FreeLine, IntegerOfMoreThanTwelveColumnsIsAsterisks) {
  EXPECT_EQ(free_line({std::int64_t{999999999999}}), "999999999999\n");
  EXPECT_EQ(free_line({std::int64_t{1000000000000}}), "************\n");
  EXPECT_EQ(free_line({std::int64_t{-99999999999}}), "-99999999999\n");
  EXPECT_EQ(free_line({std::int64_t{-100000000000}}), "************\n");
}

TEST(FreeLine, UndefinedIntegerIsAsterisks) {
  EXPECT_EQ(free_line({"ratio", UndefinedInteger{}, "x"}), " ratio************ x\n");
}

TEST(FreeLine, TextAfterANumberIsPrecededByOneBlank) {
  EXPECT_EQ(free_line({"record nr. ", 1001, "counted"}), " record nr. " + blanks(8) + "1001 counted\n");
}

TEST(FreeLine, TextAfterANumberKeepsItsOwnBlankToo) {
  EXPECT_EQ(free_line({8, " columns in data file"}), blanks(11) + "8  columns in data file\n");
}

TEST(FreeLine, OnlyTheTextRightBehindANumberGetsTheBlank) {
  EXPECT_EQ(free_line({1, "a", "b"}), blanks(11) + "1 ab\n");
  EXPECT_EQ(free_line({1, "a", 2, "b"}), blanks(11) + "1 a" + blanks(11) + "2 b\n");
}

TEST(FreeLine, EmptyTextsTakeNoColumns) {
  EXPECT_EQ(free_line({""}), " \n");
  EXPECT_EQ(free_line({"", "a"}), " a\n");
  EXPECT_EQ(free_line({"a", "", "b"}), " ab\n");
}

TEST(FreeLine, WithoutItemsIsAnEmptyLine) {
  EXPECT_EQ(free_line({}), "\n");
}

TEST(FreeLine, BlankTextStandsBehindTheBlankOfTheLine) {
  EXPECT_EQ(free_line({"           "}), blanks(12) + "\n");
}

constexpr Wording animal_word = {"animal ", "dier "};

TEST(FreeLine, WordingsAreWrittenInTheLanguageOfTheOutput) {
  TextOutput english, dutch;
  dutch.is_english = false;
  for (TextOutput* output : {&english, &dutch}) write_free_line(*output, {animal_word, 12, animal_word});
  EXPECT_EQ(english.pending, " animal           12 animal \n");
  EXPECT_EQ(dutch.pending, " dier           12 dier \n");
}

TEST(FormatLine, WordingsAndFieldListsFollowTheLanguageOfTheOutput) {
  constexpr Wording fields = {"A7,I3", "A5,I4"};
  TextOutput english, dutch;
  dutch.is_english = false;
  for (TextOutput* output : {&english, &dutch}) write_format_line(*output, fields, {animal_word, 12});
  EXPECT_EQ(english.pending, "animal  12\n");
  EXPECT_EQ(dutch.pending, "dier   12\n");
}

TEST(FormatLine, RefusesAWordingInANumberField) {
  TextOutput output;
  EXPECT_THROW(write_format_line(output, "I8", {animal_word}), std::invalid_argument);
}

TEST(FreeLine, RefusesReals) {
  EXPECT_THROW(free_line({"F", 0.25F}), std::invalid_argument);
}

// ---- free-form lines: the 80 columns ---------------------------------------------------------------------------

TEST(FreeLineWidth, TextOf79CharactersFillsTheLine) {
  EXPECT_EQ(free_line({text_of(79)}), " " + text_of(79) + "\n");
}

TEST(FreeLineWidth, TextOf80CharactersAtTheStartIsPrintedWhole) {
  EXPECT_EQ(free_line({text_of(80)}), " " + text_of(80) + "\n");
}

TEST(FreeLineWidth, TextOf81CharactersIsCutAfter79) {
  const std::string text = text_of(81);
  EXPECT_EQ(free_line({text}), " " + text.substr(0, 79) + "\n " + text.substr(79) + "\n");
}

TEST(FreeLineWidth, VeryLongTextFillsLineAfterLine) {
  const std::string text = text_of(200);
  EXPECT_EQ(free_line({text}),
            " " + text.substr(0, 79) + "\n " + text.substr(79, 79) + "\n " + text.substr(158) + "\n");
}

TEST(FreeLineWidth, TextOfTwoFullLinesHasNoEmptyThird) {
  const std::string text = text_of(158);
  EXPECT_EQ(free_line({text}), " " + text.substr(0, 79) + "\n " + text.substr(79) + "\n");
}

TEST(FreeLineWidth, RemainderOf80CharactersIsCutLikeAnyOther) {
  const std::string text = text_of(159);
  EXPECT_EQ(free_line({text}),
            " " + text.substr(0, 79) + "\n " + text.substr(79, 79) + "\n " + text.substr(158) + "\n");
}

TEST(FreeLineWidth, NextItemStandsBehindTheRemainderOfALongText) {
  const std::string text = text_of(81);
  EXPECT_EQ(free_line({text, "!", 5}), " " + text.substr(0, 79) + "\n " + text.substr(79) + "!" + blanks(11) + "5\n");
}

TEST(FreeLineWidth, SecondTextThatFillsTheLineExactlyStaysOnIt) {
  EXPECT_EQ(free_line({text_of(40), text_of(39)}), " " + text_of(40) + text_of(39) + "\n");
}

TEST(FreeLineWidth, SecondTextOfOneColumnTooManyGoesToANewLine) {
  EXPECT_EQ(free_line({text_of(40), text_of(40)}), " " + text_of(40) + "\n " + text_of(40) + "\n");
}

TEST(FreeLineWidth, TextsOf40CharactersStandOneOnALine) {
  const FixedText<40> black("zwart"), red("rood"), spotted("gevlekt");
  EXPECT_EQ(free_line({black, red, spotted}),
            " zwart" + blanks(35) + "\n rood" + blanks(36) + "\n gevlekt" + blanks(33) + "\n");
}

TEST(FreeLineWidth, TextBehindAFullLineGoesToANewLine) {
  EXPECT_EQ(free_line({text_of(79), "x"}), " " + text_of(79) + "\n x\n");
}

TEST(FreeLineWidth, TextBehindAnOverfullLineGoesToANewLine) {
  EXPECT_EQ(free_line({text_of(80), "x"}), " " + text_of(80) + "\n x\n");
  EXPECT_EQ(free_line({text_of(80), 7}), " " + text_of(80) + "\n" + blanks(11) + "7\n");
}

TEST(FreeLineWidth, TextOf80CharactersGoesToANewLineAndIsWholeThere) {
  EXPECT_EQ(free_line({"a", text_of(80)}), " a\n " + text_of(80) + "\n");
  EXPECT_EQ(free_line({3, text_of(80)}), blanks(11) + "3\n " + text_of(80) + "\n");
}

TEST(FreeLineWidth, TextLongerThanALineGoesToANewLineBeforeItIsCut) {
  const std::string text = text_of(100);
  EXPECT_EQ(free_line({"a", text}), " a\n " + text.substr(0, 79) + "\n " + text.substr(79) + "\n");
  EXPECT_EQ(free_line({3, text}), blanks(11) + "3\n " + text.substr(0, 79) + "\n " + text.substr(79) + "\n");
}

TEST(FreeLineWidth, NumberThatFillsTheLineExactlyStaysOnIt) {
  EXPECT_EQ(free_line({text_of(67), 5}), " " + text_of(67) + blanks(11) + "5\n");
}

TEST(FreeLineWidth, NumberOfOneColumnTooManyGoesToANewLineInColumnOne) {
  EXPECT_EQ(free_line({text_of(68), 5}), " " + text_of(68) + "\n" + blanks(11) + "5\n");
}

TEST(FreeLineWidth, SixNumbersStandOnALine) {
  std::string six;
  for (int i = 1; i <= 6; ++i) six += blanks(11) + std::to_string(i);
  EXPECT_EQ(free_line({1, 2, 3, 4, 5, 6}), six + "\n");
  EXPECT_EQ(free_line({1, 2, 3, 4, 5, 6, 7, 8}), six + "\n" + blanks(11) + "7" + blanks(11) + "8\n");
}

TEST(FreeLineWidth, FiveNumbersBehindAText) {
  EXPECT_EQ(free_line({"nrs", 1, 2, 3, 4, 5, 6, 7}), " nrs" + blanks(11) + "1" + blanks(11) + "2" + blanks(11) + "3" +
                                                         blanks(11) + "4" + blanks(11) + "5" + blanks(11) + "6\n" +
                                                         blanks(11) + "7\n");
}

TEST(FreeLineWidth, TextAfterANumberThatFillsTheLineExactlyStaysOnIt) {
  EXPECT_EQ(free_line({5, text_of(67)}), blanks(11) + "5 " + text_of(67) + "\n");
}

TEST(FreeLineWidth, TextAfterANumberOfOneColumnTooManyGoesToANewLineBehindOneBlank) {
  EXPECT_EQ(free_line({5, text_of(68)}), blanks(11) + "5\n " + text_of(68) + "\n");
}

TEST(FreeLineWidth, TextWithABlankOfItsOwnKeepsItOnTheNewLine) {
  EXPECT_EQ(free_line({"animals with a maximum of ", 0, " generations of offspring placed at end of pedigree"}),
            " animals with a maximum of " + blanks(11) + "0\n  generations of offspring placed at end of pedigree\n");
}

TEST(FreeLineWidth, NumbersAndTextsGoOnBehindAContinuation) {
  EXPECT_EQ(free_line({text_of(70), 5, "pups", 6, 7, 8, 9}), " " + text_of(70) + "\n" + blanks(11) + "5 pups" +
                                                                 blanks(11) + "6" + blanks(11) + "7" + blanks(11) +
                                                                 "8" + blanks(11) + "9\n");
}

/// The rules once more, the slow way: each item is laid on the line at hand or on a new one.
std::vector<std::string> laid_out(const std::vector<LineItem>& items) {
  std::vector<std::string> lines(1);
  bool behind_number = false;
  for (const LineItem& item : items) {
    const bool is_number = item.kind == LineItem::Kind::integer;
    std::string piece = is_number ? std::to_string(item.integer) : std::string(item.text);
    if (is_number) {
      piece.insert(0, 12 - piece.size(), ' ');
      if (lines.back().size() + 12 > 80) lines.emplace_back();
      lines.back() += piece;
    } else {
      const std::string with_blank = (behind_number || lines.back().empty() ? " " : "") + piece;
      if (lines.back().size() + with_blank.size() <= 80) {
        lines.back() += with_blank;
      } else {
        if (!lines.back().empty()) lines.emplace_back();
        while (piece.size() > 80 || (piece.size() > 79 && std::string(item.text).size() != 80)) {
          lines.back() = " " + piece.substr(0, 79);
          lines.emplace_back();
          piece.erase(0, 79);
        }
        lines.back() = " " + piece;
      }
    }
    behind_number = is_number;
  }
  return lines;
}

TEST(FreeLineWidth, AgreesWithASlowLayoutOnRandomItems) {
  RandomNumbers random{80};
  for (int round = 0; round < 3000; ++round) {
    std::vector<std::string> texts(12);
    std::vector<LineItem> items;
    for (std::string& text : texts) {
      if (random.below(3) == 0) {
        items.emplace_back(random.below(2000000) - 1000000);
      } else {
        text = text_of(static_cast<std::size_t>(1 + (random.below(4) == 0 ? random.below(170) : random.below(40))));
        items.emplace_back(text);
      }
    }
    TextOutput output;
    write_free_line(output, items);
    ASSERT_EQ(lines_of(output), laid_out(items)) << "round " << round;
    ASSERT_EQ(output.pending.back(), '\n');
  }
}

}  // namespace
}  // namespace pedigreewatch::test
