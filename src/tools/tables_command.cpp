// Computes the population as a run does and its diversity, writes all tables under other names, and gives them their
// names when every one of them is complete.

#include "tools/tables_command.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <iterator>
#include <optional>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "control/population_standing.h"
#include "control/steer_file.h"
#include "core/memory_return.h"
#include "core/side_by_side.h"
#include "diversity/diversity.h"
#include "diversity/figures.h"
#include "diversity/founder_list.h"
#include "page/standing_words.h"
#include "standing/standing_options.h"
#include "standing/standing_table.h"
#include "tables/animal_table.h"
#include "tables/cohort_table.h"
#include "tables/figure_tables.h"
#include "tables/list_tables.h"
#include "tables/year_tables.h"
#include "text/counted.h"
#include "text/system_reasons.h"
#include "tools/available_list.h"
#include "tools/folder_analysis.h"
#include "tools/folder_command.h"
#include "tools/late_births.h"
#include "tools/output_files.h"
#include "tools/population_check.h"
#include "tools/reference_choice.h"

namespace pedigreewatch {
namespace {

constexpr std::string_view help = R"(usage: pedigreewatch-tools tables [OPTION...]
  Run it in the folder with pedigreewatch.ini. It writes the figures of the report as tables for R or a
  spreadsheet, in full precision, beside where the report goes:
    NAME_years.tsv           a row for each birth year, a column for each figure of the report
    NAME_subpopulations.tsv  the same for each subpopulation, when the steer file names two or more
    NAME_animals.tsv         a row for each animal, parents before their offspring
    NAME_diversity.tsv       figures of diversity of a reference population
    NAME_standing.tsv        how the breed stands: the verdict of the page with its figures, margins and limits
    NAME_cohorts.tsv         diversity, completeness and close matings over time
    NAME_by_kinship.tsv      females and males of the last ten years, the lowest mean kinship first
    NAME_most_inbred.tsv     the fifty most inbred animals
    NAME_used_sires.tsv      the twenty most used sires, and the breed without them
    NAME_division.tsv        kinship and distance of subpopulations, when the steer file names two or more
    NAME_founders.tsv        what is left of each founder, with --founders
  Older tables of these names are replaced.

  --years A-B           reference population: all animals born from A to B, such as 2001-2010
  --ids FILE            reference population: the animals of a list, one identification a line
                        (else: animals of the last ten birth years with both parents known)
  --rule-year YEAR      the first birth year under a rule, an import or the like: rates before and since
  --sire-share PERCENT  the most young of five years that one sire should have (else 5%)
  --most-f PERCENT      the highest F that the offspring of a mating should have (else 6.25%)
  --all-animals         lists also the animals that NAME_available.txt does not name (it stands beside the data where
                        the export told who is dead, sold or castrated)
  --founders            drops the founders' genes through the pedigree 10,000 times, and writes NAME_founders
  --ancestors           effective number of ancestors of every cohort also where that takes long
  --csv                 commas instead of tabs, and names that end in .csv
  --workbook            one workbook, NAME_tables.xlsx, with a sheet for each table, instead of these files
  --plain               writes texts that begin with = + - @ as they are (else: behind an apostrophe)
  --help                shows this text

