// The figures of a card: by hand on small families, and against the table of all relationships.
#include "animals/animal_card.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

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

  CardPopulation(PopulationStore animals, std::vector<std::int32_t> positions)
      : store(std::move(animals)), today(std::move(positions)) {
    mean_kinship = mean_kinship_of_all(store, today);
    lines = count_known_lines(store);
  }
  AnimalCard card(std::string_view id) const {
    return make_card({store, today, mean_kinship, lines}, animal_named(store, id).number);
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
      const AnimalCard card =
          make_card({population.store, population.today, population.mean_kinship, population.lines}, i);
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
