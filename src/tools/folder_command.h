// The frame of the subcommands that work on the population of a folder: their arguments are read, the population is
// computed as a run does it, and one step of their own follows.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "control/population_analysis.h"
#include "core/tool_streams.h"
#include "text/phrases.h"
#include "tools/command_line.h"
#include "tools/folder_analysis.h"

namespace pedigreewatch {

inline constexpr Wording was_stopped = {"stopped; nothing was written", "afgebroken; er is niets geschreven"};

inline constexpr Wording has_changed_meanwhile = {
    "{1}: the file has changed while it was read; nothing was written; run again when nobody writes it",
    "{1}: het bestand is veranderd terwijl het gelezen werd; er is niets geschreven; begin opnieuw als niemand het schrijft"};

/// What is said of a file where only options are expected.
inline constexpr std::string_view data_file_is_known =
    "no file was expected; the data file is the one of pedigreewatch.ini";

/// Takes one option; yields what is wrong with it, empty: nothing.
using TakeOption = std::function<std::string(const GivenOption& option)>;

/// Reads the arguments of a subcommand that takes options alone, and hands each to `take`. Yields what is wrong with
/// them, empty: nothing. `instead_of_operand` is said of anything that is no option.
std::string read_options(std::span<const std::string_view> arguments, std::span<const OptionRule> rules,
                         const TakeOption& take, std::string_view instead_of_operand = data_file_is_known);

/// Arguments that make no sense, with where to read more.
ToolRefusal refusal_of_arguments(std::string_view subcommand, std::string_view problem);

/// What the step of a subcommand works with.
struct FolderRun {
  const AnalysedPopulation& population;
  ToolStreams& streams;
  ToolLanguage language;
  int exit_status = 0;  ///< of a step that is done

  std::string words(const Wording& wording, std::initializer_list<std::string_view> values = {}) const {
    return phrase(wording, language, values);
  }
};

using FolderStep = std::function<std::optional<ToolRefusal>(FolderRun& run)>;

/// What is done with the settings of a folder while no population is in memory yet.
using EarlyStep = std::function<void(const SteerSettings& settings)>;

/// Computes the population of this folder and takes the step, unless something was wrong with the arguments
/// (`problem`; empty: nothing). Says what stands in the way, and yields the exit status. The early step is taken
/// before, where there is one and the settings can be read.
int run_in_folder(std::string_view subcommand, std::string_view problem, ToolStreams& streams, const FolderStep& step,
                  FolderUse use = FolderUse::animals, const EarlyStep& early_step = {});

/// Refuses to go on when the data file is no longer the one that the population was computed from.
std::optional<ToolRefusal> refuse_changed_data(const FolderRun& run);
/// Refuses when the population was not computed from the data file as it was in this state.
std::optional<ToolRefusal> refuse_other_data(const FolderRun& run, const FileState& state);

}  // namespace pedigreewatch
