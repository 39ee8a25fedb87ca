#include "statistics/completeness.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/numbered_store.h"

namespace pedigreewatch::test {
namespace {

using Reals = std::vector<float>;

/// The store with the values of its records; the one place where these tests call the operation.
PopulationStore determined(std::string_view numbered) {
  PopulationStore store = numbered_store(numbered);
  determine_completeness(store);
  return store;
}

Reals equivalents_of(const PopulationStore& store) {
  return {store.generation_equivalents.values.begin() + 1, store.generation_equivalents.values.end()};
}

std::vector<std::int32_t> complete_of(const PopulationStore& store) {
  return {store.complete_generations.values.begin() + 1, store.complete_generations.values.end()};
}

/// The mean of the equivalents, and the shares of 1 to 5 and more complete generations.
Reals year_of(const PopulationStore& store, Row row) {
  const CompletenessRow year = completeness_of_year(store, group_by_year(store).of_row(row));
  Reals cells = {year.equivalent_generations};
  cells.insert(cells.end(), year.generation_shares.begin(), year.generation_shares.end());
  return cells;
}

TEST(Completeness, FoundersHaveNone) {
  const PopulationStore store = determined("m\n.\n");
  EXPECT_EQ(equivalents_of(store), (Reals{0, 0}));
  EXPECT_EQ(complete_of(store), (std::vector<std::int32_t>{0, 0}));
}

TEST(Completeness, TwoKnownParentsAreOneGeneration) {
  const PopulationStore store = determined("m\n.\ns=1 d=2\n");
  EXPECT_EQ(equivalents_of(store)[2], 1.0F);
  EXPECT_EQ(complete_of(store)[2], 1);
}

TEST(Completeness, OneKnownParentIsHalfAGenerationAndNoneComplete) {
  const PopulationStore store = determined("m\n.\ns=1\nd=2\n");
  EXPECT_EQ(equivalents_of(store), (Reals{0, 0, 0.5F, 0.5F}));
  EXPECT_EQ(complete_of(store), (std::vector<std::int32_t>{0, 0, 0, 0}));
}

TEST(Completeness, AncestorsCountByGenerationAndTheSmallerParentDecides) {
  // 3 from founders (1.0, 1 complete); 4 from 3 and founder 2: 0.5 + 0.5 + 0.5 = 1.5, 1 complete; 5 from 3 and 4:
  // 1.0 + 0.5 + 0.75 = 2.25, 2 complete; 6 has father 5 only: 0.5 * 2.25 + 0.5; 7 from 5 and 6: the mother has no
  // complete generation.
  const PopulationStore store = determined("m\n.\ns=1 d=2 m\ns=3 d=2\ns=3 d=4 m\ns=5\ns=5 d=6\n");
  EXPECT_EQ(equivalents_of(store), (Reals{0, 0, 1.0F, 1.5F, 2.25F, 1.625F, 0.5F * 2.25F + 0.5F + 0.5F + 0.8125F}));
  EXPECT_EQ(complete_of(store), (std::vector<std::int32_t>{0, 0, 1, 1, 2, 0, 1}));
}

TEST(Completeness, OldValuesAreCleared) {
  PopulationStore store = numbered_store("m\n.\ns=1 d=2\n");
  store.generation_equivalents = ByNumber<float>(store.size(), 7.0F);
  store.complete_generations = ByNumber<std::uint16_t>(store.size(), 7);
  determine_completeness(store);
  EXPECT_EQ(equivalents_of(store), (Reals{0, 0, 1.0F}));
  EXPECT_EQ(complete_of(store), (std::vector<std::int32_t>{0, 0, 1}));
}

TEST(CompletenessOfYear, MeansAndShares) {
  // 2001: equivalents 1, 1 and 0.5 and one founder; complete 1, 1, 0, 0.
  const PopulationStore store = determined("2000 m\n2000\n2001 s=1 d=2\n2001 s=1 d=2\n2001 s=1\n2001\n2003\n");
  EXPECT_EQ(year_of(store, 1), Reals(6, 0.0F));
  EXPECT_EQ(year_of(store, 2), (Reals{0.625F, 0.5F, 0, 0, 0, 0}));
}

TEST(CompletenessOfYear, AYearWithoutAnimalsIsZero) {
  const PopulationStore store = determined("2000 m\n2000\n2002 s=1 d=2\n");
  EXPECT_EQ(year_of(store, 2), Reals(6, 0.0F));
  EXPECT_EQ(year_of(store, 3), (Reals{1.0F, 1.0F, 0, 0, 0, 0}));
}

TEST(CompletenessOfYear, FiveAndMoreGenerationsShareTheLastColumn) {
  // Selfed lines: animal k + 1 is the child of k on both sides and has k complete generations.
  const PopulationStore store = determined(
      "1999\n2000 s=1 d=1\n2000 s=2 d=2\n2000 s=3 d=3\n2000 s=4 d=4\n2000 s=5 d=5\n2000 s=6 "
      "d=6\n2000 s=7 d=7\n2000\n");
  // Complete 1, 2, 3, 4, 5, 6, 7 and 0 among eight animals; equivalents are the same numbers.
  EXPECT_EQ(year_of(store, 2), (Reals{28.0F / 8.0F, 0.125F, 0.125F, 0.125F, 0.125F, 0.375F}));
}

TEST(CompletenessOfYear, AnimalsWithoutBirthYearAreInNoRow) {
  const PopulationStore store = determined("m\n.\n2000 s=1 d=2\ns=1 d=2\n");
  ASSERT_EQ(store.birth_years.row_count(), 1);
  EXPECT_EQ(year_of(store, 1), (Reals{1.0F, 1.0F, 0, 0, 0, 0}));
}

}  // namespace
}  // namespace pedigreewatch::test
