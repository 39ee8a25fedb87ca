// Inbreeding and kinship by year, how fast they rise, and the effective sizes that follow.
#pragma once

#include <string>

#include "genetics/rates.h"
#include "page/chart.h"
#include "page/page_frame.h"

namespace pedigreewatch {

Chart inbreeding_chart(const PageFrame& frame);

/// The rates of the periods, as the report has them.
FigureTable period_rates_table(const PageFrame& frame);

/// Whether an effective size says anything: a finite number above 0 that is not beyond all populations.
bool is_estimable(const PageFrame& frame, const GenerationRate& rate);

/// The four rates with their effective sizes, "not estimable" where there is none.
FigureTable effective_size_table(const PageFrame& frame, const GenerationRates& rates);

/// "not estimable"
std::string not_estimable(const PageFrame& frame);

}  // namespace pedigreewatch
