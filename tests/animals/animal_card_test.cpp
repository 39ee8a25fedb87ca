// The figures of a card: by hand on small families, and against the table of all relationships.
#include "animals/animal_card.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "diversity/recent_inbreeding.h"
#include "diversity/reference_population.h"
#include "support/diversity_pedigrees.h"
#include "support/pedigrees.h"

namespace pedigreewatch::test {
namespace {

/// A population with what all of its cards are made from.
struct CardPopulation {
  PopulationStore store;
  std::vector<std::int32_t> today;
  ByNumber<float> mean_kinship;
  ByNumber<KnownLine> lines;
  ByNumber<float> recent_3, recent_5, ancestral;

  CardPopulation(PopulationStore animals, std::vector<std::int32_t> positions)
      : store(std::move(animals)), today(std::move(positions)) {
    mean_kinship = mean_kinship_of_all(store, today);
    lines = count_known_lines(store);
    recent_3 = recent_inbreeding(store, 3);
    recent_5 = recent_inbreeding(store, 5);
    ancestral = ancestral_inbreeding(store);
  }
  AnimalCard card(std::string_view id) const { return card_at(animal_named(store, id).number); }
  AnimalCard card_at(std::int32_t position) const {
    return make_card({store, today, mean_kinship, lines, recent_3, recent_5, ancestral}, position);
  }
};

constexpr std::string_view family =
    "rex  0   0    m 2001\n"
    "saar 0   0    f 2001\n"
    "mies 0   0    f 2001\n"
    "bram rex saar m 2003\n"
    "tess rex saar f 2003\n"
    "puck rex mies f 2003\n"
    "pup  bram puck m 2005\n"
    "kid  bram tess f 2005\n";

CardPopulation village() {
  PopulationStore store = with_inbreeding(pedigree_from_text(family));
  std::vector<std::int32_t> today = positions_of(store, {"pup", "kid"});
  return {std::move(store), std::move(today)};
}

TEST(AnimalCard, NamesTheAncestorsThatItsInbreedingComesFrom) {
  const CardPopulation population = village();
  const AnimalCard pup = population.card("pup");
  EXPECT_DOUBLE_EQ(pup.parts.kinship, 0.125);
  EXPECT_EQ(population.store.id(pup.parts.largest[0].position), "rex");
  EXPECT_EQ(pup.parts.largest[1].position, 0);
  const AnimalCard kid = population.card("kid");
  EXPECT_DOUBLE_EQ(kid.parts.kinship, 0.25);
  EXPECT_DOUBLE_EQ(kid.parts.largest[0].contribution, 0.125);
  EXPECT_EQ(population.card("rex").parts.kinship, 0.0);
}

// Sires mated with their daughters, again and again.
constexpr std::string_view back_to_father =
    "a0 0  0  m 2001\nb0 0  0  f 2001\nk1 a0 b0 f 2002\nm1 a0 k1 m 2003\nf1 m1 k1 f 2004\nm2 m1 f1 m 2005\n";

TEST(AnimalCard, TellsRecentAndAncestralInbreeding) {
  const CardPopulation population(with_inbreeding(pedigree_from_text(back_to_father)), {1});
  // m1, of a0 and his daughter: F = 1/4, of which nothing is beyond three generations. Its parents are not inbred.
  const AnimalCard m1 = population.card("m1");
  EXPECT_DOUBLE_EQ(m1.recent_3, 0.25);
  EXPECT_DOUBLE_EQ(m1.ancestral, 0.0);
  // f1, of m1 (F 1/4) and k1: fa = (0 + 1/4) / 2.
  EXPECT_DOUBLE_EQ(population.card("f1").ancestral, 0.125);
  // m2, of m1 and f1: f(m1, f1) = [f(m1, m1) + f(m1, k1)] / 2 = [5/8 + 3/8] / 2, and fa = [1/4 + 1/8 + 7/8 F(f1)] / 2
  // with F(f1) = 3/8.
  const AnimalCard m2 = population.card("m2");
  EXPECT_DOUBLE_EQ(m2.parts.kinship, 0.5);
  EXPECT_DOUBLE_EQ(m2.ancestral, (0.25 + 0.125 + 0.875 * 0.375) / 2.0);
  EXPECT_DOUBLE_EQ(m2.recent_3, 0.5);
}

TEST(AnimalCard, TellsWhatIsOlderThanThreeGenerations) {
  // Both lines go back to a0, in the fourth generation: F = (1/2)^7, all of it beyond three generations.
  constexpr std::string_view two_lines =
      "a0 0  0  m 2001\nl1 a0 0  m 2002\nr1 a0 0  f 2002\nl2 l1 0  m 2003\nr2 0  r1 f 2003\nl3 l2 0  m 2004\n"
      "r3 0  r2 f 2004\nz  l3 r3 m 2005\n";
  const CardPopulation population(with_inbreeding(pedigree_from_text(two_lines)), {1});
  const AnimalCard z = population.card("z");
  EXPECT_DOUBLE_EQ(z.parts.kinship, 1.0 / 128.0);
  EXPECT_DOUBLE_EQ(z.recent_3, 0.0);
  EXPECT_DOUBLE_EQ(z.recent_5, 1.0 / 128.0);
}

TEST(AnimalCard, RanksAmongTheAnimalsOfItsYear) {
  const CardPopulation population = village();
  // With Pup and Kid: Bram (0.3125 + 0.375) / 2 = 0.34375, Tess (0.1875 + 0.375) / 2, Puck (0.3125 + 0.125) / 2.
  EXPECT_FLOAT_EQ(static_cast<float>(population.card("bram").mean_kinship.value_or(0.0)), 0.34375F);
  EXPECT_FLOAT_EQ(static_cast<float>(population.card("puck").mean_kinship.value_or(0.0)), 0.21875F);
  EXPECT_EQ(population.card("puck").rank->rank, 1);
  EXPECT_EQ(population.card("tess").rank->rank, 2);
  EXPECT_EQ(population.card("bram").rank->rank, 3);
  EXPECT_EQ(population.card("bram").rank->animals, 3);
}

TEST(AnimalCard, EqualOnesShareTheBestPlace) {
  PopulationStore store = with_inbreeding(
      pedigree_from_text("rex 0 0 m 2001\nsaar 0 0 f 2001\na rex saar m 2003\nb rex saar f 2003\nc 0 0 f 2003\n"));
  const CardPopulation population(std::move(store), {1, 2});
  EXPECT_EQ(population.card("c").rank->rank, 1);
  EXPECT_EQ(population.card("a").rank->rank, 2);
  EXPECT_EQ(population.card("b").rank->rank, 2);
}

TEST(AnimalCard, HasNoRankWithoutAYearOrAReferencePopulation) {
  PopulationStore store = with_inbreeding(pedigree_from_text("rex 0 0 m 0\nsaar 0 0 f 2001\n"));
  const PopulationStore same = store;
  const CardPopulation with(std::move(store), {1, 2}), without(same, {});
  EXPECT_FALSE(with.card("rex").rank.has_value());
  EXPECT_TRUE(with.card("rex").mean_kinship.has_value());
  EXPECT_FALSE(without.card("saar").rank.has_value());
  EXPECT_FALSE(without.card("saar").mean_kinship.has_value());
  EXPECT_EQ(without.card("saar").today.animals, 0);
}

TEST(AnimalCard, TellsWhatTheAnimalsOfTodayHaveFromIt) {
  const CardPopulation population = village();
  // Rex: a half of Pup's genes (a quarter through each parent), a half of Kid's.
  const PartOfToday rex = population.card("rex").today;
  EXPECT_DOUBLE_EQ(rex.genes, 0.5);
  EXPECT_EQ(rex.descendants, 2);
  EXPECT_EQ(rex.animals, 2);
  EXPECT_FALSE(rex.is_one);
  const PartOfToday mies = population.card("mies").today;
  EXPECT_DOUBLE_EQ(mies.genes, 0.125);
  EXPECT_EQ(mies.descendants, 1);
  const PartOfToday pup = population.card("pup").today;
  EXPECT_DOUBLE_EQ(pup.genes, 0.5) << "itself, one of two";
  EXPECT_EQ(pup.descendants, 0);
  EXPECT_TRUE(pup.is_one);
}

TEST(AnimalCard, CountsKnownAncestorsOnBothSides) {
  const CardPopulation population = village();
  const AnimalCard pup = population.card("pup");
  EXPECT_EQ(population.store.id(pup.sire.parent), "bram");
  EXPECT_EQ(pup.sire.known, (std::array<std::int32_t, 5>{1, 2, 0, 0, 0}));
  EXPECT_EQ(population.card("rex").dam.known, (std::array<std::int32_t, 5>{0, 0, 0, 0, 0}));
  // Two generations of five are whole on either side.
  EXPECT_DOUBLE_EQ(pup.completeness_index, 0.4);
}

// The parts are those of the relationship between the parents, which the tabular method yields too.
TEST(AnimalCard, PartsAddUpToFInRandomPedigrees) {
  for (std::uint64_t seed = 1; seed <= 5; ++seed) {
    PopulationStore store = random_population(seed, 120);
    std::vector<std::int32_t> today = young_positions(store, 30);
    const CardPopulation population(std::move(store), std::move(today));
    const std::vector<std::vector<double>> relationships = tabular_relationships(population.store);
    for (std::int32_t i = 1; i <= population.store.animal_count; ++i) {
      const AnimalCard card = population.card_at(i);
      const auto place = static_cast<std::size_t>(i - 1);
      EXPECT_NEAR(card.parts.kinship, relationships[place][place] - 1.0, 1e-6);
      double kinship = 0.0;
      for (const std::int32_t other : population.today) {
        kinship += 0.5 * relationships[place][static_cast<std::size_t>(other - 1)];
      }
      EXPECT_NEAR(*card.mean_kinship, kinship / static_cast<double>(population.today.size()), 1e-6);
    }
  }
}

}  // namespace
}  // namespace pedigreewatch::test
