#include "standing/parents_in_use.h"

#include <gtest/gtest.h>

#include "support/diversity_pedigrees.h"
#include "support/numbered_store.h"
#include "support/pedigrees.h"

namespace pedigreewatch::test {
namespace {

constexpr auto two_sires =
    "2000 m\n"
    "2000 m\n"
    "2000\n"
    "2003 s=2 d=3\n"
    "2003 s=2 d=3\n"
    "2003 s=1 d=3\n"
    "2003 s=2\n"
    "2003 d=3\n";

TEST(ParentsInUse, SharesAreOfYoungWithAKnownParent) {
  const PopulationStore store = numbered_store(two_sires);
  const ParentsInUse sires = parents_in_use(store.sire_no, from_to(4, 8));
  ASSERT_EQ(sires.parents.size(), 2U);
  EXPECT_EQ(sires.parents[0].parent, 2);
  EXPECT_EQ(sires.parents[0].young, 3);
  EXPECT_DOUBLE_EQ(sires.parents[0].share, 0.75);
  EXPECT_DOUBLE_EQ(sires.effective, 1.0 / (9.0 / 16.0 + 1.0 / 16.0));
  EXPECT_DOUBLE_EQ(sires.share_of_four, 1.0);
  const ParentsInUse none = parents_in_use(store.sire_no, from_to(1, 3));
  EXPECT_TRUE(none.parents.empty());
  EXPECT_EQ(none.effective, 0.0);
}

TEST(ParentsInUse, FourAreTheMostUsed) {
  std::string lines = "2000 m\n2000 m\n2000 m\n2000 m\n2000 m\n";
  for (int sire = 1; sire <= 5; ++sire) {
    for (int n = 0; n <= sire; ++n) lines += "2003 s=" + std::to_string(sire) + "\n";
  }
  const PopulationStore store = numbered_store(lines);
  EXPECT_DOUBLE_EQ(parents_in_use(store.sire_no, from_to(6, 25)).share_of_four, 18.0 / 20.0);
}

TEST(ParentsInUse, HeldSiresLeaveTheirPartToTheOthers) {
  ParentsInUse use;
  for (const double share : {0.6, 0.2, 0.1, 0.1}) use.parents.push_back({1, 1, share});
  // 0.4 for the first; 0.6 for the others in proportion to 2, 1, 1: 0.3, 0.15, 0.15.
  EXPECT_NEAR(effective_number_held(use, 0.4), 1.0 / (0.16 + 0.09 + 2 * 0.0225), 1e-9);
  // A quarter is the least that four can be held to.
  EXPECT_DOUBLE_EQ(effective_number_held(use, 0.25), 4.0);
  EXPECT_DOUBLE_EQ(effective_number_held(use, 0.1), 4.0);
  EXPECT_NEAR(effective_number_held(use, 0.7), 1.0 / (0.36 + 0.04 + 0.02), 1e-9);
}

// Held to 0.18: the first two leave 0.64 to the others (times 1.6), which brings the third over it; that leaves 0.46
// (times 1.15) and brings the fourth over it; 0.28 is left to the last two, in proportion to 0.09 and 0.06.
TEST(ParentsInUse, HeldOnesBringOthersToTheBound) {
  ParentsInUse use;
  for (const double share : {0.4, 0.2, 0.15, 0.1, 0.09, 0.06}) use.parents.push_back({1, 1, share});
  const double fifth = 0.28 * 0.6, sixth = 0.28 * 0.4;
  EXPECT_NEAR(effective_number_held(use, 0.18), 1.0 / (4 * 0.18 * 0.18 + fifth * fifth + sixth * sixth), 1e-9);
}

// Half sibs through the sire, and an unrelated dam used as often: a mean of 1/8 and 0.
TEST(ParentsInUse, ChanceInbreedingIsTheKinshipOfSiresWithDams) {
  const PopulationStore store =
      with_inbreeding(numbered_store("2000 m\n"
                                     "2000\n"
                                     "2000\n"
                                     "2003 m s=1 d=2\n"
                                     "2003   s=1 d=3\n"
                                     "2003\n"
                                     "2006 s=4 d=5\n"
                                     "2006 s=4 d=6\n"));
  const std::vector<std::int32_t> young = from_to(7, 8);
  EXPECT_DOUBLE_EQ(chance_inbreeding(store, parents_in_use(store.sire_no, young), parents_in_use(store.dam_no, young)),
                   0.0625);
  EXPECT_EQ(chance_inbreeding(store, {}, {}), 0.0);
}

// Against the kinships of the tabular method, weighed by hand.
TEST(ParentsInUse, ChanceInbreedingWeighsByYoung) {
  const PopulationStore store = random_population(3, 150);
  const std::vector<std::int32_t> young = young_positions(store, 60);
  const ParentsInUse sires = parents_in_use(store.sire_no, young), dams = parents_in_use(store.dam_no, young);
  const std::vector<std::vector<double>> relationships = tabular_relationships(store);
  double expected = 0.0;
  for (const ParentShare& s : sires.parents) {
    for (const ParentShare& d : dams.parents) {
      expected += 0.5 * s.share * d.share *
                  relationships[static_cast<std::size_t>(s.parent) - 1][static_cast<std::size_t>(d.parent) - 1];
    }
  }
  EXPECT_NEAR(chance_inbreeding(store, sires, dams), expected, 1e-6);
}

}  // namespace
}  // namespace pedigreewatch::test
