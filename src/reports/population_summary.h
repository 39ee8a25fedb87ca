// The figures from which a population model can be set up: litters, breeding animals, the most used sires, and the
// distributions of litter size and of the parents' ages.
#pragma once

#include "genetics/top_sires.h"
#include "reports/report_lines.h"
#include "statistics/monitor_tables.h"

namespace pedigreewatch {

/// Writes the summary. It rests on up to six years before the last one, which is taken to be incomplete; the animals
/// that became parents are counted one year less far. `shares` are percentages, as the table of top sires leaves them.
void write_summary(const ReportFrame& frame, const MonitorTables& tables, const YearTable<float>& shares);

}  // namespace pedigreewatch
