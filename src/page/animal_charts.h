// What is counted of the animals of each year: births, litters, ages of the parents, completeness, sires, imports.
#pragma once

#include "page/chart.h"
#include "page/chart_figure.h"
#include "page/page_frame.h"

namespace pedigreewatch {

Chart births_chart(const PageFrame& frame);

/// Litters by size, or their number alone where at least 95 in 100 are of one young.
Chart litters_chart(const PageFrame& frame);
Chart interval_chart(const PageFrame& frame);
Chart parent_ages_chart(const PageFrame& frame);

/// Generation equivalents, and generations wholly known, in two panels.
Chart completeness_chart(const PageFrame& frame);
Chart top_sires_chart(const PageFrame& frame);

/// Numbers of sires and dams of a year, and the effective numbers.
Chart parents_used_chart(const PageFrame& frame);
Chart imports_chart(const PageFrame& frame);

/// The most used sires of the last five years by name. The page must have been given how the breed stands.
NamedBars recent_sires(const PageFrame& frame);

}  // namespace pedigreewatch
