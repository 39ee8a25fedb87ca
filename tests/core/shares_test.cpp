#include "core/shares.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace pedigreewatch::test {
namespace {

TEST(ShareOf, IsADivisionOfReals) {
  const std::vector<int> four(4);
  EXPECT_EQ(share_of(1, four.size()), 0.25);
  EXPECT_EQ(share_of(std::int64_t{3}, std::int32_t{-2}), -1.5);
}

TEST(MeanOver, DividesASum) {
  const std::vector<int> four(4);
  EXPECT_EQ(mean_over(7.0, four.size()), 1.75);
}

}  // namespace
}  // namespace pedigreewatch::test
