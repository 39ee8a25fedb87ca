// Colour varieties per year.
#pragma once

#include "reports/report_lines.h"

namespace pedigreewatch {

/// A column for each colour, with a legend, and a last one for all others.
void write_colours(const ReportFrame& frame, const YearTable<std::int32_t>& colour_counts);

}  // namespace pedigreewatch
