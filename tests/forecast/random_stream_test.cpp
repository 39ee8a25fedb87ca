#include "forecast/random_stream.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <vector>

namespace pedigreewatch::test {
namespace {

// The first numbers that the authors' own program yields from the state 1, 2, 3, 4.
TEST(RandomStream, IsTheGeneratorOfItsAuthors) {
  RandomStream random{{1, 2, 3, 4}};
  const std::vector<std::uint64_t> expected = {11520, 0, 1509978240, 1215971899390074240};
  for (const std::uint64_t number : expected) EXPECT_EQ(random.next(), number);
}

TEST(RandomStream, BeginsWithSplitmix) {
  std::uint64_t state = 0;
  EXPECT_EQ(mix_next(state), 0xE220A8397B1DCDAFU);
  EXPECT_EQ(mix_next(state), 0x6E789E6AA1B965F4U);
}

TEST(RandomStream, IsAnotherForEachReplicateYearAndPurpose) {
  std::vector<std::uint64_t> first;
  for (const std::int32_t replicate : {0, 1}) {
    for (const std::int32_t year : {2000, 2001}) {
      for (const DrawPurpose purpose : {DrawPurpose::births, DrawPurpose::pairing}) {
        first.push_back(make_stream(1, replicate, year, purpose).next());
      }
    }
  }
  std::sort(first.begin(), first.end());
  EXPECT_EQ(std::unique(first.begin(), first.end()), first.end());
  EXPECT_EQ(make_stream(7, 3, 1999, DrawPurpose::groups).next(), make_stream(7, 3, 1999, DrawPurpose::groups).next());
}

TEST(RandomStream, DrawsAllNumbersBelowALimitAlikeOften) {
  RandomStream random = make_stream(5);
  std::vector<int> counts(6, 0);
  constexpr int draws = 60'000;
  for (int k = 0; k < draws; ++k) ++counts[static_cast<std::size_t>(random.below(6))];
  for (const int count : counts) EXPECT_NEAR(count, 10'000, 5 * 92);  // the standard deviation is 91.3
}

TEST(RandomStream, DrawsPlacesAsItDrawsNumbers) {
  for (const std::int32_t limit : {1, 2, 7, 2'000'000'000}) {
    RandomStream numbers = make_stream(5), places = make_stream(5);
    for (int k = 0; k < 20; ++k) {
      EXPECT_EQ(places.place_among(static_cast<std::size_t>(limit)), static_cast<std::size_t>(numbers.below(limit)));
    }
  }
}

TEST(RandomStream, ShufflesIntoEveryOrder) {
  RandomStream random = make_stream(9);
  std::vector<int> counts(6, 0);
  for (int k = 0; k < 6000; ++k) {
    std::vector<int> order = {0, 1, 2};
    shuffle(random, std::span(order));
    ++counts[static_cast<std::size_t>(2 * order[0] + (order[1] > order[2] ? 1 : 0))];
  }
  for (const int count : counts) EXPECT_NEAR(count, 1000, 5 * 29);  // the standard deviation is 28.9
}

}  // namespace
}  // namespace pedigreewatch::test
