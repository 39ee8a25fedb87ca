#include "diversity/family_sizes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "diversity/diversity_table.h"
#include "support/diversity_pedigrees.h"
#include "support/numbered_store.h"

namespace pedigreewatch::test {
namespace {

TEST(FamilySizes, OfAnIdealPopulationAreItsNumbers) {
  // Numbers of offspring that bred as chance gives them in a population of constant size with M = F = 10 a year and
  // L = 1: variances of 1 and no covariance give 1/Ne = (2 + 1 + 1) / 160 * 2, Ne = 20.
  FamilySizes sizes;
  sizes.parents = 10;
  sizes.per_year = 10.0;
  sizes.variance_of_sons = sizes.variance_of_daughters = 1.0;
  EXPECT_DOUBLE_EQ(effective_size_of_families({sizes, sizes}, 1.0).value(), 20.0);
  EXPECT_DOUBLE_EQ(effective_size_of_families({sizes, sizes}, 4.0).value(), 80.0);
}

TEST(FamilySizes, WithUnequalNumbersByHand) {
  FamilySizes sires, dams;
  sires.parents = 4;
  sires.per_year = 2.0;
  sires.variance_of_sons = 3.0;
  sires.variance_of_daughters = 8.0;
  sires.covariance = 1.0;
  dams.parents = 16;
  dams.per_year = 8.0;
  dams.variance_of_sons = 0.25;
  dams.variance_of_daughters = 1.5;
  dams.covariance = -0.125;
  // M/F = 1/4. Sires: 2 + 3 + 2/4 + 8/16 = 6 over 16 * 2 * 5; dams: 2 + 16/4 - 8/8 + 1.5 = 6.5 over 16 * 8 * 5.
  EXPECT_DOUBLE_EQ(effective_size_of_families({sires, dams}, 5.0).value(), 1.0 / (6.0 / 160.0 + 6.5 / 640.0));
}

TEST(FamilySizes, NeedTwoParentsOfEachSexAndAnInterval) {
  FamilySizes one, two;
  one.parents = 1;
  two.parents = 2;
  one.per_year = two.per_year = 1.0;
  EXPECT_TRUE(effective_size_of_families({two, two}, 1.0).has_value());
  EXPECT_FALSE(effective_size_of_families({one, two}, 1.0).has_value());
  EXPECT_FALSE(effective_size_of_families({two, one}, 1.0).has_value());
  EXPECT_FALSE(effective_size_of_families({two, two}, 0.0).has_value());
}

/// Who of the young from 2002 on lack a parent, the first ones.
struct Unrecorded {
  int sires_of_daughters = 0, sires_of_sons = 0, dams_of_daughters = 0, dams_of_sons = 0;
};

/// Two sires and two dams a year from 2000 to 2008. Those of a year are young of those two years before: of the pair
/// (1, 2) a son and both daughters, of the pair (3, 4) a son.
std::string steady_herd(Unrecorded unrecorded = {}) {
  std::string text;
  for (int year = 2000; year <= 2008; ++year) {
    const auto parent = [&](const char* word, int place, int& lacking) {
      return year < 2002 || lacking-- > 0 ? std::string() : word + std::to_string((year - 2002) * 4 + place);
    };
    const auto young = [&](bool is_son, int sire, int& no_sire, int& no_dam) {
      text += std::to_string(year) + (is_son ? " m" : "") + parent(" s=", sire, no_sire);
      text += parent(" d=", sire + 1, no_dam) + "\n";
    };
    int none = 0;
    young(true, 1, none, none);
    young(false, 1, unrecorded.sires_of_daughters, unrecorded.dams_of_daughters);
    young(true, 3, unrecorded.sires_of_sons, unrecorded.dams_of_sons);
    young(false, 1, unrecorded.sires_of_daughters, unrecorded.dams_of_daughters);
  }
  return text;
}

FamilySizeEstimate estimate_of(const std::string& herd) {
  const PopulationStore store = with_inbreeding(numbered_store(herd));
  return estimate_by_family_sizes(store, compute_generation_paths(store));
}

TEST(FamilySizes, CountOffspringThatBredOfCompleteYears) {
  const FamilySizeEstimate estimate = estimate_of(steady_herd());
  // Parents are two years old: a year is complete four years before the last one.
  EXPECT_EQ(estimate.first_year, 2000);
  EXPECT_EQ(estimate.last_year, 2004);
  EXPECT_DOUBLE_EQ(estimate.generation_interval.value(), 2.0);
  const FamilySizes& sires = estimate.of.of_males;
  EXPECT_EQ(sires.parents, 10);
  EXPECT_DOUBLE_EQ(sires.per_year, 2.0);
  EXPECT_DOUBLE_EQ(sires.mean_sons, 1.0);
  EXPECT_DOUBLE_EQ(sires.mean_daughters, 1.0);
  EXPECT_DOUBLE_EQ(sires.variance_of_sons, 0.0);
  EXPECT_NEAR(sires.variance_of_daughters, 10.0 / 9.0, 1e-12);  // five of 0 and five of 2
  EXPECT_DOUBLE_EQ(sires.covariance, 0.0);
  EXPECT_EQ(estimate.of.of_females.parents, 10);
  const double inverse = 2.0 * (2.0 + 10.0 / 9.0) / (16.0 * 2.0 * 2.0);
  EXPECT_NEAR(estimate.effective_size.value(), 1.0 / inverse, 1e-12);
}

TEST(FamilySizes, MayLackOneParentInTenOfTheAnimalsThatBred) {
  // 20 animals that bred are born from 2002 to 2006.
  for (const bool is_sire : {true, false}) {
    const auto lacking = [&](int count) {
      return estimate_of(
          steady_herd(is_sire ? Unrecorded{.sires_of_daughters = count} : Unrecorded{.dams_of_daughters = count}));
    };
    const FamilySizeEstimate two = lacking(2), three = lacking(3);
    EXPECT_EQ(two.bred_offspring, 20);
    EXPECT_DOUBLE_EQ(two.known_parents.of(is_sire ? male : female).value(), 0.9);
    EXPECT_DOUBLE_EQ(two.known_parents.of(is_sire ? female : male).value(), 1.0);
    EXPECT_TRUE(two.effective_size.has_value());
    EXPECT_DOUBLE_EQ(three.known_parents.of(is_sire ? male : female).value(), 0.85);
    EXPECT_EQ(three.obstacle, FamilySizeObstacle::unknown_parents);
    EXPECT_FALSE(three.effective_size.has_value());
  }
}

TEST(FamilySizes, NeedTenParentsOfEachSex) {
  // The second pair of a year has one son: without his sire, or dam, one parent of the ten is lacking.
  EXPECT_EQ(estimate_of(steady_herd()).obstacle, FamilySizeObstacle::none);
  const FamilySizeEstimate nine_sires = estimate_of(steady_herd({.sires_of_sons = 1}));
  EXPECT_EQ(nine_sires.of.of_males.parents, 9);
  EXPECT_EQ(nine_sires.obstacle, FamilySizeObstacle::few_parents);
  EXPECT_FALSE(nine_sires.effective_size.has_value());
  const FamilySizeEstimate nine_dams = estimate_of(steady_herd({.dams_of_sons = 1}));
  EXPECT_EQ(nine_dams.of.of_females.parents, 9);
  EXPECT_EQ(nine_dams.obstacle, FamilySizeObstacle::few_parents);
}

TEST(FamilySizes, TakeAParentWithoutABirthYearForUnknown) {
  // A sire without a birth year has three of the 20 animals that bred: 17 of 20.
  std::string herd = steady_herd();
  for (const std::string pair : {"2003 s=5 d=6", "2004 s=9 d=10", "2005 s=13 d=14"}) {
    const std::size_t sire = herd.find(pair) + std::string("2003 ").size();
    herd.replace(sire, herd.find(' ', sire) - sire, "s=37");
  }
  const FamilySizeEstimate estimate = estimate_of(herd + "m\n");
  EXPECT_DOUBLE_EQ(estimate.known_parents.of_males.value(), 0.85);
  EXPECT_EQ(estimate.obstacle, FamilySizeObstacle::unknown_parents);
}

TEST(FamilySizes, SayWhyNothingIsSaid) {
  FamilySizeEstimate estimate;
  estimate.first_year = 2001;
  estimate.last_year = 2005;
  EXPECT_EQ(words_of_obstacle(estimate, ToolLanguage::english),
            "not said, because no birth year has had all its young, or no ages of parents are known");
  estimate.obstacle = FamilySizeObstacle::few_parents;
  EXPECT_EQ(words_of_obstacle(estimate, ToolLanguage::english),
            "not said, because fewer than 10 sires or 10 dams born in 2001 to 2005 have bred");
  estimate.obstacle = FamilySizeObstacle::unknown_parents;
  EXPECT_EQ(words_of_obstacle(estimate, ToolLanguage::dutch),
            "niet gezegd, omdat van meer dan 10 % van de dieren waarmee gefokt is de vader of de moeder, of het "
            "geboortejaar daarvan, onbekend is");
  estimate.obstacle = FamilySizeObstacle::none;
  EXPECT_EQ(words_of_obstacle(estimate, ToolLanguage::dutch), "");
}

TEST(FamilySizes, AskForNoParentsOfImports) {
  const FamilySizeEstimate estimate = estimate_of(steady_herd() + "2003 m import\n2006 s=37 d=14\n");
  EXPECT_EQ(estimate.of.of_males.parents, 11);
  EXPECT_EQ(estimate.bred_offspring, 20);
  EXPECT_DOUBLE_EQ(estimate.known_parents.of_males.value(), 1.0);
}

TEST(FamilySizes, TakeTheLastTenCompleteYears) {
  std::string text;
  for (int year = 2000; year <= 2030; ++year) text += std::to_string(year) + " m\n" + std::to_string(year) + "\n";
  text += "2030 s=59 d=60\n";  // of parents of the year before
  const PopulationStore store = with_inbreeding(numbered_store(text));
  const FamilySizeEstimate estimate = estimate_by_family_sizes(store, compute_generation_paths(store));
  EXPECT_EQ(estimate.last_year, 2028);
  EXPECT_EQ(estimate.first_year, 2019);
  EXPECT_FALSE(estimate.effective_size.has_value());
}

/// Young of the year 2020, of which so many have parents of the year before and all others of 2015.
PopulationStore with_late_parents(int late, int all) {
  std::string text = "2015 m\n2015\n2019 m\n2019\n";
  for (int young = 0; young < all; ++young) text += young < late ? "2020 s=1 d=2\n" : "2020 s=3 d=4\n";
  return with_inbreeding(numbered_store(text + "2000\n"));
}

TEST(FamilySizes, LetOneParentInTwentyBeLater) {
  const auto last_year = [](int late, int all) {
    const PopulationStore store = with_late_parents(late, all);
    return estimate_by_family_sizes(store, compute_generation_paths(store)).last_year;
  };
  EXPECT_EQ(last_year(1, 20), 2018);
  EXPECT_EQ(last_year(2, 39), 2010);
}

TEST(FamilySizes, OfNobodyThereAreNone) {
  const PopulationStore store = with_inbreeding(numbered_store("2000\n2001\n"));
  const FamilySizeEstimate estimate = estimate_by_family_sizes(store, compute_generation_paths(store));
  EXPECT_EQ(estimate.last_year, 0);
  EXPECT_EQ(estimate.obstacle, FamilySizeObstacle::no_years);
  EXPECT_FALSE(estimate.effective_size.has_value());
}

}  // namespace
}  // namespace pedigreewatch::test
