// Computes the population as a run does, reads what was said about candidates, matings and pairs, makes the plan and
// writes its files: all of them, or none.

#include "tools/plan_command.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "checks/readable_text.h"
#include "page/plan_page.h"
#include "planning/plan.h"
#include "planning/plan_candidates.h"
#include "planning/plan_words.h"
#include "planning/planned_matings.h"
#include "planning/said_request.h"
#include "tables/plan_tables.h"
#include "tools/available_list.h"
#include "tools/folder_analysis.h"
#include "tools/folder_command.h"
#include "tools/late_births.h"
#include "tools/output_files.h"
#include "tools/plan_options.h"

namespace pedigreewatch {
namespace {

constexpr Wording males_word = {"males", "mannelijke dieren"}, females_word = {"females", "vrouwelijke dieren"};
constexpr Wording nobody = {
    "no {1} can be planned with; name them with {2} FILE, or give --years N, and look at what leaves animals out",
    "er zijn geen {1} om mee te plannen; noem ze met {2} BESTAND, of geef --years N, en kijk wat dieren weglaat"};
constexpr Wording no_subpopulation = {"--subpopulation {1}: there is none of this name; they are: {2}",
                                      "--subpopulation {1}: die is er niet; dit zijn ze: {2}"};
constexpr Wording no_matings = {
    "the last full birth year has no litters with known mothers: give --matings N",
    "het laatste volle geboortejaar heeft geen nesten met bekende moeder: geef --matings N"};
constexpr Wording matings_of_year = {"matings: {1}, the litters of {2}", "paringen: {1}, de nesten van {2}"};
constexpr Wording matings_within = {"matings: {1}, the litters of {2} in the subpopulation",
                                    "paringen: {1}, de nesten van {2} in de subpopulatie"};
constexpr Wording matings_given = {"matings: {1}", "paringen: {1}"};
constexpr Wording planning_label = {"planning, thousands of ancestors", "plannen, duizenden voorouders"};
constexpr Wording removed = {"removed: {1}, of an earlier plan", "verwijderd: {1}, van een eerder plan"};
constexpr Wording not_removed = {"{1} is of an earlier plan and could not be removed: {2}",
                                 "{1} is van een eerder plan en kon niet verwijderd worden: {2}"};
constexpr Wording nothing_written = {"nothing was written", "er is niets geschreven"};

/// Says what stands in the way, of which there may be more.
void tell_refusal(ToolStreams& streams, std::string_view text) {
  erase_progress(streams.progress);
  flush(streams.console);
  say(streams.messages, text);
}

struct PlanRun {
  FolderRun& folder;
  const PlanOptions& options;
  ToolStreams& streams;
  ToolLanguage language;

