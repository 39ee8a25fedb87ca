#include "genetics/ancestor_walk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <vector>

#include "support/numbered_store.h"
#include "support/pedigrees.h"
#include "support/reference_walk.h"

namespace pedigreewatch::test {
namespace {

/// An inbred herd in which every animal is an ancestor, so that ancestor numbers are positions.
struct Herd {
  PopulationStore store;
  std::vector<float> f;
  AncestorWalk walk;
};

Herd inbred_herd(std::uint64_t seed, std::int32_t count) {
  RandomNumbers random{seed};
  std::vector<ParentPair> parents(4);
  for (std::int32_t i = 5; i <= count; ++i) {
    parents.push_back({i - 1, i - 1 - random.below(std::min(i - 1, 20))});
    if (random.below(15) == 0) parents.back().dam = 0;
  }
  for (std::int32_t i = 1; i <= 4; ++i) parents.push_back({i, count});  // makes a parent of the last and the founders
  PopulationStore store = store_of_parents(parents);
  std::vector<float> f = reference_inbreeding(store);
  AncestorWalk walk = make_ancestor_walk(make_ancestor_pedigree(store));
  for (std::int32_t j = 1; j <= count; ++j) set_inbreeding(walk, j, f[static_cast<std::size_t>(j) - 1]);
  return {std::move(store), std::move(f), std::move(walk)};
}

/// F of one more animal with these parents, by the plain walk.
float plain_walk(const Herd& herd, const Mating& mating) {
  PopulationStore store = herd.store;
  store.sire_no.values.push_back(mating.sire);
  store.dam_no.values.push_back(mating.dam);
  return reference_walk(store, herd.f, ++store.animal_count);
}

TEST(WalkAncestors, EachLaneGivesTheBitsOfItsMatingAlone) {
  constexpr std::int32_t count = 500;
  Herd herd = inbred_herd(1, count);
  RandomNumbers random{2};
  for (std::size_t size = 1; size <= lane_count; ++size) {
    std::vector<Mating> matings;
    for (std::size_t lane = 0; lane < size; ++lane)
      matings.push_back({1 + random.below(count), 1 + random.below(count)});
    std::vector<float> results(size, -7.0F);
    walk_ancestors(herd.walk, matings, results);
    for (std::size_t lane = 0; lane < size; ++lane) {
      EXPECT_EQ(std::bit_cast<std::uint32_t>(results[lane]),
                std::bit_cast<std::uint32_t>(plain_walk(herd, matings[lane])))
          << "lane " << lane << " of " << size;
    }
  }
}

TEST(WalkAncestors, LeavesNoSharesAndNobodyWaiting) {
  Herd herd = inbred_herd(3, 300);
  const std::vector<Mating> matings = {{300, 299}, {17, 4}, {1, 2}, {250, 250}};
  std::vector<float> results(matings.size());
  walk_ancestors(herd.walk, matings, results);
  for (const Lanes& lanes : herd.walk.shares.values) {
    for (std::size_t lane = 0; lane < lane_count; ++lane) EXPECT_EQ(lanes.each[lane], 0.0F);
  }
  for (const std::uint64_t word : herd.walk.waiting) EXPECT_EQ(word, 0U);
  for (const std::uint64_t word : herd.walk.waiting_words) EXPECT_EQ(word, 0U);
}

TEST(WalkAncestors, MatingOfFounders) {
  AncestorWalk walk = make_ancestor_walk(make_ancestor_pedigree(numbered_store("m\n.\ns=1 d=2\n")));
  set_inbreeding(walk, 1, 0.0F);
  set_inbreeding(walk, 2, 0.0F);
  const std::vector<Mating> matings = {{1, 2}, {1, 1}, {2, 1}};
  std::vector<float> results(3);
  walk_ancestors(walk, matings, results);
  EXPECT_EQ(results, (std::vector<float>{0.0F, 0.5F, 0.0F}));
}

}  // namespace
}  // namespace pedigreewatch::test
