#include "text/search_text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace pedigreewatch::test {
namespace {

std::string folded(std::string_view text) {
  std::string result = "left over";
  fold_for_search(result, text);
  return result;
}

TEST(FoldForSearch, LeavesCapitalsAccentsAndTheirWritingOut) {
  EXPECT_EQ(folded("Zo\u00EB van de HOEVE"), "zoe van de hoeve");
  EXPECT_EQ(folded("Zoe\u0308"), "zoe");
  EXPECT_EQ(folded("\u0141uk"), "luk");
  EXPECT_EQ(folded("D`Artagnan"), "d'artagnan");
  EXPECT_EQ(folded("D\u2019Artagnan"), "d'artagnan");
}

// Nobody could find a name of letters that all became nothing, and all such names would be alike.
TEST(FoldForSearch, KeepsLettersThatHaveNoPlainOne) {
  EXPECT_EQ(folded("\u5C71a"), "\u5C71a");
  EXPECT_NE(folded("\u5C71"), folded("\u5DDD"));
}

}  // namespace
}  // namespace pedigreewatch::test
