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

TEST(PedigreeOf, HoldsTheAnimalsAndEverybodyTheyDescendFrom) {
  // 7 descends from 6, 4, 3 and 1; 5 is no ancestor of it, nor is 2 of anybody.
  const PopulationStore store = numbered_store("m\n.\n.\ns=1 d=3 m\ns=1 d=3\nd=3\ns=4 d=6\n");
  const AncestorPedigree ancestors = pedigree_of(store, Numbers{7});
  EXPECT_EQ(ancestors.position.values, (Numbers{0, 1, 3, 4, 6, 7}));
  EXPECT_EQ(ancestors.sire.values, (Numbers{0, 0, 0, 1, 0, 3}));
  EXPECT_EQ(ancestors.dam.values, (Numbers{0, 0, 0, 2, 2, 4}));
  EXPECT_EQ(ancestors.number_of_animal.values, (Numbers{0, 1, 0, 2, 3, 0, 4, 5}));
}

TEST(PedigreeOf, TakesAnimalsInAnyOrderAndOnce) {
  const PopulationStore store = numbered_store("m\n.\n.\ns=1 d=3 m\n");
  EXPECT_EQ(pedigree_of(store, Numbers{4, 2, 4, 1}).position.values, (Numbers{0, 1, 2, 3, 4}));
  EXPECT_EQ(pedigree_of(store, {}).count(), 0);
}

TEST(PedigreeOf, LeavesOutAParentBehindItsOffspring) {
  const PopulationStore store = numbered_store("s=3 d=2\n.\nm\n");
  EXPECT_EQ(pedigree_of(store, Numbers{1}).position.values, (Numbers{0, 1}));
}

TEST(WithinFamilyVariances, GrowByAQuarterForEachUnknownParent) {
  PopulationStore store = numbered_store("m\n.\ns=1\ns=1 d=2\ns=1 d=2\n");
  store.inbreeding[1] = 0.5F;
  store.inbreeding[2] = 0.25F;
  const AncestorPedigree ancestors = pedigree_of(store, Numbers{3, 4});
  const ByNumber<double> variances = within_family_variances(store, ancestors);
  EXPECT_EQ(variances[1], 1.0);
  EXPECT_EQ(variances[3], 0.625);   // 3/4 - 0.5 / 4
  EXPECT_EQ(variances[4], 0.3125);  // 1/2 - 0.75 / 4
}

}  // namespace
}  // namespace pedigreewatch::test
