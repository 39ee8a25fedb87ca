// How numbers of litters and sires went on after earlier years of the herdbook: what may come of those of today.
#pragma once

#include <cstdint>
#include <vector>

#include "forecast/families.h"
#include "forecast/random_stream.h"

namespace pedigreewatch {

/// So many years in a row are gone on with as they were.
inline constexpr std::int32_t years_of_path = 10;
/// Fewer paths than these tell nothing of how numbers change.
inline constexpr std::size_t least_paths = 5;
/// Paths lie in so many years before the forecast: longer ago, a herdbook was another one.
inline constexpr std::int32_t years_of_paths = 40;
/// A number that has changed is not gone on with above so many times the present one, or below one such part.
inline constexpr double most_change = 2.0;

/// Numbers of a year as multiples of what they were in the base period.
struct NumberYear {
  double litters = 1.0;           ///< of that very year
  double litter_level = 1.0;      ///< of the years around it
  double sires_per_litter = 1.0;  ///< likewise, of the years around it
};
using NumberPath = std::vector<NumberYear>;

/// Every path of `years_of_path` years that the herdbook has, but for its first `base_years`, each against as many
/// years before it. Sires a litter are drawn together as far as counts of so many sires differ by chance alone. None
/// where there are fewer than `least_paths`.
std::vector<NumberPath> list_number_paths(const FamilyRecords& records, std::int32_t base_years);

/// The numbers of a year ahead, from 1: along one path after another, each as likely turned round, so that what grew
/// might as well shrink. All 1 without paths. `random` begins a replicate.
NumberYear follow_paths(const std::vector<NumberPath>& paths, std::int32_t year_ahead, RandomStream random);

}  // namespace pedigreewatch
