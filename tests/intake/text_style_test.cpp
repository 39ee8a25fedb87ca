// A text that is written like none of the others.

#include "intake/text_style.h"

#include <gtest/gtest.h>

#include <string>

namespace pedigreewatch::test {
namespace {

StyleCounts tags_with(const std::string& prefix, std::int64_t count) {
  StyleCounts counts;
  for (std::int64_t i = 0; i < count; ++i) count_signs(counts, prefix + std::to_string(10 + i));
  return counts;
}

TEST(IsUnlike, TooFewTextsHaveNoStyle) {
  EXPECT_FALSE(is_unlike(style_of(tags_with("NL", fewest_styled_texts - 1)), "Total: 30"));
  EXPECT_TRUE(is_unlike(style_of(tags_with("NL", fewest_styled_texts)), "Total: 30"));
}

TEST(IsUnlike, SignsLettersAndDigitsThatTheOthersLackOrHave) {
  const TextStyle tags = style_of(tags_with("NL", 50));
  EXPECT_FALSE(is_unlike(tags, "NL12345"));
  EXPECT_FALSE(is_unlike(tags, "B7"));
  EXPECT_TRUE(is_unlike(tags, "NLD12"));  // a longer word
  EXPECT_TRUE(is_unlike(tags, "NL 12"));  // a blank
  EXPECT_TRUE(is_unlike(tags, "NL"));     // no digit
  EXPECT_TRUE(is_unlike(style_of(tags_with("", 50)), "x1"));
}

TEST(IsUnlike, ARareSignIsNone) {
  StyleCounts counts = tags_with("NL", 198);
  count_signs(counts, "NL-1");
  count_signs(counts, "NL-3");
  EXPECT_TRUE(is_unlike(style_of(counts), "NL-2"));  // 2 of 200
  count_signs(counts, "NL-4");
  EXPECT_FALSE(is_unlike(style_of(counts), "NL-2"));  // 3 of 201
}

TEST(IsUnlike, FewTextsWithoutADigit) {
  StyleCounts counts = tags_with("NL", 200);
  count_signs(counts, "NL");
  EXPECT_TRUE(is_unlike(style_of(counts), "NL"));  // 1 of 201
  count_signs(counts, "NX");
  count_signs(counts, "NY");
  EXPECT_FALSE(is_unlike(style_of(counts), "NL"));  // 3 of 203
}

}  // namespace
}  // namespace pedigreewatch::test
