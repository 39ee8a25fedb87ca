// Products with the kinships against the table of all relationships.
#include "planning/candidate_kinship.h"

#include <gtest/gtest.h>

#include "support/diversity_pedigrees.h"
#include "support/pedigrees.h"
#include "support/planning_problems.h"

namespace pedigreewatch::test {
namespace {

constexpr double rounding = 2e-6;  // of F, which has single precision

TEST(MultiplyKinship, IsTheProductWithTheTable) {
  for (std::uint64_t seed = 1; seed <= 30; ++seed) {
    const DenseProblem problem = random_problem(seed, 60, 5, 8);
    const CandidateKinship kinship = make_candidate_kinship(problem.store, problem.positions);
    KinshipScratch scratch = make_kinship_scratch(kinship);
    RandomNumbers random{seed};
    std::vector<double> weights, product(problem.positions.size());
    for (std::size_t k = 0; k < product.size(); ++k) weights.push_back(random.below(1000) / 1000.0 - 0.3);
    for (int repeats = 0; repeats < 2; ++repeats) {  // the scratch is as it was
      multiply_kinship(kinship, weights, product, scratch);
      for (std::size_t i = 0; i < product.size(); ++i) {
        double expected = 0.0;
        for (std::size_t j = 0; j < product.size(); ++j) expected += problem.kinships[i][j] * weights[j];
        EXPECT_NEAR(product[i], expected, rounding);
      }
    }
  }
}

TEST(MultiplyKinship, TakesAnAnimalThatStandsTwiceForTwoParts) {
  const PopulationStore store = with_inbreeding(pedigree_from_text("a 0 0 m 2000\nb 0 0 f 2000\n"));
  const std::vector<std::int32_t> twice = {1, 1};
  const CandidateKinship kinship = make_candidate_kinship(store, twice);
  KinshipScratch scratch = make_kinship_scratch(kinship);
  std::vector<double> product(2);
  multiply_kinship(kinship, std::vector<double>{0.25, 0.5}, product, scratch);
  EXPECT_EQ(product, (std::vector<double>{0.375, 0.375}));
}

TEST(KinshipColumns, AreThoseOfTheTableAlsoBeyondOnePass) {
  const DenseProblem problem = random_problem(3, 80, 9, 12);
  const CandidateKinship kinship = make_candidate_kinship(problem.store, problem.positions);
  std::vector<std::int32_t> places;
  for (std::int32_t k = 20; k >= 0; k -= 2) places.push_back(k);  // eleven: a pass of eight, and one of three
  const std::vector<double> columns = kinship_columns(kinship, places);
  const std::vector<std::int32_t> rows = {4, 0, 19};
  const std::vector<double> table = kinship_table(kinship, rows, places);
  ASSERT_EQ(columns.size(), places.size() * 21);
  ASSERT_EQ(table.size(), places.size() * 3);
  for (std::size_t c = 0; c < places.size(); ++c) {
    const auto place = static_cast<std::size_t>(places[c]);
    for (std::size_t k = 0; k < 21; ++k) EXPECT_NEAR(columns[c * 21 + k], problem.kinships[k][place], rounding);
    for (std::size_t r = 0; r < rows.size(); ++r) {
      EXPECT_NEAR(table[r * places.size() + c], problem.kinships[static_cast<std::size_t>(rows[r])][place], rounding);
    }
  }
}

}  // namespace
}  // namespace pedigreewatch::test
