// Places of ancestors, how often they stand there, and where lines meet.
#include "animals/family_tree.h"

#include <gtest/gtest.h>

#include <string>

#include "support/pedigrees.h"

namespace pedigreewatch::test {
namespace {

// Bram and Tess are full sibs, their son is Pup; Kit is of Pup and his half aunt Puck.
constexpr std::string_view family =
    "rex  0   0    m 2001\n"
    "saar 0   0    f 2001\n"
    "mies 0   0    f 2001\n"
    "bram rex saar m 2003\n"
    "tess rex saar f 2003\n"
    "puck rex mies f 2003\n"
    "pup  bram tess m 2005\n"
    "kit  pup puck f 2007\n";

FamilyTree tree_of(const PopulationStore& store, std::string_view id) {
  return family_tree_of(store, animal_named(store, id).number);
}

std::string id_at(const PopulationStore& store, const FamilyTree& tree, std::size_t place) {
  return tree.positions[place] == 0 ? "?" : std::string(store.id(tree.positions[place]));
}

TEST(FamilyTree, HasSiresAtEvenPlacesAndDamsAtOddOnes) {
  const PopulationStore store = pedigree_from_text(family);
  const FamilyTree tree = tree_of(store, "kit");
  std::string ids;
  for (std::size_t place = 1; place < 16; ++place) ids += id_at(store, tree, place) + " ";
  EXPECT_EQ(ids, "kit pup puck bram tess rex mies rex saar rex saar ? ? ? ? ");
  EXPECT_EQ(tree.positions[0], 0);
  EXPECT_EQ(tree.positions[16], 0);
}

TEST(FamilyTree, CountsThePlacesOfAnAnimal) {
  const PopulationStore store = pedigree_from_text(family);
  const FamilyTree tree = tree_of(store, "kit");
  EXPECT_EQ(tree.times[6], 3) << "rex, of puck, bram and tess";
  EXPECT_EQ(tree.times[9], 2) << "saar";
  EXPECT_EQ(tree.times[3], 1);
  EXPECT_EQ(tree.times[12], 0) << "unknown";
}

TEST(FamilyTree, NumbersTheAncestorsInWhichLinesMeet) {
  const PopulationStore store = pedigree_from_text(family);
  const FamilyTree tree = tree_of(store, "kit");
  for (const std::size_t place : {6U, 8U, 10U}) EXPECT_EQ(tree.meeting[place], 1) << "rex comes first from Kit on";
  EXPECT_EQ(tree.meeting[9], 2) << "saar";
  EXPECT_EQ(tree.meeting[11], 2);
  EXPECT_EQ(tree.meeting[7], 0) << "mies stands there once";
  EXPECT_EQ(tree.meeting[12], 0) << "those that nobody knows are no meeting";
}

// Who stands there twice only because their one offspring does is no new meeting of lines.
TEST(FamilyTree, AncestorsOfAMeetingAreNoMeetings) {
  const PopulationStore store = pedigree_from_text(
      "old  0   0    m 1999\nrex old 0 m 2001\nann 0 0 f 2001\nbea 0 0 f 2001\n"
      "one rex ann m 2003\ntwo rex bea f 2003\nkit one two f 2005\n");
  const FamilyTree tree = tree_of(store, "kit");
  EXPECT_EQ(id_at(store, tree, 4), "rex");
  EXPECT_EQ(id_at(store, tree, 8), "old");
  EXPECT_EQ(tree.meeting[4], 1);
  EXPECT_EQ(tree.times[8], 2);
  EXPECT_EQ(tree.meeting[8], 0);
}

TEST(FamilyTree, EndsAfterFiveGenerations) {
  std::string line = "a0 0 0 m 2000\n";
  for (int k = 1; k <= 7; ++k) {
    line += "a" + std::to_string(k) + " a" + std::to_string(k - 1) + " 0 m " + std::to_string(2000 + k) + "\n";
  }
  const PopulationStore store = pedigree_from_text(line);
  const FamilyTree tree = tree_of(store, "a7");
  EXPECT_EQ(id_at(store, tree, 32), "a2");
  EXPECT_EQ(generation_of(32), 5U);
  EXPECT_EQ(generation_of(63), 5U);
  EXPECT_EQ(generation_of(31), 4U);
  EXPECT_EQ(generation_of(1), 0U);
}

}  // namespace
}  // namespace pedigreewatch::test
