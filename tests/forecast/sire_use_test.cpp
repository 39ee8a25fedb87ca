#include "forecast/sire_use.h"

#include <gtest/gtest.h>

#include <numeric>

namespace pedigreewatch::test {
namespace {

constexpr std::int32_t many = 1000;

std::int64_t sum_of(const std::vector<std::int32_t>& numbers) {
  return std::accumulate(numbers.begin(), numbers.end(), std::int64_t{0});
}

TEST(ShareLitters, FollowsTheUse) {
  RandomStream random = make_stream(1);
  const std::vector<SireShare> sires = {{4.0, many}, {2.0, many}, {1.0, many}, {1.0, many}};
  EXPECT_EQ(share_litters(sires, 16, random), (std::vector<std::int32_t>{8, 4, 2, 2}));
}

TEST(ShareLitters, GivesEverySireOne) {
  RandomStream random = make_stream(1);
  const std::vector<SireShare> sires = {{100.0, many}, {0.1, many}, {0.1, many}};
  EXPECT_EQ(share_litters(sires, 10, random), (std::vector<std::int32_t>{8, 1, 1}));
}

TEST(ShareLitters, KeepsLimits) {
  RandomStream random = make_stream(1);
  const std::vector<SireShare> sires = {{100.0, 3}, {1.0, many}, {1.0, 4}};
  EXPECT_EQ(share_litters(sires, 9, random), (std::vector<std::int32_t>{3, 3, 3}));
  const std::vector<std::int32_t> most = share_litters(std::vector<SireShare>{{1.0, 3}, {5.0, 2}}, 100, random);
  EXPECT_EQ(most, (std::vector<std::int32_t>{3, 2}));
}

TEST(ShareLitters, RoundsWithoutBias) {
  RandomStream random = make_stream(4);
  const std::vector<SireShare> sires = {{1.0, many}, {1.0, many}, {2.0, many}};
  double first = 0.0;
  constexpr int draws = 4000;
  for (int k = 0; k < draws; ++k) {
    const std::vector<std::int32_t> numbers = share_litters(sires, 10, random);
    ASSERT_EQ(sum_of(numbers), 10);
    first += numbers[0];
  }
  EXPECT_NEAR(first / draws, 2.5, 5.0 * 0.5 / 63.0);  // 0.5 is the standard deviation of one draw
}

TEST(ShareLitters, WithFewerLittersThanSiresGivesSomeNone) {
  RandomStream random = make_stream(4);
  const std::vector<SireShare> sires(5, {1.0, many});
  const std::vector<std::int32_t> numbers = share_litters(sires, 2, random);
  EXPECT_EQ(sum_of(numbers), 2);
  for (const std::int32_t number : numbers) EXPECT_LE(number, 1);
}

TEST(ShareLitters, OfNobodyIsNothing) {
  RandomStream random = make_stream(4);
  EXPECT_TRUE(share_litters({}, 5, random).empty());
}

}  // namespace
}  // namespace pedigreewatch::test
