// `pedigreewatch-tools matings`: its options, its help, and the files that it is about.
#pragma once

#include <span>
#include <string_view>

#include "core/tool_streams.h"

namespace pedigreewatch {

/// The text of `matings --help`.
std::string_view matings_help();

/// Runs the subcommand in the folder with the steer file. Yields the exit status: 0 done, 1 something stands in the way
/// or some animals of a list were left out, 2 wrong arguments.
int run_matings(std::span<const std::string_view> arguments, ToolStreams& streams);

}  // namespace pedigreewatch
