#include "text/utf_8.h"

#include <gtest/gtest.h>

namespace pedigreewatch::test {
namespace {

TEST(LetterLength, ValidLettersOfOneToFourBytes) {
  EXPECT_EQ(letter_length("a"), 1U);
  EXPECT_EQ(letter_length("\xC3\xAB"), 2U);
  EXPECT_EQ(letter_length("\xE2\x82\xAC"), 3U);
  EXPECT_EQ(letter_length("\xF0\x9F\x90\x90"), 4U);
}

TEST(LetterLength, WhatIsNoLetter) {
  EXPECT_EQ(letter_length("\xAB"), 0U) << "a byte that only continues";
  EXPECT_EQ(letter_length("\xC3"), 0U) << "cut off";
  EXPECT_EQ(letter_length("\xC3 "), 0U) << "no continuation";
  EXPECT_EQ(letter_length("\xC0\xAF"), 0U) << "overlong";
  EXPECT_EQ(letter_length("\xE0\x80\xAF"), 0U) << "overlong";
  EXPECT_EQ(letter_length("\xED\xA0\x80"), 0U) << "a surrogate";
  EXPECT_EQ(letter_length("\xF4\x90\x80\x80"), 0U) << "beyond the last letter";
}

TEST(TakeLetter, GoesOnBehindBytesThatAreNoLetter) {
  std::string_view text = "\xFF\xC3\xAB";
  EXPECT_EQ(take_letter(text), replacement_letter);
  EXPECT_EQ(take_letter(text), U'\u00EB');
  EXPECT_TRUE(text.empty());
}

TEST(AppendLetter, IsTheReverseOfTakeLetter) {
  for (const char32_t letter : {U'a', U'\u00EB', U'\u20AC', U'\U0001F410'}) {
    std::string text;
    append_letter(text, letter);
    std::string_view rest = text;
    EXPECT_EQ(take_letter(rest), letter);
    EXPECT_TRUE(rest.empty());
  }
}

TEST(AsciiLength, EndsAtTheFirstByteBeyondAsciiWhereverItStands) {
  for (std::size_t place = 0; place < 20; ++place) {
    std::string text(20, 'x');
    text[place] = '\xC3';
    EXPECT_EQ(ascii_length(text), place);
  }
  EXPECT_EQ(ascii_length(std::string(20, 'x')), 20U);
}

}  // namespace
}  // namespace pedigreewatch::test
