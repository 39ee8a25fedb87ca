// `pedigreewatch-tools prepare`: its options and its help.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "intake/prepare.h"

namespace pedigreewatch {

/// The text of `prepare --help`.
std::string_view prepare_help();

/// Reads the arguments behind "prepare" into `options`. Yields what is wrong with them; empty: nothing.
std::string read_prepare_options(std::span<const std::string_view> arguments, PrepareOptions& options);

/// Runs the subcommand. Yields the exit status; 2 when the arguments are wrong.
int run_prepare(std::span<const std::string_view> arguments, ToolStreams& streams);

}  // namespace pedigreewatch
