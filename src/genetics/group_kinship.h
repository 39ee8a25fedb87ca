// From the sums of a group of animals to its means, in single precision.
#pragma once

#include <cstdint>

#include "core/integers.h"

namespace pedigreewatch {

/// Number of animals, sum of F, and sum of the relationships of each animal with each, itself included.
struct GroupTotal {
  std::int64_t count = 0;
  float inbreeding_sum = 0.0F;
  float relationship_sum = 0.0F;

  void add(float inbreeding) {
    ++count;
    inbreeding_sum += inbreeding;
  }
};

/// Pairs of different animals, each in both orders.
inline float ordered_pairs(const GroupTotal& group) {
  return real(group.count * (group.count - 1));
}

inline float mean_inbreeding(const GroupTotal& group) {
  return group.inbreeding_sum / real(group.count);
}

inline float kinship_with_self(const GroupTotal& group) {
  return group.relationship_sum / real(group.count * group.count) * 0.5F;
}

/// The mean kinship of different animals, at least two: the diagonal, number plus sum of F, is taken away. The two
/// orders of subtraction differ in the last digit, and each figure of the report has its own.
inline float kinship_taking_inbreeding_first(const GroupTotal& group) {
  const float count = real(group.count);
  return 0.5F * (((group.relationship_sum - group.inbreeding_sum) - count) / ordered_pairs(group));
}

inline float kinship_taking_count_first(const GroupTotal& group) {
  const float count = real(group.count);
  return 0.5F * (((group.relationship_sum - count) - group.inbreeding_sum) / ordered_pairs(group));
}

}  // namespace pedigreewatch
