// The parts of F by hand on small families, by the definition founder by founder, and by dropping genes.
#include "animals/founder_inbreeding.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "support/diversity_pedigrees.h"
#include "support/pedigrees.h"

namespace pedigreewatch::test {
namespace {

/// A founder: its position, and whether it is the unknown parent of the animal there.
using FounderKey = std::pair<std::int32_t, bool>;

PopulationStore bred_from(std::string_view text) {
  return with_inbreeding(pedigree_from_text(text));
}

/// The parts as a text: "rex 0.125, ? of pup 0.25".
std::string parts_of(const PopulationStore& store, std::string_view id) {
  std::string text;
  for (const FounderPart& part : inbreeding_by_founder(store, animal_named(store, id).number).parts) {
    text += (text.empty() ? "" : ", ") + std::string(part.is_unknown_parent ? "? of " : "") +
            std::string(store.id(part.position)) + " " + std::to_string(part.part);
  }
  return text;
}

constexpr std::string_view sib_families =
    "rex  0   0    m 2001\n"
    "saar 0   0    f 2001\n"
    "mies 0   0    f 2001\n"
    "bram rex saar m 2003\n"
    "tess rex saar f 2003\n"
    "puck rex mies f 2003\n"
    "pup  bram puck m 2005\n"
    "kid  bram tess f 2005\n";

TEST(FounderInbreeding, OfHalfAndOfFullSibs) {
  const PopulationStore store = bred_from(sib_families);
  EXPECT_EQ(parts_of(store, "pup"), "rex 0.125000") << "Saar and Mies are ancestors by one parent only";
  EXPECT_EQ(parts_of(store, "kid"), "saar 0.125000, rex 0.125000") << "of equal ones the younger first";
  EXPECT_EQ(parts_of(store, "bram"), "");
  EXPECT_EQ(parts_of(store, "rex"), "");
  const FounderInbreeding pup = inbreeding_by_founder(store, animal_named(store, "pup").number);
  EXPECT_EQ(pup.ancestors, 5) << "Bram, Puck, Rex, Saar, Mies";
  EXPECT_FALSE(pup.is_too_large);
}

TEST(FounderInbreeding, OfSiresMatedWithTheirDaughters) {
  const PopulationStore store = bred_from(
      "a0 0  0  m 2001\nb0 0  0  f 2001\nk1 a0 b0 f 2002\nm1 a0 k1 m 2003\nf1 m1 k1 f 2004\nm2 m1 f1 m 2005\n");
  EXPECT_EQ(parts_of(store, "m1"), "a0 0.250000");
  // Of a0: f(m1, k1) = [f(a0, k1) + f(k1, k1)] / 2 = [1/4 + 1/4] / 2; of b0: [0 + 1/4] / 2.
  EXPECT_EQ(parts_of(store, "f1"), "a0 0.250000, b0 0.125000");
  // Of a0: f(m1, f1) = [f(m1, m1) + f(m1, k1)] / 2 with f(m1, m1) = [3/4 + 1/4] / 2; of b0: [(1/4) / 2 + 1/8] / 2.
  EXPECT_EQ(parts_of(store, "m2"), "a0 0.375000, b0 0.125000");
}

TEST(FounderInbreeding, AnUnknownParentIsAFounder) {
  const PopulationStore store = bred_from(
      "rex 0 0 m 2001\nkim rex 0 f 2002\nx 0 0 m 2001\ny 0 0 m 2001\np x kim m 2003\nq y kim f 2003\nz p q m 2004\n"
      "w 0 kim m 2003\nv w kim f 2005\n");
  // f(p, q) = f(kim, kim) / 4 = 1/8, of which Rex and the unknown dam have one half each: (1/2 x 1/2) / 4.
  EXPECT_EQ(parts_of(store, "z"), "? of kim 0.062500, rex 0.062500");
  // f(w, kim) = f(kim, kim) / 2 = 1/4.
  EXPECT_EQ(parts_of(store, "v"), "? of kim 0.125000, rex 0.125000");
}

TEST(FounderInbreeding, AfterSelfingAllIsFromTheOneFounder) {
  const PopulationStore store = bred_from("a 0 0 m 2001\ns a a m 2002\nt s s m 2003\n");
  EXPECT_EQ(parts_of(store, "s"), "a 0.500000");
  EXPECT_EQ(parts_of(store, "t"), "a 0.750000");
}

/// F of all animals from one founder by the definition, with the table of all pairs: what a gene of a and one of b have
/// from the same gene of it. Entry 0 is the unknown parent.
class PlainFounder {
 public:
  PlainFounder(const PopulationStore& store, FounderKey founder) : store_(store), founder_(founder) {
    const auto size = static_cast<std::size_t>(store.animal_count) + 1;
    genes_.assign(size, 0.0);
    shared_.assign(size, std::vector<double>(size, 0.0));
    for (std::int32_t i = 1; i <= store.animal_count; ++i) add(i);
  }
  double part_of(std::int32_t i) const {
    return shared_[static_cast<std::size_t>(store_.sire_no[i])][static_cast<std::size_t>(store_.dam_no[i])];
  }

