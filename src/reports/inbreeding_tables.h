// Inbreeding and kinship per year, their rates with the effective size, and the rates per period.
#pragma once

#include "core/year_table.h"
#include "genetics/rates.h"
#include "reports/report_lines.h"

namespace pedigreewatch {

/// Writes the tables from the first six columns of `inbreeding_table`. `generation_interval` is in years. The rates
/// per period, minus the slope of ln(1 - value) per generation, stand only when there are more than ten years. The
/// effective size is one over twice the rate per generation; nothing guards it against a rate of 0.
void write_inbreeding(const ReportFrame& frame, const YearTable<float>& inbreeding_table, const RateSummary& rates,
                      float generation_interval);

}  // namespace pedigreewatch
