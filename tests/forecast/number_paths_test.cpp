// How numbers went on after earlier years, and what is taken from that.
#include "forecast/number_paths.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace pedigreewatch::test {
namespace {

struct Numbers {
  std::int32_t litters = 0, sires = 0;
};

/// Families of these years, from 1 on. All years have sires of their own, each with as many litters as the others.
struct Herd {
  PopulationStore store;
  FamilyRecords records;

  explicit Herd(const std::vector<Numbers>& years)
      : records{store, 1, static_cast<std::int32_t>(years.size()), 1, true, {}, {}, ByNumber<GroupNo>(0)} {
    std::int32_t year = 0;
    for (const Numbers& numbers : years) {
      ++year;
      for (std::int32_t k = 0; k < numbers.litters; ++k) {
        records.families.push_back({year, 1000 * year + k % numbers.sires, 1, 1});
      }
      records.end.push_back(records.families.size());
    }
  }

  std::vector<NumberPath> paths() const { return list_number_paths(records, 3); }
};

TEST(NumberPaths, AreFiveOrNone) {
  EXPECT_TRUE(Herd(std::vector<Numbers>(19, {20, 10})).paths().empty());
  const auto paths = Herd(std::vector<Numbers>(20, {20, 10})).paths();
  ASSERT_EQ(paths.size(), 5U);
  for (const NumberPath& path : paths) {
    ASSERT_EQ(path.size(), 10U);
    for (const NumberYear& year : path) {
      EXPECT_DOUBLE_EQ(year.litters, 1.0);
      EXPECT_DOUBLE_EQ(year.litter_level, 1.0);
      EXPECT_DOUBLE_EQ(year.sires_per_litter, 1.0);
    }
  }
}

TEST(NumberPaths, LieInTheLastFortyYears) {
  EXPECT_EQ(Herd(std::vector<Numbers>(60, {20, 10})).paths().size(), 28U);  // of 3 and 10 years
}

// A year with few litters is no change of the level but in the mean of three; twice as many of all is.
TEST(NumberPaths, TellYearsFromLevels) {
  std::vector<Numbers> years(23, {20, 10});
  years[8].litters = 8;
  NumberPath path = Herd(years).paths()[0];  // of the 7th to the 16th year
  EXPECT_DOUBLE_EQ(path[2].litters, 0.4);
  EXPECT_DOUBLE_EQ(path[2].litter_level, 0.8);
  EXPECT_DOUBLE_EQ(path[4].litter_level, 1.0);
  years.assign(23, {20, 10});
  for (std::size_t k = 6; k < years.size(); ++k) years[k] = {50, 25};
  path = Herd(years).paths()[0];
  EXPECT_DOUBLE_EQ(path[0].litters, 2.5);
  EXPECT_DOUBLE_EQ(path[0].litter_level, 2.0);  // no more than this is gone on with
}

TEST(NumberPaths, TakeNoChanceForAChange) {
  std::vector<Numbers> years(23, {40, 10});
  for (std::size_t k = 13; k < years.size(); ++k) years[k].sires = 11;
  for (const NumberPath& path : Herd(years).paths()) {
    for (const NumberYear& year : path) EXPECT_DOUBLE_EQ(year.sires_per_litter, 1.0);
  }
  years.assign(23, {400, 100});
  for (std::size_t k = 13; k < years.size(); ++k) years[k].sires = 150;
  const double changed = Herd(years).paths()[3].back().sires_per_litter;
  EXPECT_GT(changed, 1.45);
  EXPECT_LT(changed, 1.5);
}

TEST(FollowPaths, GoesUpAndDownAlike) {
  EXPECT_DOUBLE_EQ(follow_paths({}, 7, make_stream(1)).litters, 1.0);
  NumberPath grown(10, NumberYear{1.5, 1.5, 0.8});
  grown[3].litters = 0.75;
  int up = 0;
  constexpr int draws = 1000;
  for (int k = 0; k < draws; ++k) {
    const NumberYear year = follow_paths({grown}, 4, make_stream(static_cast<std::uint64_t>(k)));
    const bool is_up = year.litter_level > 1.0;
    up += is_up ? 1 : 0;
    EXPECT_DOUBLE_EQ(year.litter_level, is_up ? 1.5 : 1.0 / 1.5);
    EXPECT_DOUBLE_EQ(year.sires_per_litter, is_up ? 0.8 : 1.25);
    EXPECT_DOUBLE_EQ(year.litters, 0.5 * year.litter_level);  // half of the years around it, either way
  }
  EXPECT_NEAR(up, draws / 2, 60);
}

// Behind ten years another path begins where the first one has ended, within bounds.
TEST(FollowPaths, GoesOnFromWhereAPathEnds) {
  const NumberPath grown(10, NumberYear{1.5, 1.5, 1.0});
  std::vector<double> levels;
  for (std::uint64_t k = 0; k < 100; ++k) {
    const double first = follow_paths({grown}, 10, make_stream(k)).litter_level;
    const double second = follow_paths({grown}, 11, make_stream(k)).litter_level;
    const double up = std::min(1.5 * first, 2.0), down = std::max(first / 1.5, 0.5);
    EXPECT_TRUE(std::abs(second - up) < 1e-12 || std::abs(second - down) < 1e-12) << second;
    levels.push_back(second);
  }
  EXPECT_DOUBLE_EQ(*std::max_element(levels.begin(), levels.end()), 2.0);
  EXPECT_DOUBLE_EQ(*std::min_element(levels.begin(), levels.end()), 0.5);
}

}  // namespace
}  // namespace pedigreewatch::test
