#include "diversity/subpopulation_diversity.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "support/diversity_pedigrees.h"
#include "support/numbered_store.h"

namespace pedigreewatch::test {
namespace {

LookedUpNames red_and_white() {
  return {.subpopulations = names_of<Subpopulations>({"red", "white"})};
}

TEST(Division, OfTwoPairsOfSibsByHand) {
  // Red: full sibs 3 and 4 of 1 and 2; white: 7, offspring of their mating, and 8, unrelated.
  const PopulationStore store = with_inbreeding(numbered_store(
      "m sub=red\n. sub=red\ns=1 d=2 m sub=red\ns=1 d=2 sub=red\n. sub=white\n. sub=other\ns=3 d=4 sub=white\n"
      ". sub=white\n",
      red_and_white()));
  const SubpopulationDiversity division = describe_division(store, std::vector<std::int32_t>{3, 4, 6, 7, 8});
  ASSERT_EQ(division.groups.size(), 2U);
  EXPECT_EQ(division.groups[0].animals, 2);
  EXPECT_DOUBLE_EQ(division.kinship(0, 0), 0.375);                // 1/2 and 1/4
  EXPECT_DOUBLE_EQ(division.kinship(1, 1), (0.625 + 0.5) / 4.0);  // (1 + 1/4) / 2, 1/2 and 0
  EXPECT_DOUBLE_EQ(division.kinship(0, 1), 2.0 * 0.375 / 4.0);    // 7 with each of its parents 3/8
  EXPECT_DOUBLE_EQ(division.mean_inbreeding.value(), 0.0625);
  const double within = (0.375 + 0.28125) / 2.0, all = (0.375 + 0.28125 + 2.0 * 0.1875) / 4.0;
  EXPECT_DOUBLE_EQ(division.kinship_within.value(), within);
  EXPECT_DOUBLE_EQ(division.kinship_over_all.value(), all);
  EXPECT_DOUBLE_EQ(division.f_is.value(), (0.0625 - within) / (1.0 - within));
  EXPECT_DOUBLE_EQ(division.f_st.value(), (within - all) / (1.0 - all));
  EXPECT_NEAR(1.0 - division.f_it.value(), (1.0 - division.f_is.value()) * (1.0 - division.f_st.value()), 1e-15);
  EXPECT_DOUBLE_EQ(division.minimum_distance(0, 1), within - 0.1875);
  EXPECT_DOUBLE_EQ(division.standard_distance(0, 1).value(), -std::log(0.1875 / std::sqrt(0.375 * 0.28125)));
}

TEST(Division, WeighsSubpopulationsByTheirNumbers) {
  // Three unrelated red animals and one white: kinships within 1/6 and 1/2, over all 1/8.
  const PopulationStore store =
      with_inbreeding(numbered_store("sub=red\nsub=red\nsub=red\nsub=white\n", red_and_white()));
  const SubpopulationDiversity division = describe_division(store, from_to(1, 4));
  EXPECT_DOUBLE_EQ(division.kinship_within.value(), (3.0 / 6.0 + 0.5) / 4.0);
  EXPECT_DOUBLE_EQ(division.kinship_over_all.value(), 0.125);
  EXPECT_FALSE(division.standard_distance(0, 1).has_value());  // they are not related
}

TEST(Division, NeedsTwoSubpopulationsWithAnimals) {
  const PopulationStore store = with_inbreeding(numbered_store("sub=red\nsub=red\nsub=white\n", red_and_white()));
  EXPECT_TRUE(describe_division(store, from_to(1, 2)).groups.empty());
  EXPECT_FALSE(describe_division(store, from_to(1, 2)).f_st.has_value());
  EXPECT_EQ(describe_division(store, from_to(2, 3)).groups.size(), 2U);
  const PopulationStore alone =
      with_inbreeding(numbered_store("sub=red\nsub=red\n", {.subpopulations = names_of<Subpopulations>({"red"})}));
  EXPECT_TRUE(describe_division(alone, from_to(1, 2)).groups.empty());
}

}  // namespace
}  // namespace pedigreewatch::test
