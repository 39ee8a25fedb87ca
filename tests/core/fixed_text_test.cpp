#include "core/fixed_text.h"

#include <gtest/gtest.h>

#include <string_view>

namespace pedigreewatch::test {
namespace {

TEST(FixedText, StartsBlank) {
  const FixedText<5> text;
  EXPECT_EQ(text.full(), "     ");
  EXPECT_EQ(text.trimmed(), "");
  EXPECT_TRUE(text.is_blank());
}

TEST(FixedText, ShorterTextIsFilledWithBlanks) {
  const FixedText<6> text("reu");
  EXPECT_EQ(text.full(), "reu   ");
  EXPECT_EQ(text.trimmed(), "reu");
  EXPECT_FALSE(text.is_blank());
}

TEST(FixedText, LongerTextIsCut) {
  EXPECT_EQ(FixedText<8>("stallions").full(), "stallion");
  EXPECT_EQ(FixedText<1>("mf").full(), "m");
}

TEST(FixedText, TextOfItsWidthIsKeptWhole) {
  EXPECT_EQ(FixedText<8>("pluimvee").full(), "pluimvee");
  EXPECT_EQ(FixedText<8>("pluimvee").trimmed(), "pluimvee");
}

TEST(FixedText, NewTextLeavesNothingOfTheOld) {
  FixedText<8> text("stallion");
  text.assign("ewe");
  EXPECT_EQ(text.full(), "ewe     ");
  text.assign("");
  EXPECT_TRUE(text.is_blank());
}

TEST(FixedText, LeadingAndInnerBlanksStay) {
  const FixedText<8> text(" a b ");
  EXPECT_EQ(text.full(), " a b    ");
  EXPECT_EQ(text.trimmed(), " a b");
}

TEST(FixedText, ComparisonIgnoresTrailingBlanksOnly) {
  const FixedText<8> text("Rex");
  EXPECT_TRUE(text == "Rex");
  EXPECT_TRUE(text == "Rex ");
  EXPECT_TRUE(text == std::string_view("Rex             "));  // longer than the text itself
  EXPECT_TRUE(text == FixedText<8>("Rex  "));
  EXPECT_FALSE(text == " Rex");
  EXPECT_FALSE(text == "rex");
  EXPECT_FALSE(text == "Re");
  EXPECT_FALSE(text == "Rex             x");
  EXPECT_FALSE(text == FixedText<8>("Rexy"));
}

TEST(FixedText, BlankEqualsTheEmptyText) {
  EXPECT_TRUE(FixedText<8>() == "");
  EXPECT_TRUE(FixedText<8>() == "  ");
  EXPECT_FALSE(FixedText<8>() == "0");
}

TEST(FixedText, TabsAndNulBytesAreText) {
  EXPECT_FALSE(FixedText<4>("\t").is_blank());
  EXPECT_FALSE(FixedText<4>(std::string_view("\0", 1)).is_blank());
  EXPECT_FALSE(FixedText<4>("a\t") == "a");
  EXPECT_FALSE(FixedText<4>(std::string_view("a\0", 2)) == "a");
}

TEST(SameText, ThinksTheShorterOneFilledUp) {
  EXPECT_TRUE(same_text("0", "0   "));
  EXPECT_TRUE(same_text("", "   "));
  EXPECT_FALSE(same_text("0", " 0"));
  EXPECT_FALSE(same_text("0", "00"));
}

TEST(TrimmedText, LosesBlanksAtOneEndOnly) {
  EXPECT_EQ(without_trailing_blanks("  a b  "), "  a b");
  EXPECT_EQ(without_leading_blanks("  a b  "), "a b  ");
  EXPECT_EQ(without_trailing_blanks("   "), "");
  EXPECT_EQ(without_leading_blanks("   "), "");
  EXPECT_EQ(without_leading_blanks("\t a"), "\t a");
}

TEST(WithoutBlanks, LeavesWhatStandsBetweenThem) {
  EXPECT_EQ(without_blanks(" \tHS 12\r\n"), "HS 12");
  EXPECT_EQ(without_blanks("HS12"), "HS12");
  EXPECT_EQ(without_blanks(" \t\r\n"), "");
  EXPECT_EQ(without_blanks(""), "");
}

}  // namespace
}  // namespace pedigreewatch::test
