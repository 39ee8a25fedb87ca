// Goes through the birth years and counts the animals of each for all yearly tables.
#pragma once

#include <vector>

#include "core/line_writer.h"
#include "core/text_output.h"
#include "pedigree/data_file_layout.h"
#include "pedigree/population_store.h"
#include "pedigree/year_groups.h"
#include "statistics/breeder_list.h"
#include "statistics/breeders.h"
#include "statistics/monitor_tables.h"

namespace pedigreewatch {

/// The names that have columns of their own. Without a colour column there is one column for all animals.
struct CountedNames {
  const Colours& colours;
  TopBreeders breeders;
};

/// The line that the console shows behind each year: what stands before the year, and what behind it.
struct YearLine {
  std::vector<LineItem> before;
  Wording behind;
};

/// Fills the tables from the animals of `years`. Ages and completeness of the animals must be known. `oldest` sets the
/// widths of the tables of the parents' ages.
MonitorTables count_years(const PopulationStore& store, const YearGroups& years, const CountedNames& names,
                          const OldestParents& oldest, const YearLine& line, TextOutput& console);

/// The tables of the whole population, which read the breeder list in entries of 20 characters.
MonitorTables monitor_population(const PopulationStore& store, const YearGroups& years, const Colours& colours,
                                 const BreederList& breeders, const OldestParents& oldest, TextOutput& console);

}  // namespace pedigreewatch
