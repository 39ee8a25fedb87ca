// Whether the parents of a stretch of years are known as well as those of later years. Where a herdbook begins, the old
// parents are the unknown ones: those that are known are few and young, their lines meet sooner than the lines of the
// breed, and a rate from them is too high, so that the breed of today looks better than it did.
#pragma once

#include <cstdint>
#include <optional>

#include "pedigree/population_store.h"

namespace pedigreewatch {

/// Known parents of early years may lack so much against later ones: beyond it a rate from these years is compared with
/// none. Breeds whose breeding did not change were told of a fall in 1 of 4 without it.
inline constexpr double most_parents_lacking = 0.10;

/// Both ends belong to it.
struct YearStretch {
  std::int32_t first = 0, last = 0;
};

/// Two stretches of years by what is known of the parents of the animals born in them.
struct LackingParents {
  YearStretch early, later;
  double known_early = 0.0, known_later = 0.0;  ///< shares of the parents
  bool has_births = false;                      ///< in the early years
};

/// What lacks in the early years; nothing when that is at most `most_parents_lacking`. Imports are left out: their
/// parents are those of another breed. Years without births lack all.
std::optional<LackingParents> find_lacking_parents(const PopulationStore& store, YearStretch early, YearStretch later);

}  // namespace pedigreewatch
