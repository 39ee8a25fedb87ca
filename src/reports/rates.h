// The rates of inbreeding and kinship with the effective size, and the rates per period.
#pragma once

#include "genetics/rates.h"
#include "reports/report_lines.h"

namespace pedigreewatch {

/// Four rates, each per year and per generation, with the effective size that follows from it.
void write_rates(const ReportFrame& frame, const GenerationRates& rates);

/// A line for each period with its first and last year, and its rates of F and f per generation. There must be periods.
void write_periods(const ReportFrame& frame, const PeriodRates& rates);

}  // namespace pedigreewatch
