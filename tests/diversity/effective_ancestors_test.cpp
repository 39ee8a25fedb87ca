#include "diversity/effective_ancestors.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "support/diversity_pedigrees.h"
#include "support/numbered_store.h"

namespace pedigreewatch::test {
namespace {

AncestorFigures ancestors_of(const PopulationStore& store, const std::vector<std::int32_t>& positions) {
  return choose_ancestors(make_reference_pedigree(store, positions));
}

std::vector<std::int32_t> chosen_positions(const AncestorFigures& figures) {
  std::vector<std::int32_t> positions;
  for (const MainAncestor& ancestor : figures.main_ancestors) {
    positions.push_back(ancestor.is_unknown_parent ? -ancestor.position : ancestor.position);
  }
  return positions;
}

TEST(EffectiveAncestors, AChosenAncestorExplainsAPartOfItsOffspring) {
  // 3 is a son of 1 and 2; 6 = 3 x 4, 7 = 1 x 5. 1 explains 3/8 and half of 3.
  const PopulationStore store =
      with_inbreeding(numbered_store("2000 m\n2000\n2001 m s=1 d=2\n2001\n2001\n2002 s=3 d=4\n2002 s=1 d=5\n"));
  const AncestorFigures figures = ancestors_of(store, {6, 7});
  EXPECT_EQ(chosen_positions(figures), (std::vector<std::int32_t>{1, 5, 4, 3}));
  // 3/8, 1/4, 1/4, 1/8: 1 / (9/64 + 2/16 + 1/64) = 64/18.
  EXPECT_DOUBLE_EQ(figures.effective_ancestors.value(), 64.0 / 18.0);
  EXPECT_EQ(figures.ancestors_for_half, 2);
  EXPECT_DOUBLE_EQ(figures.main_ancestors[3].contribution, 0.125);
}

TEST(EffectiveAncestors, OfEqualOnesTheLastAndUnknownParentsBeforeAll) {
  // 1 and the unknown mother explain half of 2 each; the mother stands before all animals.
  const PopulationStore store = with_inbreeding(numbered_store("2000 m\n2001 s=1\n"));
  const AncestorFigures figures = ancestors_of(store, {2});
  EXPECT_EQ(chosen_positions(figures), (std::vector<std::int32_t>{1, -2}));
  EXPECT_DOUBLE_EQ(figures.effective_ancestors.value(), 2.0);
}

TEST(EffectiveAncestors, AnimalsWithoutOffspringExplainNothingButThemselves) {
  // 4 is a founder inside, 3 a young one of 1 and 2: its parents explain 1/4 each, 4 explains 1/2.
  const PopulationStore store = with_inbreeding(numbered_store("2000 m\n2000\n2001 s=1 d=2\n2001\n"));
  const AncestorFigures figures = ancestors_of(store, {3, 4});
  EXPECT_EQ(chosen_positions(figures), (std::vector<std::int32_t>{4, 2, 1}));
  EXPECT_DOUBLE_EQ(figures.effective_ancestors.value(), 8.0 / 3.0);
}

TEST(EffectiveAncestors, ManyEqualFoundersAreAllChosen) {
  std::string text;
  for (int i = 0; i < 300; ++i) text += "2000\n";
  const PopulationStore store = with_inbreeding(numbered_store(text));
  const AncestorFigures figures = ancestors_of(store, from_to(1, 300));
  EXPECT_NEAR(figures.effective_ancestors.value(), 300.0, 1e-9);
  EXPECT_EQ(figures.chosen_ancestors, 300);
  EXPECT_EQ(figures.ancestors_for_half, 150);
  EXPECT_EQ(figures.main_ancestors.front().position, 300);
}

TEST(EffectiveAncestors, AgreeWithThePlainWayOnRandomPedigrees) {
  for (std::uint64_t seed = 1; seed <= 12; ++seed) {
    const std::int32_t count = seed <= 8 ? 150 : 500;
    const PopulationStore store = random_population(seed, count);
    const std::vector<std::int32_t> positions = young_positions(store, count / 4);
    const AncestorFigures figures = ancestors_of(store, positions);
    const std::vector<PlainAncestor> plain = plain_ancestors(store, positions);
    double squares = 0.0, sum = 0.0;
    std::int32_t for_half = 0;
    for (const PlainAncestor& ancestor : plain) {
      squares += ancestor.contribution * ancestor.contribution;
      if (sum < 0.5 * (1.0 - 1e-12)) ++for_half;
      sum += ancestor.contribution;
    }
    EXPECT_NEAR(sum, 1.0, 1e-9);
    EXPECT_NEAR(figures.effective_ancestors.value() * squares, 1.0, 1.1e-7);
    EXPECT_EQ(figures.ancestors_for_half, for_half);
    ASSERT_EQ(figures.main_ancestors.size(), std::min<std::size_t>(plain.size(), 10));
    for (std::size_t i = 0; i < figures.main_ancestors.size(); ++i) {
      EXPECT_EQ(chosen_positions(figures)[i], plain[i].position) << "seed " << seed << ", ancestor " << i + 1;
      EXPECT_NEAR(figures.main_ancestors[i].contribution, plain[i].contribution, 1e-13);
    }
    const bool are_all = figures.chosen_ancestors == static_cast<std::int32_t>(plain.size());
    EXPECT_EQ(figures.is_every_ancestor_chosen, are_all) << "seed " << seed;
  }
}

TEST(EffectiveAncestors, StopWhenTheRestCannotChangeTheFifthDigit) {
  // One sire of 4000 young, each with a dam of its own that explains 1/8000.
  std::string text = "2000 m\n";
  constexpr int dams = 4000;
  for (int i = 0; i < dams; ++i) text += "2000\n";
  for (int i = 0; i < dams; ++i) text += "2001 s=1 d=" + std::to_string(i + 2) + "\n";
  const PopulationStore store = with_inbreeding(numbered_store(text));
  const AncestorFigures figures = ancestors_of(store, from_to(dams + 2, 2 * dams + 1));
  // 1 / (1/4 + 4000 / 8000^2), of which the stop leaves out less than a ten-millionth.
  EXPECT_NEAR(figures.effective_ancestors.value() * (0.25 + 0.0000625), 1.0, 1e-7);
  // With k dams chosen (4000 - k) / 8000 are left, in parts of 1 / 8000: at most 1e-7 * 0.25 from k = 3999 on.
  EXPECT_FALSE(figures.is_every_ancestor_chosen);
  EXPECT_EQ(figures.chosen_ancestors, 1 + 3999);
  EXPECT_EQ(figures.main_ancestors.size(), 10U);
}

}  // namespace
}  // namespace pedigreewatch::test
