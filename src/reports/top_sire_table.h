// The most used sire of each year and the shares of the top ten.
#pragma once

#include "genetics/top_sires.h"
#include "pedigree/population_store.h"
#include "reports/report_lines.h"

namespace pedigreewatch {

/// Writes the table. Turns the shares into percentages, for good, and lets the first animal of the store stand in
/// as the top sire of a year without one.
void write_top_sires(const ReportFrame& frame, const PopulationStore& store, TopSires& top_sires);

}  // namespace pedigreewatch
