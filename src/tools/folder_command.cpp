// A refusal is said in one place, whichever step comes up with it.

#include "tools/folder_command.h"

#include "control/steer_file.h"
#include "corrections/contained_corrections.h"
#include "tools/folder_analysis.h"

namespace pedigreewatch {
std::string read_options(std::span<const std::string_view> arguments, std::span<const OptionRule> rules,
                         const TakeOption& take, std::string_view instead_of_operand) {
  const CommandLine line = read_command_line(arguments, rules);
  if (!line.problem.empty()) return line.problem;
  if (!line.operands.empty()) return in_quotes(line.operands.front()) + ": " + std::string(instead_of_operand);
  for (const GivenOption& option : line.options) {
    std::string problem = take(option);
    if (!problem.empty()) return problem;
  }
  return {};
}

ToolRefusal refusal_of_arguments(std::string_view subcommand, std::string_view problem) {
  const std::string program = "pedigreewatch-tools " + std::string(subcommand);
  return {program + ": " + std::string(problem) + "\nTry: " + program + " --help", wrong_arguments};
}

int run_in_folder(std::string_view subcommand, std::string_view problem, ToolStreams& streams, const FolderStep& step,
                  FolderUse use, const EarlyStep& early_step) {
  if (!problem.empty()) return refuse(streams, refusal_of_arguments(subcommand, problem));
  if (early_step) {
    SteerSettings settings;
    if (!read_settings_of_folder(settings)) early_step(settings);  // else the analysis says what is wrong with them
  }
  AnalysedPopulation population;
  std::optional<ToolRefusal> refusal = analyse_folder(use, streams.stop_request, population);
  if (refusal) return refuse(streams, *refusal);
  FolderRun run{population, streams, language_of(population.settings)};
  if (population.corrections > 0) say(streams.console, contained_corrections(population.corrections, run.language));
  refusal = step(run);
  return refusal ? refuse(streams, *refusal) : run.exit_status;
}

std::optional<ToolRefusal> refuse_other_data(const FolderRun& run, const FileState& state) {
  if (state == run.population.data_state) return std::nullopt;
  const std::string name(run.population.settings.data_file_name.trimmed());
  return ToolRefusal{run.words(has_changed_meanwhile, {in_quotes(name)})};
}

std::optional<ToolRefusal> refuse_changed_data(const FolderRun& run) {
  return refuse_other_data(run, state_of_file(std::string(run.population.settings.data_file_name.trimmed())));
}

}  // namespace pedigreewatch
