#include "genetics/group_kinship.h"

#include <gtest/gtest.h>

namespace pedigreewatch::test {
namespace {

/// Two animals with F 1/4 and 0 and a relationship of 1/2 between them: 1.25 + 1 + 2 * 0.5.
constexpr GroupTotal pair = {.count = 2, .inbreeding_sum = 0.25F, .relationship_sum = 3.25F};

TEST(GroupTotal, CountsAnimalsAndTheirF) {
  GroupTotal total;
  for (const float F : {0.25F, 0.0F, 0.125F}) total.add(F);
  EXPECT_EQ(total.count, 3);
  EXPECT_EQ(total.inbreeding_sum, 0.375F);
  EXPECT_EQ(total.relationship_sum, 0.0F);
}

TEST(GroupKinship, MeansOfTwoAnimals) {
  EXPECT_EQ(ordered_pairs(pair), 2.0F);
  EXPECT_EQ(mean_inbreeding(pair), 0.125F);
  EXPECT_EQ(kinship_with_self(pair), 3.25F / 8.0F);
  EXPECT_EQ(kinship_taking_inbreeding_first(pair), 0.25F);
  EXPECT_EQ(kinship_taking_count_first(pair), 0.25F);
}

TEST(GroupKinship, AnAnimalAloneIsItsOwnKin) {
  EXPECT_EQ(kinship_with_self({.count = 1, .inbreeding_sum = 0.25F, .relationship_sum = 1.25F}), 0.625F);
}

TEST(GroupKinship, TheOrderOfSubtractionShowsInTheLastDigit) {
  // Near 2^24 single precision holds every integer, above it even ones only. 2^24 + 2 less 1 lies halfway between
  // neighbours and falls to 2^24 (an even last digit), less 2 more gives 2^24 - 2. 2^24 + 2 less 2 is 2^24, and less 1
  // 2^24 - 1.
  const GroupTotal group = {.count = 2, .inbreeding_sum = 1.0F, .relationship_sum = 16777218.0F};
  EXPECT_EQ(kinship_taking_inbreeding_first(group), 16777214.0F / 4.0F);
  EXPECT_EQ(kinship_taking_count_first(group), 16777215.0F / 4.0F);
}

TEST(GroupKinship, NumbersOfPairsBeyond32BitsDoNotWrap) {
  // 100 000 animals have nearly 10^10 pairs.
  const GroupTotal group = {.count = 100'000, .inbreeding_sum = 0.0F, .relationship_sum = 100'000.0F};
  EXPECT_EQ(ordered_pairs(group), 9'999'900'000.0F);
  EXPECT_EQ(kinship_with_self(group), 100'000.0F / 1e10F * 0.5F);
}

}  // namespace
}  // namespace pedigreewatch::test
