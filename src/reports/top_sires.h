// The most used sires of each year.
#pragma once

#include "genetics/top_sires.h"
#include "reports/report_lines.h"

namespace pedigreewatch {

/// Number of sires, the top sire and the shares of the ten most used ones, per year.
void write_top_sires(const ReportFrame& frame, const YearRows<TopSireRow>& top_sires);

}  // namespace pedigreewatch