 private:
  void add(std::int32_t i) {
    const auto own = static_cast<std::size_t>(i), sire = static_cast<std::size_t>(store_.sire_no[i]),
               dam = static_cast<std::size_t>(store_.dam_no[i]);
    const bool has_it_as_parent = founder_ == FounderKey(i, true);
    genes_[own] = 0.5 * (genes_[sire] + genes_[dam] + (has_it_as_parent ? 1.0 : 0.0));
    if (founder_ == FounderKey(i, false)) genes_[own] = 1.0;
    for (std::size_t other = 1; other < own; ++other) {
      shared_[own][other] = shared_[other][own] = 0.5 * (shared_[sire][other] + shared_[dam][other]);
    }
    shared_[own][own] = 0.5 * (genes_[own] + shared_[sire][dam]);
  }

  const PopulationStore& store_;
  FounderKey founder_;
  std::vector<double> genes_;
  std::vector<std::vector<double>> shared_;
};

std::vector<FounderKey> founders_of(const PopulationStore& store) {
  std::vector<FounderKey> founders;
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    const bool has_sire = store.sire_no[i] != 0, has_dam = store.dam_no[i] != 0;
    if (!has_sire || !has_dam) founders.emplace_back(i, has_sire || has_dam);
  }
  return founders;
}

TEST(FounderInbreeding, IsThatOfTheDefinitionInRandomPedigrees) {
  for (std::uint64_t seed = 1; seed <= 6; ++seed) {
    const PopulationStore store = random_population(seed, 150);
    std::vector<std::map<FounderKey, double>> expected(store.size() + 1);
    for (const FounderKey& founder : founders_of(store)) {
      const PlainFounder plain(store, founder);
      for (std::int32_t i = 1; i <= store.animal_count; ++i) {
        if (plain.part_of(i) > 0.0) expected[static_cast<std::size_t>(i)][founder] = plain.part_of(i);
      }
    }
    const std::vector<std::vector<double>> relationships = tabular_relationships(store);
    for (std::int32_t i = 1; i <= store.animal_count; ++i) {
      const std::vector<FounderPart> parts = inbreeding_by_founder(store, i).parts;
      const std::map<FounderKey, double>& plain = expected[static_cast<std::size_t>(i)];
      ASSERT_EQ(parts.size(), plain.size()) << "animal " << i << " of seed " << seed;
      double sum = 0.0;
      for (const FounderPart& part : parts) {
        const auto found = plain.find({part.position, part.is_unknown_parent});
        ASSERT_NE(found, plain.end());
        EXPECT_NEAR(part.part, found->second, 1e-12);
        sum += part.part;
      }
      EXPECT_NEAR(sum, relationships[static_cast<std::size_t>(i) - 1][static_cast<std::size_t>(i) - 1] - 1.0, 1e-11);
      EXPECT_TRUE(std::ranges::is_sorted(parts, {}, [](const FounderPart& part) { return -part.part; }));
    }
  }
}

/// How often both genes of the animal at `position` were copies of one gene, by the founder that had it.
std::map<FounderKey, double> dropped_parts(const PopulationStore& store, std::int32_t position, int drops) {
  RandomNumbers random{20};
  std::map<FounderKey, double> parts;
  std::vector<std::array<std::int32_t, 2>> genes(store.size() + 1);
  for (int drop = 0; drop < drops; ++drop) {
    for (std::int32_t i = 1; i <= position; ++i) {
      std::array<std::int32_t, 2>& own = genes[static_cast<std::size_t>(i)];
      const auto drawn = [&](std::int32_t parent, std::int32_t new_gene) {
        return parent == 0 ? new_gene
                           : genes[static_cast<std::size_t>(parent)][static_cast<std::size_t>(random.below(2))];
      };
      own = {drawn(store.sire_no[i], 2 * i), drawn(store.dam_no[i], 2 * i + 1)};
    }
    const std::array<std::int32_t, 2> own = genes[static_cast<std::size_t>(position)];
    if (own[0] != own[1]) continue;
    const std::int32_t origin = own[0] / 2;
    parts[{origin, store.sire_no[origin] != 0 || store.dam_no[origin] != 0}] += 1.0 / drops;
  }
  return parts;
}

TEST(FounderInbreeding, IsWhatDroppedGenesComeTo) {
  const PopulationStore store = random_population(7, 80);
  std::int32_t position = 0;
  std::vector<FounderPart> parts;
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    std::vector<FounderPart> own = inbreeding_by_founder(store, i).parts;
    if (own.size() <= parts.size()) continue;
    parts = std::move(own);
    position = i;
  }
  constexpr int drops = 20000;
  const std::map<FounderKey, double> dropped = dropped_parts(store, position, drops);
  ASSERT_GT(parts.size(), 3U);
  double sum = 0.0;
  for (const FounderPart& part : parts) {
    const auto found = dropped.find({part.position, part.is_unknown_parent});
    const double seen = found == dropped.end() ? 0.0 : found->second;
    EXPECT_NEAR(seen, part.part, 4.0 * std::sqrt(part.part * (1.0 - part.part) / drops)) << part.position;
    sum += seen;
  }
  double all = 0.0;
  for (const auto& [founder, seen] : dropped) all += seen;
  EXPECT_NEAR(sum, all, 1e-9) << "no founder beside those";
}

