// Ages of the parents at each birth, generation intervals, and the most used parents.
#pragma once

#include <cstdint>
#include <span>

#include "core/text_output.h"
#include "pedigree/population_store.h"
#include "statistics/monitor_tables.h"

namespace pedigreewatch {

/// An age that is not known.
inline constexpr std::int32_t unknown_age = -1;

/// Ages are counted in years without leap days.
inline constexpr std::int32_t days_per_year = 365;

/// The known ages among some. Their sum may pass 32 bits merely because a population is large: it is kept wider.
struct AgeTotal {
  std::int64_t days = 0, count = 0;

  void add(std::int32_t age) {
    if (age == unknown_age) return;
    days += age;
    ++count;
  }
  /// Not a number when no age is known.
  float mean_days() const { return static_cast<float>(days) / static_cast<float>(count); }
};

/// Fills `sire_age_days` and `dam_age_days` of every animal, in a calendar of 365-day years, and yields the oldest
/// parents. An age stays -1 when a date is unknown; a parent born after its offspring gets a negative age.
OldestParents determine_parent_ages(PopulationStore& store, TextOutput& console);

/// The oldest parents at the births of the animals at `positions`, in whole years truncated towards zero.
OldestParents find_oldest_parents(const PopulationStore& store, std::span<const std::int32_t> positions);

/// Mean ages of the parents of the animals at `positions`, in years.
OverallParentAges overall_parent_ages(const PopulationStore& store, std::span<const std::int32_t> positions);

/// The busiest parents among the animals at `positions`, the first in store order on a tie; 1 where a sex has none.
BusiestParents find_busiest_parents(const PopulationStore& store, std::span<const std::int32_t> positions);

/// Turns the mean ages of a table from days into years.
void turn_days_into_years(YearTable<float>& mean_ages);

}  // namespace pedigreewatch
