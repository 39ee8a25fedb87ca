#include "tables/forecast_tables.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
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

constexpr auto summary_names = std::to_array<std::string_view>(
    {"kinship_rate_per_year", "kinship_rate_per_generation", "inbreeding_rate_per_year",
     "inbreeding_rate_per_generation", "effective_size", "gene_diversity_kept_10", "gene_diversity_kept_25",
     "gene_diversity_kept_50", "F_mean_last_year", "kinship_with_self_last_year", "refused_litters_a_year",
     "refused_sires_a_year", "refused_pairs_a_year", "refused_entrants_a_year", "lost_litters_a_year"});
static_assert(summary_names.size() == summary_figures);

constexpr std::array<std::string_view, 3> band_endings = {"", "_5", "_95"};

void write_headings(bool has_truth, TableWriter& writer) {
  add_plain(writer, "scenario");
  add_plain(writer, "year");
  for (const FigureColumn& column : figure_columns) {
    for (const std::string_view ending : band_endings)
      add_plain(writer, std::string(column.name) + std::string(ending));
  }
  add_plain(writer, "replicates");
  for (const FigureColumn& column : figure_columns) {
    if (has_truth) add_plain(writer, std::string(column.name) + "_real");
  }
  end_row(writer);
}

void add_band(const std::optional<Band>& band, TableWriter& writer) {
  if (!band) {
    for (std::size_t cells = 0; cells < band_endings.size(); ++cells) add_nothing(writer);
    return;
  }
  for (const double value : {band->median, band->low, band->high}) {
    if (std::isfinite(value)) {
      add_real(writer, static_cast<float>(value));
    } else {
      add_nothing(writer);
    }
  }
}

void add_truth(std::span<const RealYear> truth, std::int32_t year, TableWriter& writer) {
  const auto real = std::find_if(truth.begin(), truth.end(), [&](const RealYear& r) { return r.year == year; });
  for (const FigureColumn& column : figure_columns) {
    const auto value = real == truth.end() ? std::nullopt : figure_of(real->figures, column.figure);
    if (value) {
      add_real(writer, static_cast<float>(*value));
    } else {
      add_nothing(writer);
    }
  }
}

}  // namespace

std::string_view name_of(SummaryFigure figure) {
  return summary_names[static_cast<std::size_t>(figure)];
}

void write_forecast_table(const Forecast& forecast, std::span<const RealYear> truth, TableWriter& writer) {
  write_headings(!truth.empty(), writer);
  for (const ScenarioForecast& scenario : forecast.scenarios) {
    for (std::int32_t year = 0; year < forecast.years; ++year) {
      add_text(writer, scenario.rules.name);
      add_integer(writer, forecast.first_year + year);
      for (const FigureColumn& column : figure_columns) add_band(scenario.band(year, column.figure), writer);
      add_integer(writer, std::ssize(scenario.replicates) - scenario.died_out(year));
      if (!truth.empty()) add_truth(truth, forecast.first_year + year, writer);
      end_row(writer);
    }
  }
  flush(writer);
}

void write_forecast_summary(const Forecast& forecast, std::span<const ScenarioSummary> summaries, TableWriter& writer) {
  for (const std::string_view name : {"scenario", "figure", "value", "value_5", "value_95", "difference",
                                      "difference_5", "difference_95", "replicates"}) {
    add_plain(writer, name);
  }
  end_row(writer);
  for (std::size_t k = 0; k < summaries.size(); ++k) {
    for (const SummaryRow& row : summaries[k].rows) {
      add_text(writer, forecast.scenarios[k].rules.name);
      add_plain(writer, name_of(row.figure));
      add_band(row.value, writer);
      add_band(row.difference, writer);
      add_integer(writer, row.value ? row.value->replicates : 0);
      end_row(writer);
    }
  }
  flush(writer);
}

}  // namespace pedigreewatch
