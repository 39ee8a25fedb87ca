// The subcommands of pedigreewatch-tools.
#pragma once

#include <span>
#include <string_view>

#include "core/tool_streams.h"

namespace pedigreewatch {

/// Runs what the arguments ask for: a subcommand, help, or the version. Yields the exit status; 2 when they make no
/// sense.
int run_tools(std::span<const std::string_view> arguments, std::string_view version, ToolStreams& streams);

}  // namespace pedigreewatch
