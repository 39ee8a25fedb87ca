// A forecast as tables.
#pragma once

#include <span>
#include <string_view>

#include "forecast/forecast.h"
#include "forecast/forecast_summary.h"
#include "forecast/real_years.h"
#include "tables/table_writer.h"

namespace pedigreewatch {

/// A row for each scenario and year: the median of each figure, and what 5 and 95 in 100 of the replicates lie below.
/// Where the truth of these years is known it stands behind them: columns that end in "_real".
void write_forecast_table(const Forecast& forecast, std::span<const RealYear> truth, TableWriter& writer);

/// A row for each scenario and figure.
void write_forecast_summary(const Forecast& forecast, std::span<const ScenarioSummary> summaries, TableWriter& writer);

/// The name of a figure of the summary.
std::string_view name_of(SummaryFigure figure);

}  // namespace pedigreewatch
