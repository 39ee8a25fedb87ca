#include "standing/window_rates.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/diversity_pedigrees.h"
#include "support/numbered_store.h"
#include "support/pedigrees.h"

namespace pedigreewatch::test {
namespace {

struct Rates {
  RateEstimate kinship, inbreeding;
};

Rates rates_of(const PopulationStore& store, const std::vector<std::int32_t>& animals, std::int32_t first_year,
               std::int32_t near_first = 9999) {
  const ByNumber<std::int32_t> years = years_of_birth(store, 3.0);
  const WindowPedigree window = make_window_pedigree(store, years, {animals, first_year});
  return {estimate_by_kinship(window),
          estimate_by_inbreeding(make_window_pedigree(store, years, {animals, near_first}), window)};
}

constexpr auto full_sibs =
    "2000 m\n"
    "2000\n"
    "2003 m s=1 d=2\n"
    "2003   s=1 d=2\n";

// Both lines go back one generation, in two steps of a half. A quarter of the pairs has met after them: the rate r is
// that of 1/2 r + 1/2 r exp(-r/4) = 1/4, the pairs of the second step having gone back a quarter before it.
TEST(WindowRates, FullSibsMeetInOneGeneration) {
  const PopulationStore store = with_inbreeding(numbered_store(full_sibs));
  const RateEstimate kinship = rates_of(store, {3, 4}, 2003).kinship;
  EXPECT_DOUBLE_EQ(kinship.generations, 1.0);
  const double r = kinship.rate.value();
  EXPECT_NEAR(0.5 * r + 0.5 * r * std::exp(-r / 4.0), 0.25, 1e-12);
}

TEST(WindowRates, AnimalsBornBeforeTheWindowAreFounders) {
  const PopulationStore store = with_inbreeding(numbered_store(full_sibs));
  const Rates rates = rates_of(store, {3, 4}, 2004);
  EXPECT_FALSE(rates.kinship.rate.has_value());
  EXPECT_EQ(rates.kinship.generations, 0.0);
  EXPECT_FALSE(rates.inbreeding.rate.has_value());
}

TEST(WindowRates, AnImportHasNoParentsInIt) {
  PopulationStore store =
      with_inbreeding(numbered_store("2000 m\n"
                                     "2000\n"
                                     "2003 m s=1 d=2 import\n"
                                     "2003   s=1 d=2\n"));
  store.has_import = true;
  const Rates rates = rates_of(store, {3, 4}, 2000);
  EXPECT_EQ(rates.kinship.rate.value(), 0.0);
  EXPECT_LT(rates.kinship.generations, 0.6);  // only one of the two lines goes on
}

// The young of full sibs: F = 1/4, seen over the one generation of their parents, known on both sides.
TEST(WindowRates, InbreedingIsThatOfTheParentsPair) {
  const PopulationStore store =
      with_inbreeding(numbered_store("2000 m\n"
                                     "2000\n"
                                     "2003 m s=1 d=2\n"
                                     "2003   s=1 d=2\n"
                                     "2006   s=3 d=4\n"));
  const RateEstimate inbreeding = rates_of(store, {5}, 2000).inbreeding;
  EXPECT_DOUBLE_EQ(inbreeding.rate.value(), 0.25);
  EXPECT_DOUBLE_EQ(inbreeding.generations, 1.0);
  EXPECT_EQ(inbreeding.relative_error, 0.0);                          // one sire
  EXPECT_FALSE(rates_of(store, {5}, 2000).kinship.rate.has_value());  // one animal has no pairs
}

// Cousins' parents: what full sibs have in common, one generation farther back, is seen in the far window only.
TEST(WindowRates, WhatMeetsNearByIsNoRise) {
  const PopulationStore store =
      with_inbreeding(numbered_store("2000 m\n"
                                     "2000\n"
                                     "2003 m s=1 d=2\n"
                                     "2003   s=1 d=2\n"
                                     "2006   s=3 d=4\n"));
  EXPECT_FALSE(rates_of(store, {5}, 2000, 2000).inbreeding.rate.has_value());
  EXPECT_DOUBLE_EQ(rates_of(store, {5}, 2000, 2004).inbreeding.rate.value(), 0.25);
}

TEST(WindowRates, AnAnimalWithOneParentSaysNothingOfInbreeding) {
  const PopulationStore store = with_inbreeding(numbered_store("2000 m\n2003 s=1\n2003 s=1\n"));
  const Rates rates = rates_of(store, {2, 3}, 2000);
  EXPECT_FALSE(rates.inbreeding.rate.has_value());
  EXPECT_GT(rates.kinship.rate.value(), 0.0);
}

/// How many generations each pair of animals can be followed, the younger one always going on: half a generation a
/// step. Two lines in one animal go on together, each to a parent of its own choice.
std::vector<std::vector<double>> plain_generations(const PopulationStore& store) {
  std::vector<std::vector<double>> pairs(store.size() + 1, std::vector<double>(store.size() + 1, 0.0));
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    const std::int32_t parents[] = {store.sire_no[i], store.dam_no[i]};
    for (std::int32_t j = 1; j <= i; ++j) {
      double& pair = pairs[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)];
      for (const std::int32_t p : parents) {
        if (p == 0) continue;
        if (j < i) pair += 0.25 + 0.5 * pairs[static_cast<std::size_t>(p)][static_cast<std::size_t>(j)];
        for (const std::int32_t q : parents) {
          if (j == i && q != 0) pair += 0.25 * pairs[static_cast<std::size_t>(p)][static_cast<std::size_t>(q)];
        }
      }
      pairs[static_cast<std::size_t>(j)][static_cast<std::size_t>(i)] = pair;
    }
  }
  return pairs;
}