  Exit status: 0 the tables were written, 1 data or files stand in the way (nothing was written), 2 wrong
  arguments.
)";

constexpr auto rules = std::to_array<OptionRule>({{"--years"},
                                                  {"--ids"},
                                                  {"--csv", false},
                                                  {"--workbook", false},
                                                  {"--plain", false},
                                                  {"--rule-year"},
                                                  {"--sire-share"},
                                                  {"--most-f"},
                                                  {all_animals_option, false},
                                                  {"--founders", false},
                                                  {"--ancestors", false}});

constexpr Counted birth_years = {{"1 birth year", "1 geboortejaar"}, {"{1} birth years", "{1} geboortejaren"}};
constexpr Counted animals = {{"1 animal", "1 dier"}, {"{1} animals", "{1} dieren"}};
constexpr Counted subpopulations = {{"1 subpopulation", "1 subpopulatie"}, {"{1} subpopulations", "{1} subpopulaties"}};
constexpr Counted reference_size = {{"reference population of 1 animal", "referentiepopulatie van 1 dier"},
                                    {"reference population of {1} animals", "referentiepopulatie van {1} dieren"}};
constexpr Counted cohorts_counted = {{"1 cohort", "1 cohort"}, {"{1} cohorts", "{1} cohorten"}};
constexpr Counted sires_counted = {{"1 sire", "1 vader"}, {"{1} sires", "{1} vaders"}};
constexpr Counted founders_counted = {
    {"1 founder, {2} times its genes were dropped", "1 stamdier, {2} keer zijn de genen ervan verloot"},
    {"{1} founders, {2} times their genes were dropped", "{1} stamdieren, {2} keer zijn hun genen verloot"}};
constexpr Wording no_reference = {
    "no animal of the last ten birth years has both parents known: the reference population is empty, and so are its figures; --years or --ids name another one",
    "van geen dier van de laatste tien geboortejaren zijn beide ouders bekend: de referentiepopulatie is leeg, en haar cijfers ook; --years of --ids noemen een andere"};

constexpr Wording sheet_content = {"{1}, sheet {2}: {3}", "{1}, blad {2}: {3}"};
constexpr Wording verdict_is = {"verdict: {1}", "oordeel: {1}"};

struct TablesOptions {
  ReferenceOptions reference;
  StandingSettings standing;
  TableForm form = TableForm::tabs;
  bool takes_all_animals = false;
  bool wants_workbook = false, wants_founders = false, wants_ancestors = false;
  bool is_plain = false;
};

/// A file on its way: what it will be called, and what is said of it when it is there; of a workbook that is a line for
/// each sheet.
struct TableFile {
  std::string name;
  std::vector<std::string> said;
  NewFile file = {};
};

/// Takes one option; yields what is wrong with it, empty: nothing.
std::string take_option(const GivenOption& option, TablesOptions& options) {
  if (option.name == "--csv") options.form = TableForm::commas;
  if (option.name == "--workbook") options.wants_workbook = true;
  if (option.name == "--plain") options.is_plain = true;
  if (option.name == all_animals_option) options.takes_all_animals = true;
  if (option.name == "--founders") options.wants_founders = true;
  if (option.name == "--ancestors") options.wants_ancestors = true;
  const std::string problem = take_reference_option(option.name, option.value, options.reference);
  return problem.empty() ? take_standing_option(option.name, option.value, options.standing) : problem;
}

/// What everything is written from.
struct Tables {
  const FolderRun& run;
  const Diversity& diversity;
  const Standing& standing;
  const PopulationFigures& figures;
  TableForm form = TableForm::tabs;
  bool wants_founders = false;
  bool is_plain = false;
  WorkbookWriter* workbook = nullptr;  ///< where the tables go; null: to a file each

