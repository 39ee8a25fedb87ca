// Which letters nobody sees: the last letter that is shown and the first that is named, for each range.
#include "checks/readable_text.h"

#include <gtest/gtest.h>

#include <string>

#include "text/utf_8.h"

namespace pedigreewatch::test {
namespace {

TEST(IsInvisible, BeginsAndEndsWithItsRanges) {
  for (const char32_t letter :
       {0x00U, 0x1FU, 0x7FU, 0xA0U, 0xADU, 0x2000U, 0x200FU, 0x2028U, 0x202FU, 0x2060U, 0x2064U, 0x3000U, 0xFEFFU}) {
    EXPECT_TRUE(is_invisible(letter)) << std::hex << static_cast<unsigned>(letter);
  }
  for (const char32_t letter : {0x20U, 0x7EU, 0xA1U, 0xACU, 0xAEU, 0x1FFFU, 0x2010U, 0x2027U, 0x2030U, 0x205FU, 0x2065U,
                                0x2FFFU, 0x3001U, 0xFEFEU, 0xFF00U}) {
    EXPECT_FALSE(is_invisible(letter)) << std::hex << static_cast<unsigned>(letter);
  }
}

std::string named(char32_t letter) {
  std::string text;
  append_letter(text, letter);
  return with_controls_named(text, "");
}

TEST(WithControlsNamed, NamesWhatActsOnATerminalOrEndsALine) {
  EXPECT_EQ(named(0x1F), "<U+001F>");
  EXPECT_EQ(named(0x20), " ");
  EXPECT_EQ(named(0x7E), "~");
  EXPECT_EQ(named(0x7F), "<U+007F>");
  EXPECT_EQ(named(0x9F), "<U+009F>");
  EXPECT_EQ(named(0xA0), "\xC2\xA0");
  EXPECT_EQ(named(0x2027), "\xE2\x80\xA7");
  EXPECT_EQ(named(0x2028), "<U+2028>");
  EXPECT_EQ(named(0x2029), "<U+2029>");
  EXPECT_EQ(named(0x202A), "\xE2\x80\xAA");
}

TEST(WithInvisibleNamed, HexHasFourDigitsOrMore) {
  EXPECT_EQ(with_invisible_named("a\xC2\xA0"), "a<U+00A0>");
  EXPECT_EQ(with_invisible_named("a\xEF\xBB\xBF"), "a<U+FEFF>");
  EXPECT_EQ(with_invisible_named("ab"), "");
}

}  // namespace
}  // namespace pedigreewatch::test
