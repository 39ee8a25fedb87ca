// `pedigreewatch-tools tables`: its options, its help, and the files that it writes.
#pragma once

#include <span>
#include <string_view>

#include "core/tool_streams.h"

namespace pedigreewatch {

/// The text of `tables --help`.
std::string_view tables_help();

/// Runs the subcommand in the folder with the steer file. Yields the exit status: 0 the tables are there, 1 data or
/// files stand in the way and nothing was written, 2 wrong arguments.
int run_tables(std::span<const std::string_view> arguments, ToolStreams& streams);

}  // namespace pedigreewatch
