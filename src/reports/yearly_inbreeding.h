// Inbreeding and kinship per year.
#pragma once

#include "reports/report_lines.h"
#include "statistics/block.h"

namespace pedigreewatch {

/// The section on inbreeding: means per year, then the rates with the effective size and the rates per period.
void write_inbreeding(const ReportFrame& frame, const Block& block);

}  // namespace pedigreewatch
