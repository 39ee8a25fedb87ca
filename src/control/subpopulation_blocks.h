// The blocks of the report that follow the one of the whole population.
#pragma once

#include "core/text_output.h"
#include "core/year_table.h"
#include "pedigree/data_file_layout.h"
#include "reports/report_lines.h"

namespace pedigreewatch {

/// With more than one subpopulation: counts each of them and writes its block.
void report_subpopulations(const ReportFrame& frame, const DataFileLayout& layout,
                           const YearTable<float>& kinship_table, TextOutput& console);

}  // namespace pedigreewatch
