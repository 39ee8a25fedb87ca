// Computes the population as a run does, checks the same data file, and writes one file: completely or not at all.

#include "tools/page_command.h"

#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "checks/check.h"
#include "control/check_setup.h"
#include "control/steer_file.h"
#include "core/new_files.h"
#include "diversity/diversity.h"
#include "page/page.h"
#include "tools/check_inputs.h"
#include "tools/command_line.h"
#include "tools/folder_analysis.h"
#include "tools/reference_choice.h"

namespace pedigreewatch {
namespace {

constexpr std::string_view help =
    "usage: pedigreewatch-tools page [OPTION...]\n"
    "  Run it in the folder with pedigreewatch.ini. It writes NAME.html beside where the report goes: a page for any\n"
    "  browser with a summary in words, charts of the figures of the report, diversity, and what the checks found. "
    "The\n"
    "  page is one file, needs no network, and can be printed. An older page of this name is replaced.\n"
    "\n"
    "  --years A-B           reference population of the diversity figures: all animals born from A to B, such as\n"
    "                        2001-2010\n"
    "  --ids FILE            reference population: the animals of a list, one identification a line\n"
    "                        (else: animals of the last ten birth years with both parents known)\n"
    "  --help                shows this text\n"
    "\n"
    "  Exit status: 0 the page was written, 1 data or files stand in the way (nothing was written), 2 wrong\n"
    "  arguments.\n";

constexpr auto rules = std::to_array<OptionRule>({{"--years"}, {"--ids"}});

constexpr Wording not_written = {"{1}: {2}; the page was not written", "{1}: {2}; de pagina is niet geschreven"};
constexpr Wording is_no_page = {"there is something of this name that is no file",
                                "er is al iets met deze naam dat geen bestand is"};
constexpr Wording is_in_use = {"a page of this name would replace a file that this run reads",
                               "een pagina met deze naam zou een bestand vervangen dat hier gelezen wordt"};
constexpr Wording was_stopped = {"stopped; nothing was written", "afgebroken; er is niets geschreven"};
constexpr Wording written = {"{1}: the page ({2} kB); open it in a browser",
                             "{1}: de pagina ({2} kB); open hem in een browser"};

int refuse(ToolStreams& streams, std::string_view text, int exit_status) {
  flush(streams.console);
  append(streams.messages, text);
  end_line(streams.messages);
  return exit_status;
}

/// Yields what is wrong with the arguments; empty: nothing.
std::string read_options(std::span<const std::string_view> arguments, ReferenceOptions& options) {
  const CommandLine line = read_command_line(arguments, rules);
  if (!line.problem.empty()) return line.problem;
  if (!line.operands.empty()) {
    return in_quotes(line.operands.front()) + ": no file was expected; the data file is the one of pedigreewatch.ini";
  }
  for (const GivenOption& option : line.options) {
    std::string problem = take_reference_option(option.name, option.value, options);
    if (!problem.empty()) return problem;
  }
  return {};
}

/// What the checks find in the data file; nothing when it can no longer be read.
std::optional<CheckResult> check_population(const AnalysedPopulation& population, ToolStreams& streams) {
  LineReader data;
  if (!open_for_reading(data, std::string(population.settings.data_file_name.trimmed()))) return std::nullopt;
  const CheckSettings settings = make_check_settings(population.settings, lines_of_steer_file(), current_date());
  CheckResult result = check_data(data, settings, streams.progress);
  if (data.error != 0) return std::nullopt;
  return result;
}

bool write_file(const std::string& name, std::string_view bytes, FileProblem& problem) {
  NewFile file;
  if (!begin_file(file, name, problem)) return false;
  write_bytes(file, bytes);
  if (finish_file(file, problem)) return true;
  abandon(file);
  return false;
}

int write_page(const AnalysedPopulation& population, std::string_view page, const std::string& ids_file,
               ToolStreams& streams) {
  const ToolLanguage language = language_of(population.settings);
  const std::string name = name_beside_report(population.settings, ".html");
  FileProblem problem;
  const NameObstacle obstacle = find_obstacle(name, population.settings, {&ids_file, 1});
  const bool is_free = obstacle == NameObstacle::none;
  const Wording& reason = obstacle == NameObstacle::no_file ? is_no_page : is_in_use;
  if (!is_free) problem = {name, std::string(words_of(reason, language))};
  if (!is_free || !write_file(name, page, problem)) {
    return refuse(streams, phrase(not_written, language, {shown(problem.name), problem.reason}), 1);
  }
  constexpr std::size_t kilo = 1000;
  append(streams.console, phrase(written, language, {shown(name), std::to_string((page.size() + kilo - 1) / kilo)}));
  end_line(streams.console);
  return 0;
}

}  // namespace

std::string_view page_help() {
  return help;
}

int run_page(std::span<const std::string_view> arguments, ToolStreams& streams) {
  ReferenceOptions options;
  const std::string problem = read_options(arguments, options);
  if (!problem.empty()) {
    return refuse(streams, "pedigreewatch-tools page: " + problem + "\nTry: pedigreewatch-tools page --help", 2);
  }
  const std::optional<AnalysedPopulation> population = analyse_folder(streams);
  if (!population) return 1;
  std::optional<ReferencePopulation> reference = choose_reference(*population, options, streams);
  if (!reference) return 1;
  TextOutput silent;
  const std::vector<Block> blocks = analyse_subpopulations(*population, silent);
  const Diversity diversity = compute_diversity(population->store, std::move(*reference));
  const std::optional<CheckResult> check = check_population(*population, streams);
  if (is_stop_requested(streams)) return refuse(streams, words_of(was_stopped, language_of(population->settings)), 1);
  const PageInput input = {*population, blocks, &diversity, check ? &*check : nullptr};
  return write_page(*population, make_page(input), options.ids_file, streams);
}

}  // namespace pedigreewatch
