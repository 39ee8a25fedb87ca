// A whole plan, by hand on a small population and by its own rules on random ones.
#include "planning/plan.h"

#include <gtest/gtest.h>

#include <string>

#include "support/diversity_pedigrees.h"
#include "support/pedigrees.h"
#include "support/planning_problems.h"

namespace pedigreewatch::test {
namespace {

// Ad is unrelated, Bo and Cor are brothers; Eva is their sister, Fie is not.
constexpr std::string_view herd =
    "pa  0  0  m 2000\nma  0  0  f 2000\nza 0 0 m 2000\nzo 0 0 f 2000\n"
    "ad  za zo m 2002\nbo  pa ma m 2002\ncor pa ma m 2002\n"
    "eva pa ma f 2002\nfie za 0 f 2002\n";

PopulationStore herd_store() {
  return with_inbreeding(pedigree_from_text(herd));
}

std::int32_t position_of(const PopulationStore& store, std::string_view id) {
  return animal_named(store, id).number;
}

PlanRequest herd_request(const PopulationStore& store) {
  PlanRequest request;
  for (const std::string_view id : {"ad", "bo"}) request.males.push_back(position_of(store, id));
  for (const std::string_view id : {"eva", "fie"}) request.females.push_back(position_of(store, id));
  request.matings = 2;
  return request;
}

TEST(MakePlan, KeepsRelativesApart) {
  const PopulationStore store = herd_store();
  const Plan plan = make_plan(store, herd_request(store));
  ASSERT_EQ(plan.obstacle, PlanObstacle::none);
  EXPECT_EQ(plan.numbers.numbers, (std::vector<std::int32_t>{1, 1, 1, 1}));
  // Ad and Fie share a father, Bo and Eva are full sibs: Ad goes with Eva and Bo with Fie, both unrelated.
  ASSERT_EQ(plan.pairs.size(), 2U);
  EXPECT_EQ(plan.pairs[0].female, 2U);
  EXPECT_EQ(plan.pairs[0].male, 0U);
  EXPECT_EQ(plan.pairs[1].female, 3U);
  EXPECT_EQ(plan.pairs[1].male, 1U);
  EXPECT_EQ(plan.of(PlanWay::plan)->mean_f, 0.0);
  // At random, each female has each male in half of the cases: (0.25 + 0.125) / 4.
  EXPECT_DOUBLE_EQ(*plan.of(PlanWay::random_pairs)->mean_f, 0.09375);
  // The table of kinships has 1/2 four times, 1/4 twice and 1/8 twice, all with weight 1/16.
  EXPECT_DOUBLE_EQ(plan.of(PlanWay::plan)->mean_kinship, 2.75 / 16.0);
  EXPECT_EQ(plan.of(PlanWay::plan)->males, 2);
  EXPECT_EQ(plan.of(PlanWay::plan)->top_male, 0.5);
}

TEST(MakePlan, MakesWishedPairsAndLeavesOutForbiddenOnes) {
  const PopulationStore store = herd_store();
  PlanRequest request = herd_request(store);
  request.wished = {{position_of(store, "eva"), position_of(store, "bo")}};
  Plan plan = make_plan(store, request);
  ASSERT_EQ(plan.pairs.size(), 2U);
  EXPECT_EQ(plan.pairs[0].male, 1U);
  EXPECT_TRUE(plan.pairs[0].is_wished);
  EXPECT_DOUBLE_EQ(plan.pairs[0].kinship, 0.25);
  EXPECT_FALSE(plan.pairs[1].is_wished);

  request = herd_request(store);
  request.forbidden = {{position_of(store, "eva"), position_of(store, "ad")}};
  plan = make_plan(store, request);
  EXPECT_EQ(plan.pairs[0].male, 1U);
  EXPECT_DOUBLE_EQ(*plan.of(PlanWay::plan)->mean_f, 0.1875);
}

TEST(MakePlan, NamesFemalesThatHaveNoMaleLeft) {
  const PopulationStore store = herd_store();
  PlanRequest request = herd_request(store);
  request.males = {position_of(store, "bo"), position_of(store, "cor")};
  request.most_f = 0.2;
  const Plan plan = make_plan(store, request);
  EXPECT_EQ(plan.obstacle, PlanObstacle::pairs);
  EXPECT_EQ(plan.stuck_females, (std::vector<std::int32_t>{position_of(store, "eva")}));
  EXPECT_TRUE(plan.their_males.empty());
  request.most_f = 0.25;  // full sibs are just permitted
  EXPECT_EQ(make_plan(store, request).obstacle, PlanObstacle::none);
}

TEST(MakePlan, TellsNumbersThatCannotBe) {
  const PopulationStore store = herd_store();
  PlanRequest request = herd_request(store);
  request.matings = 3;  // two females, one mating each
  const Plan plan = make_plan(store, request);
  EXPECT_EQ(plan.obstacle, PlanObstacle::numbers);
  EXPECT_EQ(plan.number_obstacle.of_females, NumberObstacle::too_few);
  EXPECT_EQ(plan.number_obstacle.of_males, NumberObstacle::none);
}

TEST(MakePlan, KeepsFixedNumbersAndWishesInTheShares) {
  const PopulationStore store = herd_store();
  PlanRequest request = herd_request(store);
  request.matings = 4;
  request.most_per_female = 3;
  request.fixed = {{position_of(store, "bo"), 3, 3}};
  const Plan plan = make_plan(store, request);
  ASSERT_EQ(plan.obstacle, PlanObstacle::none);
  EXPECT_EQ(plan.numbers.numbers[1], 3);
  EXPECT_NEAR(plan.least.shares[1], 0.375, 1e-12);
  EXPECT_GT(plan.least.mean_kinship, plan.without_limits.mean_kinship);
}

TEST(MakePlan, WithValuesStaysWithinTheBound) {
  const DenseProblem problem = random_problem(11, 80, 6, 9);
  PlanRequest request;
  request.males.assign(problem.positions.begin(), problem.positions.begin() + 6);
  request.females.assign(problem.positions.begin() + 6, problem.positions.end());
  request.matings = 8;
  request.rate = 0.03;
  for (int k = 0; k < 15; ++k) request.values.emplace_back(k % 4 == 0 ? std::nullopt : std::optional<double>(k));
  const Plan plan = make_plan(problem.store, request);
  ASSERT_EQ(plan.obstacle, PlanObstacle::none);
  EXPECT_LE(plan.optimum().mean_kinship, plan.most_kinship + 1e-9);
  EXPECT_LE(plan.numbers.mean_kinship, plan.most_kinship + 1e-9);
  EXPECT_DOUBLE_EQ(plan.values[0], (1.0 + 2.0 + 3.0 + 5.0) / 4.0);  // the other males' mean
  ASSERT_EQ(plan.curve.size(), curve_rates.size());
  for (std::size_t k = 1; k < plan.curve.size(); ++k) {
    EXPECT_GT(plan.curve[k].most_kinship, plan.curve[k - 1].most_kinship);
    EXPECT_GE(plan.curve[k].value.value_or(1e9), plan.curve[k - 1].value.value_or(-1e9) - 1e-6);
  }
  EXPECT_TRUE(plan.of(PlanWay::plan)->value.has_value());
  request.rate = -0.9;  // a kinship that nothing reaches
  EXPECT_EQ(make_plan(problem.store, request).obstacle, PlanObstacle::kinship_bound);
}

TEST(MakePlan, OfContributionsAloneHasNoPairs) {
  const PopulationStore store = herd_store();
  PlanRequest request = herd_request(store);
  request.wants_pairs = false;
  const Plan plan = make_plan(store, request);
  EXPECT_EQ(plan.obstacle, PlanObstacle::none);
  EXPECT_TRUE(plan.numbers.numbers.empty());
  EXPECT_TRUE(plan.of(PlanWay::optimum).has_value());
  EXPECT_FALSE(plan.of(PlanWay::plan).has_value());
}

TEST(MakePlan, IsTheCheapestPairingOfItsNumbers) {
  for (std::uint64_t seed = 1; seed <= 60; ++seed) {
    const DenseProblem problem = random_problem(seed, 50, 3, 5);
    PlanRequest request;
    request.males.assign(problem.positions.begin(), problem.positions.begin() + 3);
    request.females.assign(problem.positions.begin() + 3, problem.positions.end());
    request.matings = 6;
    request.most_per_female = 2;
    const Plan plan = make_plan(problem.store, request);
    ASSERT_EQ(plan.obstacle, PlanObstacle::none);
    PairProblem pairs{5, 3, {}, {}, {}};
    for (std::size_t f = 3; f < 8; ++f) {
      for (std::size_t m = 0; m < 3; ++m) pairs.costs.push_back(cost_of_kinship(problem.kinships[f][m]));
      pairs.of_female.push_back(plan.numbers.numbers[f]);
    }
    for (std::size_t m = 0; m < 3; ++m) pairs.of_male.push_back(plan.numbers.numbers[m]);
    const double least = static_cast<double>(least_of_all_pairings(pairs)) / cost_scale / 6.0;
    EXPECT_NEAR(*plan.of(PlanWay::plan)->mean_f, least, 2e-6);
    std::vector<std::int32_t> made(8, 0);
    for (const PlannedPair& pair : plan.pairs) {
      made[pair.female] += pair.matings;
      made[pair.male] += pair.matings;
      EXPECT_NEAR(pair.kinship, problem.kinships[pair.female][pair.male], 2e-6);
    }
    EXPECT_EQ(made, plan.numbers.numbers);
  }
}

TEST(FindWarnings, NameWhatAPlanRestsOn) {
  const PopulationStore store = herd_store();
  PlanRequest request = herd_request(store);
  request.values = {1.0, std::nullopt, std::nullopt, std::nullopt};
  const Plan plan = make_plan(store, request);
  const PlanWarnings warnings = find_warnings(store, request, plan);
  EXPECT_EQ(warnings.little_known, 4);  // one generation is known of each
  EXPECT_DOUBLE_EQ(warnings.share_of_little_known, 1.0);
  EXPECT_DOUBLE_EQ(warnings.three_males.value_or(0.0), 1.0);
  EXPECT_FALSE(warnings.has_other_males);  // Ad and Bo are all
  EXPECT_TRUE(warnings.has_few_values);
  request.values[1] = 2.0;  // two of four are not less than half
  EXPECT_FALSE(find_warnings(store, request, plan).has_few_values);
}

TEST(FindWarnings, CallThreeMalesManyFromHalfOnOnly) {
  std::string text;
  for (int k = 0; k < 7; ++k) text += "m" + std::to_string(k) + " 0 0 m 2000\nf" + std::to_string(k) + " 0 0 f 2000\n";
  const PopulationStore store = with_inbreeding(pedigree_from_text(text));
  PlanRequest request;
  for (std::int32_t i = 1; i <= 14; ++i) (i % 2 == 1 ? request.males : request.females).push_back(i);
  request.matings = 7;  // each has one: three have 3/7
  EXPECT_FALSE(find_warnings(store, request, make_plan(store, request)).three_males.has_value());
  request.males.pop_back();
  request.females.pop_back();
  request.matings = 6;  // three have 1/2
  const PlanWarnings warnings = find_warnings(store, request, make_plan(store, request));
  EXPECT_DOUBLE_EQ(warnings.three_males.value_or(0.0), 0.5);
  EXPECT_TRUE(warnings.has_other_males);
}

}  // namespace
}  // namespace pedigreewatch::test
