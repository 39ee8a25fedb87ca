// Young of native and of imported parents, per year.
#pragma once

#include "reports/report_lines.h"
#include "statistics/imports.h"

namespace pedigreewatch {

/// Writes the table, in Dutch in either language.
void write_imports(const ReportFrame& frame, const YearRows<ImportPairs>& import_pairs);

}  // namespace pedigreewatch
