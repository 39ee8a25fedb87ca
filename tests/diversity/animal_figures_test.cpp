#include "diversity/animal_figures.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

#include "support/diversity_pedigrees.h"
#include "support/numbered_store.h"
#include "support/pedigrees.h"

namespace pedigreewatch::test {
namespace {

/// Known ancestors of an animal in a generation, 0 being itself, counted one by one.
int plain_known(const PopulationStore& store, std::int32_t animal, int generation) {
  if (animal == 0) return 0;
  if (generation == 0) return 1;
  return plain_known(store, store.sire_no[animal], generation - 1) +
         plain_known(store, store.dam_no[animal], generation - 1);
}

TEST(KnownLines, CountEveryKnownAncestorOfFiveGenerations) {
  const PopulationStore store = random_population(4, 150);
  const ByNumber<KnownLine> lines = count_known_lines(store);
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    for (int g = 0; g < 6; ++g) {
      EXPECT_EQ(int{lines[i].known[static_cast<std::size_t>(g)]}, plain_known(store, i, g)) << i << " " << g;
    }
  }
  EXPECT_EQ(lines[0].known, KnownLine{}.known);
}

TEST(CompletenessIndexOfLines, IsTwiceTheProductOverTheSum) {
  const KnownLine full{{1, 2, 4, 8, 16, 32}}, parent_alone{{1, 0, 0, 0, 0, 0}};
  EXPECT_DOUBLE_EQ(completeness_index(full, full), 1.0);
  EXPECT_DOUBLE_EQ(completeness_index(full, parent_alone), 2.0 * 0.2 / 1.2);
  EXPECT_EQ(completeness_index(full, KnownLine{}), 0.0);
  // The sixth generation of a line does not count.
  EXPECT_DOUBLE_EQ(completeness_index(full, KnownLine{{1, 2, 4, 8, 16, 0}}), 1.0);
}

TEST(IndividualIncrease, NeedsMoreThanOneGeneration) {
  EXPECT_FALSE(individual_increase(0.25F, 1.0).has_value());
  EXPECT_DOUBLE_EQ(individual_increase(0.25F, 2.0).value(), 0.25);
  EXPECT_DOUBLE_EQ(individual_increase(0.4375F, 3.0).value(), 0.25);  // 1 - sqrt(9/16)
  EXPECT_EQ(individual_increase(-1e-7F, 1.5).value(), 0.0);
}

TEST(AncestralInbreeding, OfTwoGenerationsOfFullSibsByHand) {
  // 3 and 4 are full sibs, F of 5 and 6 is 1/4; 7 of these has fa 1/4 [F_s + F_d halves]: 1/2 (1/4 + 1/4) = 1/4, and
  // its own F is 3/8; 8 of 7 and the founder 1 has fa 1/2 [1/4 + 3/4 * 3/8 + 0] = 17/64.
  const PopulationStore store =
      with_inbreeding(numbered_store("m\n.\ns=1 d=2 m\ns=1 d=2\ns=3 d=4 m\ns=3 d=4\ns=5 d=6\ns=1 d=7\n"));
  const ByNumber<float> ancestral = ancestral_inbreeding(store);
  EXPECT_EQ(ancestral[4], 0.0F);
  EXPECT_EQ(ancestral[5], 0.0F);  // its parents are not inbred
  EXPECT_FLOAT_EQ(ancestral[7], 0.25F);
  EXPECT_FLOAT_EQ(store.inbreeding[7], 0.375F);
  EXPECT_FLOAT_EQ(ancestral[8], 17.0F / 64.0F);
}

TEST(AncestralInbreeding, RoundingLeavesNothingBelowZero) {
  PopulationStore store = with_inbreeding(numbered_store("m\n.\ns=1 d=2\n"));
  store.inbreeding[1] = -3e-7F;
  EXPECT_EQ(ancestral_inbreeding(store)[3], 0.0F);
}

double plain_ancestral(const PopulationStore& store, std::int32_t animal) {
  if (animal == 0) return 0.0;
  double sum = 0.0;
  for (const std::int32_t parent : {store.sire_no[animal], store.dam_no[animal]}) {
    if (parent == 0) continue;
    const double own = plain_ancestral(store, parent);
    sum += own + (1.0 - own) * static_cast<double>(store.inbreeding[parent]);
  }
  return sum / 2.0;
}

TEST(AncestralInbreeding, AgreesWithItsDefinition) {
  const PopulationStore store = random_population(6, 60);
  const ByNumber<float> ancestral = ancestral_inbreeding(store);
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    EXPECT_NEAR(static_cast<double>(ancestral[i]), plain_ancestral(store, i), 1e-6);
  }
}

TEST(ImportShares, HalveWithEachNativeParent) {
  const PopulationStore store = numbered_store("m import\n.\ns=1 d=2\ns=1 import\ns=1 d=3\nd=5\n");
  const ByNumber<float> shares = import_shares(store);
  EXPECT_EQ(shares.values, (std::vector<float>{0.0F, 1.0F, 0.0F, 0.5F, 1.0F, 0.75F, 0.375F}));
}

TEST(BreedingOffspring, AreThoseThatHaveOffspringThemselves) {
  // 1 and 2 have 3, 4 and 5; of these 3 has young, and 4 has young with 3.
  const PopulationStore store = numbered_store("m\n.\ns=1 d=2 m\ns=1 d=2\ns=1 d=2\ns=3 d=4\n");
  EXPECT_EQ(count_breeding_offspring(store).values, (std::vector<std::int32_t>{0, 2, 2, 0, 0, 0, 0}));
}

TEST(MeanKinshipOfAll, IsTheMeanOfTheTable) {
  for (std::uint64_t seed = 1; seed <= 4; ++seed) {
    const PopulationStore store = random_population(seed, 150);
    const std::vector<std::int32_t> group = young_positions(store, 60);
    const ByNumber<float> means = mean_kinship_of_all(store, group);
    const auto relationships = tabular_relationships(store);
    for (std::int32_t i = 1; i <= store.animal_count; ++i) {
      double sum = 0.0;
      for (const std::int32_t j : group) {
        sum += relationships[static_cast<std::size_t>(i) - 1][static_cast<std::size_t>(j) - 1];
      }
      EXPECT_NEAR(static_cast<double>(means[i]), sum / 2.0 / static_cast<double>(group.size()), 1e-6) << i;
    }
  }
  EXPECT_TRUE(mean_kinship_of_all(random_population(1, 20), {}).values.empty());
}

}  // namespace
}  // namespace pedigreewatch::test
