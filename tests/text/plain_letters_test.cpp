#include "text/plain_letters.h"

#include <gtest/gtest.h>

namespace pedigreewatch::test {
namespace {

TEST(IsLetterOrDigit, OfAsciiAndAllBytesBeyond) {
  for (const char byte : {'0', '9', 'A', 'Z', 'a', 'z', '\x80', '\xFF'}) EXPECT_TRUE(is_letter_or_digit(byte)) << byte;
  for (const char byte : {'/', ':', '@', '[', '`', '{', '\x7F', ' ', '-'}) {
    EXPECT_FALSE(is_letter_or_digit(byte)) << byte;
  }
}

TEST(SaysSomething, WhereOneLetterOrDigitStands) {
  for (const char* const text : {"a", "-Z-", "0", "(9)", "-- 1", "(\xEB)", "\xE2\x99\x82"}) {
    EXPECT_TRUE(says_something(text)) << text;
  }
  for (const char* const text : {"", "---", "[-]", " ..", "/:@[`{", "--;-- ?"})
    EXPECT_FALSE(says_something(text)) << text;
}

TEST(SmallLetters, ChangesCapitalsOfAsciiAlone) {
  EXPECT_EQ(small_letters("AZ@[a-9\xCB"), "az@[a-9\xCB");
}

}  // namespace
}  // namespace pedigreewatch::test
