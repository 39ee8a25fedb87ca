#include "core/bit_pattern.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace pedigreewatch::test {
namespace {

TEST(BitPattern, FindsTheLowestAndTheHighestBit) {
  EXPECT_EQ(lowest_bit(std::uint32_t{0b101000}), 3U);
  EXPECT_EQ(highest_bit(std::uint32_t{0b101000}), 5U);
  EXPECT_EQ(lowest_bit(std::uint64_t{1} << 63), 63U);
  EXPECT_EQ(highest_bit(std::uint64_t{1} << 63), 63U);
  EXPECT_EQ(highest_bit(std::uint64_t{1}), 0U);
}

}  // namespace
}  // namespace pedigreewatch::test
