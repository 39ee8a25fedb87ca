#include "statistics/offspring.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string_view>
#include <vector>

#include "support/numbered_store.h"

namespace pedigreewatch::test {
namespace {

using Counts = std::vector<std::int32_t>;
using Reals = std::vector<float>;

/// Mean, standard deviation and maximum of the sires, then of the dams.
Reals cells_of(const ParentOffspring& offspring) {
  Reals cells;
  for (const Sex sex : {male, female}) {
    cells.push_back(offspring.of(sex).mean);
    cells.push_back(offspring.of(sex).deviation);
    cells.push_back(offspring.of(sex).maximum);
  }
  return cells;
}

/// The offspring of the first `last` animals; the one place where these tests call the operation.
Reals offspring_of(std::string_view numbered, std::int32_t last) {
  return cells_of(offspring_year_statistics(numbered_store(numbered), from_to(1, last)));
}

TEST(OffspringYearStatistics, OffspringPerParentImportsIncluded) {
  // Sires: 1 with 4 offspring, 2 with 2, imported 3 with 3; male 4 has none. Mean 3, deviation sqrt(2 / 2) = 1.
  // Dams: 5 with 6, 6 with 3: mean 4.5, deviation sqrt(2 * 2.25 / 1).
  EXPECT_EQ(offspring_of("m\nm\nm import\nm\n.\n.\n"
                         "s=1 d=5\ns=1 d=5\ns=1 d=5\ns=1 d=5\ns=2 d=5\ns=2 d=5\ns=3 d=6\ns=3 d=6\ns=3 d=6\n",
                         6),
            (Reals{3.0F, 1.0F, 4.0F, 4.5F, std::sqrt(4.5F), 6.0F}));
}

TEST(OffspringYearStatistics, ImportedOffspringDoNotCount) {
  // 1 has one native and one imported child; 2 has an imported child only and is no parent here.
  EXPECT_EQ(offspring_of("m\nm\ns=1\ns=1 import\ns=2 import\n", 2), (Reals{1.0F, 0, 1.0F, 0, 0, 0}));
}

TEST(OffspringYearStatistics, ASingleParentHasNoDeviation) {
  EXPECT_EQ(offspring_of(".\nm\nd=1\nd=1\nd=1\n", 2), (Reals{0, 0, 0, 3.0F, 0, 3.0F}));
}

TEST(OffspringYearStatistics, WithoutParentsAllIsZero) {
  EXPECT_EQ(offspring_of("m\n.\nimport\n", 3), Reals(6, 0.0F));
}

TEST(OffspringYearStatistics, DeviationIsWorkedOutAroundTheMeanInSinglePrecision) {
  // Sires with 1, 2 and 4 offspring: mean 7/3; squares in store order.
  const float mean = 7.0F / 3.0F;
  float squares = 0.0F;
  for (const float x : {1.0F, 2.0F, 4.0F}) squares += (x - mean) * (x - mean);
  const Reals row = offspring_of("m\nm\nm\ns=1\ns=2\ns=2\ns=3\ns=3\ns=3\ns=3\n", 3);
  EXPECT_EQ(row[0], mean);
  EXPECT_FLOAT_EQ(row[1], std::sqrt(squares / 2.0F));
  EXPECT_NEAR(row[1], 1.5275252F, 1e-6F);
}

TEST(BusiestParents, HaveTheMostNativeOffspring) {
  // Male 1 has one native child and two imported ones, male 2 has two; female 3 has two, female 4 one.
  const PopulationStore store = numbered_store("m\nm\n.\n.\ns=1 d=3\ns=1 import\ns=1 import\ns=2 d=3\ns=2 d=4\n");
  const BusiestParents busiest = find_busiest_parents(store, all_positions(store));
  EXPECT_EQ(busiest.of(male), 2);
  EXPECT_EQ(busiest.of(female), 3);
}

TEST(BusiestParents, OnATieTheFirstInTheStore) {
  const PopulationStore store = numbered_store(".\nm\nm\n.\ns=2 d=1\ns=3 d=4\n");
  EXPECT_EQ(find_busiest_parents(store, all_positions(store)).of(male), 2);
  EXPECT_EQ(find_busiest_parents(store, all_positions(store)).of(female), 1);
}

TEST(BusiestParents, WithoutAnyOffspringTheFirstOfItsSex) {
  const PopulationStore store = numbered_store(".\n.\nm\nm\n");
  EXPECT_EQ(find_busiest_parents(store, all_positions(store)).of(male), 3);
  EXPECT_EQ(find_busiest_parents(store, all_positions(store)).of(female), 1);
}

TEST(BusiestParents, ASexWithoutAnimalsGivesOne) {
  const PopulationStore females = numbered_store(".\n.\n"), nobody = numbered_store("");
  EXPECT_EQ(find_busiest_parents(females, Counts{2}).of(male), 1);
  EXPECT_EQ(find_busiest_parents(females, Counts{2}).of(female), 2);
  EXPECT_EQ(find_busiest_parents(nobody, {}).of(male), 1);
  EXPECT_EQ(find_busiest_parents(nobody, {}).of(female), 1);
}

TEST(BusiestParents, OfSomeAnimalsCountOffspringElsewhereToo) {
  const PopulationStore store = numbered_store("m\nm\n.\ns=1\ns=1\ns=2\n");
  EXPECT_EQ(find_busiest_parents(store, Counts{2, 3}).of(male), 2);
}

}  // namespace
}  // namespace pedigreewatch::test
