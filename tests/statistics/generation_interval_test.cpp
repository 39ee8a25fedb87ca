#include "statistics/generation_interval.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string_view>
#include <vector>

#include "statistics/parent_ages.h"
#include "support/numbered_store.h"
#include "support/streams.h"

namespace pedigreewatch::test {
namespace {

using Positions = std::vector<std::int32_t>;
using Ages = std::vector<std::int32_t>;

PopulationStore aged(std::string_view numbered) {
  PopulationStore store = numbered_store(numbered);
  TextOutput ignored;
  determine_parent_ages(store, ignored);
  return store;
}

/// The means of animals whose parents have these ages in days.
MeanParentAges means_of(const Ages& sire_ages, const Ages& dam_ages) {
  PopulationStore store = store_of_parents(std::vector<ParentPair>(sire_ages.size()));
  std::ranges::copy(sire_ages, store.sire_age_days.values.begin() + 1);
  std::ranges::copy(dam_ages, store.dam_age_days.values.begin() + 1);
  return mean_parent_ages(store, all_positions(store));
}

TEST(MeanParentAges, OfAllKnownAgesInYears) {
  // Young and negative ages count in the mean although they are in no class: 1250 / 3 days and 731 days.
  const MeanParentAges means = means_of({1000, -1, 300, -50}, {-1, -1, -1, 731});
  EXPECT_EQ(means.sires, 1250.0F / 3.0F / 365.0F);
  EXPECT_EQ(means.dams, 731.0F / 365.0F);
}

TEST(MeanParentAges, WithoutKnownAgesAreZero) {
  for (const MeanParentAges& means : {means_of({-1}, {-1}), means_of({}, {})}) {
    EXPECT_EQ(means.sires, 0.0F);
    EXPECT_EQ(means.dams, 0.0F);
    EXPECT_EQ(means.parents, 0.0F);
  }
}

TEST(MeanParentAges, OfBothParentsAreHalfOfTheSum) {
  EXPECT_EQ(means_of({730}, {1460}).parents, 3.0F);
}

TEST(MeanParentAges, OneThatIsMissingDoesNotHalveTheOther) {
  EXPECT_EQ(means_of({730}, {-1}).parents, 2.0F);
  EXPECT_EQ(means_of({-1}, {1095}).parents, 3.0F);
}

TEST(MeanParentAges, AMeanOfATenthOfAYearOrLessCountsAsMissing) {
  // 36 days are 0.0986 years, 37 days 0.1014.
  EXPECT_EQ(means_of({730}, {36}).parents, 2.0F + 36.0F / 365.0F);
  EXPECT_EQ(means_of({730}, {37}).parents, (2.0F + 37.0F / 365.0F) / 2.0F);
}

TEST(MeanParentAges, SumsBeyond32BitsDoNotWrap) {
  EXPECT_EQ(means_of({2'000'000'000, 2'000'000'000}, {-1, -1}).sires, 2e9F / 365.0F);
}

TEST(GenerationInterval, AreTheMeanOfAllKnownAgesInYears) {
  // Fathers 730 and 365 days, mothers 1095 days; unknown ages do not count.
  const PopulationStore store = aged("2000 m\n1999\n2002 s=1 d=2\n2001 s=1\n2003\n");
  const GenerationInterval ages = overall_generation_interval(store, all_positions(store));
  EXPECT_EQ(ages.overall_sire_age, 1.5F);
  EXPECT_EQ(ages.overall_dam_age, 3.0F);
  EXPECT_EQ(ages.generation_interval, 2.25F);
}

TEST(GenerationInterval, AreDividedInSinglePrecisionByTheNumberThenByTheDays) {
  PopulationStore store = numbered_store("2000\n2000\n2000\n");
  const std::int32_t ages[] = {1000, 1001, 1010};
  for (std::int32_t position = 1; position <= 3; ++position) {
    store.sire_age_days[position] = ages[position - 1];
    store.dam_age_days[position] = position == 1 ? -365 : -1;
  }
  // 3011 / 3 rounded to single, then divided by 365: one unit in the last place above 3011 / 1095.
  EXPECT_EQ(overall_generation_interval(store, all_positions(store)).overall_sire_age, 0x1.5ff886p+1F);
  EXPECT_EQ(overall_generation_interval(store, all_positions(store)).overall_dam_age, -1.0F);
}

TEST(GenerationInterval, WithoutAnyKnownAgeAreNotANumber) {
  const PopulationStore store = aged("2000 m\n2001\n");
  EXPECT_TRUE(std::isnan(overall_generation_interval(store, all_positions(store)).overall_sire_age));
  EXPECT_TRUE(std::isnan(overall_generation_interval(store, all_positions(store)).overall_dam_age));
}

TEST(GenerationInterval, OfSomeAnimalsOnly) {
  const PopulationStore store = aged("2000 m\n1999\n2002 s=1 d=2\n2001 s=1\n");
  EXPECT_EQ(overall_generation_interval(store, Positions{4}).overall_sire_age, 1.0F);
  EXPECT_TRUE(std::isnan(overall_generation_interval(store, Positions{4}).overall_dam_age));
  EXPECT_TRUE(std::isnan(overall_generation_interval(store, Positions{4}).generation_interval));
}

}  // namespace
}  // namespace pedigreewatch::test
