#include "genetics/mean_kinship.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/diversity_pedigrees.h"
#include "support/numbered_store.h"
#include "support/pedigrees.h"

namespace pedigreewatch::test {
namespace {

std::vector<std::int32_t> every_third(const PopulationStore& store, std::int32_t first) {
  std::vector<std::int32_t> positions;
  for (std::int32_t i = first; i <= store.animal_count; i += 3) positions.push_back(i);
  return positions;
}

TEST(MeanKinshipWith, IsTheMeanOfTheMatrix) {
  const PopulationStore store = with_inbreeding(random_pedigree(5, 120, 10));
  const auto relationships = tabular_relationships(store);
  const std::vector<std::int32_t> group = every_third(store, 70);
  const AncestorPedigree ancestors = pedigree_of(store, every_third(store, 1));  // 70 is one of these
  const ByNumber<double> means = mean_kinship_with(store, ancestors, group);
  ASSERT_EQ(means.last(), ancestors.count());
  for (std::int32_t j = 1; j <= ancestors.count(); ++j) {
    const std::int32_t i = ancestors.position[j];
    double sum = 0.0;
    for (const std::int32_t member : group) {
      sum += relationships[static_cast<std::size_t>(i) - 1][static_cast<std::size_t>(member) - 1];
    }
    EXPECT_NEAR(means[j], 0.5 * sum / static_cast<double>(group.size()), 1e-6) << store.id(i);
  }
  EXPECT_TRUE(mean_kinship_with(store, ancestors, {}).values.empty());
}

TEST(WeightedRelationships, AreTheMatrixTimesTheWeights) {
  const PopulationStore store = with_inbreeding(random_pedigree(7, 90, 8));
  const auto relationships = tabular_relationships(store);
  const AncestorPedigree ancestors = pedigree_of(store, every_third(store, 3));
  ByNumber<double> weights(ancestors.position.values.size() - 1);
  for (std::int32_t j = 1; j <= ancestors.count(); ++j) weights[j] = j % 4 == 0 ? 0.25 * j : 0.0;
  const ByNumber<double> product =
      weighted_relationships(ancestors.sire, ancestors.dam, within_family_variances(store, ancestors),
                             gene_contributions(ancestors.sire, ancestors.dam, weights));
  for (std::int32_t j = 1; j <= ancestors.count(); ++j) {
    const auto& row = relationships[static_cast<std::size_t>(ancestors.position[j]) - 1];
    double sum = 0.0;
    for (std::int32_t k = 1; k <= ancestors.count(); ++k) {
      sum += row[static_cast<std::size_t>(ancestors.position[k]) - 1] * weights[k];
    }
    EXPECT_NEAR(product[j], sum, 1e-5) << j;
  }
}

TEST(GeneContributions, HalveFromOffspringToParents) {
  // 3 is the offspring of 1 and 2, 4 of 1 and 3. The genes of one 4: half from 1 and a quarter by way of 3.
  const PopulationStore store = numbered_store("m\n.\ns=1 d=2\ns=1 d=3\n");
  const AncestorPedigree ancestors = pedigree_of(store, std::vector<std::int32_t>{4});
  ByNumber<double> weights(4);
  weights[4] = 1.0;
  EXPECT_EQ(gene_contributions(ancestors.sire, ancestors.dam, weights).values,
            (std::vector<double>{0.0, 0.75, 0.25, 0.5, 1.0}));
}

}  // namespace
}  // namespace pedigreewatch::test
