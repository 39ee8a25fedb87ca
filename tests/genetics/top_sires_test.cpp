#include "genetics/top_sires.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <string>
#include <vector>

#include "support/numbered_store.h"
#include "support/pedigrees.h"
#include "support/streams.h"

namespace pedigreewatch::test {
namespace {

using Shares = std::vector<float>;

struct TopSireRun {
  YearRows<TopSireRow> years;
  std::vector<std::string> console;
};

/// The one place where these tests call the pass.
TopSireRun top_sires_of(const PopulationStore& store, bool english = true) {
  TextOutput console = output_in(english);
  YearRows<TopSireRow> years = compute_top_sires(store, group_by_year(store), console);
  return {std::move(years), lines_of(console)};
}

Shares shares_of(const YearRows<TopSireRow>& years, Row row) {
  const TopSireRow sires = years.of(row);
  return {sires.shares.begin(), sires.shares.end()};
}

/// Ten columns: the shares given, then zeros.
Shares ten(Shares shares) {
  shares.resize(10, 0.0F);
  return shares;
}

/// What the fathers of one year come to, the long way: fathers from the highest position down, one look at all
/// animals for each.
struct PlainYear {
  std::int32_t sire_count = 0, top_sire = 0;
  Shares shares = Shares(10, 0.0F);
};

PlainYear plain_year(const PopulationStore& store, std::int32_t year) {
  PlainYear result;
  std::vector<std::int32_t> left;
  for (const AnimalRecord& animal : records_of(store)) {
    if (animal.birth_year == year && animal.sire_no > 0) left.push_back(animal.sire_no);
  }
  const float known = static_cast<float>(left.size());
  std::vector<std::int32_t> sires, counts;
  while (!left.empty()) {
    const std::int32_t highest = *std::max_element(left.begin(), left.end());
    sires.push_back(highest);
    counts.push_back(static_cast<std::int32_t>(std::count(left.begin(), left.end(), highest)));
    left.erase(std::remove(left.begin(), left.end(), highest), left.end());
  }
  result.sire_count = static_cast<std::int32_t>(sires.size());
  if (sires.empty()) return result;
  const auto first_largest = [&] {
    return static_cast<std::size_t>(std::max_element(counts.begin(), counts.end()) - counts.begin());
  };
  result.top_sire = sires[first_largest()];
  for (std::size_t r = 0; r < std::min<std::size_t>(10, sires.size()); ++r) {
    const std::size_t j = first_largest();
    const float share = static_cast<float>(counts[j]) / known;
    result.shares[r] = share * 100.0F;
    counts[j] = 0;
  }
  return result;
}

TEST(TopSires, OneFatherForAllAnimalsOfAYear) {
  const YearRows<TopSireRow> years = top_sires_of(numbered_store("1999 m\n2000 s=1\n2000 s=1\n2000 s=1\n")).years;
  EXPECT_EQ(years.of(2).sire_count, 1);
  EXPECT_EQ(years.of(2).top_sire, 1);
  EXPECT_EQ(shares_of(years, 2), ten({100.0F}));
}

TEST(TopSires, AYearWithoutKnownFathersStaysZero) {
  const YearRows<TopSireRow> years = top_sires_of(numbered_store("1999 m\n1999\n2000 s=1\n2001 d=2\n2002\n")).years;
  for (const std::int64_t row : {1, 3, 4}) {
    EXPECT_EQ(years.of(row).sire_count, 0);
    EXPECT_EQ(years.of(row).top_sire, 0);
    EXPECT_EQ(shares_of(years, row), ten({}));
  }
}

TEST(TopSires, TwelveFathersFillTenColumnsThatSumToLessThanAHundred) {
  // Twelve males, then in 2000 one child of each, and a second one of the twelfth.
  std::string text;
  for (int i = 0; i < 12; ++i) text += "1999 m\n";
  for (int i = 1; i <= 12; ++i) text += "2000 s=" + std::to_string(i) + "\n";
  text += "2000 s=3\n";
  const YearRows<TopSireRow> years = top_sires_of(numbered_store(text)).years;
  EXPECT_EQ(years.of(2).sire_count, 12);
  EXPECT_EQ(years.of(2).top_sire, 3);
  const Shares shares = shares_of(years, 2);
  EXPECT_EQ(shares[0], 2.0F / 13.0F * 100.0F);
  for (std::size_t r = 1; r < 10; ++r) EXPECT_EQ(shares[r], 1.0F / 13.0F * 100.0F);
  EXPECT_LT(std::accumulate(shares.begin(), shares.end(), 0.0F), 90.0F);
}

TEST(TopSires, OfTwoEquallyUsedFathersTheOneWithTheHighestNumberIsNamed) {
  const YearRows<TopSireRow> years =
      top_sires_of(numbered_store("1999 m\n1999 m\n1999 m\n2000 s=1\n2000 s=2\n2000 s=1\n2000 s=2\n2000 s=2\n"
                                  "2000 s=1\n2000 s=3\n"))
          .years;
  EXPECT_EQ(years.of(2).top_sire, 2);
  EXPECT_EQ(shares_of(years, 2), ten({3.0F / 7.0F * 100.0F, 3.0F / 7.0F * 100.0F, 1.0F / 7.0F * 100.0F}));
}

TEST(TopSires, SharesArePercentagesOfTheAnimalsWithAKnownFather) {
  const YearRows<TopSireRow> years =
      top_sires_of(numbered_store("1999 m\n1999 m\n2000 s=1\n2000\n2000\n2000 s=2\n2000 s=2\n"
                                  "2000\n2000 s=2\n"))
          .years;
  EXPECT_EQ(years.of(2).sire_count, 2);
  EXPECT_EQ(shares_of(years, 2), ten({75.0F, 25.0F}));
}

TEST(TopSires, TheOnlyAnimalWithAKnownFatherGivesOneFather) {
  const YearRows<TopSireRow> years = top_sires_of(numbered_store("1999 m\n2000\n2000 s=1\n2000\n")).years;
  EXPECT_EQ(years.of(2).sire_count, 1);
  EXPECT_EQ(shares_of(years, 2), ten({100.0F}));
}

TEST(TopSires, FathersWithoutALineOfTheirOwnCountLikeAnyOther) {
  const PopulationStore store = pedigree_from_text("pup1 ghost 0 m 2000\npup2 ghost 0 f 2000\npup3 0 0 f 2000\n");
  const YearRows<TopSireRow> years = top_sires_of(store).years;
  EXPECT_EQ(years.of(1).sire_count, 1);
  EXPECT_EQ(store.at(years.of(1).top_sire).id, "ghost");
}

TEST(TopSires, AnimalsWithoutBirthYearAreNeverCounted) {
  const YearRows<TopSireRow> years = top_sires_of(numbered_store("-1 m\ns=1\ns=1\n1 s=1\n")).years;
  ASSERT_EQ(years.row_count(), 3);
  EXPECT_EQ(years.of(2).sire_count, 0);
  EXPECT_EQ(years.of(2).top_sire, 0);
  EXPECT_EQ(years.of(3).sire_count, 1);
}

TEST(TopSires, ImportsAndFatherlessOffspringOfDamsDoNotMatter) {
  // An imported child counts for its father like any other.
  const YearRows<TopSireRow> years =
      top_sires_of(numbered_store("1999 m\n1999 m\n2000 s=1 import\n2000 s=1 import\n2000 s=2\n")).years;
  EXPECT_EQ(years.of(2).top_sire, 1);
  EXPECT_EQ(shares_of(years, 2), ten({2.0F / 3.0F * 100.0F, 1.0F / 3.0F * 100.0F}));
}

TEST(TopSires, ConsoleLinesInBothLanguages) {
  const PopulationStore store = numbered_store("1999 m\n2001 s=1\n");
  EXPECT_EQ(top_sires_of(store, true).console,
            (std::vector<std::string>{" compute contribution topsires for year        1999",
                                      " compute contribution topsires for year        2000",
                                      " compute contribution topsires for year        2001"}));
  EXPECT_EQ(top_sires_of(store, false).console[1], " bereken aandeel dominante mannetjes voor jaar         2000");
}

TEST(TopSires, AgreeWithThePlainWayOnRandomPedigrees) {
  for (std::uint64_t seed = 1; seed <= 4; ++seed) {
    const PopulationStore store = random_pedigree(seed, 1500, 20);
    const YearRows<TopSireRow> years = top_sires_of(store).years;
    for (std::int32_t row = 1; row <= store.birth_years.count; ++row) {
      const PlainYear expected = plain_year(store, store.birth_years.first + row - 1);
      EXPECT_EQ(years.of(row).sire_count, expected.sire_count);
      EXPECT_EQ(years.of(row).top_sire, expected.top_sire);
      EXPECT_EQ(shares_of(years, row), expected.shares);
    }
  }
}

}  // namespace
}  // namespace pedigreewatch::test
