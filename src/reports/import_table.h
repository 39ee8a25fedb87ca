// Young of native and of imported parents, per year.
#pragma once

#include "reports/report_lines.h"
#include "statistics/monitor_tables.h"

namespace pedigreewatch {

/// Writes the table, in Dutch in either language.
void write_imports(const ReportFrame& frame, const YearTable<std::int32_t>& import_pairs);

}  // namespace pedigreewatch
