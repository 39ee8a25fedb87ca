// Pedigree completeness.
#pragma once

#include "reports/report_lines.h"
#include "statistics/completeness.h"

namespace pedigreewatch {

/// Generation equivalents and completely known generations per year.
void write_completeness(const ReportFrame& frame, const YearRows<CompletenessRow>& completeness);

}  // namespace pedigreewatch
