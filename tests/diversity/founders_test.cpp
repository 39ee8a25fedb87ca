#include "diversity/founders.h"

#include <gtest/gtest.h>

#include "support/diversity_pedigrees.h"
#include "support/numbered_store.h"
#include "support/pedigrees.h"

namespace pedigreewatch::test {
namespace {

TEST(Founders, UnequalContributionsMakeFewerEffectiveOnes) {
  // 1 is the sire of 4 and 5, whose dams are 2 and 3: 1/2, 1/4, 1/4 make 8/3.
  const PopulationStore store = numbered_store("2000 m\n2000\n2000\n2001 s=1 d=2\n2001 s=1 d=3\n");
  const ReferencePedigree pedigree = make_reference_pedigree(with_inbreeding(store), std::vector<std::int32_t>{4, 5});
  const ByNumber<double> genes = gene_contributions(pedigree);
  EXPECT_EQ(genes.values, (std::vector<double>{0.0, 1.0, 0.5, 0.5, 1.0, 1.0}));  // of two animals
  EXPECT_DOUBLE_EQ(describe_founders(pedigree, genes).effective_founders.value(), 8.0 / 3.0);
}

TEST(Founders, AnimalsThatAreNobodysAncestorsAreNotCounted) {
  const PopulationStore store = with_inbreeding(numbered_store("2000 m\n2000\n2000\n2001 s=1 d=2\n2001 s=1\n"));
  const ReferencePedigree pedigree = make_reference_pedigree(store, std::vector<std::int32_t>{4});
  const FounderFigures figures = describe_founders(pedigree, gene_contributions(pedigree));
  EXPECT_EQ(figures.founders, 2);
  EXPECT_EQ(figures.half_founders, 0);
}

TEST(Founders, ContributionsSumToOne) {
  for (std::uint64_t seed = 1; seed <= 5; ++seed) {
    const PopulationStore store = random_population(seed, 400);
    const std::vector<std::int32_t> positions = young_positions(store, 120);
    const ReferencePedigree pedigree = make_reference_pedigree(store, positions);
    const ByNumber<double> genes = gene_contributions(pedigree);
    double sum = 0.0;
    for (std::int32_t j = 1; j <= pedigree.count(); ++j) sum += pedigree.is_founder(j) ? genes[j] : 0.0;
    EXPECT_NEAR(sum / static_cast<double>(positions.size()), 1.0, 1e-12);
    EXPECT_GT(pedigree.unknown_parents, 0);
  }
}

}  // namespace
}  // namespace pedigreewatch::test
