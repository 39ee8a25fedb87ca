#include "text/windows_1252.h"

#include <gtest/gtest.h>

#include <string>

#include "text/transliteration.h"

namespace pedigreewatch::test {
namespace {

struct Written {
  std::string bytes;
  bool is_complete = false;
  LetterCounts counts;
};

Written written(std::string_view text) {
  Written result;
  result.is_complete = append_windows_1252(result.bytes, text, result.counts);
  return result;
}

TEST(AppendWindows1252, LettersThatItHasStay) {
  const Written result = written("Zo\xC3\xAB \xE2\x82\xAC \xC5\xA0");
  EXPECT_EQ(result.bytes, "Zo\xEB \x80 \x8A");
  EXPECT_TRUE(result.is_complete);
  EXPECT_TRUE(result.counts.replaced.empty());
}

TEST(AppendWindows1252, LettersThatItLacksAreTransliteratedAndCounted) {
  // Polish Latka with a stroked L, twice; Cyrillic "Shchuka"; a goat.
  const Written result = written(
      "\xC5\x81"
      "atka \xC5\x81 \xD0\xA9\xD1\x83\xD0\xBA\xD0\xB0 \xF0\x9F\x90\x90");
  EXPECT_EQ(result.bytes, "Latka L Shchuka ?");
  EXPECT_FALSE(result.is_complete);
  ASSERT_EQ(result.counts.replaced.size(), 6U);
  EXPECT_EQ(result.counts.replaced[0].count, 2);
  EXPECT_EQ(result.counts.replaced[1].written, "Shch");
  EXPECT_EQ(result.counts.replaced[5].written, "?");
}

TEST(AppendWindows1252, AccentsBehindTheirLetterArePutOnIt) {
  EXPECT_EQ(written("Zoe\xCC\x88").bytes, "Zo\xEB");
  EXPECT_EQ(written("c\xCC\x8C").bytes, "c") << "there is no c with caron: the accent goes";
}

TEST(AppendWindows1252, InvisibleSignsBecomeBlanksOrVanish) {
  const Written result = written(
      "a\xC2\xA0"
      "b\tc\r\nd\xE2\x80\x8B"
      "e");
  EXPECT_EQ(result.bytes, "a b c  de");
  EXPECT_TRUE(result.is_complete);
  EXPECT_EQ(result.counts.invisible, 5);
}

TEST(LetterOfWindows1252, AllBytesComeBackAsTheyWere) {
  for (int value = 0xA1; value <= 0xFF; ++value) {
    if (value == 0xAD) continue;  // a soft hyphen has no width
    const char byte = static_cast<char>(static_cast<unsigned char>(value));
    EXPECT_EQ(letter_of_windows_1252(byte), static_cast<char32_t>(value));
  }
  EXPECT_EQ(letter_of_windows_1252('\x9F'), U'\u0178');
}

TEST(Transliterated, LettersOfManyAlphabets) {
  EXPECT_EQ(transliterated(U'\u00DF'), "ss");
  EXPECT_EQ(transliterated(U'\u0141'), "L");
  EXPECT_EQ(transliterated(U'\u017E'), "z");
  EXPECT_EQ(transliterated(U'\u03A9'), "O");
  EXPECT_EQ(transliterated(U'\u0416'), "Zh");
  EXPECT_EQ(transliterated(U'\u1EF9'), "y");
  EXPECT_EQ(transliterated(U'\u2010'), "-");
  EXPECT_EQ(transliterated(U'a'), "");
  EXPECT_EQ(transliterated(U'\u4E00'), "");
}

}  // namespace
}  // namespace pedigreewatch::test
