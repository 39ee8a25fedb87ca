// The summary: figures from which a population model can be set up.
#pragma once

#include "reports/report_lines.h"
#include "statistics/population_summary.h"

namespace pedigreewatch {

/// Writes the summary between its rules; only the block of the whole population has one.
void write_summary(const ReportFrame& frame, const PopulationSummary& summary);

}  // namespace pedigreewatch
