// Subpopulations: their animals per year, the descent of their parents, inbreeding and kinship within and between.
#pragma once

#include <span>

#include "control/steer_settings.h"
#include "pedigree/subpopulation_scan.h"
#include "reports/report_lines.h"

namespace pedigreewatch {

/// Animals of each subpopulation per year, then from which subpopulations the parents of each one come.
void write_subpopulation_tables(const ReportFrame& frame, std::span<const SubpopulationName> names,
                                const YearTable<std::int32_t>& year_table, const SubpopulationOverlap& overlap);

/// Mean F and kinship within each subpopulation, then the relationship between each two, per year.
void write_subpopulation_kinship(const ReportFrame& frame, std::span<const SubpopulationName> names,
                                 const YearTable<float>& kinship_table);

}  // namespace pedigreewatch
