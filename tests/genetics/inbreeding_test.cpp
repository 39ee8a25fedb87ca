#include "genetics/inbreeding.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <numeric>
#include <string>
#include <vector>

#include "support/numbered_store.h"
#include "support/pedigrees.h"
#include "support/reference_walk.h"
#include "support/streams.h"

namespace pedigreewatch::test {
namespace {

/// Fills F of the whole store; the one place where these tests call the pass. Yields its console lines.
std::vector<std::string> compute(PopulationStore& store, bool english = true) {
  TextOutput console = output_in(english);
  compute_inbreeding(store, make_ancestor_pedigree(store), console);
  return lines_of(console);
}

float inbreeding_of(std::string_view pedigree, std::string_view id) {
  PopulationStore store = pedigree_from_text(pedigree);
  compute(store);
  return animal_named(store, id).inbreeding;
}

/// F of the animals of a numbered store, by position - 1.
std::vector<float> inbreeding_by_position(std::string_view numbered) {
  PopulationStore store = numbered_store(numbered);
  compute(store);
  return {store.inbreeding.values.begin() + 1, store.inbreeding.values.end()};
}

/// Every F must have the very bits of the plain walk: same operations, same order, single precision.
void expect_bits_of_reference(PopulationStore& store) {
  compute(store);
  const std::vector<float> expected = reference_inbreeding(store);
  std::int32_t different = 0;
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    const float want = expected[static_cast<std::size_t>(i) - 1], got = store.inbreeding[i];
    if (std::bit_cast<std::uint32_t>(want) == std::bit_cast<std::uint32_t>(got)) continue;
    if (++different == 1) {
      ADD_FAILURE() << "animal " << i << " of " << store.animal_count << ": " << std::hexfloat << got << " instead of "
                    << want;
    }
  }
  EXPECT_EQ(different, 0) << "animals with other bits";
}

void expect_bits_of_reference(const std::vector<ParentPair>& parents) {
  PopulationStore store = store_of_parents(parents);
  expect_bits_of_reference(store);
}

float largest_inbreeding(const PopulationStore& store) {
  return *std::max_element(store.inbreeding.values.begin() + 1, store.inbreeding.values.end());
}

/// How a random herd is bred. A share of "one in n" with n = 0 is none.
struct BreedingPlan {
  std::int32_t count = 2000;
  std::int32_t founders = 10;
  std::int32_t window = 40;            ///< parents are among so many animals just before
  std::int32_t old_parent_one_in = 0;  ///< parents from anywhere before
  std::int32_t unknown_one_in = 0;
  std::int32_t selfing_one_in = 0;
  std::int32_t largest_litter = 1;
};

bool one_in(RandomNumbers& random, std::int32_t n) {
  return n > 0 && random.below(n) == 0;
}

std::vector<ParentPair> bred_herd(std::uint64_t seed, const BreedingPlan& plan) {
  RandomNumbers random{seed};
  std::vector<ParentPair> herd(static_cast<std::size_t>(plan.founders));
  while (static_cast<std::int32_t>(herd.size()) < plan.count) {
    const std::int32_t last = static_cast<std::int32_t>(herd.size());
    const auto draw = [&]() -> std::int32_t {
      if (one_in(random, plan.unknown_one_in)) return 0;
      const std::int32_t reach = one_in(random, plan.old_parent_one_in) ? last : std::min(last, plan.window);
      return last - random.below(reach);
    };
    ParentPair parents{draw(), draw()};
    if (one_in(random, plan.selfing_one_in)) parents.dam = parents.sire;
    const std::int32_t size = 1 + random.below(plan.largest_litter);
    for (std::int32_t k = 0; k < size && static_cast<std::int32_t>(herd.size()) < plan.count; ++k) {
      herd.push_back(parents);
    }
  }
  return herd;
}

/// The herd as lines of a file in random order: offspring stand before their parents as often as behind them.
std::string shuffled_text(std::uint64_t seed, const std::vector<ParentPair>& herd) {
  RandomNumbers random{seed};
  std::vector<std::size_t> order(herd.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  for (std::size_t i = order.size() - 1; i > 0; --i) {
    std::swap(order[i], order[static_cast<std::size_t>(random.below(static_cast<std::int32_t>(i) + 1))]);
  }
  const auto id_of = [](std::int32_t number) { return number == 0 ? "0" : "a" + std::to_string(number); };
  std::string text;
  for (const std::size_t i : order) {
    text += id_of(static_cast<std::int32_t>(i) + 1) + " " + id_of(herd[i].sire) + " " + id_of(herd[i].dam) +
            (i % 2 == 0 ? " m 2000\n" : " f 2000\n");
  }
  return text;
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

TEST(ComputeInbreeding, OffspringOfUnrelatedFoundersIsExactlyZero) {
  EXPECT_EQ(std::bit_cast<std::uint32_t>(inbreeding_by_position("m\n.\ns=1 d=2\n")[2]), 0U);
}

TEST(ComputeInbreeding, OffspringOfFullSibsIsOneQuarter) {
  EXPECT_EQ(inbreeding_by_position("m\n.\ns=1 d=2 m\ns=1 d=2\ns=3 d=4\n")[4], 0.25F);
}

TEST(ComputeInbreeding, OffspringOfParentAndChildIsOneQuarter) {
  EXPECT_EQ(inbreeding_by_position("m\n.\ns=1 d=2\ns=1 d=3\n")[3], 0.25F);
  EXPECT_EQ(inbreeding_by_position("m\n.\ns=1 d=2 m\ns=3 d=2\n")[3], 0.25F);
}

TEST(ComputeInbreeding, OneAnimalInBothPartsGivesOneHalfForAFounder) {
  EXPECT_EQ(inbreeding_by_position("m\ns=1 d=1\n")[1], 0.5F);
}

TEST(ComputeInbreeding, SelfingOfAnInbredAnimalHalvesWhatIsNotInbred) {
  // 1 - F halves in each generation: 0.5, 0.75, 0.875 ... exact in single precision for 24 generations.
  std::vector<ParentPair> line(1);
  for (std::int32_t i = 1; i <= 24; ++i) line.push_back({i, i});
  PopulationStore store = store_of_parents(line);
  compute(store);
  float rest = 1.0F;
  for (std::int32_t i = 2; i <= 25; ++i) {
    rest *= 0.5F;
    EXPECT_EQ(store.at(i).inbreeding, 1.0F - rest) << "generation " << i - 1;
  }
}

TEST(ComputeInbreeding, OneKnownParentGivesZeroAlsoWhenThatParentIsHighlyInbred) {
  const std::vector<float> f = inbreeding_by_position("m\ns=1 d=1\ns=2 d=2\ns=3\nd=3\n");
  EXPECT_EQ(f[2], 0.75F);
  EXPECT_EQ(f[3], 0.0F);
  EXPECT_EQ(f[4], 0.0F);
}

TEST(ComputeInbreeding, TheFirstAnimalIsNotInbred) {
  EXPECT_EQ(inbreeding_by_position("m\n")[0], 0.0F);
}

TEST(ComputeInbreeding, FullSibsApartAreEachComputedAndEqual) {
  // 5 and 7 are full sibs of full sibs; 6, of other parents, stands between them.
  const std::vector<float> f = inbreeding_by_position("m\n.\ns=1 d=2 m\ns=1 d=2\ns=3 d=4\ns=1 d=4\ns=3 d=4\ns=3 d=4\n");
  EXPECT_EQ(f[4], 0.25F);
  EXPECT_EQ(f[5], 0.25F);
  EXPECT_EQ(f[6], 0.25F);
  EXPECT_EQ(f[7], 0.25F);
}

TEST(ComputeInbreeding, AnAnimalAfterOneWithAnUnknownParentIsNotTakenForItsSib) {
  // 4 has only father 3; 5 has 3 and 2; 6 again has father 3 only; 7 has no mother in common with any of them.
  const std::vector<float> f = inbreeding_by_position("m\n.\ns=1 d=2 m\ns=3\ns=3 d=2\ns=3\ns=3 d=1\ns=1 d=3\n");
  EXPECT_EQ(f, (std::vector<float>{0, 0, 0, 0, 0.25F, 0, 0.25F, 0.25F}));
}

TEST(ComputeInbreeding, InbredParentsCountInTheWithinFamilyVariance) {
  // 5 (F 1/4) from full sibs; 6 from 5 and founder 1: f(5,1) = (f(3,1) + f(4,1)) / 2 = 1/4. 7 from 5 and 5: 1/2 (1 +
  // 1/4). 8 from 7 and 5: f(7,5) = f(5,5) = 5/8.
  const std::vector<float> f = inbreeding_by_position("m\n.\ns=1 d=2 m\ns=1 d=2\ns=3 d=4\ns=1 d=5\ns=5 d=5\ns=7 d=5\n");
  EXPECT_EQ(f, (std::vector<float>{0, 0, 0, 0, 0.25F, 0.25F, 0.625F, 0.625F}));
}

TEST(ComputeInbreeding, OldValuesPlayNoPart) {
  PopulationStore store = numbered_store("m\n.\ns=1 d=2 m\ns=1 d=2\ns=3 d=4\ns=3\n");
  store.inbreeding = ByNumber<float>(store.size(), 0.75F);
  compute(store);
  EXPECT_EQ(store.at(1).inbreeding, 0.0F);
  EXPECT_EQ(store.at(5).inbreeding, 0.25F);
  EXPECT_EQ(store.at(6).inbreeding, 0.0F);
}

TEST(ComputeInbreeding, AnEmptyStorePrintsAndComputesNothing) {
  PopulationStore store = numbered_store("");
  EXPECT_TRUE(compute(store).empty());
  store.animal_count = -1;  // a data file without any line
  EXPECT_TRUE(compute(store).empty());
}

std::vector<std::string> progress_of(std::int32_t count, bool english) {
  PopulationStore store = store_of_parents(std::vector<ParentPair>(static_cast<std::size_t>(count)));
  return compute(store, english);
}

TEST(ComputeInbreedingProgress, TwoHundredAnimalsPrintNothing) {
  EXPECT_TRUE(progress_of(200, true).empty());
}

TEST(ComputeInbreedingProgress, TwoHundredAndOneAnimalsPrintOneLine) {
  EXPECT_EQ(progress_of(201, true),
            std::vector<std::string>{" animal no.          200 inbreeding coefficient estimated"});
}

TEST(ComputeInbreedingProgress, DutchLine) {
  const std::vector<std::string> expected = {
      " dier nr          200 inteeltco\xEB"
      "ffici\xEBnt berekend",
      " dier nr          400 inteeltco\xEB"
      "ffici\xEBnt berekend"};
  EXPECT_EQ(progress_of(401, false), expected);
}

TEST(ComputeInbreedingProgress, IntervalGrowsWithThePopulation) {
  struct Case {
    std::int32_t count, interval, lines;
  };
  // The last line stands for the largest multiple below the number of animals.
  for (const auto& [count, interval, lines] :
       {Case{10000, 200, 49}, Case{10001, 500, 20}, Case{25000, 500, 49}, Case{25001, 1000, 25}}) {
    const std::vector<std::string> printed = progress_of(count, true);
    ASSERT_EQ(printed.size(), static_cast<std::size_t>(lines)) << count;
    const auto line = [](std::int32_t animal_no) {
      return " animal no. " + number(animal_no) + " inbreeding coefficient estimated";
    };
    EXPECT_EQ(printed.front(), line(interval));
    EXPECT_EQ(printed.back(), line(interval * lines));
  }
}

TEST(ComputeInbreedingProgress, LinesComeAlsoInsideALitter) {
  // 398 full sibs: only the first is walked, the line is due all the same.
  std::vector<ParentPair> parents(2);
  parents.resize(400, {1, 2});
  PopulationStore store = store_of_parents(parents);
  EXPECT_EQ(compute(store), std::vector<std::string>{" animal no.          200 inbreeding coefficient estimated"});
}

TEST(ComputeInbreeding, AgreesWithTheTabularMethodOnRandomPedigrees) {
  for (std::uint64_t seed = 1; seed <= 5; ++seed) {
    PopulationStore store = random_pedigree(seed, 300, 12);
    compute(store);
    const auto a = tabular_relationships(store);
    for (std::size_t i = 0; i < store.size(); ++i) {
      EXPECT_NEAR(store.inbreeding.values[i + 1], a[i][i] - 1.0, 1e-6) << "seed " << seed << ", animal " << i + 1;
    }
  }
}

TEST(ComputeInbreeding, AgreesWithTheTabularMethodOnInbredHerds) {
  const BreedingPlan plan = {.count = 400,
                             .founders = 6,
                             .window = 12,
                             .old_parent_one_in = 9,
                             .unknown_one_in = 30,
                             .selfing_one_in = 20,
                             .largest_litter = 5};
  for (std::uint64_t seed = 11; seed <= 14; ++seed) {
    PopulationStore store = store_of_parents(bred_herd(seed, plan));
    compute(store);
    EXPECT_GT(largest_inbreeding(store), 0.3F) << "seed " << seed << " is not inbred enough to test anything";
    const auto a = tabular_relationships(store);
    for (std::size_t i = 0; i < store.size(); ++i) {
      EXPECT_NEAR(store.inbreeding.values[i + 1], a[i][i] - 1.0, 2e-6) << "seed " << seed << ", animal " << i + 1;
    }
  }
}

TEST(ComputeInbreedingBits, RandomHerdsWithOverlappingGenerations) {
  const BreedingPlan plan = {.count = 3000,
                             .founders = 30,
                             .window = 60,
                             .old_parent_one_in = 8,
                             .unknown_one_in = 15,
                             .selfing_one_in = 50,
                             .largest_litter = 4};
  for (std::uint64_t seed = 1; seed <= 4; ++seed) {
    SCOPED_TRACE(seed);
    expect_bits_of_reference(bred_herd(seed, plan));
  }
}

TEST(ComputeInbreedingBits, CompletePedigreesWithoutAnyUnknownParent) {
  const BreedingPlan plan = {.count = 2500, .founders = 16, .window = 48};
  for (std::uint64_t seed = 21; seed <= 23; ++seed) {
    SCOPED_TRACE(seed);
    expect_bits_of_reference(bred_herd(seed, plan));
  }
}

TEST(ComputeInbreedingBits, ManySparsePedigrees) {
  const BreedingPlan plan = {.count = 2500,
                             .founders = 100,
                             .window = 300,
                             .old_parent_one_in = 2,
                             .unknown_one_in = 6,
                             .selfing_one_in = 200,
                             .largest_litter = 3};
  for (std::uint64_t seed = 31; seed <= 38; ++seed) {
    SCOPED_TRACE(seed);
    expect_bits_of_reference(bred_herd(seed, plan));
  }
}

TEST(ComputeInbreedingBits, SmallAndHeavilyInbredHerds) {
  const BreedingPlan plan = {.count = 1500,
                             .founders = 3,
                             .window = 4,
                             .old_parent_one_in = 40,
                             .unknown_one_in = 100,
                             .selfing_one_in = 6,
                             .largest_litter = 3};
  for (std::uint64_t seed = 41; seed <= 44; ++seed) {
    SCOPED_TRACE(seed);
    PopulationStore store = store_of_parents(bred_herd(seed, plan));
    expect_bits_of_reference(store);
    EXPECT_GT(largest_inbreeding(store), 0.8F);
  }
}

TEST(ComputeInbreedingBits, LinesOfTheFileInRandomOrder) {
  const BreedingPlan plan = {.count = 2500,
                             .founders = 25,
                             .window = 50,
                             .old_parent_one_in = 6,
                             .unknown_one_in = 12,
                             .selfing_one_in = 40,
                             .largest_litter = 5};
  for (std::uint64_t seed = 51; seed <= 53; ++seed) {
    SCOPED_TRACE(seed);
    const std::vector<ParentPair> herd = bred_herd(seed, plan);
    PopulationStore sorted = pedigree_from_text(shuffled_text(seed, herd));
    ASSERT_EQ(sorted.size(), herd.size());
    expect_bits_of_reference(sorted);
    // The same animals under their old numbers, up to the order of summation.
    PopulationStore numbered = store_of_parents(herd);
    const std::vector<float> expected = reference_inbreeding(numbered);
    for (const AnimalRecord& animal : records_of(sorted)) {
      const std::size_t number = std::stoul(std::string(animal.id.trimmed()).substr(1));
      ASSERT_NEAR(animal.inbreeding, expected[number - 1], 1e-5F) << animal.id.trimmed();
    }
  }
}

TEST(ComputeInbreedingBits, LargeLitters) {
  const BreedingPlan plan = {.count = 4000,
                             .founders = 10,
                             .window = 120,
                             .old_parent_one_in = 10,
                             .unknown_one_in = 25,
                             .largest_litter = 60};
  for (std::uint64_t seed = 61; seed <= 63; ++seed) {
    SCOPED_TRACE(seed);
    expect_bits_of_reference(bred_herd(seed, plan));
  }
}

TEST(ComputeInbreedingBits, ThousandsOfHalfSibsOfOneSire) {
  // A carthorse stallion and his sons and daughters, bred to each other and back to him.
  RandomNumbers random{71};
  std::vector<ParentPair> herd(20);
  for (std::int32_t i = 21; i <= 1000; ++i) herd.push_back({1, 2 + random.below(19)});
  for (std::int32_t i = 1001; i <= 2000; ++i) herd.push_back({21 + random.below(980), 21 + random.below(980)});
  for (std::int32_t i = 2001; i <= 3000; ++i) herd.push_back({1, 1001 + random.below(1000)});
  for (std::int32_t i = 3001; i <= 3600; ++i) herd.push_back({2001 + random.below(1000), 1 + random.below(3000)});
  expect_bits_of_reference(herd);
}

TEST(ComputeInbreedingBits, FullSibMatingForManyGenerations) {
  std::vector<ParentPair> herd(2);
  std::int32_t a = 1, b = 2;
  for (std::int32_t generation = 1; generation <= 300; ++generation) {
    const std::int32_t first = static_cast<std::int32_t>(herd.size()) + 1;
    for (std::int32_t k = 0; k < 4; ++k) herd.push_back({a, b});
    a = first + generation % 4;
    b = first + (generation + 1 + generation % 3) % 4;
  }
  PopulationStore store = store_of_parents(herd);
  expect_bits_of_reference(store);
  // F(t) = (1 + 2 F(t-1) + F(t-2)) / 4, from the second generation of sibs on: 0.25, 0.375, 0.5, 0.59375.
  EXPECT_EQ(store.at(7).inbreeding, 0.25F);
  EXPECT_EQ(store.at(11).inbreeding, 0.375F);
  EXPECT_EQ(store.at(15).inbreeding, 0.5F);
  EXPECT_EQ(store.at(19).inbreeding, 0.59375F);
}

TEST(ComputeInbreedingBits, ALineBredToItsOwnParentsForTwoThousandGenerations) {
  std::vector<ParentPair> herd(2);
  for (std::int32_t i = 3; i <= 2000; ++i) {
    herd.push_back(i % 2 == 0 ? ParentPair{i - 1, i - 2} : ParentPair{i - 2, i - 1});
  }
  expect_bits_of_reference(herd);
}

TEST(ComputeInbreedingBits, ChainsOfSelfing) {
  // Each line is selfed for 120 generations, a few outcrosses between the lines on the way.
  RandomNumbers random{81};
  constexpr std::int32_t lines = 6;
  std::vector<ParentPair> herd(lines);
  std::vector<std::int32_t> head(lines);
  std::iota(head.begin(), head.end(), 1);
  for (std::int32_t generation = 1; generation <= 120; ++generation) {
    for (std::int32_t line = 0; line < lines; ++line) {
      std::int32_t& own = head[static_cast<std::size_t>(line)];
      const bool crosses = generation % 17 == 3 * line % 17;
      const std::int32_t other = crosses ? head[static_cast<std::size_t>(random.below(lines))] : own;
      herd.push_back({own, other});
      own = static_cast<std::int32_t>(herd.size());
    }
  }
  expect_bits_of_reference(herd);
}

/// Lines of selfing (one animal a generation) or of full sibs (two), bred for `generations`; behind each further
/// animals of any generation, out of two of one line or of two lines, that go on for a while.
std::vector<ParentPair> long_lines(std::uint64_t seed, std::int32_t width, std::int32_t generations) {
  RandomNumbers random{seed};
  constexpr std::int32_t lines = 3;
  std::vector<ParentPair> herd(static_cast<std::size_t>(lines * width));
  for (std::int32_t generation = 1; generation <= generations; ++generation) {
    for (std::int32_t line = 0; line < lines; ++line) {
      const std::int32_t first = lines * width * (generation - 1) + line * width + 1;
      for (std::int32_t k = 0; k < width; ++k) herd.push_back({first, first + width - 1});
    }
  }
  const std::int32_t pure = static_cast<std::int32_t>(herd.size());
  for (std::int32_t i = 0; i < 150; ++i) {
    const std::int32_t last = static_cast<std::int32_t>(herd.size());
    const std::int32_t reach = i % 3 == 0 ? last : pure;
    herd.push_back({1 + random.below(reach), i % 5 == 0 ? last : 1 + random.below(reach)});
  }
  return herd;
}

TEST(ComputeInbreedingBits, LongLinesThatArePassedOver) {
  for (std::uint64_t seed = 82; seed <= 84; ++seed) {
    SCOPED_TRACE(seed);
    expect_bits_of_reference(long_lines(seed, 1, 300));
    expect_bits_of_reference(long_lines(seed, 2, 250));
  }
}

TEST(ComputeInbreedingBits, ALineOfSibsWithOffspringOfEachGeneration) {
  // Beside the two that go on, a third sib of each generation is mated to the first of the next.
  std::vector<ParentPair> herd(2);
  std::int32_t a = 1, b = 2, third = 1;
  for (std::int32_t generation = 1; generation <= 400; ++generation) {
    const std::int32_t first = static_cast<std::int32_t>(herd.size()) + 1;
    for (std::int32_t k = 0; k < 3; ++k) herd.push_back({a, b});
    herd.push_back({third, first});
    a = first;
    b = first + 1;
    third = first + 2;
  }
  herd.push_back({static_cast<std::int32_t>(herd.size()), third});
  expect_bits_of_reference(herd);
}

TEST(ComputeInbreedingBits, BackcrossesToOneAncestor) {
  std::vector<ParentPair> herd(2);
  herd.push_back({1, 2});
  for (std::int32_t i = 4; i <= 400; ++i) herd.push_back(i % 3 == 0 ? ParentPair{i - 1, 1} : ParentPair{1, i - 1});
  expect_bits_of_reference(herd);
}

TEST(ComputeInbreedingBits, TheSameParentsSeparatedByOtherAnimals) {
  // Pairs of one generation take turns for long: A B A B C A ..., also with father and mother exchanged.
  RandomNumbers random{91};
  std::vector<ParentPair> herd(8);
  std::int32_t first = 1, size = 8;
  for (std::int32_t generation = 1; generation <= 40; ++generation) {
    std::vector<ParentPair> pairs;
    for (std::int32_t p = 0; p < 4; ++p) pairs.push_back({first + random.below(size), first + random.below(size)});
    pairs.push_back({pairs[0].dam, pairs[0].sire});
    pairs.push_back({pairs[1].sire, 0});
    const std::int32_t next = static_cast<std::int32_t>(herd.size()) + 1;
    for (std::int32_t k = 0; k < 60; ++k) {
      const std::int32_t p = k < 30 ? k % 2 : random.below(static_cast<std::int32_t>(pairs.size()));
      herd.push_back(pairs[static_cast<std::size_t>(p)]);
    }
    first = next;
    size = 60;
  }
  expect_bits_of_reference(herd);
}

TEST(ComputeInbreedingBits, DeepPedigreesOfDiscreteGenerations) {
  // 150 generations of 16 animals: every animal of a generation is an ancestor of all later ones before long.
  for (std::uint64_t seed = 101; seed <= 102; ++seed) {
    SCOPED_TRACE(seed);
    RandomNumbers random{seed};
    std::vector<ParentPair> herd(16);
    for (std::int32_t generation = 1; generation <= 150; ++generation) {
      const std::int32_t first = 16 * (generation - 1) + 1;
      for (std::int32_t k = 0; k < 16; ++k) herd.push_back({first + random.below(6), first + 6 + random.below(10)});
    }
    expect_bits_of_reference(herd);
  }
}

TEST(ComputeInbreedingBits, LongMaternalLinesWithUnknownFathers) {
  // One parent known for generations, then the ends of two such lines meet, and again their offspring.
  RandomNumbers random{111};
  std::vector<ParentPair> herd(2);
  std::int32_t a = 1, b = 1;
  for (std::int32_t i = 3; i <= 900; ++i) {
    ParentPair parents = i % 2 == 0 ? ParentPair{0, a} : ParentPair{b, 0};
    if (i % 50 == 0) parents = {a, b};
    if (i % 75 == 0) parents = {a, 1 + random.below(i - 1)};
    herd.push_back(parents);
    (i % 2 == 0 ? a : b) = i;
  }
  expect_bits_of_reference(herd);
}

TEST(ComputeInbreedingBits, TinyNegativeValuesFromRoundingStay) {
  // Two inbred herds that never met, then crosses between them: F is 0 up to rounding, and rounding falls below it.
  const BreedingPlan plan = {.count = 600, .founders = 8, .window = 20, .old_parent_one_in = 10, .unknown_one_in = 40};
  std::vector<ParentPair> herd = bred_herd(121, plan);
  for (const ParentPair& parents : bred_herd(122, plan)) {
    const auto moved = [](std::int32_t number) { return number == 0 ? 0 : number + 600; };
    herd.push_back({moved(parents.sire), moved(parents.dam)});
  }
  RandomNumbers random{123};
  for (std::int32_t i = 0; i < 400; ++i) herd.push_back({1 + random.below(600), 601 + random.below(600)});
  PopulationStore store = store_of_parents(herd);
  expect_bits_of_reference(store);
  std::int32_t negative = 0;
  for (std::int32_t i = 1201; i <= 1600; ++i) {
    EXPECT_NEAR(store.at(i).inbreeding, 0.0F, 2e-6F);
    if (store.at(i).inbreeding < 0.0F) ++negative;
  }
  EXPECT_GT(negative, 10);
}

TEST(ComputeInbreedingBits, AHerdbookOfTwelveThousandAnimals) {
  const BreedingPlan plan = {
      .count = 12000, .founders = 1500, .window = 3000, .unknown_one_in = 4, .largest_litter = 6};
  expect_bits_of_reference(bred_herd(141, plan));
}

/// Mostly animals with one known parent, which need no walk but link up long lines; one in `walked_one_in` has two.
std::vector<ParentPair> thin_herd(std::uint64_t seed, std::int32_t count, std::int32_t window, int walked_one_in) {
  RandomNumbers random{seed};
  std::vector<ParentPair> herd(20);
  for (std::int32_t i = 21; i <= count; ++i) {
    const std::int32_t reach = std::min(i - 1, window);
    ParentPair parents{i - 1 - random.below(reach), i - 1 - random.below(reach)};
    if (!one_in(random, walked_one_in)) (random.below(2) == 0 ? parents.sire : parents.dam) = 0;
    herd.push_back(parents);
  }
  return herd;
}

TEST(ComputeInbreedingBits, AncestorsFarApartAmongTwentyThousandAnimals) {
  for (const std::int32_t window : {12, 60, 20000}) {
    SCOPED_TRACE(window);
    PopulationStore store = store_of_parents(thin_herd(151, 20000, window, 25));
    EXPECT_GT(make_ancestor_pedigree(store).count(), 9000);
    expect_bits_of_reference(store);
    const auto inbred = std::count_if(store.inbreeding.values.begin() + 1, store.inbreeding.values.end(),
                                      [](float inbreeding) { return inbreeding > 0.0F; });
    EXPECT_GT(inbred, 50);
  }
}

TEST(ComputeInbreedingBits, AnyNumberOfMatings) {
  // From one mating to fifty, all of one generation of inbred parents: full and unfilled sets of walks side by side.
  const BreedingPlan plan = {.count = 120, .founders = 4, .window = 15, .old_parent_one_in = 6};
  const std::vector<ParentPair> parents = bred_herd(161, plan);
  for (std::int32_t matings = 1; matings <= 50; ++matings) {
    SCOPED_TRACE(matings);
    RandomNumbers random{static_cast<std::uint64_t>(matings)};
    std::vector<ParentPair> herd = parents;
    for (std::int32_t k = 0; k < matings; ++k) herd.push_back({1 + random.below(120), 1 + random.below(120)});
    expect_bits_of_reference(herd);
  }
}

TEST(ReferenceWalk, GivesTheSameToAllMembersOfALitter) {
  // What a litter mate is spared is a walk with the same result.
  const BreedingPlan plan = {.count = 500, .founders = 5, .window = 30, .old_parent_one_in = 5, .largest_litter = 6};
  const PopulationStore store = store_of_parents(bred_herd(131, plan));
  const std::vector<float> f = reference_inbreeding(store);
  for (std::int32_t i = 6; i <= store.animal_count; ++i) {
    EXPECT_EQ(std::bit_cast<std::uint32_t>(reference_walk(store, f, i)),
              std::bit_cast<std::uint32_t>(f[static_cast<std::size_t>(i) - 1]));
  }
}

}  // namespace
}  // namespace pedigreewatch::test
