#include "diversity/close_matings.h"

#include <gtest/gtest.h>

#include "support/diversity_pedigrees.h"
#include "support/numbered_store.h"

namespace pedigreewatch::test {
namespace {

/// The kin of the parents of the last animal.
MatingKin kin_in(std::string_view pedigree) {
  const PopulationStore store = with_inbreeding(numbered_store(pedigree));
  const std::int32_t last = store.animal_count;
  return kin_of_mating(store, {store.sire_no[last], store.dam_no[last]}, store.inbreeding[last]);
}

TEST(KinOfMating, IsThatOfTheParentsThemselves) {
  EXPECT_EQ(kin_in("m\n.\ns=1 d=2\ns=1 d=3\n"), MatingKin::parent_offspring);    // father and daughter
  EXPECT_EQ(kin_in("m\n.\ns=1 d=2 m\ns=3 d=2\n"), MatingKin::parent_offspring);  // son and mother
  EXPECT_EQ(kin_in("m\n.\ns=1 d=2 m\ns=1 d=2\ns=3 d=4\n"), MatingKin::full_sibs);
  EXPECT_EQ(kin_in("m\n.\ns=1 d=2 m\ns=1\ns=3 d=4\n"), MatingKin::half_sibs);
  EXPECT_EQ(kin_in("m\n.\nd=2 s=1 m\nd=2\ns=3 d=4\n"), MatingKin::half_sibs);
  EXPECT_EQ(kin_in("m\n.\ns=1 m\nd=2\ns=3 d=4\n"), MatingKin::distant);  // two unknown dams are not one
}

TEST(KinOfMating, OfFirstCousinsIsKinshipOfASixteenth) {
  // 3 and 4 are full sibs, their young 7 and 8 first cousins: kinship 1/16.
  EXPECT_EQ(kin_in("m\n.\ns=1 d=2 m\ns=1 d=2\nm\n.\ns=3 d=6 m\ns=5 d=4\ns=7 d=8\n"), MatingKin::cousins);
  // Their sires are half sibs only: 1/32.
  EXPECT_EQ(kin_in("m\n.\ns=1 d=2 m\ns=1\nm\n.\ns=3 d=6 m\ns=5 d=4\ns=7 d=8\n"), MatingKin::distant);
  // Uncle and niece: 1/8.
  EXPECT_EQ(kin_in("m\n.\ns=1 d=2 m\ns=1 d=2\nm\ns=5 d=4\ns=3 d=6\n"), MatingKin::cousins);
}

TEST(KinOfMating, TakesTheBoundWithTheRoundingOfF) {
  const PopulationStore store = numbered_store("m\n.\ns=1 d=2\n");
  EXPECT_EQ(kin_of_mating(store, {1, 2}, 0.0625F - 5e-7F), MatingKin::cousins);
  EXPECT_EQ(kin_of_mating(store, {1, 2}, 0.0625F - 5e-6F), MatingKin::distant);
}

TEST(KinOfMating, PutsTheNearestFirst) {
  // 3 is the sire of 4 by their mother 2: parent and offspring as well as half sibs.
  EXPECT_EQ(kin_in("m\n.\ns=1 d=2 m\ns=3 d=2\ns=3 d=4\n"), MatingKin::parent_offspring);
}

TEST(KinOfMating, CountsAnAnimalWithItselfAmongTheNearest) {
  // Its own parents are none, one or two: so they would be no, one or two in common.
  EXPECT_EQ(kin_in("m\ns=1 d=1\n"), MatingKin::parent_offspring);
  EXPECT_EQ(kin_in("m\ns=1 m\ns=2 d=2\n"), MatingKin::parent_offspring);
  EXPECT_EQ(kin_in("m\n.\ns=1 d=2 m\ns=3 d=3\n"), MatingKin::parent_offspring);
}

}  // namespace
}  // namespace pedigreewatch::test
