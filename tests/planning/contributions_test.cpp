// Shares by hand, and on random populations by the conditions that an optimum obeys, in a dense table.
#include "planning/contributions.h"

#include <gtest/gtest.h>

#include <numeric>
#include <string>

#include "support/diversity_pedigrees.h"
#include "support/pedigrees.h"
#include "support/planning_problems.h"

namespace pedigreewatch::test {
namespace {

using Shares = std::vector<double>;

ShareLimits limits_of(const DenseProblem& problem, double most_of_males, double most_of_females) {
  ShareLimits limits{problem.sex, Shares(problem.sex.size(), 0.0), {}};
  for (const Sex sex : problem.sex) limits.most.push_back(sex == male ? most_of_males : most_of_females);
  return limits;
}

Contributions solve(const DenseProblem& problem, const ShareLimits& limits, const ContributionGoal& goal = {}) {
  return best_contributions(make_candidate_kinship(problem.store, problem.positions), limits, goal);
}

void expect_permitted(const DenseProblem& problem, const ShareLimits& limits, const Shares& shares) {
  for (const Sex sex : {male, female}) {
    double sum = 0.0;
    for (std::size_t k = 0; k < shares.size(); ++k) sum += problem.sex[k] == sex ? shares[k] : 0.0;
    EXPECT_NEAR(sum, 0.5, 1e-12);
  }
  for (std::size_t k = 0; k < shares.size(); ++k) {
    EXPECT_GE(shares[k], limits.least[k]);
    EXPECT_LE(shares[k], limits.most[k]);
  }
}

void expect_best(const DenseProblem& problem, const ShareLimits& limits, const Contributions& found,
                 const ContributionGoal& goal = {}) {
  expect_permitted(problem, limits, found.shares);
  const Shares values(goal.value.begin(), goal.value.end());
  EXPECT_LE(worst_condition(problem, limits, found.shares, values, goal.weight), 1e-5);
  EXPECT_NEAR(found.mean_kinship, dense_kinship(problem, found.shares), 2e-6);
  EXPECT_LE(found.certificate, certified_part * found.mean_kinship);
  EXPECT_GE(found.certificate, 0.0);
}

// Two unrelated males, and a third that is a full brother of the second; one female.
constexpr std::string_view brothers =
    "pa 0 0 m 2000\nma 0 0 f 2000\n"
    "ad 0 0 m 2002\nbo pa ma m 2002\ncor pa ma m 2002\neva 0 0 f 2002\n";

DenseProblem brothers_problem() {
  return dense_problem(with_inbreeding(pedigree_from_text(brothers)), {3, 4, 5}, {6});
}

// With a for Ad and b for each brother, a + 2 b = 1/2, the males' part of c'Kc is a^2 / 2 + 2 b^2 / 2 + 2 b^2 / 4
// = a^2 / 2 + 3 b^2 / 2; it is least where a = 3 b / 2: b = 1/7 and a = 3/14. That is 9/392 + 12/392 = 3/56; the
// female adds 1/8.
TEST(BestContributions, GivesBrothersLessThanAnOutsider) {
  const DenseProblem problem = brothers_problem();
  const Contributions found = solve(problem, limits_of(problem, 0.5, 0.5));
  EXPECT_NEAR(found.shares[0], 3.0 / 14.0, 1e-7);
  EXPECT_NEAR(found.shares[1], 1.0 / 7.0, 1e-7);
  EXPECT_NEAR(found.shares[2], 1.0 / 7.0, 1e-7);
  EXPECT_EQ(found.shares[3], 0.5);
  EXPECT_NEAR(found.mean_kinship, 3.0 / 56.0 + 0.125, 1e-9);
  EXPECT_NEAR(found.kinships[0], 3.0 / 28.0, 1e-7);  // half of his own share: nobody else is related to him
}

TEST(BestContributions, KeepsToTheLimitOfTheBestOne) {
  const DenseProblem problem = brothers_problem();
  const ShareLimits limits = limits_of(problem, 0.2, 0.5);
  const Contributions found = solve(problem, limits);
  EXPECT_NEAR(found.shares[0], 0.2, 1e-9);
  EXPECT_NEAR(found.shares[1], 0.15, 1e-7);
  EXPECT_NEAR(found.shares[2], 0.15, 1e-7);
  expect_best(problem, limits, found);
}

TEST(BestContributions, KeepsToSharesThatAreTheLeast) {
  const DenseProblem problem = brothers_problem();
  ShareLimits limits = limits_of(problem, 0.5, 0.5);
  limits.least[1] = 0.3;
  const Contributions found = solve(problem, limits);
  EXPECT_NEAR(found.shares[1], 0.3, 1e-9);
  EXPECT_NEAR(found.shares[0] + found.shares[2], 0.2, 1e-9);
  expect_best(problem, limits, found);
}

TEST(BestContributions, ObeyAllConditionsInRandomPopulations) {
  for (std::uint64_t seed = 1; seed <= 300; ++seed) {
    const auto males = static_cast<std::int32_t>(1 + seed % 7), females = static_cast<std::int32_t>(1 + seed % 11);
    const DenseProblem problem = random_problem(seed, 30 + static_cast<std::int32_t>(seed % 50), males, females);
    const double slack = 1.0 + 0.5 * static_cast<double>(seed % 5);  // 1: nothing is left to choose
    const ShareLimits limits = limits_of(problem, 0.5 * slack / males, 0.5 * slack / females);
    SCOPED_TRACE(seed);
    expect_best(problem, limits, solve(problem, limits));
  }
}

TEST(BestContributions, WeighValuesAgainstKinship) {
  for (std::uint64_t seed = 1; seed <= 60; ++seed) {
    const DenseProblem problem = random_problem(seed, 60, 6, 9);
    RandomNumbers random{seed};
    Shares values;
    for (std::size_t k = 0; k < problem.sex.size(); ++k) values.push_back(random.below(200) - 80);
    const ContributionGoal goal = {values, 1e-4 * static_cast<double>(seed)};
    const ShareLimits limits = limits_of(problem, 0.2, 0.125);
    SCOPED_TRACE(seed);
    expect_best(problem, limits, solve(problem, limits, goal), goal);
  }
}

TEST(BestContributions, BeginAnywhere) {
  const DenseProblem problem = random_problem(8, 70, 6, 9);
  const ShareLimits limits = limits_of(problem, 0.2, 0.125);
  const CandidateKinship kinship = make_candidate_kinship(problem.store, problem.positions);
  Shares start(problem.sex.size(), 0.0);
  start.front() = start.back() = 0.5;
  const Contributions found = best_contributions(kinship, limits, {}, start);
  expect_best(problem, limits, found);
  EXPECT_NEAR(found.mean_kinship, best_contributions(kinship, limits).mean_kinship, 1e-9);
}

TEST(BestContributions, OneOfEachSexHasNoChoice) {
  const DenseProblem problem = random_problem(2, 30, 1, 1);
  const Contributions found = solve(problem, limits_of(problem, 0.5, 0.5));
  EXPECT_EQ(found.shares, (Shares{0.5, 0.5}));
  EXPECT_EQ(found.certificate, 0.0);
}

TEST(BestContributions, UnrelatedAnimalsGetEqualShares) {
  const DenseProblem problem = dense_problem(
      with_inbreeding(
          pedigree_from_text("a 0 0 m 2000\nb 0 0 m 2000\nc 0 0 f 2000\nd 0 0 f 2000\ne 0 0 f 2000\nf 0 0 f 2000\n")),
      {1, 2}, {3, 4, 5, 6});
  const Contributions found = solve(problem, limits_of(problem, 0.5, 0.5));
  EXPECT_EQ(found.shares, (Shares{0.25, 0.25, 0.125, 0.125, 0.125, 0.125}));
  EXPECT_EQ(found.mean_kinship, 0.09375);  // (2 / 16 + 4 / 64) / 2
}

/// A line of selfing, so long that its last animals are as alike as clones: their kinships are all 1.
std::string selfed_line(std::string_view name, int generations) {
  std::string text = std::string(name) + "0 0 0 f 2000\n", parent = std::string(name) + "0";
  for (int k = 1; k <= generations; ++k) {
    const std::string id = std::string(name) + std::to_string(k);
    text += id + " " + parent + " " + parent + " f " + std::to_string(2000 + k) + "\n";
    parent = id;
  }
  for (const char twin : {'x', 'y', 'z'}) {
    text += std::string(name) + twin + " " + parent + " " + parent + " m " + std::to_string(2001 + generations) + "\n";
  }
  return text;
}

TEST(BestContributions, ClonesShareWhatOneOfThemWouldGet) {
  const PopulationStore store =
      with_inbreeding(pedigree_from_text(selfed_line("p", 40) + "out 0 0 m 2040\neva 0 0 f 2040\n"));
  std::vector<std::int32_t> males;
  for (const std::string_view id : {"px", "py", "pz", "out"}) males.push_back(animal_named(store, id).number);
  const DenseProblem problem = dense_problem(store, males, {animal_named(store, "eva").number});
  const Contributions found = solve(problem, limits_of(problem, 0.5, 0.5));
  // p for all clones: p^2 + (1/2 - p)^2 / 2 is least at p = 1/6.
  EXPECT_NEAR(found.shares[0] + found.shares[1] + found.shares[2], 1.0 / 6.0, 1e-5);
  EXPECT_NEAR(found.mean_kinship, 1.0 / 12.0 + 0.125, 1e-6);
}

TEST(ExamineShares, CertifiesHowFarSharesAreFromTheBest) {
  const DenseProblem problem = brothers_problem();
  const CandidateKinship kinship = make_candidate_kinship(problem.store, problem.positions);
  // All on Bo: K c is 1/4 for him, 1/8 for Cor, 0 for Ad: 2 (1/4 * 1/2) - 0 of the males can at most be gained.
  const Contributions found = examine_shares(kinship, limits_of(problem, 0.5, 0.5), {0.0, 0.5, 0.0, 0.5});
  EXPECT_EQ(found.mean_kinship, 0.25);
  EXPECT_EQ(found.certificate, 0.25);
  EXPECT_EQ(found.kinships, (Shares{0.0, 0.25, 0.125, 0.25}));
}

TEST(CanBeMet, NeedsRoomForAHalf) {
  ShareLimits limits{{male, male, female}, {0.0, 0.0, 0.0}, {0.25, 0.25, 0.5}};
  EXPECT_TRUE(can_be_met(limits, male));
  limits.most[0] = 0.24;
  EXPECT_FALSE(can_be_met(limits, male));
  EXPECT_TRUE(can_be_met(limits, female));
  limits.least[2] = 0.51;
  EXPECT_FALSE(can_be_met(limits, female));
}

TEST(HighestProduct, FillsFromTheHighestOn) {
  const ShareLimits limits{{male, male, female}, {0.0, 0.1, 0.0}, {0.3, 0.5, 0.5}};
  EXPECT_DOUBLE_EQ(highest_product(limits, Shares{5.0, 1.0, 2.0}), 0.3 * 5.0 + 0.2 * 1.0 + 0.5 * 2.0);
}

// A ten-thousandth of the mean kinship is certified, and nothing beyond it is paid for.
TEST(BestContributions, OfABriefSearchLackATenThousandthAtMost) {
  std::int64_t brief_products = 0, all_products = 0;
  for (std::uint64_t seed = 1; seed <= 20; ++seed) {
    const DenseProblem problem = random_problem(seed, 70, 9, 12);
    const ShareLimits limits = limits_of(problem, 0.2, 0.125);
    const Contributions brief = solve(problem, limits, {.is_brief = true}), best = solve(problem, limits);
    SCOPED_TRACE(seed);
    EXPECT_LE(brief.certificate, 1e-4 * brief.mean_kinship);
    EXPECT_LE(best.mean_kinship, brief.mean_kinship + 1e-12);
    EXPECT_GE(best.mean_kinship, (1 - 1e-4) * brief.mean_kinship);
    brief_products += brief.products;
    all_products += best.products;
  }
  EXPECT_LT(brief_products, all_products);
}

TEST(BestContributions, EndWhenThatIsWanted) {
  const DenseProblem problem = random_problem(5, 60, 5, 5);
  const volatile std::sig_atomic_t stop = 1;
  const CandidateKinship kinship = make_candidate_kinship(problem.store, problem.positions);
  EXPECT_TRUE(best_contributions(kinship, limits_of(problem, 0.5, 0.5), {}, {}, {nullptr, &stop}).is_stopped);
}

}  // namespace
}  // namespace pedigreewatch::test
