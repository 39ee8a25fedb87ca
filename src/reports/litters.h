// Parents and litters per year, and the sizes of the litters.
#pragma once

#include "reports/report_lines.h"
#include "statistics/block.h"

namespace pedigreewatch {

/// Litters, fathers and young per year.
void write_parents_and_litters(const ReportFrame& frame, const Block& block);

/// How many litters of each size there were in each year.
void write_litter_sizes(const ReportFrame& frame, const YearTable<std::int32_t>& sizes);

}  // namespace pedigreewatch
