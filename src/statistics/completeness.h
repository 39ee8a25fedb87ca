// How far back the pedigrees are known.
#pragma once

#include <cstdint>
#include <span>

#include "core/year_table.h"
#include "pedigree/population_store.h"
#include "pedigree/year_groups.h"

namespace pedigreewatch {

/// Fills `generation_equivalents` (Maignel, Boichard and Verrier, 1996) and `complete_generations` of every animal.
/// Parents must stand before their offspring.
void determine_completeness(PopulationStore& store);

/// Fills one row of the two tables from the year's animals: the mean generation equivalents, and the shares of
/// animals with 1, 2, 3, 4 and at least 5 complete generations. A year without animals stays 0.
void completeness_of_year(const PopulationStore& store, std::span<const std::int32_t> year_animals, std::int64_t row,
                          YearTable<float>& equivalent_generations, YearTable<float>& complete_generation_shares);

}  // namespace pedigreewatch
