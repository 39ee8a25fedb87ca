// Who goes with whom in a year of a model herd.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "forecast/model_herd.h"

namespace pedigreewatch {

/// In place of a dam that is not known.
inline constexpr std::size_t unknown_dam = SIZE_MAX;

/// A litter that will be born: its dam, and the group that its sire is of.
struct WantedLitter {
  std::size_t dam = 0;  ///< among the dams of the herd, or `unknown_dam`
  GroupNo group = 0;    ///< of the young
  GroupNo sire_group = 0;
  bool has_sire = true;  ///< a known one
};

/// Pairs every litter with one of the sires' litters (`ModelParent::litters`), in the order of the litters: those near
/// as in the base period, none that a rule forbids. What cannot be made is lost. The families are added to the herd, F
/// of their young included, their numbers of young not.
void make_matings(ModelHerd& herd, const std::vector<WantedLitter>& litters, std::int32_t year);

}  // namespace pedigreewatch
