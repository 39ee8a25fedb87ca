#include "standing/rare_lines.h"

#include <gtest/gtest.h>

#include <string>

#include "support/diversity_pedigrees.h"
#include "support/numbered_store.h"

namespace pedigreewatch::test {
namespace {

std::string born(int year, int sire, int dam, bool is_male = false) {
  return std::to_string(year) + (is_male ? " m" : "") + " s=" + std::to_string(sire) + " d=" + std::to_string(dam) +
         "\n";
}

/// Sires 1 to 3 and dams 4 to 6 bring a herd of three generations; animal 7, of the first one, has one descendant in
/// the last: the first of the 120 young, from the grandchild 14.
std::string herd_with_a_rare_line() {
  std::string lines = "2000 m\n2000 m\n2000 m\n2000\n2000\n2000\n2000\n";
  lines += born(2003, 1, 4, true) + born(2003, 2, 5, true) + born(2003, 3, 6) + born(2003, 1, 5);  // 8 to 11
  lines += born(2003, 2, 7);                                                                       // 12
  lines += born(2006, 8, 10, true) + born(2006, 9, 12);                                            // 13, 14
  lines += born(2006, 9, 11) + born(2006, 8, 10);                                                  // 15, 16
  lines += born(2009, 13, 14);                                                                     // 17
  for (int n = 0; n < 119; ++n) lines += born(2009, 13, n % 2 == 0 ? 15 : 16);
  return lines;
}

TEST(RareLines, AFounderWithFewDescendantsIsNamedWithThem) {
  const PopulationStore store = with_inbreeding(numbered_store(herd_with_a_rare_line()));
  const RareLines found = find_rare_lines(store, from_to(17, 136), 4);
  const std::vector<RareLine>& lines = found.lines;
  EXPECT_EQ(found.founders, 7);
  EXPECT_EQ(found.rare_founders, 1);
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(lines[0].founder, 7);
  EXPECT_DOUBLE_EQ(lines[0].share_of_young, 0.125 / 120.0);
  ASSERT_EQ(lines[0].carriers.size(), 1U);
  EXPECT_EQ(lines[0].carriers[0].animal, 17);
}

TEST(RareLines, ALineWithSixCarriersIsNotNearlyLost) {
  std::string herd = herd_with_a_rare_line();
  for (int carriers = 2; carriers <= 6; ++carriers) {
    herd += born(2009, 13, 14);
    // With more young of others the founder stays rare.
    std::string whole = herd;
    for (int n = 0; n < 200; ++n) whole += born(2009, 13, n % 2 == 0 ? 15 : 16);
    const PopulationStore store = with_inbreeding(numbered_store(whole));
    const std::vector<RareLine> lines = find_rare_lines(store, from_to(17, store.animal_count), 4).lines;
    EXPECT_EQ(lines.size(), carriers <= 5 ? 1U : 0U) << carriers;
  }
}

TEST(RareLines, OnlyCarriersThatAreThereAreNamed) {
  std::string herd = herd_with_a_rare_line();
  herd += born(2009, 13, 14);  // 137, a full sister of 17
  for (int n = 0; n < 80; ++n) herd += born(2009, 13, n % 2 == 0 ? 15 : 16);
  const PopulationStore store = with_inbreeding(numbered_store(herd));
  AvailableAnimals available = {true, ByNumber<Flag>(store.size()), store.animal_count, 0};
  for (std::int32_t i = 1; i <= store.animal_count; ++i) available.marks[i] = 1;
  const auto lines = [&] { return find_rare_lines(store, from_to(17, store.animal_count), 4, available).lines; };
  ASSERT_EQ(lines().size(), 1U);
  ASSERT_EQ(lines()[0].carriers.size(), 2U);
  EXPECT_EQ(lines()[0].carriers[0].animal, 17);  // as rare as its sister; it stands first
  available.marks[17] = 0;
  ASSERT_EQ(lines().size(), 1U);
  EXPECT_EQ(lines()[0].founder, 7);
  ASSERT_EQ(lines()[0].carriers.size(), 1U);
  EXPECT_EQ(lines()[0].carriers[0].animal, 137);
  EXPECT_DOUBLE_EQ(lines()[0].share_of_young, 2 * 0.125 / 201.0);  // of all young, whoever has gone
  available.marks[137] = 0;
  EXPECT_TRUE(lines().empty());
}

TEST(RareLines, ALineOfSixIsNearlyLostOnceOneOfThemHasGone) {
  std::string herd = herd_with_a_rare_line();
  for (int carriers = 2; carriers <= 6; ++carriers) herd += born(2009, 13, 14);
  for (int n = 0; n < 200; ++n) herd += born(2009, 13, n % 2 == 0 ? 15 : 16);
  const PopulationStore store = with_inbreeding(numbered_store(herd));
  AvailableAnimals available = {true, ByNumber<Flag>(store.size()), store.animal_count, 0};
  for (std::int32_t i = 1; i <= store.animal_count; ++i) available.marks[i] = 1;
  EXPECT_TRUE(find_rare_lines(store, from_to(17, store.animal_count), 4, available).lines.empty());
  available.marks[17] = 0;
  EXPECT_EQ(find_rare_lines(store, from_to(17, store.animal_count), 4, available).lines.size(), 1U);
}

TEST(RareLines, AFounderWithHalfAPerCentIsNotRare) {
  const PopulationStore store = with_inbreeding(numbered_store(herd_with_a_rare_line()));
  // 1/8 of 25 animals is 0.005, of 26 less.
  EXPECT_TRUE(find_rare_lines(store, from_to(17, 41), 4).lines.empty());
  EXPECT_EQ(find_rare_lines(store, from_to(17, 42), 4).lines.size(), 1U);
}

TEST(RareLines, AnAnimalWithFewKnownAncestorsIsNotLookedAt) {
  PopulationStore store = with_inbreeding(numbered_store(herd_with_a_rare_line()));
  store.generation_equivalents[17] = 2.99F;
  EXPECT_TRUE(find_rare_lines(store, from_to(17, 136), 4).lines.empty());
  store.generation_equivalents[17] = 3.0F;
  EXPECT_EQ(find_rare_lines(store, from_to(17, 136), 4).lines.size(), 1U);
  EXPECT_TRUE(find_rare_lines(store, from_to(17, 136), 0).lines.empty());
  EXPECT_TRUE(find_rare_lines(store, {}, 4).lines.empty());
}

}  // namespace
}  // namespace pedigreewatch::test
