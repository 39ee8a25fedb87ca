#include "diversity/coancestry_pairs.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

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

EffectiveSizeEstimate estimate_of(const PopulationStore& store, const std::vector<std::int32_t>& positions,
                                  std::size_t most_animals = most_paired_animals) {
  const ReferencePedigree pedigree = make_reference_pedigree(store, positions);
  return estimate_by_coancestry(store, pedigree, describe_depth(pedigree).equivalents_of, most_animals);
}

TEST(CoancestryPairs, AgreeWithTheTableOfRelationships) {
  for (std::uint64_t seed = 1; seed <= 6; ++seed) {
    const PopulationStore store = random_population(seed, 250);
    const std::vector<std::int32_t> positions = young_positions(store, 90);
    const EffectiveSizeEstimate estimate = estimate_of(store, positions);
    EXPECT_FALSE(estimate.is_sample);
    expect_same(estimate, plain_estimate(store, positions));
  }
}

TEST(CoancestryPairs, FoundersArePairedWithAnimalsThatHaveParents) {
  // The whole of a random pedigree, founders among each other left out.
  const PopulationStore store = random_population(9, 60);
  const std::vector<std::int32_t> positions = from_to(1, store.animal_count);
  const EffectiveSizeEstimate estimate = estimate_of(store, positions);
  EXPECT_LT(estimate.count, std::int64_t{store.animal_count} * (store.animal_count - 1) / 2);
  expect_same(estimate, plain_estimate(store, positions));
}

TEST(CoancestryPairs, AreTakenOneByOneUpToTheLimit) {
  const PopulationStore store = random_population(3, 120);
  const std::vector<std::int32_t> positions = young_positions(store, 100);
  EXPECT_FALSE(estimate_of(store, positions, positions.size()).is_sample);
  EXPECT_TRUE(estimate_of(store, positions, positions.size() - 1).is_sample);
  EXPECT_EQ(most_paired_animals, 4000U);
}

TEST(CoancestryOfMany, IsThatOfAllPairsWhenEveryAnimalIsDrawn) {
  // Fewer animals than are drawn at least: what is left is the error of the sum of exponentials. Founders are among
  // them, half-founders, and animals of many generations.
  for (std::uint64_t seed = 1; seed <= 6; ++seed) {
    const PopulationStore store = random_population(seed, 60);
    const std::vector<std::int32_t> positions = from_to(1, store.animal_count);
    const EffectiveSizeEstimate estimate = estimate_of(store, positions, 10), plain = plain_estimate(store, positions);
    EXPECT_EQ(estimate.count, plain.count);
    EXPECT_NEAR(estimate.mean_increase.value() / plain.mean_increase.value(), 1.0, 1e-5);
    EXPECT_NEAR(estimate.effective_size.value() / plain.effective_size.value(), 1.0, 1e-5);
  }
}

// Twenty daughters of one pair have a young each of an unrelated sire: cousins, with kinship 1/16 and 1.5 generations.
TEST(CoancestryOfMany, OfCousinsIsWorkedOutByHand) {
  constexpr std::int32_t families = 20, first_sire = 3, first_daughter = 23, first_cousin = 43;
  std::string lines = "2000 m\n2000\n";
  for (std::int32_t k = 0; k < families; ++k) lines += "2000 m\n";
  for (std::int32_t k = 0; k < families; ++k) lines += "2002 s=1 d=2\n";
  for (std::int32_t k = 0; k < families; ++k) {
    lines += "2004 s=" + std::to_string(first_sire + k) + " d=" + std::to_string(first_daughter + k) + "\n";
  }
  const PopulationStore store = with_inbreeding(numbered_store(lines));
  const EffectiveSizeEstimate estimate = estimate_of(store, from_to(first_cousin, first_cousin + families - 1), 10);
  EXPECT_EQ(estimate.count, families * (families - 1) / 2);
  EXPECT_NEAR(estimate.mean_increase.value() / (1.0 - std::pow(15.0 / 16.0, 1.0 / 1.5)), 1.0, 5e-5);
}

TEST(CoancestryOfMany, IsWithinAFifthOfAPerCentOfAllPairs) {
  for (std::uint64_t seed = 1; seed <= 10; ++seed) {
    const PopulationStore store = random_population(seed, 900);
    const std::vector<std::int32_t> positions = young_positions(store, 800);
    const EffectiveSizeEstimate many = estimate_of(store, positions, 100), all = estimate_of(store, positions);
    EXPECT_EQ(many.count, all.count);
    EXPECT_NEAR(many.effective_size.value() / all.effective_size.value(), 1.0, 0.002) << seed;
    EXPECT_NEAR(many.standard_error.value() / all.standard_error.value(), 1.0, 0.5) << seed;
  }
}

TEST(CoancestryOfMany, OfUnrelatedAnimalsThereIsNoEstimate) {
  const PopulationStore store = with_inbreeding(numbered_store("2000\n2000\n2000\n2000\n"));
  const EffectiveSizeEstimate estimate = estimate_of(store, from_to(1, 4), 2);
  EXPECT_EQ(estimate.count, 0);
  EXPECT_FALSE(estimate.mean_increase.has_value());
}

TEST(CoancestryPairs, AnErrorNeedsThreeAnimals) {
  const PopulationStore store =
      with_inbreeding(numbered_store("2000 m\n2000\n2001 s=1 d=2\n2001 s=1 d=2\n2001 s=1 d=2\n"));
  const EffectiveSizeEstimate two = estimate_of(store, {3, 4});
  EXPECT_DOUBLE_EQ(two.mean_increase.value(), 0.25);
  EXPECT_DOUBLE_EQ(two.effective_size.value(), 2.0);
  EXPECT_FALSE(two.standard_error.has_value());
  EXPECT_EQ(estimate_of(store, {3, 4, 5}).standard_error, 0.0);
}

}  // namespace
}  // namespace pedigreewatch::test
