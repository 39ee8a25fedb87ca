// A forecast as tables.
#pragma once

#include "forecast/forecast.h"
#include "tables/table_writer.h"

namespace pedigreewatch {

/// A row for each scenario and year: the median of each figure, and what 5 and 95 in 100 of the replicates lie below.
void write_forecast_table(const Forecast& forecast, TableWriter& writer);

}  // namespace pedigreewatch
