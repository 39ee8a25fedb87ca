// Pairs against all possibilities; the proof of larger ones; what stands in the way where it is impossible.
#include "planning/pair_assignment.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

#include "support/pedigrees.h"
#include "support/planning_problems.h"

namespace pedigreewatch::test {
namespace {

PairProblem random_pairs(std::uint64_t seed, std::size_t females, std::size_t males, std::int32_t most, int kinds,
                         int forbidden_in_100) {
  RandomNumbers random{seed};
  PairProblem problem{females, males, {}, {}, std::vector<std::int32_t>(males, 0)};
  for (std::size_t k = 0; k < females * males; ++k) {
    const bool is_forbidden = random.below(100) < forbidden_in_100;
    problem.costs.push_back(is_forbidden ? forbidden_pair : random.below(kinds));
  }
  std::int32_t sum = 0;
  for (std::size_t f = 0; f < females; ++f) problem.of_female.push_back(1 + random.below(most));
  for (const std::int32_t number : problem.of_female) sum += number;
  for (; sum > 0; --sum) ++problem.of_male[static_cast<std::size_t>(random.below(static_cast<std::int32_t>(males)))];
  return problem;
}

TEST(AssignPairs, AreTheCheapestOfAll) {
  int impossible = 0;
  for (std::uint64_t seed = 1; seed <= 400; ++seed) {
    const PairProblem problem =
        random_pairs(seed, 2 + seed % 4, 1 + seed % 5, 2, seed % 2 == 0 ? 3 : 1000, seed % 3 == 0 ? 30 : 0);
    const PairAssignment found = assign_pairs(problem);
    const PairCost least = least_of_all_pairings(problem);
    SCOPED_TRACE(seed);
    EXPECT_EQ(found.is_possible(), least >= 0);
    if (least < 0) {
      ++impossible;
      continue;
    }
    EXPECT_EQ(found.total, least);
    EXPECT_TRUE(is_proven(problem, found));
  }
  EXPECT_GT(impossible, 10);
}

TEST(AssignPairs, OfEightFemalesAreTheCheapestOfAll) {
  for (std::uint64_t seed = 1; seed <= 10; ++seed) {
    const PairProblem problem = random_pairs(seed, 8, 8, 1, 50, 20);
    const PairAssignment found = assign_pairs(problem);
    const PairCost least = least_of_all_pairings(problem);
    ASSERT_EQ(found.is_possible(), least >= 0);
    EXPECT_EQ(found.is_possible() ? found.total : -1, least);
  }
}

TEST(AssignPairs, ProvesLargerOnes) {
  for (std::uint64_t seed = 1; seed <= 10; ++seed) {
    const PairProblem problem = random_pairs(seed, 120, 30, 3, seed % 2 == 0 ? 5 : 1'000'000, 20);
    const PairAssignment found = assign_pairs(problem);
    ASSERT_TRUE(found.is_possible());
    EXPECT_TRUE(is_proven(problem, found));
  }
}

TEST(AssignPairs, NamesThoseWhoStandInEachOthersWay) {
  constexpr PairCost no = forbidden_pair;
  // The first and third female may go with the first male only, who has one mating.
  const PairProblem problem{3, 2, {1, no, 1, 1, 1, no}, {1, 1, 1}, {1, 2}};
  const PairAssignment found = assign_pairs(problem);
  EXPECT_FALSE(found.is_possible());
  EXPECT_EQ(found.stuck_females, (std::vector<std::size_t>{0, 2}));
  EXPECT_EQ(found.their_males, (std::vector<std::size_t>{0}));
}

TEST(AssignPairs, NamesAllGroupsThatHaveNothingToDoWithEachOther) {
  constexpr PairCost no = forbidden_pair;
  // Females 0 and 1 share male 0, females 2 and 3 male 1, female 4 has no male, and female 5 has male 2.
  const PairProblem problem{
      6, 3, {1, no, no, 1, no, no, no, 1, no, no, 1, no, no, no, no, no, no, 1}, {1, 1, 1, 1, 1, 1}, {1, 1, 4}};
  const PairAssignment found = assign_pairs(problem);
  EXPECT_EQ(found.stuck_females, (std::vector<std::size_t>{0, 1, 2, 3, 4}));
  EXPECT_EQ(found.their_males, (std::vector<std::size_t>{0, 1}));
}

TEST(AssignPairs, NamesAFemaleWithoutAnyMale) {
  constexpr PairCost no = forbidden_pair;
  const PairProblem problem{2, 1, {no, 4}, {1, 1}, {2}};
  const PairAssignment found = assign_pairs(problem);
  EXPECT_EQ(found.stuck_females, (std::vector<std::size_t>{0}));
  EXPECT_TRUE(found.their_males.empty());
}

TEST(AssignPairs, OfThoseInTheWayAreAlwaysTooManyForTheirMales) {
  int impossible = 0;
  for (std::uint64_t seed = 1; seed <= 200; ++seed) {
    const PairProblem problem = random_pairs(seed, 6, 5, 2, 10, 60);
    const PairAssignment found = assign_pairs(problem);
    if (found.is_possible()) continue;
    ++impossible;
    std::int64_t wanted = 0, room = 0;
    for (const std::size_t f : found.stuck_females) {
      wanted += problem.of_female[f];
      for (std::size_t m = 0; m < problem.males; ++m) {
        const bool is_theirs = std::ranges::find(found.their_males, m) != found.their_males.end();
        EXPECT_TRUE(is_theirs || problem.cost(f, m) == forbidden_pair);
      }
    }
    for (const std::size_t m : found.their_males) room += problem.of_male[m];
    EXPECT_GT(wanted, room);
  }
  EXPECT_GT(impossible, 20);
}

TEST(IsProven, RefusesPairsThatAreNotTheCheapest) {
  const PairProblem problem{2, 2, {1, 5, 5, 1}, {1, 1}, {1, 1}};
  PairAssignment found = assign_pairs(problem);
  EXPECT_TRUE(is_proven(problem, found));
  PairAssignment crossed = found;
  crossed.pairs = {{0, 1, 1}, {1, 0, 1}};
  crossed.total = 10;
  EXPECT_FALSE(is_proven(problem, crossed));
  found.female_price[0] += 1;
  EXPECT_FALSE(is_proven(problem, found));
}

TEST(CostOfKinship, IsInUnitsThatAddUpExactly) {
  EXPECT_EQ(cost_of_kinship(0.25), PairCost{1} << 38);
  EXPECT_EQ(cost_of_kinship(-1e-7), 0);  // of rounding
}

TEST(AssignPairs, EndWhenThatIsWanted) {
  const volatile std::sig_atomic_t stop = 1;
  const PairProblem problem{2, 2, {1, 5, 1, 6}, {1, 1}, {1, 1}};
  EXPECT_TRUE(assign_pairs(problem, {nullptr, &stop}).is_stopped);
}

}  // namespace
}  // namespace pedigreewatch::test
