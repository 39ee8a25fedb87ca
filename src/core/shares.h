// Reals that are made of counts: each count becomes a real here, once, and the division is one of reals.
#pragma once

#include <concepts>

namespace pedigreewatch {

// Templates, because counts of lists are without a sign and other counts have one.

/// The part of `whole` that `part` is. Nothing guards it against a whole of 0.
template <std::integral Part, std::integral Whole>
double share_of(Part part, Whole whole) {
  return static_cast<double>(part) / static_cast<double>(whole);
}

/// The mean of `count` values that add up to `sum`. Nothing guards it against a count of 0.
template <std::integral Count>
double mean_over(double sum, Count count) {
  return sum / static_cast<double>(count);
}

}  // namespace pedigreewatch
