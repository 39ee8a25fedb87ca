// The ReportFile: which tables it holds, and in which order.
#pragma once

#include "reports/report_lines.h"
#include "statistics/block.h"

namespace pedigreewatch {

/// Writes the block of the whole population.
void write_report(const ReportFrame& frame, const Block& block, const WholeExtras& extras);

/// Writes the block of one subpopulation.
void write_type_report(const ReportFrame& frame, const Block& block);

}  // namespace pedigreewatch
