// What is counted of the animals of each year: births, litters, ages of the parents, completeness, sires, imports.
#pragma once

#include "page/chart.h"
#include "page/page_frame.h"

namespace pedigreewatch {

Chart births_chart(const PageFrame& frame);
Chart litters_chart(const PageFrame& frame);
Chart litter_mean_chart(const PageFrame& frame);
Chart litter_sizes_chart(const PageFrame& frame);
Chart interval_chart(const PageFrame& frame);
Chart parent_ages_chart(const PageFrame& frame);
Chart equivalent_generations_chart(const PageFrame& frame);
Chart complete_generations_chart(const PageFrame& frame);
Chart top_sires_chart(const PageFrame& frame);
Chart imports_chart(const PageFrame& frame);

}  // namespace pedigreewatch
