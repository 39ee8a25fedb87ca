// Counts in place of real numbers: what is left of one goes on to the next, so that their sum is right.
#pragma once

#include <cmath>
#include <cstdint>

namespace pedigreewatch {

/// Hands out whole numbers that add up to the sum of the real ones but for less than 1.
struct WholeNumbers {
  double sum = 0.0;

  std::int32_t next(double value) {
    constexpr double rounding = 1e-9;
    const double before = std::floor(sum + rounding);
    sum += value;
    return static_cast<std::int32_t>(std::floor(sum + rounding) - before);
  }
};

}  // namespace pedigreewatch
