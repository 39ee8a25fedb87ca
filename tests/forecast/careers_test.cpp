#include "forecast/careers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "support/pedigrees.h"

namespace pedigreewatch::test {
namespace {

// Ad has two litters in 2002, one in 2003 and one in 2005; Bo has one in 2002, of unknown birth year.
constexpr std::string_view herd =
    "ad 0 0 m 2000\nda 0 0 f 2000\ndb 0 0 f 2000\ndc 0 0 f 2000\n"
    "y1 ad da m 2002\ny2 ad db f 2002\ny3 bo dc f 2002\n"
    "y4 ad da f 2003\ny5 ad da m 2003\ny6 ad db f 2005\n";

struct Listed {
  PopulationStore store = pedigree_from_text(herd);
  YearGroups years = group_by_year(store);
  FamilyRecords records = list_families(store, years, 2005);
};

std::int32_t career_of(const Listed& listed, const CareerRecords& careers, std::string_view id) {
  std::int32_t number = 0;
  while (listed.store.id(careers.at(number).parent) != id) ++number;
  return number;
}

TEST(ListFamilies, PutsYoungOfTwoParentsTogether) {
  const Listed listed;
  EXPECT_EQ(listed.records.of_year(2002).size(), 3U);
  ASSERT_EQ(listed.records.of_year(2003).size(), 1U);
  const Family& family = listed.records.of_year(2003).front();
  EXPECT_EQ(family.young, 2);
  EXPECT_EQ(family.males, 1);
  EXPECT_EQ(listed.store.id(family.sire), "ad");
  EXPECT_EQ(family.descent(), Descent::known);
  EXPECT_TRUE(listed.records.of_year(2004).empty());
  EXPECT_TRUE(listed.records.of_year(1999).empty());
  EXPECT_EQ(listed.records.of_year(2000).size(), 4U);  // without parents each animal stands alone
}

TEST(ListFamilies, KnowsNothingBehindTheLastYear) {
  Listed listed;
  const FamilyRecords early = list_families(listed.store, listed.years, 2002);
  EXPECT_TRUE(early.of_year(2003).empty());
  EXPECT_EQ(early.families.size(), 7U);
}

TEST(ListCareers, CountsUseByYear) {
  const Listed listed;
  const CareerRecords careers = list_careers(listed.records, male, 2002);
  ASSERT_EQ(careers.careers.size(), 2U);
  const Career& ad = careers.at(career_of(listed, careers, "ad"));
  EXPECT_EQ(ad.first_year, 2002);
  EXPECT_EQ(ad.first_age, 2);
  EXPECT_EQ(ad.families, 4);
  // Of three litters by two sires he has two, and their geometric mean is the root of 2; then he is alone.
  ASSERT_EQ(ad.use.size(), 4U);
  EXPECT_FLOAT_EQ(ad.use[0], std::sqrt(2.0F));
  EXPECT_FLOAT_EQ(ad.use[1], 1.0F);
  EXPECT_EQ(ad.use[2], 0.0F);
  EXPECT_EQ(ad.use_in(2005), 1.0F);
  EXPECT_EQ(ad.use_in(2006), 0.0F);
  const Career& bo = careers.at(career_of(listed, careers, "bo"));
  EXPECT_EQ(bo.first_age, 2);  // that of the others
  EXPECT_EQ(bo.descent, Descent::outside);
}

TEST(ListCareers, LeavesOutThoseOfEarlierYears) {
  const Listed listed;
  EXPECT_EQ(list_careers(listed.records, male, 2003).careers.size(), 1U);
  EXPECT_EQ(list_careers(listed.records, male, 2006).careers.size(), 0U);
}

TEST(FindDonor, TakesThoseOfTheSameAgeAndPause) {
  const Listed listed;
  const CareerRecords careers = list_careers(listed.records, male, 2002);
  RandomStream random = make_stream(1);
  for (int k = 0; k < 20; ++k) {
    // At four years, after a year without young: Ad in 2004.
    const auto paused = find_donor(careers, {4, 1, 0.7}, random);
    ASSERT_TRUE(paused.has_value());
    EXPECT_EQ(paused->career, career_of(listed, careers, "ad"));
    EXPECT_EQ(paused->year, 2004);
  }
  EXPECT_FALSE(find_donor(careers, {6, 0, 1.0}, random).has_value());  // nobody was so old
  EXPECT_FALSE(find_donor(careers, {4, 3, 0.5}, random).has_value());  // of nobody is the year behind that known
}

TEST(FindDonor, TakesOneOfTheNearestUse) {
  CareerRecords careers;
  careers.last_year = 2010;
  careers.oldest = 5;
  for (int k = 0; k < 40; ++k) careers.donors.push_back({{k, 2005}, static_cast<float>(k)});
  careers.begin.assign(25, 40);
  std::fill(careers.begin.begin(), careers.begin.begin() + 9, 0U);  // all are 2 years old, without a pause
  RandomStream random = make_stream(2);
  std::set<std::int32_t> found;
  for (int k = 0; k < 300; ++k) found.insert(find_donor(careers, {2, 0, 20.5}, random)->career);
  EXPECT_EQ(found, (std::set<std::int32_t>{18, 19, 20, 21, 22, 23}));
  found.clear();
  for (int k = 0; k < 300; ++k) found.insert(find_donor(careers, {5, 0, 0.0}, random)->career);
  EXPECT_EQ(found, (std::set<std::int32_t>{0, 1, 2}));  // three years away is near enough
}

}  // namespace
}  // namespace pedigreewatch::test
