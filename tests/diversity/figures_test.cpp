#include "diversity/figures.h"

#include <gtest/gtest.h>

#include <string>

#include "support/diversity_pedigrees.h"
#include "support/numbered_store.h"

namespace pedigreewatch::test {
namespace {

TEST(PopulationFigures, RecentInbreedingIsOfThreeAndOfFiveGenerations) {
  // Full sibs mated for nine generations. Where the ancestors of generation k are founders, the sequence of full-sib
  // mating (Wright, 1921) has come to F of k generations: 0, 1/4, 3/8, 1/2, 19/32, 43/64, ...
  std::string pedigree = "m\n.\n";
  for (int parent = 1; parent < 18; parent += 2) {
    const std::string parents = "s=" + std::to_string(parent) + " d=" + std::to_string(parent + 1);
    pedigree += parents + " m\n" + parents + "\n";
  }
  const PopulationStore store = with_inbreeding(numbered_store(pedigree));
  const PopulationFigures figures = compute_figures(store, compute_diversity(store, youngest_animals(store)));
  const std::int32_t last = store.animal_count;
  EXPECT_FLOAT_EQ(figures.animals.recent_3[last], 0.375F);
  EXPECT_FLOAT_EQ(figures.animals.recent_5[last], 0.59375F);
  EXPECT_GT(store.inbreeding[last], 0.75F);
}

}  // namespace
}  // namespace pedigreewatch::test
