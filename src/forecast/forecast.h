// A forecast: the real population goes on under the present practice and under rules, in many replicates.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "forecast/breeding_rules.h"
#include "forecast/forecast_progress.h"
#include "forecast/model_herd.h"

namespace pedigreewatch {

struct ForecastSettings {
  std::int32_t years = 25, replicates = 100;
  std::uint64_t seed = 1;
  std::int32_t threads = 1;  ///< the results are the same with any number
};

/// What is told of each year.
enum class ForecastFigure : std::uint8_t {
  mean_f,
  kinship_with_self,
  kinship_without_self,
  gene_diversity,
  sires_in_use,
  generation_interval,
};
inline constexpr std::size_t forecast_figures = 6;

/// None where a year has no such figure.
std::optional<double> figure_of(const ModelYear& year, ForecastFigure figure);

/// Fewer replicates do not tell between which values 90 in 100 lie: people are shown the least and the most of them.
inline constexpr std::int32_t least_replicates_of_band = 20;

/// Of the replicates that have the figure, as the mean of the neighbours where a share falls between two of them
/// (definition 7 of Hyndman and Fan, 1996).
struct Band {
  double low = 0.0, median = 0.0, high = 0.0;  ///< 5, 50 and 95 in 100
  std::int32_t replicates = 0;
  double least = 0.0, most = 0.0;

  bool is_of_few() const { return replicates < least_replicates_of_band; }
  double shown_low() const { return is_of_few() ? least : low; }
  double shown_high() const { return is_of_few() ? most : high; }
};
std::optional<Band> band_of(std::vector<double> values);

/// One replicate of one scenario: its years, up to the one in which it died out.
using ReplicateYears = std::vector<ModelYear>;

struct ScenarioForecast {
  BreedingRules rules;
  std::vector<ReplicateYears> replicates;

  std::optional<Band> band(std::int32_t year, ForecastFigure figure) const;  ///< `year` counts from 0
  std::int32_t died_out(std::int32_t year) const;                            ///< replicates that have no such year
};

struct Forecast {
  std::int32_t first_year = 0, years = 0;
  std::vector<ScenarioForecast> scenarios;  ///< in the order in which they were asked for
  YearKinship start;                        ///< of the last real year
  bool is_stopped = false;                  ///< then replicates are missing
  std::uint64_t seed = 0;                   ///< that its random numbers began with

  std::int32_t replicates() const;  ///< so far, of each scenario
};

/// A forecast of which replicate after replicate is made, for somebody who looks at it meanwhile. It refers to the
/// basis, which stays.
struct GrowingForecast {
  const ModelBasis& basis;
  ForecastSettings settings;
  Forecast forecast;                        ///< with the replicates so far, as many of every scenario
  std::unique_ptr<AncestorWalk> walk = {};  ///< made when a herd needs it
};

GrowingForecast begin_forecast(const ModelBasis& basis, std::span<const BreedingRules> scenarios,
                               const ForecastSettings& settings);

/// Makes the next replicate of every scenario. False when there are as many as are wanted.
bool grow_forecast(GrowingForecast& growing);

/// All replicates.
Forecast make_forecast(const ModelBasis& basis, std::span<const BreedingRules> scenarios,
                       const ForecastSettings& settings, const ForecastProgress& progress = {});

}  // namespace pedigreewatch
