// `pedigreewatch-tools check`: its options, its help, and the files that it is about.
#pragma once

#include <span>
#include <string_view>

#include "core/tool_streams.h"

namespace pedigreewatch {

/// The text of `check --help`.
std::string_view check_help();

/// The exit status of a check that could not be made.
inline constexpr int could_not_check = 2;

/// Runs the subcommand in the folder with the steer file. Yields the exit status: 0 nothing above "look", 1 something
/// stops the run or falsifies figures, 2 it could not be checked.
int run_check(std::span<const std::string_view> arguments, ToolStreams& streams);

}  // namespace pedigreewatch
