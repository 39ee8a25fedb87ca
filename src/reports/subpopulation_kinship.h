// Inbreeding and kinship within subpopulations, and between them.
#pragma once

#include "reports/report_lines.h"

namespace pedigreewatch {

/// Mean F and mean kinship within each subpopulation, then the mean relationship, twice the kinship, between each two,
/// per year.
void write_subpopulation_kinship(const ReportFrame& frame, const YearTable<float>& kinship_table);

}  // namespace pedigreewatch
