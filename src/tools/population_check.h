// The check of the data file that a page or table was made from.
#pragma once

#include <optional>

#include "checks/check.h"
#include "tools/folder_command.h"

namespace pedigreewatch {

/// What the checks find in the data file that the settings name; nothing when it cannot be read.
std::optional<CheckResult> check_population(const SteerSettings& steer, ToolStreams& streams,
                                            CheckScope scope = CheckScope::everything);

}  // namespace pedigreewatch
