// The rates of inbreeding and kinship with the effective size, and the rates per period.
#pragma once

#include "genetics/rates.h"
#include "reports/report_lines.h"

namespace pedigreewatch {

void write_rates(const ReportFrame& frame, const GenerationRates& rates);

void write_periods(const ReportFrame& frame, const PeriodRates& rates);

}  // namespace pedigreewatch
