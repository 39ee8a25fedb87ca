// How many litters each sire of a year gets.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "forecast/random_stream.h"

namespace pedigreewatch {

/// A sire's use, and what he may have at most.
struct SireShare {
  double use = 0.0;       ///< above 0
  std::int32_t most = 0;  ///< at least 1
};

/// Whole numbers of litters that add up to `litters`, or to as many as all sires together may have: one each first,
/// then in proportion to the use that is above the least. The parts of a litter that this gives are rounded up or down
/// at random, so that the mean is kept (systematic sampling).
std::vector<std::int32_t> share_litters(std::span<const SireShare> sires, std::int64_t litters, RandomStream& random);

}  // namespace pedigreewatch
