// Ages of the parents at each birth.
#pragma once

#include <cstdint>
#include <span>

#include "core/text_output.h"
#include "core/year_table.h"
#include "pedigree/population_store.h"
#include "pedigree/year_groups.h"

namespace pedigreewatch {

/// An age that is not known.
inline constexpr std::int32_t unknown_age = -1;

/// Ages are counted in years without leap days.
inline constexpr std::int32_t days_per_year = 365;

/// The ages of the oldest sire and dam in whole years, truncated towards zero.
using OldestParents = BySex<std::int32_t>;

/// Fills `sire_age_days` and `dam_age_days` of every animal, in a calendar of 365-day years, and yields the oldest
/// parents. An age stays -1 when a date is unknown; a parent born after its offspring gets a negative age.
OldestParents determine_parent_ages(PopulationStore& store, TextOutput& console);

/// The oldest parents at the births of the animals at `positions`.
OldestParents find_oldest_parents(const PopulationStore& store, std::span<const std::int32_t> positions);

/// Column c counts the sires, or the dams, aged 365c + 1 to 365(c + 1) days; younger ones are in no column.
using ParentAgeClasses = BySex<YearTable<std::int32_t>>;

/// Tables with a column for each year of the oldest sire's and the oldest dam's age.
ParentAgeClasses make_age_classes(const BirthYears& years, const OldestParents& oldest);

/// Counts the parents of the animals of one year.
void parent_age_statistics(const PopulationStore& store, YearAnimals animals, Row row, ParentAgeClasses& classes);

}  // namespace pedigreewatch
