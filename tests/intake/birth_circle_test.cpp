#include "intake/birth_circle.h"

#include <gtest/gtest.h>

namespace pedigreewatch::test {
namespace {

/// A birth in each year from `first` to `last`, each the young of one that is two years older.
BirthCircle herd(std::int32_t first, std::int32_t last) {
  BirthCircle circle;
  for (std::int32_t year = first; year <= last; ++year) note_birth(circle, year);
  for (std::int32_t year = first + 2; year <= last; ++year) note_pair(circle, year - 2, year);
  return circle;
}

TEST(TellYears, NoYoungIsBornBeforeItsParent) {
  const auto years = tell_years(herd(1985, 2018), 2026);
  ASSERT_TRUE(years.has_value());
  EXPECT_EQ(years->first, 1985);
  EXPECT_EQ(years->last, 2018);
  EXPECT_EQ(whole_year(85, years->first), 1985);
  EXPECT_EQ(whole_year(99, years->first), 1999);
  EXPECT_EQ(whole_year(0, years->first), 2000);
  EXPECT_EQ(whole_year(18, years->first), 2018);
}

TEST(TellYears, NobodyIsBornInTheFuture) {
  EXPECT_EQ(tell_years(herd(2000, 2018), 2018)->last, 2018);
  EXPECT_EQ(tell_years(herd(2000, 2018), 2017)->last, 1918);
  EXPECT_EQ(tell_years(herd(2000, 2018), 2117)->last, 2018);
  EXPECT_EQ(tell_years(herd(2000, 2018), 2118)->last, 2118);
}

TEST(TellYears, TenPairsAreNeeded) {
  EXPECT_TRUE(tell_years(herd(1985, 1996), 2026).has_value()) << "10 pairs";
  EXPECT_FALSE(tell_years(herd(1985, 1995), 2026).has_value()) << "9 pairs";
  EXPECT_TRUE(is_in_order(herd(1985, 1996)));
  EXPECT_FALSE(is_in_order(herd(1985, 1995)));
}

TEST(TellYears, OnePairInFiftyMayBeAMistake) {
  BirthCircle circle = herd(1985, 2018);  // 32 pairs
  for (int i = 0; i < 17; ++i) note_pair(circle, 1990, 1995);
  note_pair(circle, 2000, 1990);  // the young before its parent: torn at the gap, 1 of 50
  EXPECT_TRUE(tell_years(circle, 2026).has_value());
  circle.pairs -= 1;
  EXPECT_FALSE(tell_years(circle, 2026).has_value());
}

TEST(TellYears, TwoGapsOfAboutTheSameLengthAreNotToldApart) {
  // Two herds that have no animal in common: 1960 to 1975, and 1995 to 2010, with 19 years between; 49 years follow.
  const auto two_herds = [](std::int32_t start_of_second) {
    BirthCircle circle = herd(1960, 1975);
    for (std::int32_t year = start_of_second; year <= 2010; ++year) note_birth(circle, year);
    return circle;
  };
  EXPECT_TRUE(tell_years(two_herds(2000), 2026).has_value()) << "24 years, and 49";
  EXPECT_FALSE(tell_years(two_herds(2001), 2026).has_value()) << "25 years, and 49";
}

TEST(TellYears, AHundredYearsWithoutAGapAreNotTold) {
  EXPECT_FALSE(tell_years(herd(1900, 1999), 2026).has_value());
}

TEST(NotePair, TearsEveryCutBetweenParentAndYoung) {
  BirthCircle circle;
  note_pair(circle, 98, 1);
  for (const std::size_t cut : {99U, 0U, 1U}) EXPECT_EQ(circle.torn[cut], 1) << cut;
  for (const std::size_t cut : {98U, 2U, 50U}) EXPECT_EQ(circle.torn[cut], 0) << cut;
  note_pair(circle, 5, 5);
  EXPECT_EQ(circle.pairs, 1);
}

}  // namespace
}  // namespace pedigreewatch::test
