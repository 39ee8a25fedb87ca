// How parents were used, by hand.
#include "planning/parent_use.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "support/diversity_pedigrees.h"
#include "support/pedigrees.h"

namespace pedigreewatch::test {
namespace {

std::string births(int year, int count) {
  std::string text;
  for (int k = 0; k < count; ++k) {
    text += "x" + std::to_string(year) + "_" + std::to_string(k) + " 0 0 f " + std::to_string(year) + "\n";
  }
  return text;
}

TEST(LastFullYear, IsTheLastOneWithHalfOfTheUsualBirths) {
  const std::string before = births(2001, 9) + births(2002, 10) + births(2003, 11);  // 10 in the mean
  EXPECT_EQ(last_full_year(pedigree_from_text(before + births(2004, 5))), 2004);
  EXPECT_EQ(last_full_year(pedigree_from_text(before + births(2004, 4))), 2003);
  EXPECT_EQ(last_full_year(pedigree_from_text(births(2000, 100) + before + births(2004, 5))), 2004) << "three years";
  EXPECT_EQ(last_full_year(pedigree_from_text(births(2004, 4))), 2004);
  EXPECT_EQ(last_full_year(pedigree_from_text("a 0 0 m 0\n")), std::nullopt);
}

TEST(LittersOfYear, AreMothersWithYoung) {
  const PopulationStore store = pedigree_from_text(
      "a 0 0 m 2000\nb 0 0 f 2000\nc 0 0 f 2000\nd a b f 2003\ne a b f 2003\nf a c f 2003\ng a 0 f 2003\nh a b f "
      "2004\n");
  EXPECT_EQ(litters_of_year(store, 2003), 2);
  EXPECT_EQ(litters_of_year(store, 2004), 1);
  EXPECT_EQ(litters_of_year(store, 2005), 0);
}

/// One sire born in 2000 with so many young at ages 1, 2, ...
PopulationStore sire_with(const std::vector<int>& young_at_age) {
  std::string text = "pa 0 0 m 2000\n";
  for (std::size_t age = 1; age <= young_at_age.size(); ++age) {
    for (int k = 0; k < young_at_age[age - 1]; ++k) {
      text += "y" + std::to_string(age) + "_" + std::to_string(k) + " pa 0 f " + std::to_string(2000 + age) + "\n";
    }
  }
  return pedigree_from_text(text);
}

TEST(BreedingAges, LeaveOutFiveInAHundredAtBothEnds) {
  const auto ages = breeding_ages(sire_with({5, 90, 5}), male);  // the 5th of 100 is one year old, the 95th two
  ASSERT_TRUE(ages.has_value());
  EXPECT_EQ(ages->youngest, 1);
  EXPECT_EQ(ages->oldest, 2);
  EXPECT_EQ(ages->births, 100);
  const auto others = breeding_ages(sire_with({4, 90, 6}), male);
  EXPECT_EQ(others->youngest, 2);
  EXPECT_EQ(others->oldest, 3);
  EXPECT_FALSE(breeding_ages(sire_with({4, 90, 6}), female).has_value());
}

TEST(BreedingAges, AreThoseOfTheLastTenYears) {
  std::vector<int> young(12, 0);
  young[1] = 3;   // 2002
  young[2] = 1;   // 2003, the first of the ten years to 2012
  young[11] = 1;  // 2012
  const auto ages = breeding_ages(sire_with(young), male);
  EXPECT_EQ(ages->births, 2);
  EXPECT_EQ(ages->youngest, 3);
  EXPECT_EQ(ages->oldest, 12);
}

TEST(OfBreedingAgeOrYounger, LeavesOutThoseThatAreOlderThanParentsOfTheirSex) {
  // Sires were one and two years old at births; planned young are born in 2007.
  const PopulationStore store = pedigree_from_text(
      "pa 0 0 m 2004\nx pa 0 f 2005\ny pa 0 m 2006\nold 0 0 m 2004\nfit 0 0 m 2005\nnew 0 0 m 2006\n"
      "any 0 0 m 0\nma 0 0 f 1990\n");
  const ByNumber<Flag> is_so = of_breeding_age_or_younger(store);
  const auto of = [&](std::string_view id) { return is_so[animal_named(store, id).number] != 0; };
  EXPECT_FALSE(of("old")) << "three years in 2007";
  EXPECT_TRUE(of("fit")) << "two years";
  EXPECT_TRUE(of("new"));
  EXPECT_FALSE(of("any"));
  EXPECT_TRUE(of("ma")) << "no age of a dam is known";
}

TEST(AgeAtPlannedBirths, IsThatInTheYearBehindTheLast) {
  const PopulationStore store = pedigree_from_text("a 0 0 m 2000\nb 0 0 f 2010\nc 0 0 f 0\n");
  EXPECT_EQ(age_at_planned_births(store, animal_named(store, "a").number), 11);
  EXPECT_EQ(age_at_planned_births(store, animal_named(store, "b").number), 1);
  EXPECT_EQ(age_at_planned_births(store, animal_named(store, "c").number), std::nullopt);
}

TEST(ParentsUsed, HaveTheirSharesInTheOffspring) {
  const PopulationStore store = with_inbreeding(
      pedigree_from_text("a 0 0 m 2000\nb 0 0 f 2000\nc 0 0 f 2000\nd a b m 2003\n"
                         "e a b f 2005\nf d b f 2005\ng d c f 2005\nh d b f 2005\ni d 0 f 2005\nj a b f 2006\n"));
  const ParentsUsed use = parents_used(store, 2005, 2005);
  EXPECT_EQ(use.offspring, 4);  // not the one without a mother
  std::vector<std::pair<std::string, double>> parents;
  for (std::size_t k = 0; k < use.positions.size(); ++k) {
    parents.emplace_back(std::string(store.id(use.positions[k])), use.shares[k]);
  }
  using Expected = std::vector<std::pair<std::string, double>>;
  EXPECT_EQ(parents, (Expected{{"a", 0.125}, {"d", 0.375}, {"b", 0.375}, {"c", 0.125}}));
  EXPECT_EQ(use.sex, (std::vector<Sex>{male, male, female, female}));
  EXPECT_DOUBLE_EQ(use.mean_f, 0.125);  // two of the four are of son and mother
  EXPECT_EQ(parents_used(store, 2010, 2011).offspring, 0);
}

// One animal a year: kinship with itself (1 + F) / 2 is 1/2, 1/2, then 5/8 for the young of father and daughter.
TEST(YearlyLoss, IsTheSlopeOfTheLogarithmOfWhatIsLeft) {
  const PopulationStore store = with_inbreeding(
      pedigree_from_text("x 0 0 m 1998\ny 0 0 f 1999\na 0 0 m 2000\nb a 0 f 2001\nc a b f 2002\nd 0 0 m 1980\n"));
  const std::optional<YearlyLoss> loss = yearly_loss(store, 2002);
  ASSERT_TRUE(loss.has_value());
  // Four points at 0, the last one a step above: the slope is 2/10 of it, what is left 0.2, 0, -0.2, -0.4 and 0.4 of
  // it. Their squares add up to 0.4, of which 3 are free.
  const double step = std::log(0.5) - std::log(0.375);
  EXPECT_NEAR(loss->rate, 0.2 * step, 1e-6);
  EXPECT_NEAR(loss->error, step * std::sqrt(0.4 / 3.0 / 10.0), 1e-6);
  EXPECT_FALSE(yearly_loss(store, 2001).has_value());  // four years
}

TEST(YearlyLoss, IsClearFromThreeErrorsOn) {
  EXPECT_TRUE((YearlyLoss{0.003, 0.001}).is_clear());
  EXPECT_FALSE((YearlyLoss{0.0029, 0.001}).is_clear());
  EXPECT_TRUE((YearlyLoss{1e-5, 0.0}).is_clear());
  EXPECT_FALSE((YearlyLoss{0.99e-5, 0.0}).is_clear());
  EXPECT_FALSE((YearlyLoss{-0.01, 0.001}).is_clear());
}

TEST(ParentsOfASubpopulation, AreThoseOfItsYoung) {
  LookedUpNames names;
  names.subpopulations.add(SubpopulationName("North"));
  names.subpopulations.add(SubpopulationName("South"));
  std::string text = "a 0 0 m 1990 South\nb 0 0 m 1990 North\nc 0 0 f 1990 North\n";
  for (int year = 2000; year < 2005; ++year) {
    text += "n" + std::to_string(year) + " a c f " + std::to_string(year) + " North\n";
    text += "s" + std::to_string(year) + " b c f " + std::to_string(year) + " South\n";
  }
  const PopulationStore store = with_inbreeding(pedigree_from_text(text, names));
  EXPECT_EQ(parents_used(store, 2004, 2004).positions.size(), 3U) << "two sires and their dam";
  const ParentsUsed north = parents_used(store, 2004, 2004, "North");
  EXPECT_EQ(north.offspring, 1);
  ASSERT_EQ(north.positions.size(), 2U);
  EXPECT_EQ(store.id(north.positions.front()), "a") << "the sire is of the South";
  EXPECT_EQ(litters_of_year(store, 2004, "South"), 1);
  EXPECT_EQ(litters_of_year(store, 2004, "East"), 0);
  EXPECT_TRUE(yearly_loss(store, 2004, "North").has_value());
  EXPECT_FALSE(yearly_loss(store, 2004, "East").has_value());
}

}  // namespace
}  // namespace pedigreewatch::test
