// Computes the population as a run does, checks the same data file, and writes one file: completely or not at all.

#include "tools/page_command.h"

#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "control/population_standing.h"
#include "core/new_files.h"
#include "diversity/diversity.h"
#include "page/page.h"
#include "standing/standing_options.h"
#include "text/system_reasons.h"
#include "tools/available_list.h"
#include "tools/folder_analysis.h"
#include "tools/folder_command.h"
#include "tools/output_files.h"
#include "tools/population_check.h"
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
  --rule-year YEAR      the first birth year under a rule, an import or the like: rates before and since
  --sire-share PERCENT  the most young of five years that one sire should have (else 5%)
  --most-f PERCENT      the highest F that the offspring of a mating should have (else 6.25%)
  --all-animals         lists also the animals that NAME_available.txt does not name (it stands beside the data where
                        the export told who is dead, sold or castrated)
  --help                shows this text

  Exit status: 0 the page was written, 1 data or files stand in the way (nothing was written), 2 wrong
  arguments.
)";

constexpr auto rules = std::to_array<OptionRule>(
    {{"--years"}, {"--ids"}, {"--rule-year"}, {"--sire-share"}, {"--most-f"}, {all_animals_option, false}});

constexpr Wording written = {"{1}: the page ({2} kB); open it in a browser",
                             "{1}: de pagina ({2} kB); open hem in een browser"};

struct PageOptions {
  ReferenceOptions reference;
  StandingSettings standing;
  bool takes_all_animals = false;
};

/// Takes one option; yields what is wrong with it, empty: nothing.
std::string take_option(const GivenOption& option, PageOptions& options) {
  if (option.name == all_animals_option) options.takes_all_animals = true;
  const std::string problem = take_reference_option(option.name, option.value, options.reference);
  return problem.empty() ? take_standing_option(option.name, option.value, options.standing) : problem;
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
  FileProblem problem = find_obstacle(run, name, {&ids_file, 1}, OutputKind::page);
  if (!problem.name.empty() || !write_file(name, page, problem)) {
    return refusal_to_write(problem, OutputKind::page, run.language);
  }
  constexpr std::size_t kilo = 1000;
  say(run.streams.console, run.words(written, {shown(name), std::to_string((page.size() + kilo - 1) / kilo)}));
  return std::nullopt;
}

std::optional<ToolRefusal> make_page_file(const FolderRun& run, const PageOptions& options) {
  ReferencePopulation reference;
  if (std::optional<ToolRefusal> refusal = choose_reference(run, options.reference, reference)) return refusal;
  AvailableAnimals available;
  if (!options.takes_all_animals) {
    if (std::optional<ToolRefusal> refusal = read_available(run, available)) return refusal;
  }
  TextOutput silent;
  const std::vector<Block> blocks = analyse_subpopulations(run.population, silent);
  const Diversity diversity = compute_diversity(run.population.store, std::move(reference));
  const std::optional<CheckResult> check = check_population(run.population.settings, run.streams);
  if (std::optional<ToolRefusal> refusal = refuse_changed_data(run)) return refusal;
  if (is_stop_requested(run.streams)) return ToolRefusal{run.words(was_stopped)};
  const CheckResult* const found = check ? &*check : nullptr;
  const Standing standing = stand_of(run.population, options.standing, found, available);
  const PopulationFigures figures = compute_figures(run.population.store, diversity, available);
  const PageInput input = {run.population, blocks, &diversity, found, &standing, &figures};
  return write_page(run, make_page(input), options.reference.ids_file);
}

}  // namespace

std::string_view page_help() {
  return help;
}

int run_page(std::span<const std::string_view> arguments, ToolStreams& streams) {
  PageOptions options;
  const std::string problem =
      read_options(arguments, rules, [&](const GivenOption& option) { return take_option(option, options); });
  return run_in_folder(
      "page", problem, streams, [&](FolderRun& run) { return make_page_file(run, options); },
      FolderUse::subpopulations_too);
}

}  // namespace pedigreewatch
