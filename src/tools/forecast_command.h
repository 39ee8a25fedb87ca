// `pedigreewatch-tools forecast`: its options, its help, and the files that it is about.
#pragma once

#include <span>
#include <string_view>

#include "core/tool_streams.h"

namespace pedigreewatch {

/// The text of `forecast --help`.
std::string_view forecast_help();

/// Runs the subcommand in the folder with the steer file. Yields the exit status: 0 done, 1 something stands in the way
/// and nothing was written, 2 wrong arguments.
int run_forecast(std::span<const std::string_view> arguments, ToolStreams& streams);

}  // namespace pedigreewatch
