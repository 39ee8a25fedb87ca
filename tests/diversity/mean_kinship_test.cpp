#include "diversity/mean_kinship.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

#include "diversity/founders.h"
#include "support/diversity_pedigrees.h"
#include "support/pedigrees.h"

namespace pedigreewatch::test {
namespace {

MeanKinship kinship_of(const PopulationStore& store, const ReferencePedigree& pedigree) {
  return compute_mean_kinship(store, pedigree, gene_contributions(pedigree));
}

TEST(MeanKinship, AgreesWithTheTableOfRelationships) {
  for (std::uint64_t seed = 1; seed <= 6; ++seed) {
    const PopulationStore store = random_population(seed, 300);
    const std::vector<std::int32_t> positions = young_positions(store, 100);
    const MeanKinship kinship = kinship_of(store, make_reference_pedigree(store, positions));
    const auto plain = plain_kinships(store, positions);
    const double animals = static_cast<double>(positions.size());
    ASSERT_EQ(kinship.of_members.size(), positions.size());
    double sum = 0.0, lowest = 1.0, highest = 0.0;
    for (std::size_t i = 0; i < positions.size(); ++i) {
      const double mean = std::accumulate(plain[i].begin(), plain[i].end(), 0.0) / animals;
      EXPECT_NEAR(kinship.of_members[i], mean, 1e-7);
      sum += mean;
      lowest = std::min(lowest, mean);
      highest = std::max(highest, mean);
    }
    EXPECT_NEAR(kinship.mean.value(), sum / animals, 1e-7);
    EXPECT_NEAR(kinship.founder_genomes.value(), animals / (2.0 * sum), 1e-5);
    EXPECT_NEAR(kinship.lowest.value(), lowest, 1e-7);
    EXPECT_NEAR(kinship.highest.value(), highest, 1e-7);
    EXPECT_DOUBLE_EQ(kinship.of_members[kinship.lowest_place], kinship.lowest.value());
    EXPECT_DOUBLE_EQ(kinship.of_members[kinship.highest_place], kinship.highest.value());
    double between = 0.0;
    for (std::size_t i = 0; i < positions.size(); ++i) {
      for (std::size_t j = 0; j < positions.size(); ++j) between += i == j ? 0.0 : plain[i][j];
    }
    EXPECT_NEAR(kinship.without_self.value(), between / (animals * (animals - 1.0)), 1e-7);
  }
}

/// Drops two alleles of each founder through the pedigree; yields the probability that two genes that are drawn from
/// the members with replacement are copies of one allele.
double drop_genes(const ReferencePedigree& pedigree, RandomNumbers& random) {
  std::vector<std::pair<int, int>> alleles(pedigree.position.values.size());
  std::vector<double> copies(2 * alleles.size(), 0.0);
  for (std::int32_t j = 1; j <= pedigree.count(); ++j) {
    const auto drawn_from = [&](std::int32_t parent) {
      const auto& [first, second] = alleles[static_cast<std::size_t>(parent)];
      return random.below(2) == 0 ? first : second;
    };
    auto& own = alleles[static_cast<std::size_t>(j)];
    own = {2 * j, 2 * j + 1};
    if (!pedigree.is_founder(j)) own = {drawn_from(pedigree.sire[j]), drawn_from(pedigree.dam[j])};
  }
  for (const std::int32_t member : pedigree.members) {
    const auto& [first, second] = alleles[static_cast<std::size_t>(member)];
    copies[static_cast<std::size_t>(first)] += 1.0;
    copies[static_cast<std::size_t>(second)] += 1.0;
  }
  const double genes = 2.0 * static_cast<double>(pedigree.members.size());
  return std::accumulate(copies.begin(), copies.end(), 0.0,
                         [&](double s, double c) { return s + c * c / genes / genes; });
}

TEST(MeanKinship, AgreesWithGeneDropping) {
  const PopulationStore store = random_population(11, 250);
  const ReferencePedigree pedigree = make_reference_pedigree(store, young_positions(store, 60));
  RandomNumbers random{20};
  constexpr int drops = 4000;
  double sum = 0.0, squares = 0.0;
  for (int drop = 0; drop < drops; ++drop) {
    const double kinship = drop_genes(pedigree, random);
    sum += kinship;
    squares += kinship * kinship;
  }
  const double mean = sum / drops;
  const double error = std::sqrt((squares / drops - mean * mean) / drops);
  EXPECT_LT(error, 0.01 * mean);
  EXPECT_NEAR(kinship_of(store, pedigree).mean.value(), mean, 4.0 * error);
}

}  // namespace
}  // namespace pedigreewatch::test
