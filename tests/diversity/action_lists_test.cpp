#include "diversity/action_lists.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <string>

#include "diversity/animal_figures.h"
#include "support/diversity_pedigrees.h"
#include "support/numbered_store.h"
#include "support/pedigrees.h"

namespace pedigreewatch::test {
namespace {

ActionLists lists_of(const PopulationStore& store, const std::vector<std::int32_t>& reference) {
  return make_action_lists(store, reference, mean_kinship_of_all(store, reference));
}

TEST(ActionLists, HaveTheLowestMeanKinshipFirst) {
  // Of 2011 to 2020: 3 to 6; 3 and 4 are full sibs, 5 and 6 unrelated. 1 and 2 are too old.
  const PopulationStore store =
      with_inbreeding(numbered_store("2010 m\n2010\n2011 m s=1 d=2\n2011 s=1 d=2\n2020\n2012 m\n"));
  const ActionLists lists = lists_of(store, {3, 4, 5});
  EXPECT_EQ(lists.females, (std::vector<std::int32_t>{5, 4}));
  EXPECT_EQ(lists.males, (std::vector<std::int32_t>{6, 3}));
}

TEST(ActionLists, ListOnlyThoseThatAreStillThere) {
  const PopulationStore store = with_inbreeding(numbered_store("2010 m\n2010\n2011 m\n2012\n"));
  AvailableAnimals available = {true, ByNumber<Flag>(store.size()), 2, 0};
  available.marks[1] = available.marks[4] = 1;
  const ActionLists lists = make_action_lists(store, std::vector<std::int32_t>{}, {}, available);
  EXPECT_EQ(lists.females, (std::vector<std::int32_t>{4}));
  EXPECT_EQ(lists.males, (std::vector<std::int32_t>{1}));
  EXPECT_TRUE(lists.are_available);
  EXPECT_FALSE(lists_of(store, {}).are_available);
}

TEST(ActionLists, KeepTheOrderOfTheStoreWithoutAReference) {
  const PopulationStore store = with_inbreeding(numbered_store("2010\n2010\n2011 m\n0\n"));
  const ActionLists lists = lists_of(store, {});
  EXPECT_EQ(lists.females, (std::vector<std::int32_t>{1, 2}));
  EXPECT_EQ(lists.males, (std::vector<std::int32_t>{3}));
  EXPECT_TRUE(lists.sires.empty());
}

TEST(ActionLists, NameTheMostInbredTheYoungestOfEqualOnesFirst) {
  PopulationStore store = with_inbreeding(numbered_store("2000\n2005\n2003\n2004\n2001\n"));
  store.inbreeding.values = {0.0F, 0.25F, 0.25F, 0.5F, 5e-7F, 0.25F};
  EXPECT_EQ(lists_of(store, {}).most_inbred, (std::vector<std::int32_t>{3, 2, 5, 1}));
}

TEST(ActionLists, HaveFiftyInbredAnimalsAtMost) {
  std::string text;
  for (int i = 0; i < 51; ++i) text += "2000\n";
  PopulationStore store = with_inbreeding(numbered_store(text));
  for (std::int32_t i = 1; i <= 51; ++i) store.inbreeding[i] = 0.01F * static_cast<float>(i);
  const ActionLists lists = lists_of(store, {});
  ASSERT_EQ(lists.most_inbred.size(), 50U);
  EXPECT_EQ(lists.most_inbred.front(), 51);
  EXPECT_EQ(lists.most_inbred.back(), 2);
}

/// The mean kinship of some animals by the table of relationships.
double plain_kinship(const PopulationStore& store, const std::vector<std::int32_t>& animals) {
  double sum = 0.0;
  for (const std::vector<double>& row : plain_kinships(store, animals))
    sum += std::accumulate(row.begin(), row.end(), 0.0);
  return sum / static_cast<double>(animals.size()) / static_cast<double>(animals.size());
}

bool descends(const PopulationStore& store, std::int32_t animal, std::int32_t from) {
  if (animal == from) return true;
  return animal != 0 && (descends(store, store.sire_no[animal], from) || descends(store, store.dam_no[animal], from));
}

TEST(ActionLists, ShowThePopulationWithoutEachSire) {
  for (std::uint64_t seed = 1; seed <= 3; ++seed) {
    const PopulationStore store = random_population(seed, 150);
    const std::vector<std::int32_t> reference = young_positions(store, 120);
    const ActionLists lists = lists_of(store, reference);
    ASSERT_EQ(lists.sires.size(), 20U);
    double shares = 0.0;
    for (const UsedSire& sire : lists.sires) {
      std::vector<std::int32_t> rest, without_offspring;
      std::int64_t offspring = 0;
      for (const std::int32_t position : reference) {
        const bool is_his = store.sire_no[position] == sire.position;
        if (is_his) ++offspring;
        if (!descends(store, position, sire.position)) rest.push_back(position);
        if (!is_his && position != sire.position) without_offspring.push_back(position);
      }
      EXPECT_EQ(sire.offspring, offspring);
      EXPECT_EQ(sire.rest, std::ssize(rest));
      EXPECT_EQ(sire.descendants, std::ssize(reference) - std::ssize(rest));
      EXPECT_NEAR(sire.kinship_of_rest, plain_kinship(store, rest), 1e-6);
      EXPECT_EQ(sire.without_offspring, std::ssize(without_offspring));
      EXPECT_NEAR(sire.kinship_without_offspring, plain_kinship(store, without_offspring), 1e-6);
      shares += sire.share;
    }
    EXPECT_LE(shares, 1.0);
    EXPECT_TRUE(std::is_sorted(lists.sires.begin(), lists.sires.end(),
                               [](const auto& a, const auto& b) { return a.offspring > b.offspring; }));
  }
}

TEST(ActionLists, ShareSiresAmongAnimalsWithAKnownSire) {
  const PopulationStore store =
      with_inbreeding(numbered_store("2000 m\n2000 m\n2001 s=1\n2001 s=1\n2001 s=2\n2001 d=3\n"));
  const ActionLists lists = lists_of(store, {3, 4, 5, 6});
  ASSERT_EQ(lists.sires.size(), 2U);
  EXPECT_EQ(lists.sires[0].position, 1);
  EXPECT_DOUBLE_EQ(lists.sires[0].share, 2.0 / 3.0);
  EXPECT_EQ(lists.sires[0].descendants, 3);  // 6 is a grandchild
  EXPECT_DOUBLE_EQ(lists.sires[0].kinship_of_rest, 0.5);
}

}  // namespace
}  // namespace pedigreewatch::test
