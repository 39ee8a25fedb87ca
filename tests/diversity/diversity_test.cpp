#include "diversity/diversity.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/diversity_pedigrees.h"
#include "support/numbered_store.h"
#include "support/pedigrees.h"

namespace pedigreewatch::test {
namespace {

Diversity diversity_of(const PopulationStore& store, std::vector<std::int32_t> positions) {
  return compute_diversity(store, {ReferenceChoice::listed, 0, 0, std::move(positions), 0});
}

// Half's mother is not known; its young a and b are half sibs.
constexpr auto half_founder =
    "sire 0    0    m 2000\n"
    "half sire 0    m 2001\n"
    "dam1 0    0    f 2001\n"
    "dam2 0    0    f 2001\n"
    "a    half dam1 m 2005\n"
    "b    half dam2 f 2006\n";

constexpr auto full_sibs =
    "sire 0   0   m 2000\n"
    "dam  0   0   f 2000\n"
    "son  sire dam m 2002\n"
    "girl sire dam f 2002\n"
    "pup  son girl m 2004\n";

TEST(Diversity, AHalfFounderBringsAnUnknownFounder) {
  const PopulationStore store = with_inbreeding(pedigree_from_text(half_founder));
  const Diversity d = diversity_of(store, positions_of(store, {"a", "b"}));
  EXPECT_EQ(d.founders, 3);
  EXPECT_EQ(d.half_founders, 1);
  // sire, the unknown mother and the two dams give a quarter each: 1 / (4 / 16).
  EXPECT_DOUBLE_EQ(d.effective_founders.value(), 4.0);
  // half explains 1/2, then dam2 and dam1 1/4 each: 1 / (1/4 + 2/16) = 8/3.
  EXPECT_DOUBLE_EQ(d.effective_ancestors.value(), 8.0 / 3.0);
  EXPECT_TRUE(d.is_every_ancestor_chosen);
  EXPECT_EQ(d.chosen_ancestors, 3);
  EXPECT_EQ(d.ancestors_for_half, 1);
  // f(a, a) = f(b, b) = 1/2; f(a, b) = f(half, half) / 4 = 1/8: (1/2 + 1/8) / 2, for each of them and for both.
  EXPECT_DOUBLE_EQ(d.mean_kinship.value(), 0.3125);
  EXPECT_DOUBLE_EQ(d.founder_genomes.value(), 1.6);
  EXPECT_EQ(d.mean_kinship_of, (std::vector<double>{0.3125, 0.3125}));
  EXPECT_DOUBLE_EQ(d.lowest_mean_kinship.value(), 0.3125);
  EXPECT_DOUBLE_EQ(d.highest_mean_kinship.value(), 0.3125);
  // Two parents known, of four grandparents one: 1 + 1/4.
  EXPECT_DOUBLE_EQ(d.maximum_generations.value(), 2.0);
  EXPECT_DOUBLE_EQ(d.complete_generations.value(), 1.0);
  EXPECT_DOUBLE_EQ(d.equivalent_generations.value(), 1.25);
  // Sire's line (1 + 1/2) / 5 = 0.3, dam's line 1/5 = 0.2: 2 * 0.3 * 0.2 / 0.5.
  EXPECT_DOUBLE_EQ(d.completeness_index.value(), 0.24);
}

TEST(Diversity, EffectiveSizeNeedsAnIncrease) {
  const PopulationStore store = with_inbreeding(pedigree_from_text(half_founder));
  const Diversity d = diversity_of(store, positions_of(store, {"a", "b"}));
  EXPECT_EQ(d.by_inbreeding.count, 2);  // EqG is above 1
  EXPECT_EQ(d.by_inbreeding.mean_increase, 0.0);
  EXPECT_FALSE(d.by_inbreeding.effective_size.has_value());
  EXPECT_FALSE(d.by_inbreeding.standard_error.has_value());
  EXPECT_EQ(d.by_coancestry.count, 1);
  const double increase = 1.0 - std::pow(1.0 - 0.125, 2.0 / (1.25 + 1.25));
  EXPECT_DOUBLE_EQ(d.by_coancestry.mean_increase.value(), increase);
  EXPECT_DOUBLE_EQ(d.by_coancestry.effective_size.value(), 1.0 / (2.0 * increase));
  EXPECT_FALSE(d.by_coancestry.standard_error.has_value());  // a single pair
  EXPECT_FALSE(d.by_coancestry.is_sample);
}

TEST(Diversity, OneAnimalOfFullSibs) {
  const PopulationStore store = with_inbreeding(pedigree_from_text(full_sibs));
  const Diversity d = diversity_of(store, positions_of(store, {"pup"}));
  EXPECT_EQ(d.founders, 2);
  EXPECT_DOUBLE_EQ(d.effective_founders.value(), 2.0);
  EXPECT_DOUBLE_EQ(d.effective_ancestors.value(), 2.0);  // of four that explain 1/2 the last two: girl, then son
  ASSERT_EQ(d.main_ancestors.size(), 2U);
  EXPECT_EQ(store.id(d.main_ancestors[0].position), "girl");
  EXPECT_EQ(store.id(d.main_ancestors[1].position), "son");
  EXPECT_DOUBLE_EQ(d.mean_kinship.value(), 0.625);  // (1 + 1/4) / 2
  EXPECT_DOUBLE_EQ(d.founder_genomes.value(), 0.8);
  // Lines of 1 + 1 of five generations: 2/5 on both sides.
  EXPECT_DOUBLE_EQ(d.completeness_index.value(), 0.4);
  // F = 1/4 in EqG 2: dF = 1/4, Ne = 2; one animal has no error.
  EXPECT_DOUBLE_EQ(d.by_inbreeding.mean_increase.value(), 0.25);
  EXPECT_DOUBLE_EQ(d.by_inbreeding.effective_size.value(), 2.0);
  EXPECT_FALSE(d.by_inbreeding.standard_error.has_value());
  EXPECT_EQ(d.by_coancestry.count, 0);
  EXPECT_FALSE(d.by_coancestry.mean_increase.has_value());
}

TEST(Diversity, FoundersOnly) {
  const PopulationStore store = with_inbreeding(pedigree_from_text(full_sibs));
  const Diversity d = diversity_of(store, positions_of(store, {"sire", "dam"}));
  EXPECT_EQ(d.founders, 2);
  EXPECT_DOUBLE_EQ(d.effective_founders.value(), 2.0);
  EXPECT_DOUBLE_EQ(d.effective_ancestors.value(), 2.0);
  EXPECT_DOUBLE_EQ(d.mean_kinship.value(), 0.25);  // 1/2 with itself, 0 with the other
  EXPECT_EQ(d.completeness_index, 0.0);
  EXPECT_EQ(d.equivalent_generations, 0.0);
  EXPECT_EQ(d.by_inbreeding.count, 0);
  EXPECT_FALSE(d.by_inbreeding.mean_increase.has_value());
  EXPECT_EQ(d.by_coancestry.count, 0);  // a pair in which neither has a known parent
}

TEST(Diversity, WithoutAReferencePopulationThereIsNothing) {
  const PopulationStore store = with_inbreeding(pedigree_from_text(full_sibs));
  const Diversity d = diversity_of(store, {});
  EXPECT_EQ(d.founders, 0);
  EXPECT_FALSE(d.effective_founders.has_value());
  EXPECT_FALSE(d.effective_ancestors.has_value());
  EXPECT_TRUE(d.main_ancestors.empty());
  EXPECT_FALSE(d.mean_kinship.has_value());
  EXPECT_FALSE(d.lowest_mean_kinship.has_value());
  EXPECT_FALSE(d.completeness_index.has_value());
  EXPECT_FALSE(d.by_coancestry.mean_increase.has_value());
}

TEST(Diversity, AnEmptyStoreHasNothing) {
  const PopulationStore store = numbered_store("");
  EXPECT_FALSE(compute_diversity(store, youngest_animals(store)).mean_kinship.has_value());
}

TEST(Diversity, SelfingCountsBothParents) {
  // pup's sire and dam are one animal, whose own parents are not known: F = 1/2 in one generation.
  const PopulationStore store = with_inbreeding(numbered_store("2000\n2001 s=1 d=1\n"));
  const Diversity d = diversity_of(store, {2});
  EXPECT_EQ(d.founders, 1);
  EXPECT_DOUBLE_EQ(d.effective_founders.value(), 1.0);
  EXPECT_DOUBLE_EQ(d.effective_ancestors.value(), 1.0);
  EXPECT_DOUBLE_EQ(d.mean_kinship.value(), 0.75);  // (1 + 1/2) / 2
  EXPECT_EQ(d.by_inbreeding.count, 0);             // EqG is 1, not above it
}

TEST(Diversity, AParentBehindItsOffspringCountsAsUnknown) {
  // Animal 1 names animal 2, which stands behind it.
  const PopulationStore store = with_inbreeding(numbered_store("2000 s=2\n2000\n2001 s=1 d=2\n"));
  const Diversity d = diversity_of(store, {3});
  EXPECT_EQ(d.founders, 2);
  EXPECT_EQ(d.half_founders, 0);
  EXPECT_DOUBLE_EQ(d.equivalent_generations.value(), 1.0);
}

TEST(Diversity, FullyInbredAnimalsDoNotLeaveTheNumbers) {
  PopulationStore store = with_inbreeding(pedigree_from_text(full_sibs));
  for (float& f : store.inbreeding.values) f = 1.0000001F;
  const Diversity d = diversity_of(store, positions_of(store, {"pup"}));
  EXPECT_DOUBLE_EQ(d.by_inbreeding.mean_increase.value(), 1.0);
  EXPECT_DOUBLE_EQ(d.by_inbreeding.effective_size.value(), 0.5);
}

}  // namespace
}  // namespace pedigreewatch::test
