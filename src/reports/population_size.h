// The table that opens each block: animals and parents per year of birth.
#pragma once

#include "reports/report_lines.h"
#include "statistics/block.h"

namespace pedigreewatch {

/// Writes the table, with columns for imports where the population has any, and from seven years on the shares of the
/// animals that become parents.
void write_population_size(const ReportFrame& frame, const Block& block);

}  // namespace pedigreewatch
