// The walk is made for several generations of processors. What it yields must not tell which one the machine has.
#if defined(__x86_64__)
#include <gtest/gtest.h>

#include <bit>
#include <vector>

#include "genetics/ancestor_walk.h"
#include "support/diversity_pedigrees.h"
#include "support/pedigrees.h"

namespace pedigreewatch {

// Made from the source of the walk by tests/CMakeLists.txt.
void walk_with_default(AncestorWalk& walk, std::span<const Mating> matings, std::span<float> results);
void walk_with_avx2(AncestorWalk& walk, std::span<const Mating> matings, std::span<float> results);
void walk_with_avx512f(AncestorWalk& walk, std::span<const Mating> matings, std::span<float> results);

namespace test {
namespace {

using Walk = void (*)(AncestorWalk& walk, std::span<const Mating> matings, std::span<float> results);

/// The bits of F of the offspring of many matings, in batches of every size.
std::vector<std::uint32_t> bits_of_many_matings(Walk walk_of_processor) {
  const PopulationStore store = with_inbreeding(random_pedigree(9, 700, 30));
  const AncestorPedigree ancestors = make_ancestor_pedigree(store);
  AncestorWalk walk = make_ancestor_walk(ancestors);
  for (std::int32_t j = 1; j <= ancestors.count(); ++j) {
    set_inbreeding(walk, j, store.inbreeding[ancestors.position[j]]);
  }
  RandomNumbers random{4};
  std::vector<std::uint32_t> bits;
  for (std::size_t batch = 0; batch < 50 * lane_count; ++batch) {
    std::vector<Mating> matings(batch % lane_count + 1);
    for (Mating& mating : matings) {
      mating = {1 + random.below(ancestors.count()), 1 + random.below(ancestors.count())};
    }
    std::vector<float> results(matings.size());
    walk_of_processor(walk, matings, results);
    for (const float result : results) bits.push_back(std::bit_cast<std::uint32_t>(result));
  }
  return bits;
}

TEST(ProcessorVersions, YieldTheSameBits) {
  const std::vector<std::uint32_t> expected = bits_of_many_matings(walk_ancestors);
  std::size_t inbred = 0;
  for (const std::uint32_t bits : expected) inbred += std::bit_cast<float>(bits) > 0.0F ? 1U : 0U;
  EXPECT_GT(inbred, expected.size() / 2);  // not all of them are 0
  EXPECT_EQ(bits_of_many_matings(walk_with_default), expected);
  if (__builtin_cpu_supports("avx2") != 0) {
    EXPECT_EQ(bits_of_many_matings(walk_with_avx2), expected);
  }
  if (__builtin_cpu_supports("avx512f") != 0) {
    EXPECT_EQ(bits_of_many_matings(walk_with_avx512f), expected);
  }
}

}  // namespace
}  // namespace test
}  // namespace pedigreewatch
#endif
