#include "diversity/founder_list.h"

#include <gtest/gtest.h>

#include <numeric>
#include <set>

#include "support/diversity_pedigrees.h"
#include "support/numbered_store.h"

namespace pedigreewatch::test {
namespace {

void gather(const ReferencePedigree& pedigree, std::int32_t number, std::set<std::int32_t>& ancestors) {
  if (number == 0 || !ancestors.insert(number).second) return;
  gather(pedigree, pedigree.sire[number], ancestors);
  gather(pedigree, pedigree.dam[number], ancestors);
}

TEST(CountDescendants, AgreesWithTheAncestorsOfEachMember) {
  const PopulationStore store = random_population(5, 900);  // more founders than stand side by side
  const ReferencePedigree pedigree = make_reference_pedigree(store, young_positions(store, 200));
  ByNumber<std::int32_t> plain(pedigree.count());
  for (const std::int32_t member : pedigree.members) {
    std::set<std::int32_t> ancestors;
    gather(pedigree, member, ancestors);
    for (const std::int32_t ancestor : ancestors) {
      if (pedigree.is_founder(ancestor)) ++plain[ancestor];
    }
  }
  EXPECT_EQ(count_descendants(pedigree).values, plain.values);
}

TEST(FounderList, HasTheLargestContributionFirst) {
  // 4 and 5 are young of 1; the dam of 5 is not known.
  const PopulationStore store = with_inbreeding(numbered_store("m\n.\n.\ns=1 d=2\ns=1\n"));
  const std::vector<FounderEntry> founders =
      list_founders(make_reference_pedigree(store, std::vector<std::int32_t>{4, 5}));
  ASSERT_EQ(founders.size(), 3U);
  EXPECT_EQ(founders[0].position, 1);
  EXPECT_DOUBLE_EQ(founders[0].contribution, 0.5);
  EXPECT_EQ(founders[0].descendants, 2);
  EXPECT_TRUE(founders[1].is_unknown_parent);  // it stands before all animals
  EXPECT_EQ(founders[1].position, 5);
  EXPECT_DOUBLE_EQ(founders[1].contribution, 0.25);
  EXPECT_EQ(founders[1].left.share, 0.5);
  EXPECT_EQ(founders[2].position, 2);
  EXPECT_EQ(founders[2].descendants, 1);
}

TEST(FounderList, SumsToAllGenes) {
  const PopulationStore store = random_population(8, 200);
  const auto founders = list_founders(make_reference_pedigree(store, young_positions(store, 50)), 100);
  const double sum = std::accumulate(founders.begin(), founders.end(), 0.0,
                                     [](double s, const FounderEntry& f) { return s + f.contribution; });
  EXPECT_NEAR(sum, 1.0, 1e-12);
  EXPECT_TRUE(list_founders(make_reference_pedigree(store, {})).empty());
}

}  // namespace
}  // namespace pedigreewatch::test
