// Whole numbers against all possibilities, and against every single exchange.
#include "planning/mating_numbers.h"

#include <gtest/gtest.h>

#include <numeric>

#include "support/diversity_pedigrees.h"
#include "support/pedigrees.h"
#include "support/planning_problems.h"
#include "support/sanitizers.h"

namespace pedigreewatch::test {
namespace {

using Numbers = std::vector<std::int32_t>;

NumberLimits limits_of(const std::vector<Sex>& sex, std::int64_t matings, std::int32_t most_per_male,
                       std::int32_t most_per_female) {
  NumberLimits limits{matings, sex, Numbers(sex.size(), 0), {}, 1, std::vector<Flag>(sex.size(), 0)};
  for (const Sex one : sex) limits.most.push_back(one == male ? most_per_male : most_per_female);
  return limits;
}

MatingNumbers solve(const DenseProblem& problem, const NumberLimits& limits) {
  const CandidateKinship kinship = make_candidate_kinship(problem.store, problem.positions);
  return best_numbers(kinship, limits, {}, best_contributions(kinship, share_limits_of(limits)).shares);
}

void expect_permitted(const NumberLimits& limits, const Numbers& numbers) {
  BySex<std::int64_t> sums;
  for (std::size_t k = 0; k < numbers.size(); ++k) {
    sums.of(limits.sex[k]) += numbers[k];
    EXPECT_TRUE(is_permitted(limits, k, numbers[k])) << k << ": " << numbers[k];
  }
  EXPECT_EQ(sums.of_males, limits.matings);
  EXPECT_EQ(sums.of_females, limits.matings);
}

TEST(BestNumbers, LeaveNothingToASingleExchangeAndLittleToAll) {
  int best = 0, problems = 0;
  for (std::uint64_t seed = 1; seed <= std::uint64_t{cases(200, 20)}; ++seed) {
    const auto males = static_cast<std::int32_t>(2 + seed % 3), females = static_cast<std::int32_t>(2 + seed % 4);
    const DenseProblem problem = random_problem(seed, 40, males, females);
    const NumberLimits limits = limits_of(problem.sex, 5, 4, 3);
    SCOPED_TRACE(seed);
    const MatingNumbers found = solve(problem, limits);
    expect_permitted(limits, found.numbers);
    EXPECT_LE(best_single_exchange(problem, limits, found.numbers), 1e-6);
    const double least = least_of_all_numbers(problem, limits);
    EXPECT_NEAR(found.mean_kinship, dense_kinship(problem, shares_of(found.numbers, limits.matings)), 1e-6);
    EXPECT_GE(found.mean_kinship, least - 1e-6);
    EXPECT_LE(found.mean_kinship, 1.02 * least);
    ++problems;
    if (found.mean_kinship <= least + 1e-6) ++best;
  }
  EXPECT_GE(best, problems * 9 / 10);
}

// F has single precision: an exchange that looks like a gain there and back would go on for ever.
TEST(BestNumbers, OfManyAnimalsComeToAnEnd) {
  for (std::uint64_t seed = 1; seed <= std::uint64_t{cases(30, 3)}; ++seed) {
    const DenseProblem problem = random_problem(seed, 240, 30, 40);
    const NumberLimits limits = limits_of(problem.sex, 60, 6, 4);
    SCOPED_TRACE(seed);
    const MatingNumbers found = solve(problem, limits);
    expect_permitted(limits, found.numbers);
    EXPECT_NEAR(found.mean_kinship, dense_kinship(problem, shares_of(found.numbers, limits.matings)), 1e-6);
    EXPECT_LT(found.exchanges, 1000);
  }
}

TEST(BestNumbers, GiveAUsedMaleAtLeastWhatHeMustHave) {
  for (std::uint64_t seed = 1; seed <= std::uint64_t{cases(100, 10)}; ++seed) {
    const DenseProblem problem = random_problem(seed, 40, 4, 4);
    NumberLimits limits = limits_of(problem.sex, 6, 5, 3);
    limits.least_if_used = 3;
    SCOPED_TRACE(seed);
    const MatingNumbers found = solve(problem, limits);
    expect_permitted(limits, found.numbers);
    EXPECT_LE(best_single_exchange(problem, limits, found.numbers), 1e-6);
    EXPECT_LE(found.mean_kinship, 1.05 * least_of_all_numbers(problem, limits));
  }
}

TEST(BestNumbers, KeepNumbersThatWereSaid) {
  const DenseProblem problem = random_problem(4, 50, 4, 4);
  NumberLimits limits = limits_of(problem.sex, 8, 4, 4);
  limits.least_if_used = 3;
  limits.least[1] = limits.most[1] = 1;  // said, so that what others must have does not count
  limits.has_own[1] = 1;
  limits.least[6] = limits.most[6] = 4;
  const MatingNumbers found = solve(problem, limits);
  expect_permitted(limits, found.numbers);
  EXPECT_EQ(found.numbers[1], 1);
  EXPECT_EQ(found.numbers[6], 4);
}

TEST(BestNumbers, WithABoundRaiseTheValueWithinIt) {
  for (std::uint64_t seed = 1; seed <= std::uint64_t{cases(40, 10)}; ++seed) {
    const DenseProblem problem = random_problem(seed, 50, 5, 6);
    const NumberLimits limits = limits_of(problem.sex, 6, 4, 2);
    RandomNumbers random{seed};
    std::vector<double> values;
    for (std::size_t k = 0; k < problem.sex.size(); ++k) values.push_back(random.below(100));
    const CandidateKinship kinship = make_candidate_kinship(problem.store, problem.positions);
    const MatingNumbers least = solve(problem, limits);
    const double bound = least.mean_kinship * 1.1;
    const NumberGoal goal = {{values, 0.0}, bound};
    const MatingNumbers found = best_numbers(kinship, limits, goal, shares_of(least.numbers, 6));
    const auto value_of = [&](const Numbers& numbers) {
      return std::inner_product(numbers.begin(), numbers.end(), values.begin(), 0.0);
    };
    expect_permitted(limits, found.numbers);
    EXPECT_LE(found.mean_kinship, bound + 1e-12);
    EXPECT_GE(value_of(found.numbers), value_of(least.numbers));
  }
}

// How many males to use is what exchanges of two animals cannot find out.
TEST(BestNumbers, WithALeastForMalesAreNearlyTheBestOfAll) {
  int best = 0, problems = 0;
  for (std::uint64_t seed = 1; seed <= std::uint64_t{cases(150, 10)}; ++seed) {
    const DenseProblem problem = random_problem(seed, 40, static_cast<std::int32_t>(3 + seed % 3), 3);
    NumberLimits limits = limits_of(problem.sex, 6, 6, 4);
    limits.least_if_used = static_cast<std::int32_t>(2 + seed % 2);
    SCOPED_TRACE(seed);
    const MatingNumbers found = solve(problem, limits);
    expect_permitted(limits, found.numbers);
    const double least = least_of_all_numbers(problem, limits);
    EXPECT_LE(found.mean_kinship, 1.03 * least);
    ++problems;
    if (found.mean_kinship <= least + 1e-6) ++best;
  }
  EXPECT_GE(best, problems * 98 / 100);
}

// With more possible numbers of males than starts: unrelated animals, of which as many as possible are best.
TEST(BestNumbers, OfManyMalesUseAsManyAsTheirLeastAllows) {
  constexpr int male_count = cases(60, 8), female_count = cases(90, 12);
  std::string animals;
  for (int k = 0; k < male_count; ++k) animals += "m" + std::to_string(k) + " 0 0 m 2000\n";
  for (int k = 0; k < female_count; ++k) animals += "f" + std::to_string(k) + " 0 0 f 2000\n";
  const PopulationStore store = with_inbreeding(pedigree_from_text(animals));
  std::vector<std::int32_t> males, females;
  for (std::int32_t i = 1; i <= store.animal_count; ++i) (store.sex[i] == male ? males : females).push_back(i);
  const DenseProblem problem = dense_problem(store, males, females);
  NumberLimits limits = limits_of(problem.sex, female_count, female_count, 1);
  limits.least_if_used = 2;
  const MatingNumbers found = solve(problem, limits);
  expect_permitted(limits, found.numbers);
  // Half as many males as females, with 2 matings each: with 90 females (45 x 4 + 90) / 2 / 180^2.
  EXPECT_NEAR(found.mean_kinship, 3.0 / (8.0 * female_count), 1e-9);
}

TEST(IsPermitted, ExceptsNoneFromTheLeastOfAUsedMale) {
  NumberLimits limits = limits_of({male, female}, 6, 5, 5);
  limits.least_if_used = 3;
  for (const std::int32_t number : {0, 3, 5}) EXPECT_TRUE(is_permitted(limits, 0, number)) << number;
  for (const std::int32_t number : {1, 2, 6}) EXPECT_FALSE(is_permitted(limits, 0, number)) << number;
  EXPECT_TRUE(is_permitted(limits, 1, 1));
}

TEST(FindNumberObstacle, TellsBoundsThatCannotBeMet) {
  const std::vector<Sex> sex = {male, male, female, female, female};
  EXPECT_EQ(find_number_obstacle(limits_of(sex, 6, 3, 2), male), NumberObstacle::none);
  EXPECT_EQ(find_number_obstacle(limits_of(sex, 7, 3, 2), male), NumberObstacle::too_few);
  EXPECT_EQ(find_number_obstacle(limits_of(sex, 6, 3, 2), female), NumberObstacle::none);
  EXPECT_EQ(find_number_obstacle(limits_of(sex, 7, 4, 2), female), NumberObstacle::too_few);
  NumberLimits limits = limits_of(sex, 6, 6, 6);
  limits.least[0] = 6;
  EXPECT_EQ(find_number_obstacle(limits, male), NumberObstacle::none);
  limits.least[1] = 1;
  EXPECT_EQ(find_number_obstacle(limits, male), NumberObstacle::too_many);
  limits = limits_of(sex, 5, 4, 2);  // one male has at most 4, two have at least 6
  limits.least_if_used = 3;
  EXPECT_EQ(find_number_obstacle(limits, male), NumberObstacle::no_sum);
  limits.matings = 6;
  EXPECT_EQ(find_number_obstacle(limits, male), NumberObstacle::none);
  limits.least_if_used = 5;  // above the most: without it 8 would fit
  EXPECT_EQ(find_number_obstacle(limits, male), NumberObstacle::no_sum);
  limits.matings = 9;
  EXPECT_EQ(find_number_obstacle(limits, male), NumberObstacle::too_few);
}

TEST(ShareLimitsOf, AreThoseOfTheNumbers) {
  NumberLimits limits = limits_of({male, female}, 10, 3, 20);
  limits.least[0] = 2;
  const ShareLimits shares = share_limits_of(limits);
  EXPECT_DOUBLE_EQ(shares.least[0], 0.1);
  EXPECT_DOUBLE_EQ(shares.most[0], 0.15);
  EXPECT_DOUBLE_EQ(shares.most[1], 0.5);
}

TEST(ExamineNumbers, IsTheKinshipOfAnyNumbers) {
  const DenseProblem problem = random_problem(9, 40, 2, 3);
  const Numbers numbers = {1, 3, 2, 2, 0};
  const MatingNumbers found = examine_numbers(make_candidate_kinship(problem.store, problem.positions), numbers);
  EXPECT_NEAR(found.mean_kinship, dense_kinship(problem, shares_of(numbers, 4)), 1e-6);
}

}  // namespace
}  // namespace pedigreewatch::test
