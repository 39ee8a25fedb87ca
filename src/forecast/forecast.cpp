// Replicates are dealt out to the threads one by one, each with its own random numbers, and put in their places: which
// thread has made one shows nowhere.

#include "forecast/forecast.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <exception>
#include <memory>
#include <mutex>
#include <thread>

#include "core/side_by_side.h"

namespace pedigreewatch {
namespace {

#if defined(__EMSCRIPTEN__)
constexpr bool has_threads = false;
#else
constexpr bool has_threads = true;
#endif

/// What all threads share.
struct ReplicateWork {
  const ModelBasis& basis;
  const ForecastSettings& settings;
  Forecast& forecast;
  std::atomic<std::int64_t> next_task = 0, done_years = 0;
  std::atomic<bool> is_stopped = false;
  std::atomic<std::int32_t> running = 0;
  std::mutex guard = {};
  std::exception_ptr problem = nullptr;

  std::int64_t tasks() const { return std::int64_t{settings.replicates} * std::ssize(forecast.scenarios); }
  std::int64_t all_years() const { return tasks() * settings.years; }
};

/// Tells how far the work is, and hears whether it is to go on.
void tell(ReplicateWork& work, const ForecastProgress& progress) {
  if (progress && !progress(work.done_years, work.all_years())) work.is_stopped = true;
}

/// Years of one replicate, up to the one in which it dies out or is stopped. The walk is made when the first herd needs
/// it, and put back.
template <typename AfterYear>
ReplicateYears live_years(const ModelBasis& basis, const BreedingRules& rules, const ForecastSettings& settings,
                          std::int32_t replicate, std::unique_ptr<AncestorWalk>& walk, const AfterYear& goes_on) {
  ReplicateYears years;
  const bool is_walking = !has_table(basis, rules, settings.years);
  if (is_walking && !walk) walk = std::make_unique<AncestorWalk>(make_basis_walk(basis));
  ModelHerd herd = begin_herd(basis, rules, settings.seed, replicate, is_walking ? walk.get() : nullptr);
  for (std::int32_t year = 1; year <= settings.years && live_year(herd, basis.base.last_year + year); ++year) {
    years.push_back(herd.year);
    if (!goes_on()) break;
  }
  if (is_walking) shorten_walk(*walk, basis.pedigree.count());
  return years;
}

void run_replicate(ReplicateWork& work, std::int64_t task, std::unique_ptr<AncestorWalk>& walk,
                   const ForecastProgress& progress) {
  const std::int64_t scenarios = std::ssize(work.forecast.scenarios);
  ScenarioForecast& scenario = work.forecast.scenarios[static_cast<std::size_t>(task % scenarios)];
  const auto replicate = static_cast<std::int32_t>(task / scenarios);
  ReplicateYears& years = scenario.replicates[static_cast<std::size_t>(replicate)];
  years = live_years(work.basis, scenario.rules, work.settings, replicate, walk, [&] {
    ++work.done_years;
    tell(work, progress);
    return !work.is_stopped;
  });
  work.done_years += work.settings.years - std::ssize(years);
}

/// Takes replicates until there are no more. A thread of its own tells nothing.
void run_replicates(ReplicateWork& work, const ForecastProgress& progress) {
  std::unique_ptr<AncestorWalk> walk;
  for (std::int64_t task = work.next_task++; task < work.tasks() && !work.is_stopped; task = work.next_task++) {
    run_replicate(work, task, walk, progress);
  }
}

void run_thread(ReplicateWork& work) {
  try {
    run_replicates(work, {});
  } catch (...) {
    const std::lock_guard lock(work.guard);
    work.problem = std::current_exception();
    work.is_stopped = true;
  }
  --work.running;
}

void run_threads(ReplicateWork& work, const ForecastProgress& progress) {
  constexpr auto pause = std::chrono::milliseconds(20);
  work.running = work.settings.threads;
  std::vector<std::thread> threads = begin_threads(work.settings.threads, [&work] { run_thread(work); });
  work.running -= work.settings.threads - static_cast<std::int32_t>(threads.size());
  if (threads.empty()) return run_replicates(work, progress);
  while (work.running > 0) {
    std::this_thread::sleep_for(pause);
    tell(work, progress);
  }
  for (std::thread& thread : threads) thread.join();
  if (work.problem) std::rethrow_exception(work.problem);
}

/// Scenarios without a replicate, and where they begin.
Forecast begin_scenarios(const ModelBasis& basis, std::span<const BreedingRules> scenarios,
                         const ForecastSettings& settings) {
  Forecast forecast;
  forecast.first_year = basis.base.last_year + 1;
  forecast.years = settings.years;
  forecast.seed = settings.seed;
  for (const BreedingRules& rules : scenarios) forecast.scenarios.push_back({rules, {}});
  const BreedingRules none;
  ModelHerd real = begin_herd(basis, none, settings.seed, 0, nullptr);
  forecast.start = describe_year(real.pedigree, real.youngest, real.weights);
  return forecast;
}

double quantile(const std::vector<double>& sorted, double share) {
  const double place = share * static_cast<double>(sorted.size() - 1);
  const auto below = static_cast<std::size_t>(std::floor(place));
  const std::size_t above = std::min(below + 1, sorted.size() - 1);
  return sorted[below] + (place - static_cast<double>(below)) * (sorted[above] - sorted[below]);
}

}  // namespace

std::optional<double> figure_of(const ModelYear& year, ForecastFigure figure) {
  switch (figure) {
    case ForecastFigure::mean_f: return year.kinship.mean_f;
    case ForecastFigure::kinship_with_self: return year.kinship.with_self;
    case ForecastFigure::kinship_without_self:
      return year.kinship.animals > 1 ? std::optional(year.kinship.without_self) : std::nullopt;
    case ForecastFigure::gene_diversity: return 1.0 - year.kinship.with_self;
    case ForecastFigure::sires_in_use: return year.sires;
    case ForecastFigure::generation_interval: return year.parent_age;
  }
  return std::nullopt;
}

std::optional<Band> band_of(std::vector<double> values) {
  if (values.empty()) return std::nullopt;
  std::sort(values.begin(), values.end());
  constexpr double low = 0.05, middle = 0.5, high = 0.95;
  return Band{quantile(values, low),  quantile(values, middle),
              quantile(values, high), static_cast<std::int32_t>(values.size()),
              values.front(),         values.back()};
}

std::int32_t Forecast::replicates() const {
  return scenarios.empty() ? 0 : static_cast<std::int32_t>(std::ssize(scenarios.front().replicates));
}

std::optional<Band> ScenarioForecast::band(std::int32_t year, ForecastFigure figure) const {
  std::vector<double> values;
  for (const ReplicateYears& years : replicates) {
    if (year >= std::ssize(years)) continue;
    if (const auto value = figure_of(years[static_cast<std::size_t>(year)], figure)) values.push_back(*value);
  }
  return band_of(std::move(values));
}

std::int32_t ScenarioForecast::died_out(std::int32_t year) const {
  return static_cast<std::int32_t>(std::count_if(
      replicates.begin(), replicates.end(), [&](const ReplicateYears& years) { return year >= std::ssize(years); }));
}

GrowingForecast begin_forecast(const ModelBasis& basis, std::span<const BreedingRules> scenarios,
                               const ForecastSettings& settings) {
  return {basis, settings, begin_scenarios(basis, scenarios, settings)};
}

bool grow_forecast(GrowingForecast& growing) {
  Forecast& forecast = growing.forecast;
  const auto replicate = static_cast<std::int32_t>(std::ssize(forecast.scenarios.front().replicates));
  if (replicate >= growing.settings.replicates) return false;
  for (ScenarioForecast& scenario : forecast.scenarios) {
    scenario.replicates.push_back(
        live_years(growing.basis, scenario.rules, growing.settings, replicate, growing.walk, [] { return true; }));
  }
  return replicate + 1 < growing.settings.replicates;
}

Forecast make_forecast(const ModelBasis& basis, std::span<const BreedingRules> scenarios,
                       const ForecastSettings& settings, const ForecastProgress& progress) {
  Forecast forecast = begin_scenarios(basis, scenarios, settings);
  for (ScenarioForecast& scenario : forecast.scenarios) {
    scenario.replicates.resize(static_cast<std::size_t>(settings.replicates));
  }
  ReplicateWork work{basis, settings, forecast};
  if (has_threads && settings.threads > 1) {
    run_threads(work, progress);
  } else {
    run_replicates(work, progress);
  }
  forecast.is_stopped = work.is_stopped;
  return forecast;
}

}  // namespace pedigreewatch
