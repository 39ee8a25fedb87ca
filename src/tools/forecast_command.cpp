// Computes the population as a run does, measures the present practice, goes on with it, and writes the files: all of
// them, or none.

#include "tools/forecast_command.h"

#include <algorithm>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "core/new_files.h"
#include "forecast/forecast.h"
#include "forecast/forecast_words.h"
#include "forecast/model_fit.h"
#include "forecast/practice_figures.h"
#include "planning/parent_use.h"
#include "tables/forecast_tables.h"
#include "tools/folder_analysis.h"
#include "tools/folder_command.h"
#include "tools/forecast_options.h"

namespace pedigreewatch {
namespace {

constexpr Wording written = {"written: {1}", "geschreven: {1}"};
constexpr Wording too_few_years = {
    "a forecast needs three birth years with known parents of known ages: there are fewer up to {1}",
    "een vooruitblik heeft drie geboortejaren met bekende ouders van bekende leeftijd nodig: tot {1} zijn er minder"};
constexpr Wording no_birth_years = {"no animal has a birth year: there is nothing to forecast from",
                                    "geen enkel dier heeft een geboortejaar: er is niets om vanuit vooruit te kijken"};
constexpr Wording no_such_year = {"--from {1}: a birth year from {2} to {3} was expected",
                                  "--from {1}: een geboortejaar van {2} tot en met {3} werd verwacht"};
constexpr Wording not_written = {"{1}: {2}; nothing was written", "{1}: {2}; er is niets geschreven"};
constexpr Wording is_in_use = {"a file of this name would replace one that this run reads",
                               "een bestand met deze naam zou er een vervangen dat hier gelezen wordt"};

using Refusal = std::optional<ToolRefusal>;

Refusal write_file(FolderRun& run, const std::string& ending, const std::string& content) {
  const std::string name = name_beside_report(run.population.settings, ending);
  FileProblem problem = find_obstacle(run, name, {}, is_in_use);
  NewFile file;
  if (problem.name.empty() && begin_file(file, name, problem)) {
    write_bytes(file, content);
    if (finish_file(file, problem)) {
      say(run.streams.console, run.words(written, {shown(name)}));
      return std::nullopt;
    }
  }
  return ToolRefusal{run.words(not_written, {shown(problem.name), problem.reason})};
}

/// The last year that is known to the forecast; nothing after a refusal.
std::optional<std::int32_t> find_last_year(FolderRun& run, const ForecastOptions& options, Refusal& refusal) {
  const PopulationStore& store = run.population.store;
  const std::optional<std::int32_t> last_full = last_full_year(store);
  const std::int32_t first = store.birth_years.first;
  if (!last_full) {
    refusal = ToolRefusal{run.words(no_birth_years)};
  } else if (options.from && (*options.from < first || *options.from >= *last_full)) {
    refusal = ToolRefusal{run.words(
        no_such_year, {std::to_string(*options.from), std::to_string(first), std::to_string(*last_full - 1)})};
  } else {
    if (!options.from && *last_full < store.birth_years.last) {
      say(run.streams.console, incomplete_sentence(store.birth_years.last, run.language));
    }
    return options.from ? options.from : last_full;
  }
  return std::nullopt;
}

ForecastSettings settings_of(const ForecastOptions& options, const PopulationStore& store, std::int32_t last) {
  ForecastSettings settings = options.settings;
  if (options.from) settings.years = std::max(1, last_full_year(store).value_or(last) - last);
  if (options.years) settings.years = *options.years;
  if (settings.threads == 0) {
    settings.threads = static_cast<std::int32_t>(std::max(1U, std::thread::hardware_concurrency()));
  }
  return settings;
}

Refusal forecast_and_write(FolderRun& run, const ForecastOptions& options) {
  const PopulationStore& store = run.population.store;
  Refusal refusal;
  const std::optional<std::int32_t> last = find_last_year(run, options, refusal);
  if (!last) return refusal;
  const FamilyRecords records = list_families(store, run.population.analysis.years, *last);
  std::optional<BasePeriod> base = measure_base_period(records);
  if (!base) return ToolRefusal{run.words(too_few_years, {std::to_string(*last)})};
  const CountedPractice counted =
      count_practice(run.population.analysis.whole.tables, store.birth_years, base->first_year, base->last_year);
  for (const std::string& line : practice_sentences(*base, counted, measure_practice(records, *base), run.language)) {
    say(run.streams.console, line);
  }
  const ForecastSettings settings = settings_of(options, store, *last);
  ModelBasis basis = make_model_basis(records, std::move(*base), {settings.import_kinship, settings.seed});
  fit_use(basis, settings.seed);
  BreedingRules present;
  present.name = "present";
  const ForecastProgress progress = [&](std::int64_t, std::int64_t) { return !is_stop_requested(run.streams); };
  const Forecast forecast = make_forecast(basis, {&present, 1}, settings, progress);
  if (forecast.is_stopped) return ToolRefusal{run.words(was_stopped)};
  TableWriter table;
  write_forecast_table(forecast, table);
  return write_file(run, "_forecast.tsv", table.text);
}

}  // namespace

int run_forecast(std::span<const std::string_view> arguments, ToolStreams& streams) {
  ForecastOptions options;
  const std::string problem = read_forecast_options(arguments, options);
  return run_in_folder("forecast", problem, streams, [&](FolderRun& run) { return forecast_and_write(run, options); });
}

}  // namespace pedigreewatch
