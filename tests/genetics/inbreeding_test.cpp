#include "genetics/inbreeding.h"

#include <gtest/gtest.h>

#include "support/pedigrees.h"
#include "support/streams.h"

namespace pedigreewatch::test {
namespace {

void compute(PopulationStore& store, TextOutput& console) {
  compute_inbreeding(store, make_ancestor_pedigree(store), true, console);
}

float inbreeding_of(std::string_view pedigree, std::string_view id) {
  PopulationStore store = pedigree_from_text(pedigree);
  TextOutput console;
  compute(store, console);
  return animal_named(store, id).inbreeding;
}

// Puck's parents are half sibs through Rex.
constexpr auto half_sib_mating =
    "rex   0    0     m 1990\n"
    "saar  0    0     f 1990\n"
    "bram  rex  saar  m 1993\n"
    "tess  rex  0     f 1993\n"
    "puck  bram tess  f 1996\n";

TEST(ComputeInbreeding, OffspringOfHalfSibsIsOneEighth) {
  EXPECT_EQ(inbreeding_of(half_sib_mating, "puck"), 0.125F);
}

TEST(ComputeInbreeding, AgreesWithTheTabularMethodOnRandomPedigrees) {
  for (std::uint64_t seed = 1; seed <= 5; ++seed) {
    PopulationStore store = random_pedigree(seed, 300, 12);
    TextOutput console;
    compute(store, console);
    const auto a = tabular_relationships(store);
    for (std::size_t i = 0; i < store.animals.size(); ++i) {
      EXPECT_NEAR(store.animals[i].inbreeding, a[i][i] - 1.0, 2e-6) << "seed " << seed << ", animal " << i + 1;
    }
  }
}

}  // namespace
}  // namespace pedigreewatch::test
