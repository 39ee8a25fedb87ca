// The highest value within a bound of the mean kinship: by hand, by its proof, and against many permitted shares.
#include "planning/breeding_values.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

#include "support/diversity_pedigrees.h"
#include "support/pedigrees.h"
#include "support/planning_problems.h"

namespace pedigreewatch::test {
namespace {

using Shares = std::vector<double>;

struct ValueProblem {
  DenseProblem dense;
  CandidateKinship kinship;
  ShareLimits limits;
  Contributions least;
};

ValueProblem value_problem(DenseProblem dense, double most_of_males, double most_of_females) {
  CandidateKinship kinship = make_candidate_kinship(dense.store, dense.positions);
  ShareLimits limits{dense.sex, Shares(dense.sex.size(), 0.0), {}};
  for (const Sex sex : dense.sex) limits.most.push_back(sex == male ? most_of_males : most_of_females);
  Contributions least = best_contributions(kinship, limits);
  return {std::move(dense), std::move(kinship), std::move(limits), std::move(least)};
}

// Two unrelated males and one female: (a^2 + b^2) / 2 + 1/8 with a + b = 1/2; the second male has a value of 1. At a
// bound of 1/8 + 5/64 a = 1/8 and b = 3/8 give (1/64 + 9/64) / 2 = 5/64.
TEST(BestValues, TakeAsMuchOfTheBetterOneAsTheBoundAllows) {
  const ValueProblem problem = value_problem(
      dense_problem(with_inbreeding(pedigree_from_text("a 0 0 m 2000\nb 0 0 m 2000\nc 0 0 f 2000\n")), {1, 2}, {3}),
      0.5, 0.5);
  const ValueChoice choice =
      best_values(problem.kinship, problem.limits, Shares{0.0, 1.0, 0.0}, 0.125 + 5.0 / 64.0, problem.least);
  ASSERT_TRUE(choice.is_possible);
  EXPECT_NEAR(choice.contributions.shares[0], 0.125, 1e-6);
  EXPECT_NEAR(choice.value, 0.375, 1e-6);
  EXPECT_NEAR(choice.most_value, 0.375, 1e-5);
}

TEST(BestValues, BelowTheLeastKinshipAreImpossible) {
  const ValueProblem problem = value_problem(random_problem(3, 50, 4, 6), 0.5, 0.5);
  const Shares values(10, 1.0);
  const double least = problem.least.mean_kinship;
  EXPECT_FALSE(best_values(problem.kinship, problem.limits, values, least - 1e-6, problem.least).is_possible);
  EXPECT_TRUE(best_values(problem.kinship, problem.limits, values, least + 1e-6, problem.least).is_possible);
}

TEST(BestValues, WithoutDifferencesAreTheLeastKinship) {
  const ValueProblem problem = value_problem(random_problem(3, 50, 4, 6), 0.5, 0.5);
  const ValueChoice choice = best_values(problem.kinship, problem.limits, Shares(10, 3.0), 0.9, problem.least);
  EXPECT_EQ(choice.contributions.shares, problem.least.shares);
  EXPECT_DOUBLE_EQ(choice.value, 3.0);
}

TEST(BestValues, BeyondAllKinshipsAreTheHighestValues) {
  const ValueProblem problem = value_problem(random_problem(5, 50, 4, 6), 0.2, 0.2);
  Shares values(10);
  std::iota(values.begin(), values.end(), -3.0);
  const ValueChoice choice = best_values(problem.kinship, problem.limits, values, 1.0, problem.least);
  EXPECT_NEAR(choice.value, highest_product(problem.limits, values), 1e-6);
}

TEST(BestValues, LieOnTheBoundAndAreProven) {
  for (std::uint64_t seed = 1; seed <= 60; ++seed) {
    const ValueProblem problem = value_problem(random_problem(seed, 60, 6, 8), 0.25, 0.125);
    RandomNumbers random{seed};
    Shares values;
    for (std::size_t k = 0; k < 14; ++k) values.push_back(random.below(1000) / 10.0 - 30.0);
    const double bound = kinship_at_rate(problem.least.mean_kinship, 0.005 * static_cast<double>(1 + seed % 4));
    const ValueChoice choice = best_values(problem.kinship, problem.limits, values, bound, problem.least);
    SCOPED_TRACE(seed);
    ASSERT_TRUE(choice.is_possible);
    const double kinship = dense_kinship(problem.dense, choice.contributions.shares);
    EXPECT_LE(kinship, bound + 2e-6);
    const double of_least = std::inner_product(values.begin(), values.end(), problem.least.shares.begin(), 0.0);
    const double gain = choice.value - of_least;
    EXPECT_GE(gain, 0.0);
    EXPECT_LE(choice.most_value - choice.value, certified_part_of_value * gain + 1e-9);
    // No mixture with any corner does better within the bound.
    for (int trials = 0; trials < 50; ++trials) {
      Shares corner(14, 0.0);
      const auto first = static_cast<std::size_t>(random.below(6));
      corner[first] += 0.25;
      corner[(first + 1 + static_cast<std::size_t>(random.below(5))) % 6] += 0.25;
      for (int k = 0; k < 4; ++k) corner[6 + static_cast<std::size_t>((random.below(2) + 2 * k) % 8)] += 0.125;
      const double part = random.below(100) / 1000.0;
      for (std::size_t k = 0; k < 14; ++k) corner[k] = part * corner[k] + (1.0 - part) * choice.contributions.shares[k];
      if (dense_kinship(problem.dense, corner) > kinship) continue;
      EXPECT_LE(std::inner_product(values.begin(), values.end(), corner.begin(), 0.0), choice.most_value + 1e-6);
    }
  }
}

TEST(KinshipAtRate, RisesByAPartOfWhatIsLeft) {
  EXPECT_DOUBLE_EQ(kinship_at_rate(0.2, 0.005), 0.204);
}

}  // namespace
}  // namespace pedigreewatch::test
