// Colour varieties and main breeders, per year.
#pragma once

#include <span>

#include "control/steer_settings.h"
#include "reports/report_lines.h"
#include "statistics/breeder_list.h"

namespace pedigreewatch {

/// A column for each colour row, with a legend. `colour_counts` has as many columns as there are names.
void write_colours(const ReportFrame& frame, std::span<const ColourName> colour_names,
                   const YearTable<std::int32_t>& colour_counts);

/// Two columns for each top breeder, animals and parents bred, and two for all others. The legend names the breeders
/// by their slots of 7 characters.
void write_breeders(const ReportFrame& frame, const BreederList& breeders, const YearTable<std::int32_t>& top_breeders);

}  // namespace pedigreewatch
