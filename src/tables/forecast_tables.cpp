#include "tables/forecast_tables.h"

#include <array>
#include <string>
#include <string_view>

namespace pedigreewatch {
namespace {

struct FigureColumn {
  std::string_view name;
  ForecastFigure figure;
};
constexpr auto figure_columns =
    std::to_array<FigureColumn>({{"F_mean", ForecastFigure::mean_f},
                                 {"kinship_with_self", ForecastFigure::kinship_with_self},
                                 {"kinship_without_self", ForecastFigure::kinship_without_self},
                                 {"gene_diversity", ForecastFigure::gene_diversity},
                                 {"sires_in_use", ForecastFigure::sires_in_use},
                                 {"generation_interval", ForecastFigure::generation_interval}});
static_assert(figure_columns.size() == forecast_figures);

void write_headings(TableWriter& writer) {
  add_plain(writer, "scenario");
  add_plain(writer, "year");
  for (const FigureColumn& column : figure_columns) {
    for (const std::string_view ending : {"", "_5", "_95"}) {
      add_plain(writer, std::string(column.name) + std::string(ending));
    }
  }
  add_plain(writer, "replicates");
  end_row(writer);
}

void add_band(const std::optional<Band>& band, TableWriter& writer) {
  if (!band) {
    for (int cells = 0; cells < 3; ++cells) add_nothing(writer);
    return;
  }
  for (const double value : {band->median, band->low, band->high}) add_real(writer, static_cast<float>(value));
}

}  // namespace

void write_forecast_table(const Forecast& forecast, TableWriter& writer) {
  write_headings(writer);
  for (const ScenarioForecast& scenario : forecast.scenarios) {
    for (std::int32_t year = 0; year < forecast.years; ++year) {
      add_text(writer, scenario.rules.name);
      add_integer(writer, forecast.first_year + year);
      for (const FigureColumn& column : figure_columns) add_band(scenario.band(year, column.figure), writer);
      add_integer(writer, std::ssize(scenario.replicates) - scenario.died_out(year));
      end_row(writer);
    }
  }
  flush(writer);
}

}  // namespace pedigreewatch
