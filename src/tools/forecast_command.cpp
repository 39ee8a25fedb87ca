// Computes the population as a run does, measures the present practice, goes on with it, and writes the files: all of
// them, or none.

#include "tools/forecast_command.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/side_by_side.h"
#include "forecast/forecast.h"
#include "forecast/forecast_summary.h"
#include "forecast/forecast_words.h"
#include "forecast/model_fit.h"
#include "forecast/practice_figures.h"
#include "forecast/real_years.h"
#include "forecast/rule_reading.h"
#include "forecast/said_practice.h"
#include "page/forecast_page.h"
#include "planning/parent_use.h"
#include "planning/plan_words.h"
#include "tables/forecast_tables.h"
#include "text/system_reasons.h"
#include "tools/folder_analysis.h"
#include "tools/folder_command.h"
#include "tools/forecast_options.h"
#include "tools/late_births.h"
#include "tools/output_files.h"

namespace pedigreewatch {
namespace {

constexpr Wording too_few_years = {
    "a forecast needs three birth years with known parents of known ages: there are fewer up to {1}",
    "een vooruitblik heeft drie geboortejaren met bekende ouders van bekende leeftijd nodig: tot {1} zijn er minder"};
constexpr Wording no_birth_years = {"no animal has a birth year: there is nothing to forecast from",
                                    "geen enkel dier heeft een geboortejaar: er is niets om vanuit vooruit te kijken"};
constexpr Wording no_such_year = {"--from {1}: a birth year from {2} to {3} was expected",
                                  "--from {1}: een geboortejaar van {2} tot en met {3} werd verwacht"};
constexpr Wording nothing_written = {"nothing was written", "er is niets geschreven"};
constexpr Wording line_place = {", line {1}", ", regel {1}"};
constexpr Wording not_read = {"{1} cannot be read: {2}", "{1} kan niet worden gelezen: {2}"};
constexpr Wording fitting_label = {"measuring the use of sires: {1} %, {2} s left",
                                   "gebruik van vaders meten: {1} %, nog {2} s"};
constexpr Wording forecasting_label = {"forecasting: {1} %, {2} s left", "vooruitblikken: {1} %, nog {2} s"};
/// The whole text of the file with the rules; nothing where it cannot be read, with the number of the system.
std::optional<std::string> text_of_file(const std::string& name, int& error) {
  LineReader reader;
  std::string text;
  if (open_for_reading(reader, name)) {
    std::string_view line;
    while (read_line(reader, line)) text.append(line).push_back('\n');
    note_change(reader);
  }
  if (reader.error == 0) return text;
  error = reader.error;
  return std::nullopt;
}

/// Says a problem of a rule, with its place.
void tell_problem(const FolderRun& run, const std::string& file, const RuleProblem& problem) {
  erase_progress(run.streams.progress);
  std::string place = file;
  if (problem.line > 0) place += run.words(line_place, {std::to_string(problem.line)});
  if (!problem.text.empty()) place += (place.empty() ? "" : ": ") + in_quotes(problem.text);
  say(run.streams.messages, place + ": " + reason_of(problem, run.language));
}

/// What the options say of the practice goes before what the file says.
void add_figures(const BreedingRules& of_options, BreedingRules& present) {
  BreedingRules both;
  both.name = present_practice;
  for (const BreedingRules* rules : {&of_options, &std::as_const(present)}) {
    for (const WrittenRule& one : rules->written) {
      const bool is_taken = std::any_of(both.written.begin(), both.written.end(),
                                        [&](const WrittenRule& other) { return other.name == one.name; });
      if (!is_taken) take_rule(one.name, one.value, both, one.line);
    }
  }
  present = std::move(both);
}

/// What the file and the options say, the present practice first; nothing behind a message.
std::optional<std::vector<BreedingRules>> read_rules(const FolderRun& run, const ForecastOptions& options,
                                                     BreedingRules& present) {
  std::vector<BreedingRules> scenarios(1);
  scenarios.front().name = present_practice;
  if (!options.rules_file.empty()) {
    const std::string file = shown(options.rules_file);
    int error = 0;
    const std::optional<std::string> text = text_of_file(options.rules_file, error);
    if (!text) {
      say(run.streams.messages, run.words(not_read, {file, reason_text(error, run.language)}));
      return std::nullopt;
    }
    ReadScenarios read = read_scenarios(*text);
    for (const RuleProblem& problem : read.problems) tell_problem(run, file, problem);
    if (!read.problems.empty()) return std::nullopt;
    present = std::move(read.present);
    for (BreedingRules& rules : read.scenarios) scenarios.push_back(std::move(rules));
  }
  add_figures(options.present, present);
  if (!options.rules.written.empty()) scenarios.push_back(options.rules);
  return scenarios;
}

/// The scenarios, with what is said of the practice, which `base` then has too. Nothing behind a message.
std::optional<std::vector<BreedingRules>> gather_scenarios(const FolderRun& run, const ForecastOptions& options,
                                                           const FamilyRecords& records, BreedingRules& present,
                                                           BasePeriod& base) {
  std::optional<std::vector<BreedingRules>> scenarios = read_rules(run, options, present);
  if (!scenarios) return std::nullopt;
  const std::string file = options.rules_file.empty() ? std::string() : shown(options.rules_file);
  bool is_fine = true;
  const auto tell_all = [&](const std::vector<RuleProblem>& problems, bool is_of_file) {
    for (const RuleProblem& problem : problems) {
      tell_problem(run, is_of_file && problem.line > 0 ? file : std::string(), problem);
    }
    is_fine = is_fine && problems.empty();
  };
  tell_all(find_wrong_figures(present, base), true);
  tell_all(find_contradictions(present, base), true);
  if (!is_fine) return std::nullopt;
  apply_said_figures(records, present.said, base);
  for (BreedingRules& rules : *scenarios) {
    add_present_rules(present, rules);
    if (!rules.written.empty()) tell_all(find_contradictions(rules, base), rules.name != options_scenario);
  }
  return is_fine ? std::move(scenarios) : std::nullopt;
}

/// The last year that is known to the forecast; nothing after a refusal.
std::optional<std::int32_t> find_last_year(FolderRun& run, const ForecastOptions& options,
                                           std::optional<ToolRefusal>& refusal) {
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
    settings.threads = threads_of_machine();
  }
  return settings;
}

/// Shows how far the work is, in per cent, with the seconds that are left.
struct ForecastWatch {
  FolderRun& run;
  const Wording& wording;
  std::chrono::steady_clock::time_point begun = std::chrono::steady_clock::now();
  std::int64_t shown_percent = 0;
  std::string label = {};

