#include "diversity/recent_inbreeding.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <vector>

#include "support/diversity_pedigrees.h"
#include "support/numbered_store.h"

namespace pedigreewatch::test {
namespace {

/// The parents of the ancestors that are met within some generations; those first met in the last one have none.
struct CutPedigree {
  std::map<std::int32_t, std::pair<std::int32_t, std::int32_t>> parents;

  double kinship(std::int32_t a, std::int32_t b) const {
    if (a == 0 || b == 0) return 0.0;
    const auto [sire, dam] = parents.at(std::max(a, b));
    if (a == b) return 0.5 + 0.5 * kinship(sire, dam);
    return 0.5 * (kinship(sire, std::min(a, b)) + kinship(dam, std::min(a, b)));
  }
};

/// F in a pedigree that is cut off, generation by generation.
double plain_recent(const PopulationStore& store, std::int32_t animal, std::int32_t generations) {
  if (store.sire_no[animal] == 0 || store.dam_no[animal] == 0) return 0.0;
  CutPedigree cut;
  std::vector<std::int32_t> generation = {store.sire_no[animal], store.dam_no[animal]};
  for (std::int32_t g = 1; g <= generations; ++g) {
    std::vector<std::int32_t> next;
    for (const std::int32_t ancestor : generation) {
      if (ancestor == 0 || cut.parents.contains(ancestor)) continue;
      const bool is_last = g == generations;
      cut.parents[ancestor] = {is_last ? 0 : store.sire_no[ancestor], is_last ? 0 : store.dam_no[ancestor]};
      next.insert(next.end(), {store.sire_no[ancestor], store.dam_no[ancestor]});
    }
    generation = next;
  }
  return cut.kinship(store.sire_no[animal], store.dam_no[animal]);
}

TEST(RecentInbreeding, AgreesWithAPedigreeThatIsCutOff) {
  for (std::uint64_t seed = 1; seed <= 8; ++seed) {
    const PopulationStore store = random_population(seed, 120);
    for (const std::int32_t generations : {2, 3, 4, 5, 6}) {
      const ByNumber<float> recent = recent_inbreeding(store, generations);
      for (std::int32_t i = 1; i <= store.animal_count; ++i) {
        EXPECT_NEAR(static_cast<double>(recent[i]), plain_recent(store, i, generations), 1e-6)
            << seed << " " << generations << " " << i;
      }
    }
  }
}

// A grandsire in common is met in the second generation, his sire in the third: 1 is the sire of 3, which is the sire
// of 5 and 6 with unrelated dams; 7 is a young of these half sibs.
constexpr std::string_view half_sib_mating = "m\n.\ns=1 d=2 m\n.\ns=3 d=4 m\ns=3\ns=5 d=6\n";

TEST(RecentInbreeding, SeesAnAncestorFromItsOwnGenerationOn) {
  const PopulationStore store = with_inbreeding(numbered_store(half_sib_mating));
  EXPECT_FLOAT_EQ(store.inbreeding[7], 0.125F);
  EXPECT_FLOAT_EQ(recent_inbreeding(store, 2)[7], 0.125F);
  EXPECT_FLOAT_EQ(recent_inbreeding(store, 5)[7], 0.125F);
}

TEST(RecentInbreeding, TakesAnAncestorOfTheLastGenerationForAFounder) {
  // 3 is a young of the full sibs 9 and 10 here, F 1/4: two generations do not know that, three neither, four do.
  const PopulationStore store =
      with_inbreeding(numbered_store("m\n.\ns=1 d=2 m\ns=1 d=2\ns=3 d=4 m\n.\ns=5 d=6 m\ns=5\ns=7 d=8\n"));
  EXPECT_FLOAT_EQ(store.inbreeding[9], 0.15625F);  // (1 + 1/4) / 8
  EXPECT_FLOAT_EQ(recent_inbreeding(store, 2)[9], 0.125F);
  EXPECT_FLOAT_EQ(recent_inbreeding(store, 3)[9], 0.125F);
  EXPECT_FLOAT_EQ(recent_inbreeding(store, 4)[9], 0.15625F);
}

// Within three generations F is 1/32 at least, which single precision may have missed by a hundred-thousandth.
TEST(RecentInbreeding, SmallerValuesAreOfAncestorsFurtherAway) {
  const auto recent = [](float f) {
    PopulationStore store = with_inbreeding(numbered_store(half_sib_mating));
    store.inbreeding[7] = f;
    return recent_inbreeding(store, 3)[7];
  };
  EXPECT_FLOAT_EQ(recent(0.03125F - 0.9e-5F), 0.125F);
  EXPECT_EQ(recent(0.03125F - 1.1e-5F), 0.0F);
}

TEST(RecentInbreeding, OfAParentAndItsOffspringNeedsTwoGenerations) {
  const PopulationStore store = with_inbreeding(numbered_store("m\n.\ns=1 d=2\ns=1 d=3\n"));
  EXPECT_FLOAT_EQ(recent_inbreeding(store, 2)[4], 0.25F);
}

}  // namespace
}  // namespace pedigreewatch::test
