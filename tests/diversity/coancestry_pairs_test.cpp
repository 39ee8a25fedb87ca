#include "diversity/coancestry_pairs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>

#include "diversity/completeness.h"
#include "support/diversity_pedigrees.h"
#include "support/numbered_store.h"

namespace pedigreewatch::test {
namespace {

std::vector<double> equivalents_of(const PopulationStore& store, const std::vector<std::int32_t>& positions) {
  return describe_depth(make_reference_pedigree(store, positions)).equivalents_of;
}

/// The estimate from the table of relationships.
EffectiveSizeEstimate plain_estimate(const PopulationStore& store, const std::vector<std::int32_t>& positions) {
  const std::vector<double> equivalents = equivalents_of(store, positions);
  const auto kinships = plain_kinships(store, positions);
  EffectiveSizeEstimate estimate;
  double sum = 0.0;
  std::vector<double> means;
  for (std::size_t i = 0; i < positions.size(); ++i) {
    double own = 0.0;
    int pairs = 0;
    for (std::size_t j = 0; j < positions.size(); ++j) {
      const double both = equivalents[i] + equivalents[j];
      if (i == j || both == 0.0) continue;
      const double increase = 1.0 - std::pow(1.0 - kinships[i][j], 2.0 / both);
      own += increase;
      ++pairs;
      if (i < j) sum += increase;
      if (i < j) ++estimate.count;
    }
    if (pairs > 0) means.push_back(own / pairs);
  }
  estimate.mean_increase = sum / static_cast<double>(estimate.count);
  complete_estimate(estimate, 2.0 * *standard_deviation(means) / std::sqrt(static_cast<double>(means.size())));
  return estimate;
}

void expect_same(const EffectiveSizeEstimate& got, const EffectiveSizeEstimate& want) {
  EXPECT_EQ(got.count, want.count);
  EXPECT_NEAR(got.mean_increase.value() / want.mean_increase.value(), 1.0, 1e-5);
  EXPECT_NEAR(got.effective_size.value() / want.effective_size.value(), 1.0, 1e-5);
  EXPECT_NEAR(got.standard_error.value() / want.standard_error.value(), 1.0, 1e-4);
}

TEST(CoancestryPairs, AgreeWithTheTableOfRelationships) {
  for (std::uint64_t seed = 1; seed <= 6; ++seed) {
    const PopulationStore store = random_population(seed, 250);
    const std::vector<std::int32_t> positions = young_positions(store, 90);
    const EffectiveSizeEstimate estimate = estimate_by_coancestry(store, positions, equivalents_of(store, positions));
    EXPECT_FALSE(estimate.is_sample);
    expect_same(estimate, plain_estimate(store, positions));
  }
}

TEST(CoancestryPairs, FoundersArePairedWithAnimalsThatHaveParents) {
  // The whole of a random pedigree, founders among each other left out.
  const PopulationStore store = random_population(9, 60);
  const std::vector<std::int32_t> positions = from_to(1, store.animal_count);
  const EffectiveSizeEstimate estimate = estimate_by_coancestry(store, positions, equivalents_of(store, positions));
  EXPECT_LT(estimate.count, std::int64_t{store.animal_count} * (store.animal_count - 1) / 2);
  expect_same(estimate, plain_estimate(store, positions));
}

TEST(CoancestryPairs, OfManyAnimalsThePairsOfASample) {
  const PopulationStore store = random_population(3, 300);
  const std::vector<std::int32_t> positions = young_positions(store, 200);
  std::vector<std::int32_t> sample;
  for (const std::size_t place : draw_places(positions.size(), 40)) sample.push_back(positions[place]);
  const EffectiveSizeEstimate estimate = estimate_by_coancestry(store, positions, equivalents_of(store, positions), 40);
  EXPECT_TRUE(estimate.is_sample);
  EXPECT_EQ(estimate.count, 40 * 39 / 2);
  expect_same(estimate, plain_estimate(store, sample));
}

TEST(CoancestryPairs, TheSampleIsTheSameEverywhere) {
  EXPECT_EQ(draw_places(20, 6), (std::vector<std::size_t>{1, 6, 7, 9, 15, 16}));
  EXPECT_EQ(draw_places(1000, 5), (std::vector<std::size_t>{21, 143, 365, 735, 869}));
}

TEST(CoancestryPairs, ASampleOfAllIsAll) {
  EXPECT_EQ(draw_places(3, 3), (std::vector<std::size_t>{0, 1, 2}));
  EXPECT_EQ(draw_places(2, 5), (std::vector<std::size_t>{0, 1}));
  EXPECT_TRUE(draw_places(0, 5).empty());
  EXPECT_TRUE(draw_places(5, 0).empty());
}

TEST(CoancestryPairs, TheSampleIsSpreadOverAllPlaces) {
  const std::vector<std::size_t> places = draw_places(100'000, 2000);
  ASSERT_EQ(places.size(), 2000U);
  EXPECT_EQ(std::ranges::adjacent_find(places, std::greater_equal<>()), places.end());
  for (std::size_t tenth = 0; tenth < 10; ++tenth) {
    const auto drawn = std::ranges::count_if(places, [&](std::size_t place) { return place / 10'000 == tenth; });
    EXPECT_NEAR(static_cast<double>(drawn), 200.0, 60.0);  // more than four times its sd of 13
  }
}

TEST(CoancestryPairs, AnErrorNeedsThreeAnimals) {
  const PopulationStore store =
      with_inbreeding(numbered_store("2000 m\n2000\n2001 s=1 d=2\n2001 s=1 d=2\n2001 s=1 d=2\n"));
  const std::vector<double> ones(3, 1.0);
  const EffectiveSizeEstimate two = estimate_by_coancestry(store, std::vector<std::int32_t>{3, 4}, ones);
  EXPECT_DOUBLE_EQ(two.mean_increase.value(), 0.25);
  EXPECT_DOUBLE_EQ(two.effective_size.value(), 2.0);
  EXPECT_FALSE(two.standard_error.has_value());
  EXPECT_EQ(estimate_by_coancestry(store, std::vector<std::int32_t>{3, 4, 5}, ones).standard_error, 0.0);
}

TEST(CoancestryPairs, AsManyAnimalsAsArePairedAreNoSample) {
  const PopulationStore store = random_population(5, 60);
  const std::vector<std::int32_t> positions = young_positions(store, 20);
  const std::vector<double> equivalents(positions.size(), 2.0);
  EXPECT_FALSE(estimate_by_coancestry(store, positions, equivalents, positions.size()).is_sample);
  EXPECT_TRUE(estimate_by_coancestry(store, positions, equivalents, positions.size() - 1).is_sample);
  EXPECT_EQ(most_paired_animals, 2000U);
}

}  // namespace
}  // namespace pedigreewatch::test
