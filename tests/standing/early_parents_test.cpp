#include "standing/early_parents.h"

#include <gtest/gtest.h>

#include <string>

#include "support/numbered_store.h"

namespace pedigreewatch::test {
namespace {

constexpr YearStretch early = {2001, 2002}, later = {2005, 2006};

/// Ten animals of early years with so many known parents in all, ten of later years with all twenty.
std::string herd_with(int known_early) {
  std::string text = "1990 m\n1990\n";
  for (int animal = 0; animal < 10; ++animal) {
    text += animal % 2 == 0 ? "2001" : "2002";
    for (const char* const parent : {" s=1", " d=2"}) {
      if (known_early-- > 0) text += parent;
    }
    text += "\n2005 s=1 d=2\n";
  }
  return text;
}

TEST(EarlyParents, ATenthOfTheParentsMayLack) {
  EXPECT_FALSE(find_lacking_parents(numbered_store(herd_with(20)), early, later).has_value());
  EXPECT_FALSE(find_lacking_parents(numbered_store(herd_with(18)), early, later).has_value()) << "0.90";
  const auto lacking = find_lacking_parents(numbered_store(herd_with(17)), early, later);
  ASSERT_TRUE(lacking.has_value()) << "0.85";
  EXPECT_DOUBLE_EQ(lacking->known_early, 0.85);
  EXPECT_DOUBLE_EQ(lacking->known_later, 1.0);
  EXPECT_TRUE(lacking->has_births);
}

TEST(EarlyParents, LaterYearsWithFewerLackNothing) {
  EXPECT_FALSE(find_lacking_parents(numbered_store(herd_with(0)), later, early).has_value());
}

TEST(EarlyParents, YearsWithoutBirthsLackAll) {
  const auto lacking = find_lacking_parents(numbered_store(herd_with(20)), {1995, 2000}, later);
  ASSERT_TRUE(lacking.has_value());
  EXPECT_FALSE(lacking->has_births);
}

TEST(EarlyParents, ImportsAreLeftOut) {
  PopulationStore store = numbered_store(herd_with(20) + "2001 import\n2001 import\n2001 import\n");
  store.has_import = false;
  EXPECT_TRUE(find_lacking_parents(store, early, later).has_value());
  store.has_import = true;
  EXPECT_FALSE(find_lacking_parents(store, early, later).has_value());
}

}  // namespace
}  // namespace pedigreewatch::test
