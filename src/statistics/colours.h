// Colours of the animals of each birth year.
#pragma once

#include "core/year_table.h"
#include "pedigree/data_file_layout.h"
#include "pedigree/year_groups.h"

namespace pedigreewatch {

/// Fills a row: one column for each colour that is counted, and a last one that gathers all other animals. A table of
/// one column has no room for any colour and holds all animals.
void colour_statistics(const PopulationStore& store, YearAnimals animals, const Colours& colours, Row row,
                       YearTable<std::int32_t>& colour_counts);

}  // namespace pedigreewatch
