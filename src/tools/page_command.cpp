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
#include "tools/current_date.h"
#include "tools/folder_analysis.h"
#include "tools/folder_command.h"
#include "tools/reference_choice.h"

namespace pedigreewatch {
namespace {

constexpr std::string_view help = R"(usage: pedigreewatch-tools page [OPTION...]
  Run it in the folder with pedigreewatch.ini. It writes NAME.html beside where the report goes: a page for any
  browser with a summary in words, charts of the figures of the report, diversity, and what the checks found. The
  page is one file, needs no network, and can be printed. An older page of this name is replaced.

  --years A-B           reference population of the diversity figures: all animals born from A to B, such as
                        2001-2010
  --ids FILE            reference population: the animals of a list, one identification a line
                        (else: animals of the last ten birth years with both parents known)
  --help                shows this text

  Exit status: 0 the page was written, 1 data or files stand in the way (nothing was written), 2 wrong
  arguments.
)";

constexpr auto rules = std::to_array<OptionRule>({{"--years"}, {"--ids"}});

constexpr Wording not_written = {"{1}: {2}; the page was not written", "{1}: {2}; de pagina is niet geschreven"};
constexpr Wording is_in_use = {"a page of this name would replace a file that this run reads",
                               "een pagina met deze naam zou een bestand vervangen dat hier gelezen wordt"};
constexpr Wording written = {"{1}: the page ({2} kB); open it in a browser",
                             "{1}: de pagina ({2} kB); open hem in een browser"};

/// What the checks find in the data file; nothing when it can no longer be read.
std::optional<CheckResult> check_population(const FolderRun& run) {
  const SteerSettings& steer = run.population.settings;
  LineReader data;
  if (open_data_file(steer, data)) return std::nullopt;
  const CheckSettings settings = make_check_settings(steer, lines_of_steer_file(steer_file_name), current_date());
  CheckResult result = check_data(data, settings, run.streams.progress);
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

std::optional<ToolRefusal> write_page(const FolderRun& run, std::string_view page, const std::string& ids_file) {
  const std::string name = name_beside_report(run.population.settings, ".html");
  FileProblem problem = find_obstacle(run, name, {&ids_file, 1}, is_in_use);
  if (!problem.name.empty() || !write_file(name, page, problem)) {
    return ToolRefusal{run.words(not_written, {shown(problem.name), problem.reason})};
  }
  constexpr std::size_t kilo = 1000;
  say(run.streams.console, run.words(written, {shown(name), std::to_string((page.size() + kilo - 1) / kilo)}));
  return std::nullopt;
}

std::optional<ToolRefusal> make_page_file(const FolderRun& run, const ReferenceOptions& options) {
  ReferencePopulation reference;
  if (std::optional<ToolRefusal> refusal = choose_reference(run, options, reference)) return refusal;
  TextOutput silent;
  const std::vector<Block> blocks = analyse_subpopulations(run.population, silent);
  const Diversity diversity = compute_diversity(run.population.store, std::move(reference));
  const std::optional<CheckResult> check = check_population(run);
  if (is_stop_requested(run.streams)) return ToolRefusal{run.words(was_stopped)};
  const PageInput input = {run.population, blocks, &diversity, check ? &*check : nullptr};
  return write_page(run, make_page(input), options.ids_file);
}

}  // namespace

std::string_view page_help() {
  return help;
}

int run_page(std::span<const std::string_view> arguments, ToolStreams& streams) {
  ReferenceOptions options;
  const std::string problem = read_options(arguments, rules, [&](const GivenOption& option) {
    return take_reference_option(option.name, option.value, options);
  });
  return run_in_folder("page", problem, streams, [&](FolderRun& run) { return make_page_file(run, options); });
}

}  // namespace pedigreewatch
