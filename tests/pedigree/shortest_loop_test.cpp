#include "pedigree/shortest_loop.h"

#include <gtest/gtest.h>

#include "support/store_builder.h"

namespace pedigreewatch::test {
namespace {

using Positions = std::vector<std::int32_t>;

/// Animals with these fathers and mothers, 0 without.
PopulationStore store_with(const Positions& sires, const Positions& dams) {
  std::vector<AnimalRecord> animals(sires.size());
  for (std::size_t k = 0; k < sires.size(); ++k) {
    animals[k].id.assign("a" + std::to_string(k + 1));
    animals[k].sire_no = sires[k];
    animals[k].dam_no = dams[k];
  }
  return finished_store_of(animals);
}

Positions up_to(std::int32_t last) {
  Positions positions;
  for (std::int32_t k = 1; k <= last; ++k) positions.push_back(k);
  return positions;
}

TEST(FindShortestLoop, IsTheShortestOfSeveral) {
  // 1 - 2 - 3 - 4 - 1, and from 3 a mother back to 2: 2 - 3 - 2.
  const PopulationStore store = store_with({2, 3, 4, 1}, {0, 0, 2, 0});
  const LoopChain chain = find_shortest_loop(store, up_to(4));
  EXPECT_EQ(chain.animals, (Positions{2, 3}));
  EXPECT_TRUE(chain.is_shortest);
}

TEST(FindShortestLoop, MayBeOneAnimal) {
  EXPECT_EQ(find_shortest_loop(store_with({2, 1, 3}, {3, 0, 0}), up_to(3)).animals, (Positions{3}));
}

TEST(FindShortestLoop, IsFoundFromAnAnimalThatOnlyDescendsFromIt) {
  const PopulationStore store = store_with({2, 3, 4, 2}, {0, 0, 0, 0});  // 1 is a young of 2
  EXPECT_EQ(find_shortest_loop(store, up_to(4)).animals, (Positions{2, 3, 4}));
}

TEST(FindShortestLoop, SaysWhenItGaveUp) {
  // A ring of 2000 has one loop: each of its animals is a start of 2000 visits.
  Positions sires = up_to(2001), dams(2000, 0);
  sires.erase(sires.begin());
  sires.back() = 1;
  const PopulationStore store = store_with(sires, dams);
  const LoopChain whole = find_shortest_loop(store, up_to(2000), 2000 * 1999);
  EXPECT_TRUE(whole.is_shortest);
  EXPECT_EQ(whole.animals.size(), 2000U);
  const LoopChain given_up = find_shortest_loop(store, up_to(2000), 2000 * 1999 - 1);
  EXPECT_FALSE(given_up.is_shortest);
  EXPECT_EQ(given_up.animals.size(), 2000U);
}

}  // namespace
}  // namespace pedigreewatch::test
