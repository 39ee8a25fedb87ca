// The table of the animals: a row for each animal of the store, parents before their offspring.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/by_number.h"
#include "diversity/figures.h"
#include "pedigree/population_store.h"
#include "tables/table_writer.h"

namespace pedigreewatch {

/// A date of birth as "2004-02-29"; empty when it is unknown, or when its year has no four digits. A day of 0 or below
/// counts as 1, and the 29th of February of a year that has none as the 28th.
std::string iso_date(std::int32_t year, std::int32_t month, std::int32_t day);

/// Offspring of every animal, imports among them.
ByNumber<std::int32_t> count_offspring(const PopulationStore& store);

/// Generations to the furthest known ancestor of every animal; 0 without known parents. Parents must stand before their
/// offspring.
ByNumber<std::int32_t> longest_lines(const PopulationStore& store);

/// Writes the header and a row for each animal. The mean kinships of `figures` are those with its reference population.
void write_animals(const PopulationStore& store, const AnimalFigures& figures, TableWriter& writer);

}  // namespace pedigreewatch
