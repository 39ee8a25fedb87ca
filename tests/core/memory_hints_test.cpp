#include "core/memory_hints.h"

#include <gtest/gtest.h>

#include <array>
#include <numeric>
#include <vector>

namespace pedigreewatch::test {
namespace {

TEST(MemoryHints, ReserveLargeMakesRoomAndKeepsElements) {
  std::vector<int> numbers(1000);
  std::iota(numbers.begin(), numbers.end(), 0);
  const std::vector<int> before = numbers;
  reserve_large(numbers, 3'000'000);
  EXPECT_GE(numbers.capacity(), 3'000'000U);
  EXPECT_EQ(numbers, before);
  numbers.resize(3'000'000, 7);
  EXPECT_EQ(numbers[999], 999);
  EXPECT_EQ(numbers[1000], 7);
  EXPECT_EQ(numbers.back(), 7);
}

TEST(MemoryHints, ReserveLargeNeverTakesRoomAway) {
  std::vector<int> numbers;
  numbers.reserve(100);
  reserve_large(numbers, 10);
  EXPECT_GE(numbers.capacity(), 100U);
  reserve_large(numbers, 0);
  EXPECT_GE(numbers.capacity(), 100U);
}

TEST(MemoryHints, LargePagesLeaveNeighbouringMemoryAlone) {
  std::array<char, 64> small = {};
  small.fill('x');
  prefer_large_pages(small.data() + 1, 62);  // less than a page: nothing to ask for
  for (const char c : small) EXPECT_EQ(c, 'x');
  prefer_large_pages(nullptr, 0);
}

}  // namespace
}  // namespace pedigreewatch::test
