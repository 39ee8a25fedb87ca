#include "forecast/real_years.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace pedigreewatch {
namespace {

std::int32_t count_sires(std::span<const Family> families) {
  std::vector<std::int32_t> sires;
  for (const Family& family : families) {
    if (family.sire != 0) sires.push_back(family.sire);
  }
  return count_different(std::move(sires));
}

}  // namespace

std::vector<RealYear> list_real_years(const FamilyRecords& records, const YearRows<InbreedingRow>& inbreeding,
                                      const MonitorTables& tables) {
  std::vector<RealYear> years;
  for (std::int32_t year = records.first_year; year <= records.last_year; ++year) {
    const std::span<const Family> families = records.of_year(year);
    if (families.empty()) continue;
    const Row row = records.store.birth_years.row_of(year);
    RealYear real;
    real.year = year;
    const InbreedingRow means = inbreeding.of(row);
    real.figures.kinship.mean_f = double{means.F};
    real.figures.kinship.with_self = double{means.f_with_self};
    real.figures.kinship.without_self = double{means.f_without_self};
    for (const Family& family : families) {
      real.figures.kinship.animals += family.young;
      if (family.dam != 0) ++real.figures.litters;
    }
    real.figures.sires = count_sires(families);
    const float age = tables.parent_ages.of(row).parents;
    if (age > 0.0F) real.figures.parent_age = double{age};
    years.push_back(real);
  }
  return years;
}

Foretold compare_with_truth(const ScenarioForecast& scenario, std::int32_t first_year,
                            const std::vector<RealYear>& truth, ForecastFigure figure) {
  Foretold foretold;
  for (const RealYear& real : truth) {
    if (real.year < first_year) continue;
    const std::optional<Band> band = scenario.band(real.year - first_year, figure);
    const std::optional<double> value = figure_of(real.figures, figure);
    if (!band || !value) continue;
    ++foretold.years;
    // As they are shown: a band that begins at 0.00 % has 0 in it.
    const auto shown = [](double figure_of_year) { return std::lround(figure_of_year * shown_parts); };
    const bool is_above = shown(*value) > shown(band->shown_high()),
               is_below = shown(*value) < shown(band->shown_low());
    foretold.is_last_within = !is_above && !is_below;
    if (foretold.is_last_within) ++foretold.within;
    if (is_above) ++foretold.above;
    if (is_below) ++foretold.below;
  }
  return foretold;
}

}  // namespace pedigreewatch
