// What really happened, in the figures of a forecast: the past before it, and what is known behind the year from which
// it looks ahead.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "core/birth_years.h"
#include "forecast/families.h"
#include "forecast/forecast.h"
#include "genetics/yearly_inbreeding.h"
#include "statistics/monitor_tables.h"

namespace pedigreewatch {

/// The figures of a birth year that has animals.
struct RealYear {
  std::int32_t year = 0;
  ModelYear figures;
};

/// Up to the last year of the families. F, kinships and ages of parents are those of the report.
std::vector<RealYear> list_real_years(const FamilyRecords& records, const YearRows<InbreedingRow>& inbreeding,
                                      const MonitorTables& tables);

/// Truth and band are compared as they are shown, in so many parts of 1.
inline constexpr double shown_parts = 10'000.0;

/// How a forecast has done in one figure.
struct Foretold {
  std::int32_t years = 0, within = 0, above = 0, below = 0;  ///< where the truth lay: in the band, above it or below it
  bool is_last_within = false;
};
Foretold compare_with_truth(const ScenarioForecast& scenario, std::int32_t first_year,
                            const std::vector<RealYear>& truth, ForecastFigure figure);

}  // namespace pedigreewatch
