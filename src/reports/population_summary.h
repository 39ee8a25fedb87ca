// The summary: figures from which a population model can be set up.
#pragma once

#include "reports/report_lines.h"
#include "statistics/population_summary.h"

namespace pedigreewatch {

void write_summary(const ReportFrame& frame, const PopulationSummary& summary);

}  // namespace pedigreewatch
