// Animals of each subpopulation per year, and the descent of their parents.
#pragma once

#include "pedigree/subpopulation_scan.h"
#include "reports/report_lines.h"

namespace pedigreewatch {

/// Writes both tables.
void write_subpopulation_tables(const ReportFrame& frame, const SubpopulationScan& scan);

}  // namespace pedigreewatch
