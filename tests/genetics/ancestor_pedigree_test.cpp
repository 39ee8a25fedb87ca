#include "genetics/ancestor_pedigree.h"

#include <gtest/gtest.h>

#include "support/numbered_store.h"

namespace pedigreewatch::test {
namespace {

using Numbers = std::vector<std::int32_t>;

TEST(AncestorPedigree, NumbersTheAnimalsWithOffspringInStoreOrder) {
  // 2 and 5 have no offspring; 6 is the mother of 7.
  const PopulationStore store = numbered_store("m\n.\n.\ns=1 d=3 m\ns=1 d=3\ns=4 d=3\ns=4 d=6\n");
  const AncestorPedigree ancestors = make_ancestor_pedigree(store);
  EXPECT_EQ(ancestors.count(), 4);
  EXPECT_EQ(ancestors.number_of_animal.values, (Numbers{0, 1, 0, 2, 3, 0, 4, 0}));
  EXPECT_EQ(ancestors.position.values, (Numbers{0, 1, 3, 4, 6}));
  EXPECT_EQ(ancestors.sire.values, (Numbers{0, 0, 0, 1, 3}));
  EXPECT_EQ(ancestors.dam.values, (Numbers{0, 0, 0, 2, 2}));
}

TEST(AncestorPedigree, TheUnknownParentIsNumberZero) {
  const AncestorPedigree ancestors = make_ancestor_pedigree(numbered_store("m\ns=1\n"));
  EXPECT_EQ(ancestors.number_of_animal[0], 0);
  EXPECT_EQ(ancestors.number_of_animal[1], 1);
  EXPECT_EQ(ancestors.number_of_animal[2], 0);
}

TEST(AncestorPedigree, AnEmptyStoreHasNoAncestors) {
  EXPECT_EQ(make_ancestor_pedigree(numbered_store("")).count(), 0);
}

TEST(AncestorPedigree, ParentsOfAnimalsWithoutOffspringAreFoundToo) {
  const PopulationStore store = numbered_store("m\n.\n.\ns=1 d=3\n");
  const AncestorPedigree ancestors = make_ancestor_pedigree(store);
  const ParentNumbers parents = parent_numbers(store, ancestors, 4);
  EXPECT_EQ(parents.sire, 1);
  EXPECT_EQ(parents.dam, 2);
}

TEST(AncestorPedigree, AParentBehindItsOffspringIsLeftOut) {
  PopulationStore store = numbered_store("s=3 d=2\n.\nm\ns=1 d=2\n");
  const AncestorPedigree ancestors = make_ancestor_pedigree(store);
  EXPECT_EQ(parent_numbers(store, ancestors, 1).sire, 0);
  EXPECT_EQ(parent_numbers(store, ancestors, 1).dam, 0);
  EXPECT_EQ(parent_numbers(store, ancestors, 4).sire, 1);
}

}  // namespace
}  // namespace pedigreewatch::test