/// Each animal is of the two before it, so that there is one animal a generation: x3 to x`count`, of x1 and x2.
PopulationStore generations_of_one(std::int32_t count) {
  std::string text = "x1 0 0 m 2001\nx2 0 0 f 2001\n";
  for (std::int32_t i = 3; i <= count; ++i) {
    text += "x" + std::to_string(i) + " x" + std::to_string(i - 1) + " x" + std::to_string(i - 2) + " m 2001\n";
  }
  return bred_from(text);
}

// The parents of x4 to x6 are carried up: the younger one of each, x3 to x5, and all older than it: 3 + 4 + 5 steps.
TEST(FounderInbreeding, IsLeftOutBeyondTheStepsThatItMayTake) {
  const PopulationStore store = generations_of_one(6);
  const FounderInbreeding within = inbreeding_by_founder(store, 6, 12), beyond = inbreeding_by_founder(store, 6, 11);
  EXPECT_FALSE(within.is_too_large);
  EXPECT_EQ(within.parts.size(), 2U);
  EXPECT_TRUE(beyond.is_too_large);
  EXPECT_TRUE(beyond.parts.empty());
  EXPECT_EQ(beyond.ancestors, 5);
}

// The sum of 3 to n - 1 is n (n - 1) / 2 - 3: 29,996,382 steps of 7746 animals, 30,004,128 of one more.
TEST(FounderInbreeding, OfThirtyMillionStepsAtMost) {
  const PopulationStore store = generations_of_one(7747);
  const FounderInbreeding within = inbreeding_by_founder(store, 7746);
  ASSERT_EQ(within.parts.size(), 2U);
  EXPECT_NEAR(within.parts[0].part + within.parts[1].part, double{store.inbreeding[7746]}, 1e-6);
  EXPECT_TRUE(inbreeding_by_founder(store, 7747).is_too_large);
}

// Sixteen full brothers with as many full sisters: parents of one rank beyond the eight that are carried up together.
TEST(FounderInbreeding, OfMoreParentsOfOneRankThanAreCarriedUpTogether) {
  std::string text = "a 0 0 m 2001\nb 0 0 f 2001\n";
  for (int k = 16; k < 32; ++k) {
    const std::string n = std::to_string(k);
    text += "m" + n + " a b m 2002\nf" + n + " a b f 2002\ny" + n + " m" + n + " f" + n + " m 2003\n";
  }
  for (int k = 15; k >= 1; --k) {  // the young of each two, down to one
    text += "y" + std::to_string(k) + " y" + std::to_string(2 * k) + " y" + std::to_string(2 * k + 1) + " m 2004\n";
  }
  const PopulationStore store = bred_from(text);
  // f of two of different pairs of full sibs is 1/4, however often such are mated: half of it from either founder.
  EXPECT_EQ(parts_of(store, "y16"), "b 0.125000, a 0.125000");
  EXPECT_EQ(parts_of(store, "y1"), "b 0.125000, a 0.125000");
}

}  // namespace
}  // namespace pedigreewatch::test
