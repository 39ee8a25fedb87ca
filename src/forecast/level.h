// Whether yearly numbers went up or down, and where that has brought them.
#pragma once

#include <span>
#include <vector>

namespace pedigreewatch {

/// A trend counts when its slope is so many standard errors from 0: once in some hundred cases by chance.
inline constexpr double errors_of_trend = 3.0;
/// A year counts so many times at most.
inline constexpr double most_level = 3.0;

/// A year's count, and what it was counted among: 1 for the count itself.
struct YearCount {
  double count = 0.0, among = 1.0;
};

/// Where yearly rates have come to.
struct Level {
  bool is_trend = false;
  double last = 0.0;            ///< rate to go on with; the mean without a trend
  std::vector<double> factors;  ///< by year: what its rate is multiplied by to bring it there; 1 without a trend
};

/// By the line through the rates (least squares), whose slope counts when neither chance counts (Poisson) nor years
/// that differ as much as these do explain it. No trend with fewer than three years. No factor is above `most_level`.
Level level_of(std::span<const YearCount> years);

}  // namespace pedigreewatch