  const AnalysedPopulation& population() const { return folder.population; }
  const PopulationStore& store() const { return folder.population.store; }
};

/// Whether a subpopulation of this name exists; says so where it does not.
bool has_subpopulation(const PlanRun& run) {
  const Subpopulations& names = run.population().settings.layout.subpopulations;
  std::string all;
  for (std::int32_t k = 1; k <= names.count(); ++k) {
    const std::string name = readable(names.text_of(k));
    if (name == *run.options.subpopulation) return true;
    all += (all.empty() ? "" : ", ") + shown(name);
  }
  tell_refusal(run.streams, phrase(no_subpopulation, run.language,
                                   {in_quotes(*run.options.subpopulation), all.empty() ? "-" : all}));
  return false;
}

/// The candidates; nothing after a message.
std::optional<CandidatePool> find_candidates(PlanRun& run, PlanInput& input) {
  const PlanOptions& options = run.options;
  CandidateRules rules;
  rules.years = options.years;
  rules.least_generations = options.least_generations;
  rules.needs_known_parents = options.needs_known_parents;
  rules.subpopulation = options.subpopulation;
  if (options.subpopulation && !has_subpopulation(run)) return std::nullopt;
  read_said_candidates(input, options.lists, rules);
  if (input.has_faults) return std::nullopt;
  if (!options.takes_all_animals) {
    if (const std::optional<ToolRefusal> refusal = read_available(run.folder, rules.available)) {
      tell_refusal(run.streams, refusal->text);
      return std::nullopt;
    }
  }
  for (const auto& [sex, list] : {std::pair(male, &options.lists.males), std::pair(female, &options.lists.females)}) {
    if (const auto& listed = rules.listed.of(sex)) say_unavailable(run.folder, rules.available, *listed, *list);
  }
  CandidatePool pool = gather_candidates(run.store(), rules);
  for (const Sex sex : {male, female}) {
    if (!pool.candidates.of(sex).positions.empty()) continue;
    tell_refusal(run.streams, phrase(nobody, run.language,
                                     {words_of(sex == male ? males_word : females_word, run.language),
                                      sex == male ? "--males" : "--females"}));
    return std::nullopt;
  }
  return pool;
}

/// What is asked for; nothing after a message.
std::optional<PlanRequest> make_request(PlanRun& run, PlanInput& input, const CandidatePool& pool) {
  const PlanOptions& options = run.options;
  PlanRequest request;
  request.males = pool.candidates.of_males.positions;
  request.females = pool.candidates.of_females.positions;
  const std::optional<std::int32_t> year = last_full_year(run.store());
  request.matings = options.matings ? *options.matings
                    : year          ? litters_of_year(run.store(), *year, options.subpopulation)
                                    : 0;
  if (request.matings == 0) {
    tell_refusal(run.streams, words_of(no_matings, run.language));
    return std::nullopt;
  }
  request.subpopulation = options.subpopulation;
  request.most_per_male = options.most_per_male;
  request.most_per_female = options.most_per_female.value_or(1);
  request.least_per_male = options.least_per_male.value_or(1);
  request.most_f = options.most_f;
  request.wants_pairs = options.wants_pairs;
  constexpr double usual_rate = 0.005;
  request.rate = options.rate.value_or(usual_rate);
  read_said_request(input, options.lists, request);
  if (input.has_faults) return std::nullopt;
  const std::string count = std::to_string(request.matings);
  say(run.streams.console, options.matings ? phrase(matings_given, run.language, {count})
                                           : phrase(options.subpopulation ? matings_within : matings_of_year,
                                                    run.language, {count, std::to_string(*year)}));
  return request;
}

std::optional<ToolRefusal> refuse_plan(const PlanRun& run, const PlanRequest& request, const Plan& plan) {
  if (plan.obstacle == PlanObstacle::stopped) return ToolRefusal{run.folder.words(was_stopped)};
  for (const std::string& line : obstacle_sentences(run.store(), request, plan, run.language)) {
    tell_refusal(run.streams, line);
  }
  return ToolRefusal{run.folder.words(nothing_written)};
}

/// Letters of UTF-8.
std::size_t width_of(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(
      text.begin(), text.end(), [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }));
}

/// A cell at the right of its column.
std::string padded(std::string_view text, std::size_t width) {
  return std::string(width > width_of(text) ? width - width_of(text) : 1, ' ') + std::string(text);
}

/// The comparison side by side, a line for each way.
void say_comparison(const PlanRun& run, const ComparisonTable& table) {
  constexpr std::size_t cell_width = 14;
  std::size_t name_width = 38;
  for (const ComparisonTable::Row& row : table.rows) name_width = std::max(name_width, width_of(row.way));
  std::string heading(name_width + 2, ' ');
  for (std::size_t k = 1; k < table.short_headings.size(); ++k) heading += padded(table.short_headings[k], cell_width);
  say(run.streams.console, heading);
  for (const ComparisonTable::Row& row : table.rows) {
    std::string line = "  " + row.way + std::string(name_width - width_of(row.way), ' ');
    for (const std::string& cell : row.cells) line += padded(cell.empty() ? "-" : cell, cell_width);
    say(run.streams.console, line);
  }
}

void say_curve(const PlanRun& run, const Plan& plan) {
  if (plan.curve.empty()) return;
  const ComparisonTable curve = curve_of(plan, run.language);
  say(run.streams.console, curve.headings[0] + " | " + curve.headings[1] + " | " + curve.headings[2]);
  for (const ComparisonTable::Row& row : curve.rows) {
    say(run.streams.console,
        "  " + row.way + " | " + row.cells[0] + " | " + (row.cells[1].empty() ? "-" : row.cells[1]));
  }
}

void say_plan(const PlanRun& run, const PlanRequest& request, const Plan& plan) {
  say_comparison(run, comparison_of(plan, run.language));
  for (const std::string& line : result_sentences(plan, run.language)) say(run.streams.console, line);
  say_curve(run, plan);
  const PlanWarnings warnings = find_warnings(run.store(), request, plan);
  const std::string gain = gain_sentence(plan, warnings, run.language);
  if (!gain.empty()) say(run.streams.console, gain);
  for (const std::string& line : warning_sentences(warnings, request, run.language)) say(run.streams.console, line);
}

/// The table of the pairs, unless there are none, and that of the contributions.
void add_tables(const PlanTables& tables, const SteerSettings& settings, bool is_plain,
                std::vector<OutputFile>& files) {
  if (!tables.plan.pairs.empty()) {
    TableWriter pairs;
    pairs.is_plain = is_plain;
    pairs.corrections = tables.corrections;
    write_plan_table(tables, pairs);
    files.push_back({name_beside_report(settings, "_plan.tsv"), std::move(pairs.text)});
  }
  TableWriter contributions;
  contributions.is_plain = is_plain;
  contributions.corrections = tables.corrections;
  write_contributions_table(tables, contributions);
  files.push_back({name_beside_report(settings, "_contributions.tsv"), std::move(contributions.text)});
}

/// Contributions and pairs are at most two million rows and the page has them all, so that the files stand in memory
/// first.
std::vector<OutputFile> make_files(const PlanRun& run, const PlanRequest& request, const Plan& plan,
                                   const CandidatePool& pool, const PlannedMatings& matings) {
  const SteerSettings& settings = run.population().settings;
  const PlanTables tables = {
      run.store(), plan, matings, pool, request.matings, run.language, run.population().corrections};
  std::vector<OutputFile> files;
  if (run.options.wants_workbook) {
    WorkbookWriter workbook;
    write_plan_sheets(tables, workbook);
    finish_workbook(workbook);
    files.push_back({name_beside_report(settings, "_plan.xlsx"), std::move(workbook.zip.bytes)});
  } else {
    add_tables(tables, settings, run.options.is_plain, files);
  }
  files.push_back({name_beside_report(settings, "_plan.html"),
                   make_plan_page({run.store(), request, plan, matings, pool, settings.population_name.trimmed(),
                                   run.language, false, PlanSpeaker::console, run.population().corrections})});
  return files;
}

std::array<std::string, 7> lists_of(const PlanOptions& options) {
  return {options.lists.females,   options.lists.males,  options.lists.exclude, options.lists.numbers,
          options.lists.forbidden, options.lists.wished, options.lists.values};
}

/// Takes away what an earlier plan has left beside the files of this one: pairs must not stand beside contributions
/// that are not theirs.
void remove_older_files(const PlanRun& run, const std::vector<OutputFile>& files) {
  for (const std::string_view ending : {"_plan.tsv", "_contributions.tsv", "_plan.xlsx"}) {
    const std::string older = name_beside_report(run.population().settings, ending);
    const bool is_new =
        std::any_of(files.begin(), files.end(), [&](const OutputFile& file) { return file.name == older; });
    std::error_code error;
    if (is_new || !std::filesystem::is_regular_file(std::filesystem::symlink_status(older, error))) continue;
    const FileProblem problem = find_obstacle(run.folder, older, lists_of(run.options), OutputKind::files);
    if (!problem.name.empty()) continue;  // something else of this run
    std::filesystem::remove(older, error);
    if (error) {
      say(run.streams.messages, phrase(not_removed, run.language, {shown(older), error.message()}));
    } else {
      say(run.streams.console, phrase(removed, run.language, {shown(older)}));
    }
  }
}

std::optional<ToolRefusal> plan_and_write(FolderRun& folder, const PlanOptions& options) {
  PlanRun run = {folder, options, folder.streams, folder.language};
  PlanInput input = {run.store(), run.streams, run.language, find_sex_evidence(run.store())};
  const std::optional<CandidatePool> pool = find_candidates(run, input);
  if (!pool) return ToolRefusal{folder.words(nothing_written)};
  for (const Sex sex : {male, female}) {
    say(run.streams.console, candidates_sentence(pool->candidates.of(sex), sex, run.language));
  }
  if (pool->gone > 0) say(run.streams.console, gone_sentence(*pool, run.language));
  if (pool->unknown_sexes > 0) say(run.streams.console, unknown_sexes_sentence(*pool, run.language));
  const std::optional<PlanRequest> request = make_request(run, input, *pool);
  if (!request) return ToolRefusal{folder.words(nothing_written)};
  const PlanWatch watch = {&run.streams.progress, run.streams.stop_request};
  begin_progress(run.streams.progress, words_of(planning_label, run.language));
  const Plan plan = make_plan(run.store(), *request, watch);
  if (plan.obstacle != PlanObstacle::none) return refuse_plan(run, *request, plan);
  const PlannedMatings matings = describe_plan(run.store(), plan.candidates, plan.pairs, watch);
  erase_progress(run.streams.progress);
  if (matings.parts.size() != plan.pairs.size()) return ToolRefusal{folder.words(was_stopped)};
  std::vector<OutputFile> files = make_files(run, *request, plan, *pool, matings);
  say_plan(run, *request, plan);
  if (std::optional<ToolRefusal> refusal = write_files(folder, files, lists_of(options), OutputKind::files)) {
    return refusal;
  }
  say_written(folder, files);
  remove_older_files(run, files);
  return std::nullopt;
}

}  // namespace

int run_plan(std::span<const std::string_view> arguments, ToolStreams& streams) {
  PlanOptions options;
  const std::string problem = read_plan_options(arguments, options);
  return run_with_late_births("plan", problem, streams, [&](FolderRun& run) { return plan_and_write(run, options); });
}

}  // namespace pedigreewatch
