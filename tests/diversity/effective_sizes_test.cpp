#include "diversity/effective_sizes.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "diversity/completeness.h"
#include "support/diversity_pedigrees.h"
#include "support/numbered_store.h"

namespace pedigreewatch::test {
namespace {

TEST(EffectiveSizes, IncreaseForEachGeneration) {
  // What is left after two generations is 0.64 = 0.8 * 0.8.
  EXPECT_DOUBLE_EQ(increase_per_generation(0.36, 2.0), 1.0 - 0.8);
  EXPECT_EQ(increase_per_generation(0.0, 5.0), 0.0);
  EXPECT_EQ(increase_per_generation(-6e-8, 5.0), 0.0);
  EXPECT_EQ(increase_per_generation(1.0, 5.0), 1.0);
  EXPECT_EQ(increase_per_generation(1.0000001, 5.0), 1.0);
}

TEST(EffectiveSizes, StandardDeviationDividesByOneLess) {
  EXPECT_DOUBLE_EQ(standard_deviation(std::array{1.0, 2.0, 6.0}).value(), std::sqrt(7.0));  // (4 + 1 + 9) / 2
  EXPECT_FALSE(standard_deviation(std::array{1.0}).has_value());
}

TEST(EffectiveSizes, OfAnimalsWithMoreThanOneEquivalentGeneration) {
  // 5 and 6 are young of the full sibs 3 and 4: F 1/4, EqG 2. 7 is of 3 and 8, unrelated: F 0, EqG 1.5. 3 has EqG 1.
  const PopulationStore store = with_inbreeding(
      numbered_store("2000 m\n2000\n2001 m s=1 d=2\n2001 s=1 d=2\n2002 s=3 d=4\n2002 s=3 d=4\n2001\n2002 s=3 d=7\n"));
  const ReferencePedigree pedigree = make_reference_pedigree(store, std::vector<std::int32_t>{3, 5, 6, 8});
  const EffectiveSizeEstimate estimate =
      estimate_by_inbreeding(store, pedigree, describe_depth(pedigree).equivalents_of);
  EXPECT_EQ(estimate.count, 3);
  EXPECT_DOUBLE_EQ(estimate.mean_increase.value(), 0.5 / 3.0);  // 1/4, 1/4, 0
  EXPECT_DOUBLE_EQ(estimate.effective_size.value(), 3.0);
  // sd: deviations 1/12, 1/12, -1/6: (1/144 + 1/144 + 4/144) / 2 = 1/48. 2 / sqrt(3) * 9 * sqrt(1/48) = 1.5.
  EXPECT_NEAR(estimate.standard_error.value(), 1.5, 1e-12);
}

TEST(EffectiveSizes, WithoutIncreaseThereIsNone) {
  EffectiveSizeEstimate estimate;
  complete_estimate(estimate, std::nullopt);
  EXPECT_FALSE(estimate.effective_size.has_value());
  for (const double increase : {0.0, -0.01, 1e-7}) {
    estimate.mean_increase = increase;
    complete_estimate(estimate, 0.001);
    EXPECT_FALSE(estimate.effective_size.has_value()) << increase;
    EXPECT_FALSE(estimate.standard_error.has_value()) << increase;
  }
  estimate.mean_increase = 0.01;
  complete_estimate(estimate, 0.001);
  EXPECT_DOUBLE_EQ(estimate.effective_size.value(), 50.0);
  EXPECT_DOUBLE_EQ(estimate.standard_error.value(), 5.0);  // 2 * 2500 * 0.001
}

TEST(EffectiveSizes, AnIncreaseAboveRoundingIsEnough) {
  EffectiveSizeEstimate estimate;
  estimate.mean_increase = 2e-7;
  complete_estimate(estimate, std::nullopt);
  EXPECT_DOUBLE_EQ(estimate.effective_size.value(), 2.5e6);
}

TEST(EffectiveSizes, TwoValuesHaveADeviation) {
  EXPECT_DOUBLE_EQ(standard_deviation(std::array{1.0, 3.0}).value(), std::sqrt(2.0));
}

}  // namespace
}  // namespace pedigreewatch::test