  bool has_subpopulations() const { return run.population.settings.layout.subpopulations.count() > 1; }
};

/// Begins a file and keeps it among `files`. Nothing has its final name yet.
bool begin_table_file(const Tables& tables, std::string_view ending, std::vector<TableFile>& files,
                      FileProblem& problem) {
  files.push_back({name_beside_report(tables.run.population.settings, ending), {}});
  if (begin_file(files.back().file, files.back().name, problem)) return true;
  files.pop_back();
  return false;
}

/// Has a table written by `write`, to a file of its own or to a sheet of the workbook.
template <typename Write>
bool write_file(const Tables& tables, std::string_view name, const std::string& content, std::vector<TableFile>& files,
                FileProblem& problem, Write write) {
  TableWriter writer{
      .form = tables.form, .workbook = tables.workbook, .text = {}, .corrections = tables.run.population.corrections};
  if (tables.workbook != nullptr) {
    const std::string_view sheet = name.substr(1);
    begin_table_sheet(writer, sheet);
    write(writer);
    end_sheet(*tables.workbook);
    files.back().said.push_back(tables.run.words(sheet_content, {shown(files.back().name), sheet, content}));
    return true;
  }
  if (!begin_table_file(tables, std::string(name) + std::string(ending_of(tables.form)), files, problem)) return false;
  writer.file = &files.back().file;
  writer.is_plain = tables.is_plain;
  writer.threads = threads_of_machine();
  write(writer);
  flush(writer);
  files.back().said.push_back(shown(files.back().name) + ": " + content);
  return true;
}

bool write_founder_file(const Tables& tables, std::vector<TableFile>& files, FileProblem& problem) {
  const PopulationStore& store = tables.run.population.store;
  const std::vector<FounderEntry> founders =
      list_founders(make_reference_pedigree(store, tables.diversity.reference.positions));
  const std::string content =
      counted(founders_counted, std::ssize(founders), tables.run.language, {std::to_string(usual_gene_drops)});
  return write_file(tables, "_founders", content, files, problem,
                    [&](TableWriter& writer) { write_founders(store, founders, writer); });
}

/// The figures over time, the lists, the subpopulations beside each other, and the founders where they are wanted.
bool write_figure_files(const Tables& tables, std::vector<TableFile>& files, FileProblem& problem) {
  const PopulationStore& store = tables.run.population.store;
  const PopulationFigures& figures = tables.figures;
  const ByNumber<std::int32_t> offspring = count_offspring(store);
  const ListedPopulation listed{store, tables.diversity, figures, offspring};
  const auto write = [&](std::string_view name, const Counted& thing, std::size_t count, auto write_table) {
    const std::string content = counted(thing, static_cast<std::int64_t>(count), tables.run.language);
    return write_file(tables, name, content, files, problem, write_table);
  };
  const ActionLists& lists = figures.lists;
  const auto of_cohorts = [&](TableWriter& writer) { write_cohorts(store, figures.cohorts, writer); };
  const auto by_kinship = [&](TableWriter& writer) { write_kinship_list(listed, writer); };
  const auto most_inbred = [&](TableWriter& writer) { write_most_inbred(listed, writer); };
  const auto used_sires = [&](TableWriter& writer) { write_used_sires(listed, writer); };
  const auto division = [&](TableWriter& writer) { write_division(store, tables.diversity.division, writer); };
  if (!write("_cohorts", cohorts_counted, figures.cohorts.size(), of_cohorts) ||
      !write("_by_kinship", animals, lists.females.size() + lists.males.size(), by_kinship) ||
      !write("_most_inbred", animals, lists.most_inbred.size(), most_inbred) ||
      !write("_used_sires", sires_counted, lists.sires.size(), used_sires)) {
    return false;
  }
  const std::size_t groups = tables.diversity.division.groups.size();
  if (tables.has_subpopulations() && !write("_division", subpopulations, groups, division)) return false;
  return !tables.wants_founders || write_founder_file(tables, files, problem);
}

bool write_files(const Tables& tables, std::vector<TableFile>& files, FileProblem& problem) {
  const AnalysedPopulation& population = tables.run.population;
  const PopulationStore& store = population.store;
  const std::vector<GroupCounts> groups = count_groups(population);
  const auto years = [&](TableWriter& writer) { write_years(population, groups, writer); };
  const auto of_subpopulations = [&](TableWriter& writer) { write_subpopulations(population, groups, writer); };
  const auto of_animals = [&](TableWriter& writer) { write_animals(store, tables.figures.animals, writer); };
  const std::int64_t year_count = store.birth_years.dated_row_count();
  if (!write_file(tables, "_years", counted(birth_years, year_count, tables.run.language), files, problem, years))
    return false;
  if (tables.has_subpopulations()) {
    const std::string content =
        counted(subpopulations, population.settings.layout.subpopulations.count(), tables.run.language);
    if (!write_file(tables, "_subpopulations", content, files, problem, of_subpopulations)) return false;
  }
  const std::int64_t animal_count = static_cast<std::int64_t>(store.size());
  if (!write_file(tables, "_animals", counted(animals, animal_count, tables.run.language), files, problem, of_animals))
    return false;
  const auto of_diversity = [&](TableWriter& writer) {
    write_diversity_table(store, tables.diversity, tables.run.language, writer);
  };
  const std::size_t members = tables.diversity.reference.positions.size();
  const std::string content = members == 0
                                  ? tables.run.words(no_reference)
                                  : counted(reference_size, static_cast<std::int64_t>(members), tables.run.language);
  if (!write_file(tables, "_diversity", content, files, problem, of_diversity)) return false;
  const auto of_standing = [&](TableWriter& writer) {
    write_standing_table(store, tables.standing, tables.run.language, writer);
  };
  const std::string verdict = tables.run.words(verdict_is, {pace_words(tables.standing.pace, tables.run.language)});
  return write_file(tables, "_standing", verdict, files, problem, of_standing) &&
         write_figure_files(tables, files, problem);
}

/// Refuses tables whose names are those of something else.
FileProblem find_obstacle_of(const Tables& tables, std::span<const TableFile> files, const std::string& ids_file) {
  for (const TableFile& table : files) {
    FileProblem problem = find_obstacle(tables.run, table.name, {&ids_file, 1}, OutputKind::tables);
    if (!problem.name.empty()) return problem;
  }
  return {};
}

std::optional<ToolRefusal> write_tables(Tables& tables, const TablesOptions& options) {
  const FolderRun& run = tables.run;
  std::vector<TableFile> files;
  constexpr std::size_t most_files = 11;
  files.reserve(most_files);  // a table being written stays where it is
  FileProblem problem;
  WorkbookWriter workbook;
  bool is_begun = true;
  if (options.wants_workbook) {
    is_begun = begin_table_file(tables, "_tables.xlsx", files, problem);
    if (is_begun) workbook.zip.file = &files.back().file;
    tables.workbook = &workbook;
  }
  is_begun = is_begun && write_files(tables, files, problem);
  if (is_begun && options.wants_workbook && !finish_workbook(workbook)) {
    problem = {files.back().name, message_of(workbook, run.language), 0};
    is_begun = false;
  }
  if (is_begun) problem = find_obstacle_of(tables, files, options.reference.ids_file);
  std::vector<NewFile*> begun;
  for (TableFile& table : files) begun.push_back(&table.file);
  if (std::optional<ToolRefusal> refusal = finish_files(run, begun, problem, OutputKind::tables)) return refusal;
  for (const TableFile& table : files) {
    for (const std::string& line : table.said) say(run.streams.console, line);
  }
  return std::nullopt;
}

/// What the verdict needs of the check of the data file, and in which state the file was when it began.
struct EarlyCheck {
  FileState state;
  VerdictFaults faults;
};

/// The check and the population each take as much memory: what is found is let go before the population is there.
EarlyCheck check_early(const SteerSettings& settings, ToolStreams& streams) {
  EarlyCheck early;
  early.state = state_of_file(std::string(settings.data_file_name.trimmed()));
  if (const std::optional<CheckResult> check = check_population(settings, streams, CheckScope::rates)) {
    early.faults = faults_of_verdict(*check);
  }
  give_memory_back();
  return early;
}

std::optional<ToolRefusal> make_tables(const FolderRun& run, const TablesOptions& options, const EarlyCheck& check) {
  ReferencePopulation reference;
  if (std::optional<ToolRefusal> refusal = choose_reference(run, options.reference, reference)) return refusal;
  if (is_stop_requested(run.streams)) return ToolRefusal{run.words(was_stopped)};
  if (std::optional<ToolRefusal> refusal = refuse_other_data(run, check.state)) return refusal;
  say_late_births(run, check.faults.late_births);
  AvailableAnimals available;
  if (!options.takes_all_animals) {
    if (std::optional<ToolRefusal> refusal = read_available(run, available)) return refusal;
  }
  const std::int32_t threads = threads_of_machine();
  give_memory_back();
  Standing standing;
  Diversity diversity;
  const std::array<Task, 2> steps = {
      [&] { standing = stand_of(run.population, options.standing, check.faults, available); },
      [&] { diversity = compute_diversity(run.population.store, std::move(reference), threads); }};
  do_side_by_side(steps, threads);
  give_memory_back();
  const PopulationFigures figures =
      compute_figures(run.population.store, diversity, available, options.wants_ancestors, threads);
  Tables tables{run, diversity, standing, figures, options.form, options.wants_founders, options.is_plain};
  return write_tables(tables, options);
}

}  // namespace

std::string_view tables_help() {
  return help;
}

int run_tables(std::span<const std::string_view> arguments, ToolStreams& streams) {
  TablesOptions options;
  std::string problem =
      read_options(arguments, rules, [&](const GivenOption& option) { return take_option(option, options); });
  if (problem.empty() && options.wants_workbook && options.form == TableForm::commas) {
    problem = "--csv and --workbook: only one of them can be given";
  }
  EarlyCheck check;
  take_memory_from_one_place();
  give_large_blocks_back();
  return run_in_folder(
      "tables", problem, streams, [&](FolderRun& run) { return make_tables(run, options, check); },
      FolderUse::subpopulations_too, [&](const SteerSettings& settings) { check = check_early(settings, streams); });
}

}  // namespace pedigreewatch
