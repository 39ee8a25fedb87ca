// Ages of the parents.
#pragma once

#include "reports/report_lines.h"
#include "statistics/parent_ages.h"

namespace pedigreewatch {

/// How many fathers and mothers of each age the animals of each year had.
void write_age_tables(const ReportFrame& frame, const ParentAgeClasses& classes);

}  // namespace pedigreewatch
