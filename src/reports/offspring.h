// Offspring per parent by the parents' year of birth, and the male and the female with the most offspring.
#pragma once

#include "reports/report_lines.h"
#include "statistics/block.h"

namespace pedigreewatch {

/// Writes the table and the two busiest parents; a store without animals shows them with blanks and zeros.
void write_offspring(const ReportFrame& frame, const Block& block);

}  // namespace pedigreewatch
