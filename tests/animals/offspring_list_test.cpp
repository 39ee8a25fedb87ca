// Offspring by mate and year, with the number of their own.
#include "animals/offspring_list.h"

#include <gtest/gtest.h>

#include <string>

#include "support/pedigrees.h"

namespace pedigreewatch::test {
namespace {

std::string listed(const PopulationStore& store, std::string_view id) {
  std::string text;
  for (const MateYear& entry : list_offspring(store, animal_named(store, id).number).years) {
    text += (entry.mate == 0 ? "?" : std::string(store.id(entry.mate))) + " " + std::to_string(entry.year) + ":";
    for (const Young& one : entry.young) {
      text += " " + std::string(store.id(one.position)) + "(" + std::to_string(one.offspring) + ")";
    }
    text += "\n";
  }
  return text;
}

constexpr std::string_view herd =
    "ram  0   0   m 2000\n"
    "eva  0   0   f 2001\n"
    "ada  0   0   f 2002\n"
    "l1   ram 0   m 2002\n"
    "l2   ram eva f 2006\n"
    "l3   ram eva m 2004\n"
    "l4   ram ada f 2005\n"
    "l5   ram eva f 2004\n"
    "l6   ram ada f 0\n"
    "g1   l3  l2  f 2008\n"
    "g2   l3  0   m 2008\n"
    "g3   l1  ada m 2008\n";

TEST(OffspringList, MatesStandInTheOrderOfTheirFirstOffspringUnknownOnesLast) {
  const PopulationStore store = pedigree_from_text(herd);
  EXPECT_EQ(listed(store, "ram"),
            "eva 2004: l3(2) l5(0)\n"
            "eva 2006: l2(1)\n"
            "ada 2005: l4(0)\n"
            "ada 0: l6(0)\n"
            "? 2002: l1(1)\n");
}

TEST(OffspringList, OfADamNamesTheSires) {
  const PopulationStore store = pedigree_from_text(herd);
  EXPECT_EQ(listed(store, "ada"), "ram 2005: l4(0)\nram 0: l6(0)\nl1 2008: g3(0)\n");
}

TEST(OffspringList, CountsYoungMalesMatesThoseThatBredAndGrandchildrenOnce) {
  const PopulationStore store = pedigree_from_text(herd);
  const OffspringList list = list_offspring(store, animal_named(store, "ram").number);
  EXPECT_EQ(list.young, 6);
  EXPECT_EQ(list.males, 2);
  EXPECT_EQ(list.mates, 2) << "an unknown one is none";
  EXPECT_EQ(list.breeding, 3) << "l1, l2 and l3";
  EXPECT_EQ(list.grandchildren, 3) << "g1 is of two of the young and one animal";
}

TEST(OffspringList, OfSelfingCountsAnOffspringOnce) {
  const PopulationStore store = pedigree_from_text("one 0 0 m 2000\ntwo one one m 2001\nkit two two f 2002\n");
  const OffspringList list = list_offspring(store, animal_named(store, "one").number);
  EXPECT_EQ(list.young, 1);
  EXPECT_EQ(list.years.front().young.front().offspring, 1);
}

TEST(OffspringList, IsEmptyWithoutOffspring) {
  const PopulationStore store = pedigree_from_text(herd);
  const OffspringList list = list_offspring(store, animal_named(store, "g1").number);
  EXPECT_TRUE(list.years.empty());
  EXPECT_EQ(list.young + list.mates + list.breeding + list.grandchildren, 0);
}

}  // namespace
}  // namespace pedigreewatch::test
