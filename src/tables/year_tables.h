// The tables by birth year: of the whole population, and of its subpopulations one below the other.
#pragma once

#include <span>

#include "tables/year_columns.h"

namespace pedigreewatch {

/// A header and a row for each birth year: the year, then everything that the report shows of it. Without birth years
/// there is the header alone.
void write_years(const AnalysedPopulation& population, std::span<const GroupCounts> groups, TableWriter& writer);

/// A header and, for each subpopulation that has animals, a row for each birth year: its name, the year, then what the
/// block of the subpopulation shows.
void write_subpopulations(const AnalysedPopulation& population, std::span<const GroupCounts> groups,
                          TableWriter& writer);

}  // namespace pedigreewatch
