// The generation interval.
#pragma once

#include "reports/report_lines.h"
#include "statistics/block.h"

namespace pedigreewatch {

/// Mean ages of the parents per year and over all.
void write_generation_interval(const ReportFrame& frame, const Block& block);

}  // namespace pedigreewatch