  bool operator()(std::int64_t done, std::int64_t all) {
    const std::int64_t percent = all > 0 ? 100 * done / all : 100;
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count();
    constexpr double quiet_seconds = 2.0;
    if (percent > shown_percent && done > 0 && seconds > quiet_seconds) {
      shown_percent = percent;
      const double left = seconds * static_cast<double>(all - done) / static_cast<double>(done);
      label = run.words(wording, {std::to_string(percent), fixed_decimals(left, 0)});
      show_text(run.streams.progress, label);
    }
    return !is_stop_requested(run.streams);
  }
};

/// What is said of the present practice, and in which file.
struct SaidPractice {
  const BreedingRules present = {};
  const std::string file = {};
};

/// What the replicates begin with; none when the run was stopped, or behind a message on what is said.
std::optional<ModelBasis> prepare_basis(FolderRun& run, const FamilyRecords& records, BasePeriod base,
                                        std::uint64_t seed, const SaidPractice& said = {}) {
  std::optional<ModelBasis> basis = make_model_basis(records, std::move(base), seed);
  ForecastWatch watch = {run, fitting_label};
  const bool is_fitted = fit_use(*basis, seed, std::ref(watch));
  ForecastWatch watch_said = {run, fitting_label};
  const SaidFit fit = is_fitted ? fit_as_said(*basis, said.present, seed, std::ref(watch_said)) : SaidFit{true, {}};
  erase_progress(run.streams.progress);
  for (const RuleProblem& problem : fit.problems) tell_problem(run, problem.line > 0 ? said.file : "", problem);
  if (fit.is_stopped || !fit.problems.empty()) basis.reset();
  return basis;
}

Forecast watch_forecast(FolderRun& run, const ModelBasis& basis, std::span<const BreedingRules> scenarios,
                        const ForecastSettings& settings) {
  ForecastWatch watch = {run, forecasting_label};
  Forecast forecast = make_forecast(basis, scenarios, settings, std::ref(watch));
  erase_progress(run.streams.progress);
  return forecast;
}

std::vector<RealYear> real_years_until(const FolderRun& run, std::int32_t last) {
  const AnalysedPopulation& population = run.population;
  const FamilyRecords records = list_families(population.store, population.analysis.years, last);
  return list_real_years(records, population.analysis.whole.inbreeding, population.analysis.whole.tables);
}

/// The page looks back by itself for so many years, where there are so many birth years.
constexpr std::int32_t years_to_look_back = 10, least_years_to_look_back = 30;

/// A forecast of the present practice from ten years ago; none with too few years.
std::optional<Hindcast> look_back(FolderRun& run, const ForecastSettings& settings, const std::vector<RealYear>& real) {
  if (std::ssize(real) < least_years_to_look_back) return std::nullopt;
  const std::int32_t from = real.back().year - years_to_look_back;
  const PopulationStore& store = run.population.store;
  const FamilyRecords records = list_families(store, run.population.analysis.years, from);
  std::optional<BasePeriod> base = measure_base_period(records);
  if (!base) return std::nullopt;
  const std::optional<ModelBasis> basis = prepare_basis(run, records, std::move(*base), settings.seed);
  if (!basis) return std::nullopt;
  ForecastSettings ten_years = settings;
  ten_years.years = years_to_look_back;
  BreedingRules present;
  present.name = present_practice;
  return Hindcast{watch_forecast(run, *basis, {&present, 1}, ten_years), from};
}

/// Everything that is shown and written of a forecast.
struct ForecastResults {
  const Forecast& forecast;
  const std::vector<ScenarioSummary> summaries;
  const std::vector<RealYear> real;  ///< up to the last full year
  const std::optional<Hindcast> hindcast;
  const std::vector<std::string> practice, warnings;
};

std::vector<OutputFile> make_files(const FolderRun& run, const ForecastOptions& options,
                                   const ForecastResults& results) {
  const auto name = [&](std::string_view ending) { return name_beside_report(run.population.settings, ending); };
  std::vector<OutputFile> files;
  TableWriter table, summary;
  table.is_plain = summary.is_plain = options.is_plain;
  table.corrections = summary.corrections = run.population.corrections;
  write_forecast_table(results.forecast, options.from ? std::span(results.real) : std::span<const RealYear>(), table);
  files.push_back({name("_forecast.tsv"), std::move(table.text)});
  write_forecast_summary(results.forecast, results.summaries, summary);
  files.push_back({name("_forecast_summary.tsv"), std::move(summary.text)});
  files.push_back(
      {name("_forecast.html"), make_forecast_page({results.forecast, results.summaries, results.real,
                                                   results.hindcast ? &*results.hindcast : nullptr, results.practice,
                                                   results.warnings, run.population.settings.population_name.trimmed(),
                                                   run.language, run.population.corrections})});
  return files;
}

void say_results(const FolderRun& run, const ForecastOptions& options, const ForecastResults& results) {
  say(run.streams.console, replicates_sentence(results.forecast, run.language));
  for (std::size_t k = 0; k < results.summaries.size(); ++k) {
    const std::string title = title_of(results.forecast.scenarios[k].rules, run.language);
    for (const std::string& line : scenario_sentences(results.forecast, results.summaries[k], k, run.language)) {
      say(run.streams.console, std::string(title).append(": ").append(line));
    }
  }
  for (const std::string& line : results.warnings) say(run.streams.console, line);
  const bool is_from = options.from.has_value();
  if (!is_from && !results.hindcast) return;
  const Forecast& told = is_from ? results.forecast : results.hindcast->forecast;
  const std::int32_t from = is_from ? *options.from : results.hindcast->from;
  for (const std::string& line : truth_sentences(told, results.real, from, run.language)) {
    say(run.streams.console, line);
  }
}

std::optional<ToolRefusal> forecast_and_write(FolderRun& run, const ForecastOptions& options) {
  const PopulationStore& store = run.population.store;
  std::optional<ToolRefusal> refusal;
  const std::optional<std::int32_t> last = find_last_year(run, options, refusal);
  if (!last) return refusal;
  const FamilyRecords records = list_families(store, run.population.analysis.years, *last);
  std::optional<BasePeriod> base = measure_base_period(records);
  if (!base) return ToolRefusal{run.words(too_few_years, {std::to_string(*last)})};
  const CountedPractice counted =
      count_practice(run.population.analysis.whole.tables, store.birth_years, base->first_year, base->last_year);
  const FamilyPractice measured = measure_practice(records, *base);
  std::vector<std::string> practice = practice_sentences(*base, counted, measured, run.language);
  for (const std::string& line : practice) say(run.streams.console, line);
  BreedingRules present;
  const auto scenarios = gather_scenarios(run, options, records, present, *base);
  if (!scenarios) return ToolRefusal{run.words(nothing_written)};
  const std::vector<std::string> said = said_sentences(present, run.language);
  for (const std::string& line : said) say(run.streams.console, line);
  practice.insert(practice.end(), said.begin(), said.end());
  const FamilyPractice families = practice_as_said(measured, present.said, *base);
  const ForecastSettings settings = settings_of(options, store, *last);
  const std::string rules_file = options.rules_file.empty() ? std::string() : shown(options.rules_file);
  const std::optional<ModelBasis> basis =
      prepare_basis(run, records, std::move(*base), settings.seed, {present, rules_file});
  if (!basis) return ToolRefusal{run.words(is_stop_requested(run.streams) ? was_stopped : nothing_written)};
  const Forecast forecast = watch_forecast(run, *basis, *scenarios, settings);
  std::vector<RealYear> real = real_years_until(run, last_full_year(store).value_or(*last));
  std::optional<Hindcast> hindcast;
  if (options.from) hindcast = Hindcast{forecast, *last};
  if (!options.from && !forecast.is_stopped) hindcast = look_back(run, settings, real);
  if (is_stop_requested(run.streams)) return ToolRefusal{run.words(was_stopped)};
  const ForecastResults results = {forecast,        summarise(forecast),
                                   std::move(real), std::move(hindcast),
                                   practice,        warning_sentences(families, run.language)};
  say_results(run, options, results);
  std::vector<OutputFile> files = make_files(run, options, results);
  refusal = write_files(run, files, {&options.rules_file, 1}, OutputKind::files);
  if (!refusal) say_written(run, files);
  return refusal;
}

}  // namespace

int run_forecast(std::span<const std::string_view> arguments, ToolStreams& streams) {
  ForecastOptions options;
  const std::string problem = read_forecast_options(arguments, options);
  return run_with_late_births("forecast", problem, streams,
                              [&](FolderRun& run) { return forecast_and_write(run, options); });
}

}  // namespace pedigreewatch
