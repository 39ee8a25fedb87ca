#include "diversity/gene_dropping.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "support/diversity_pedigrees.h"
#include "support/numbered_store.h"

namespace pedigreewatch::test {
namespace {

/// The share of a founder's genes that is left, by going through every way in which the genes can be drawn.
double exact_share(const ReferencePedigree& pedigree, std::int32_t founder) {
  std::vector<std::int32_t> young;
  for (std::int32_t j = 1; j <= pedigree.count(); ++j) {
    if (!pedigree.is_founder(j)) young.push_back(j);
  }
  const std::uint32_t ways = 1U << (2 * young.size());
  double left = 0.0;
  for (std::uint32_t way = 0; way < ways; ++way) {
    std::vector<std::pair<int, int>> genes(static_cast<std::size_t>(pedigree.count()) + 1);
    std::size_t bit = 0;
    for (std::int32_t j = 1; j <= pedigree.count(); ++j) {
      auto& own = genes[static_cast<std::size_t>(j)];
      own = {2 * j, 2 * j + 1};
      if (pedigree.is_founder(j)) continue;
      const auto draw = [&](std::int32_t parent) {
        const auto& [first, second] = genes[static_cast<std::size_t>(parent)];
        return ((way >> bit++) & 1U) != 0 ? first : second;
      };
      own.first = draw(pedigree.sire[j]);
      own.second = draw(pedigree.dam[j]);
    }
    for (const int gene : {2 * founder, 2 * founder + 1}) {
      bool is_left = false;
      for (const std::int32_t member : pedigree.members) {
        const auto& [first, second] = genes[static_cast<std::size_t>(member)];
        is_left = is_left || first == gene || second == gene;
      }
      left += is_left ? 0.5 : 0.0;
    }
  }
  return left / static_cast<double>(ways);
}

TEST(GeneDropping, OfAParentIsOneLessAHalfForEachYoung) {
  // 1 has three young that belong to the population, 2 one of them, 3 two.
  const PopulationStore store = with_inbreeding(numbered_store("m\n.\n.\ns=1 d=2\ns=1 d=3\ns=1 d=3\n"));
  const ByNumber<GenesLeft> left = drop_genes(make_reference_pedigree(store, std::vector<std::int32_t>{4, 5, 6}));
  EXPECT_NEAR(left[1].share, 0.875, 4.0 * left[1].standard_error);
  EXPECT_NEAR(left[2].share, 0.5, 1e-12);  // one of the two, always
  EXPECT_EQ(left[2].standard_error, 0.0);
  EXPECT_NEAR(left[3].share, 0.75, 4.0 * left[3].standard_error);
  // With two young either one gene is left or both, each in half of the drops: sd 1/4, error 1/4 / 100.
  EXPECT_NEAR(left[3].standard_error, 0.0025, 0.0001);
}

TEST(GeneDropping, AgreesWithGoingThroughAllWays) {
  const PopulationStore store =
      with_inbreeding(numbered_store("m\n.\n.\ns=1 d=2 m\ns=1 d=3\ns=4 d=5 m\nd=5\ns=6 d=7\ns=6 d=5\n"));
  const ReferencePedigree pedigree = make_reference_pedigree(store, std::vector<std::int32_t>{8, 9});
  const ByNumber<GenesLeft> left = drop_genes(pedigree);
  for (std::int32_t j = 1; j <= pedigree.count(); ++j) {
    if (!pedigree.is_founder(j)) continue;
    EXPECT_NEAR(left[j].share, exact_share(pedigree, j), 4.0 * left[j].standard_error + 1e-12) << j;
    EXPECT_LE(left[j].standard_error, 0.0051) << j;  // at most 1/2 / 100
  }
}

TEST(GeneDropping, DropsAsOftenAsItIsTold) {
  // Of two drops of a parent of two young, both, one or none keep a second gene: 1/2, 3/4 or 1.
  const PopulationStore store = with_inbreeding(numbered_store("m\n.\ns=1 d=2\ns=1 d=2\n"));
  const ReferencePedigree pedigree = make_reference_pedigree(store, std::vector<std::int32_t>{3, 4});
  for (const std::int32_t drops : {2, 64, 65, 256, 257}) {
    const double in_halves = drop_genes(pedigree, drops)[1].share * 2.0 * drops;
    EXPECT_EQ(in_halves, std::round(in_halves)) << drops;
    EXPECT_GE(in_halves, drops);
    EXPECT_LE(in_halves, 2.0 * drops);
  }
}

TEST(GeneDropping, IsTheSameInEveryRun) {
  const PopulationStore store = random_population(3, 200);
  const ReferencePedigree pedigree = make_reference_pedigree(store, young_positions(store, 60));
  const ByNumber<GenesLeft> once = drop_genes(pedigree), again = drop_genes(pedigree);
  for (std::int32_t j = 1; j <= pedigree.count(); ++j) EXPECT_EQ(once[j].share, again[j].share);
}

TEST(GeneDropping, OfAMemberNothingIsLost) {
  const PopulationStore store = with_inbreeding(numbered_store("m\n.\ns=1 d=2\n"));
  const ByNumber<GenesLeft> left = drop_genes(make_reference_pedigree(store, std::vector<std::int32_t>{1, 3}));
  EXPECT_EQ(left[1].share, 1.0);
  EXPECT_EQ(left[2].share, 0.5);
}

}  // namespace
}  // namespace pedigreewatch::test