/// The part of the lines of the members that has a parent to go on to, over all animals that they lead through.
double plain_known_share(const PopulationStore& store, const std::vector<std::int32_t>& members) {
  std::vector<double> lines(store.size() + 1, 0.0);
  for (const std::int32_t member : members) lines[static_cast<std::size_t>(member)] = 1.0;
  double all = 0.0, known = 0.0;
  for (std::int32_t i = store.animal_count; i > 0; --i) {
    const double own = lines[static_cast<std::size_t>(i)];
    all += own;
    for (const std::int32_t parent : {store.sire_no[i], store.dam_no[i]}) {
      if (parent == 0) continue;
      known += own / 2.0;
      lines[static_cast<std::size_t>(parent)] += own / 2.0;
    }
  }
  return known / all;
}

TEST(WindowRates, GenerationsAreThoseOfAllPairsFollowedOneByOne) {
  PopulationStore store = random_population(11, 120);
  store.has_import = false;
  const std::vector<std::int32_t> young = young_positions(store, 60);
  const std::vector<std::vector<double>> pairs = plain_generations(store);
  double all = 0.0;
  for (const std::int32_t i : young) {
    for (const std::int32_t j : young) all += pairs[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)];
  }
  const double animals = static_cast<double>(young.size()), known = plain_known_share(store, young);
  const double expected = (all / (animals * animals) + known * known / animals) * 0.5 * (1.0 + known);
  const RateEstimate estimate = rates_of(store, young, 0).kinship;
  EXPECT_NEAR(estimate.generations, expected, 1e-9);
  EXPECT_GT(estimate.relative_error, 0.0);
}

TEST(WindowPedigree, AParentWithoutAYearStandsAnIntervalBeforeItsFirstYoung) {
  const PopulationStore store = numbered_store(
      "m\n"
      "2000\n"
      "2004 s=1 d=2\n"
      "2003 s=1 d=2\n"
      ".\n");
  const ByNumber<std::int32_t> years = years_of_birth(store, 2.6);
  EXPECT_EQ(years.values, (std::vector<std::int32_t>{0, 2000, 2000, 2004, 2003, 0}));
}

TEST(WindowPedigree, ParentsStandBeforeTheirYoung) {
  const PopulationStore store = random_population(5, 200);
  const std::vector<std::int32_t> young = young_positions(store, 50);
  const WindowPedigree window = make_window_pedigree(store, years_of_birth(store, 3.0), {young, 2004});
  ASSERT_EQ(window.members.size(), young.size());
  for (std::int32_t i = 1; i <= window.store.animal_count; ++i) {
    EXPECT_LT(window.store.sire_no[i], i);
    EXPECT_LT(window.store.dam_no[i], i);
    if (window.is_inside[i] == 0) {
      EXPECT_EQ(window.store.sire_no[i], 0);
    }
  }
}

}  // namespace
}  // namespace pedigreewatch::test
