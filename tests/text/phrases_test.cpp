#include "text/phrases.h"

#include <gtest/gtest.h>

namespace pedigreewatch::test {
namespace {

TEST(Shown, LettersThatTurnTheDirectionOfReadingBecomeDots) {
  EXPECT_EQ(shown("a\xE2\x80\x8B"
                  "b\xE2\x80\x8F"
                  "c"),
            "a.b.c")
      << "U+200B and U+200F";
  EXPECT_EQ(shown("a\xE2\x80\xAA"
                  "b\xE2\x80\xAE"
                  "c"),
            "a.b.c")
      << "U+202A and U+202E";
  EXPECT_EQ(shown("a\xE2\x80\xA8"
                  "b"),
            "a.b")
      << "U+2028, which ends a line";
  EXPECT_EQ(shown("a\tb"), "a.b");
}

TEST(Shown, QuotationMarksAndDashesStayAsTheyAre) {
  EXPECT_EQ(shown("O\xE2\x80\x99Hara"), "O\xE2\x80\x99Hara");
  EXPECT_EQ(shown("\xE2\x80\x90\xE2\x80\xA7"), "\xE2\x80\x90\xE2\x80\xA7") << "U+2010 and U+2027";
}

}  // namespace
}  // namespace pedigreewatch::test
