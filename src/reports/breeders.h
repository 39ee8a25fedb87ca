// Main breeders per year.
#pragma once

#include "reports/report_lines.h"

namespace pedigreewatch {

/// Two columns for each top breeder, animals and parents bred, and two for all others. The legend names the breeders
/// by their slots of 7 characters.
void write_breeders(const ReportFrame& frame, const YearTable<std::int32_t>& top_breeders);

}  // namespace pedigreewatch
