// Letters of UTF-8 that were read as Windows-1252 and turned into UTF-8 again.

#include "text/double_encoding.h"

#include <gtest/gtest.h>

#include <string>

#include "text/encoding.h"
#include "text/utf_8.h"

namespace pedigreewatch::test {
namespace {

std::string doubled(const std::string& text) {
  return decode(text, Encoding::windows_1252).text;
}

TEST(DoubledLetters, AreThoseThatAreReadFromUtf8AsWindows1252) {
  const std::string text = "1;M\xC3\xBCller\n2;Bj\xC3\xB6rn\n3;\xC5\x81\xC3\xB3\xC5\xBA \xE2\x80\x99\n";
  EXPECT_EQ(doubled("M\xC3\xBCller"), "M\xC3\x83\xC2\xBCller") << "the letters that people see: Ã and ¼";
  const DoubledLetters found = find_doubled_letters(doubled(text));
  EXPECT_EQ(found.doubled, 6);
  EXPECT_EQ(found.others, 0);
  EXPECT_TRUE(found.are_certain);
  ASSERT_EQ(found.words.size(), 2U);
  EXPECT_EQ(found.words[0].found, doubled("M\xC3\xBCller"));
  EXPECT_EQ(found.words[0].meant, "M\xC3\xBCller");
  EXPECT_EQ(found.words[0].place, 3U);
  EXPECT_EQ(found.words[1].meant, "Bj\xC3\xB6rn");
  EXPECT_EQ(without_doubled_letters(doubled(text)), text);
}

TEST(DoubledLetters, EveryLetterOfEuropeComesBack) {
  for (char32_t letter = 0xA0; letter < 0x460; ++letter) {
    if (letter >= 0x180 && letter < 0x386) continue;
    std::string text;
    append_letter(text, letter);
    EXPECT_EQ(without_doubled_letters(doubled(text)), text) << static_cast<int>(letter);
  }
}

TEST(DoubledLetters, NamesThatHoldTheseLettersAreNone) {
  // João, ÂNGELA, Ångström, CAFÉ in French quotation marks, 5 °C, a list of letters.
  for (const char* const text :
       {"JO\xC3\x83O", "\xC3\x82NGELA", "\xC3\x85ngstr\xC3\xB6m",
        "\xC2\xAB"
        "CAF\xC3\x89\xC2\xBB",
        "5 \xC2\xB0"
        "C",
        "\xC3\x80\xC3\x81\xC3\x82\xC3\x83\xC3\x84\xC3\x85", "M\xC3\xBCller", "\xC3\x83 \xC2\xBC"}) {
    EXPECT_EQ(find_doubled_letters(text).doubled, 0) << text;
    EXPECT_EQ(without_doubled_letters(text), text);
  }
}

TEST(DoubledLetters, LettersBesideThemAreCounted) {
  const DoubledLetters found = find_doubled_letters("Bj\xC3\xB6rn " + doubled("M\xC3\xBCller"));
  EXPECT_EQ(found.doubled, 1);
  EXPECT_EQ(found.others, 1);
}

TEST(DoubledLetters, ThreeDifferentOnesOfEasternEuropeAreCertain) {
  // LULÄ before a German closing quotation mark is ē, read so.
  EXPECT_FALSE(find_doubled_letters("LUL\xC3\x84\xE2\x80\x9C").are_certain);
  EXPECT_FALSE(find_doubled_letters(doubled("\xC5\x81 \xC4\x99 \xC5\x81")).are_certain);
  EXPECT_TRUE(find_doubled_letters(doubled("\xC5\x81 \xC4\x99 \xC5\xBA")).are_certain);
  EXPECT_TRUE(find_doubled_letters(doubled("\xC3\xB3")).are_certain);
}

}  // namespace
}  // namespace pedigreewatch::test
