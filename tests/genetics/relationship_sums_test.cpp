#include "genetics/relationship_sums.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "genetics/inbreeding.h"
#include "support/numbered_store.h"
#include "support/pedigrees.h"
#include "support/reference_kinship.h"
#include "support/streams.h"

namespace pedigreewatch::test {
namespace {

/// Fills F, which the sums need.
AncestorPedigree inbred(PopulationStore& store) {
  AncestorPedigree ancestors = make_ancestor_pedigree(store);
  TextOutput ignored;
  compute_inbreeding(store, ancestors, ignored);
  return ancestors;
}

TEST(RelationshipSums, OfFullSibsAndTheirParents) {
  // Group 0 the parents 1 and 2, group 1 the full sibs 3 and 4, of whom 3 has offspring; 5 is in no group. Each with
  // itself 1, parent and child 1/2, the sibs 1/2, the parents 0.
  PopulationStore store = numbered_store("m\n.\ns=1 d=2 m\ns=1 d=2\ns=3\n");
  const AncestorPedigree ancestors = inbred(store);
  RelationshipWork work = make_relationship_work(store, ancestors);
  const std::vector<std::int32_t> positions = {1, 2, 3, 4, 5};
  const RelationshipSums sums = sum_relationships(work, {positions, {0, 0, 1, 1, -1}, 2});
  EXPECT_EQ(sums.between(0, 0), 2.0);
  EXPECT_EQ(sums.between(1, 1), 3.0);
  EXPECT_EQ(sums.between(0, 1), 2.0);
  EXPECT_EQ(sums.between(1, 0), 2.0);
}

TEST(RelationshipSums, OfAnInbredAnimalWithItself) {
  // 5, from full sibs, has F 1/4.
  PopulationStore store = numbered_store("m\n.\ns=1 d=2 m\ns=1 d=2\ns=3 d=4\n");
  const AncestorPedigree ancestors = inbred(store);
  RelationshipWork work = make_relationship_work(store, ancestors);
  const std::vector<std::int32_t> positions = {5};
  EXPECT_EQ(sum_relationships(work, {positions, {0}, 1}).between(0, 0), 1.25);
}

TEST(RelationshipSums, AGroupWithoutAnimalsIsZero) {
  PopulationStore store = numbered_store("m\ns=1\n");
  const AncestorPedigree ancestors = inbred(store);
  RelationshipWork work = make_relationship_work(store, ancestors);
  const std::vector<std::int32_t> positions = {1, 2};
  const RelationshipSums sums = sum_relationships(work, {positions, {1, 1}, 2});
  EXPECT_EQ(sums.between(0, 0), 0.0);
  EXPECT_EQ(sums.between(0, 1), 0.0);
  EXPECT_EQ(sums.between(1, 1), 3.0);
}

TEST(RelationshipSums, EqualTheFullMatrixForAnyGroups) {
  PopulationStore store = random_pedigree(61, 500, 5);
  const AncestorPedigree ancestors = inbred(store);
  std::vector<std::vector<double>> a;
  for (std::int32_t x = 1; x <= store.animal_count; ++x) a.push_back(plain_relationship_row(store, x));
  const auto relationship = [&](std::int32_t x, std::int32_t y) {
    return a[static_cast<std::size_t>(std::max(x, y)) - 1][static_cast<std::size_t>(std::min(x, y))];
  };
  RandomNumbers random{62};
  RelationshipWork work = make_relationship_work(store, ancestors);
  // From many groups to one and back: what one call leaves behind must not show in the next.
  for (const std::int32_t group_count : {1, 3, 16, 17, 40, 2}) {
    std::vector<std::int32_t> members, groups;
    for (std::int32_t position = 1; position <= store.animal_count; ++position) {
      if (random.below(3) == 0) continue;
      members.push_back(position);
      groups.push_back(random.below(group_count + 1) - 1);  // -1: in no group
    }
    const std::size_t count = static_cast<std::size_t>(group_count);
    std::vector<double> expected(count * count, 0.0);
    for (std::size_t i = 0; i < members.size(); ++i) {
      for (std::size_t j = 0; j < members.size(); ++j) {
        if (groups[i] < 0 || groups[j] < 0) continue;
        expected[static_cast<std::size_t>(groups[i]) * count + static_cast<std::size_t>(groups[j])] +=
            relationship(members[i], members[j]);
      }
    }
    const RelationshipSums sums = sum_relationships(work, {members, groups, group_count});
    for (std::int32_t g = 0; g < group_count; ++g) {
      for (std::int32_t h = 0; h < group_count; ++h) {
        const double want = expected[static_cast<std::size_t>(g) * count + static_cast<std::size_t>(h)];
        EXPECT_NEAR(sums.between(g, h), want, 1e-9 * (1.0 + want)) << group_count << " groups, " << g << " and " << h;
      }
    }
  }
}

TEST(RelationshipRow, ThePlainWayAgreesWithTheTabularMethod) {
  PopulationStore store = random_pedigree(71, 200, 5);
  inbred(store);
  const auto a = tabular_relationships(store);
  for (std::int32_t x = 1; x <= store.animal_count; ++x) {
    const std::vector<double> row = plain_relationship_row(store, x);
    for (std::int32_t j = 1; j <= x; ++j) {
      EXPECT_NEAR(row[static_cast<std::size_t>(j)], a[static_cast<std::size_t>(x) - 1][static_cast<std::size_t>(j) - 1],
                  2e-6);
    }
  }
}

}  // namespace
}  // namespace pedigreewatch::test
