#include "diversity/completeness.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "support/diversity_pedigrees.h"
#include "support/numbered_store.h"

namespace pedigreewatch::test {
namespace {

PedigreeDepth depth_of(const PopulationStore& store, const std::vector<std::int32_t>& positions) {
  return describe_depth(make_reference_pedigree(store, positions));
}

/// Counts the known ancestors of an animal by generation, 0 being itself.
void count_ancestors(const PopulationStore& store, std::int32_t animal, std::size_t generation,
                     std::vector<double>& counts) {
  if (animal == 0) return;
  if (counts.size() <= generation) counts.resize(generation + 1, 0.0);
  counts[generation] += 1.0;
  count_ancestors(store, store.sire_no[animal], generation + 1, counts);
  count_ancestors(store, store.dam_no[animal], generation + 1, counts);
}

double share(const std::vector<double>& counts, std::size_t generation) {
  return generation < counts.size() ? std::ldexp(counts[generation], -static_cast<int>(generation)) : 0.0;
}

/// C of the line of a parent.
double line_of(const PopulationStore& store, std::int32_t parent) {
  std::vector<double> counts;
  count_ancestors(store, parent, 0, counts);
  return (share(counts, 0) + share(counts, 1) + share(counts, 2) + share(counts, 3) + share(counts, 4)) / 5.0;
}

TEST(PedigreeDepthOfReference, AnAnimalWithTwoUnevenLines) {
  // 7's sire 5 has two parents and a grandsire (1, father of 3); its dam 6 is a founder.
  const PopulationStore store =
      with_inbreeding(numbered_store("2000 m\n2000\n2001 m s=1 d=2\n2001\n2002 m s=3 d=4\n2002\n2003 s=5 d=6\n"));
  const PedigreeDepth depth = depth_of(store, {7});
  EXPECT_DOUBLE_EQ(depth.maximum_generations.value(), 3.0);
  EXPECT_DOUBLE_EQ(depth.complete_generations.value(), 1.0);
  EXPECT_DOUBLE_EQ(depth.equivalent_generations.value(), 1.0 + 2.0 / 4.0 + 2.0 / 8.0);
  // Sire's line: 1, 2/2, 2/4: 2.5 / 5 = 0.5; dam's 1/5 = 0.2. 2 * 0.5 * 0.2 / 0.7 = 2/7.
  EXPECT_DOUBLE_EQ(depth.completeness_index.value(), 2.0 / 7.0);
}

TEST(PedigreeDepthOfReference, AnUnknownParentMakesTheIndexZero) {
  const PopulationStore store = with_inbreeding(numbered_store("2000 m\n2000\n2001 m s=1 d=2\n2002 s=3\n"));
  const PedigreeDepth depth = depth_of(store, {4});
  EXPECT_EQ(depth.completeness_index, 0.0);
  EXPECT_EQ(depth.complete_generations, 0.0);
  EXPECT_DOUBLE_EQ(depth.maximum_generations.value(), 2.0);
  EXPECT_DOUBLE_EQ(depth.equivalent_generations.value(), 0.5 + 2.0 / 4.0);
}

TEST(PedigreeDepthOfReference, TheSixthGenerationDoesNotCountInTheIndex) {
  // Lines in which every animal is selfed: all generations are complete, as deep as they go.
  std::string text = "2000\n";
  for (int i = 1; i <= 8; ++i) text += "2000 s=" + std::to_string(i) + " d=" + std::to_string(i) + "\n";
  const PopulationStore store = with_inbreeding(numbered_store(text));
  for (const std::int32_t animal : {6, 7, 9})
    EXPECT_DOUBLE_EQ(depth_of(store, {animal}).completeness_index.value(), 1.0);
  EXPECT_DOUBLE_EQ(depth_of(store, {5}).completeness_index.value(), 0.8);
  EXPECT_DOUBLE_EQ(depth_of(store, {9}).complete_generations.value(), 8.0);
}

TEST(PedigreeDepthOfReference, AgreesWithCountingAncestorsAndWithTheReport) {
  for (std::uint64_t seed = 1; seed <= 5; ++seed) {
    const PopulationStore store = random_population(seed, 120);
    const std::vector<std::int32_t> positions = young_positions(store, 60);
    const PedigreeDepth depth = depth_of(store, positions);
    double maximum = 0.0, complete = 0.0, equivalents = 0.0, index = 0.0;
    for (std::size_t i = 0; i < positions.size(); ++i) {
      std::vector<double> counts;
      count_ancestors(store, positions[i], 0, counts);
      double own = 0.0;
      std::size_t full = 0;
      for (std::size_t g = 1; g < counts.size(); ++g) own += share(counts, g);
      while (share(counts, full + 1) == 1.0) ++full;
      maximum += static_cast<double>(counts.size() - 1);
      complete += static_cast<double>(full);
      equivalents += own;
      const double s = line_of(store, store.sire_no[positions[i]]), d = line_of(store, store.dam_no[positions[i]]);
      index += s * d > 0.0 ? 2.0 * s * d / (s + d) : 0.0;
      EXPECT_DOUBLE_EQ(depth.equivalents_of[i], own);
      EXPECT_FLOAT_EQ(store.generation_equivalents[positions[i]], static_cast<float>(own));
      EXPECT_EQ(store.complete_generations[positions[i]], full);
    }
    const double animals = static_cast<double>(positions.size());
    EXPECT_NEAR(depth.maximum_generations.value(), maximum / animals, 1e-12);
    EXPECT_NEAR(depth.complete_generations.value(), complete / animals, 1e-12);
    EXPECT_NEAR(depth.equivalent_generations.value(), equivalents / animals, 1e-12);
    EXPECT_NEAR(depth.completeness_index.value(), index / animals, 1e-12);
  }
}

}  // namespace
}  // namespace pedigreewatch::test
