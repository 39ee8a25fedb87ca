// The subcommand `page` of pedigreewatch-tools: charts and tables of the population as one file for a browser.
#pragma once

#include <span>
#include <string_view>

#include "core/tool_streams.h"

namespace pedigreewatch {

/// The help of the subcommand.
std::string_view page_help();

/// Writes the page beside the report. Yields 0, 1 when data or files stand in the way and nothing was written, 2 when
/// the arguments are wrong.
int run_page(std::span<const std::string_view> arguments, ToolStreams& streams);

}  // namespace pedigreewatch
