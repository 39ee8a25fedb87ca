// The check of the data file that a page or table was made from.
#pragma once

#include <optional>

#include "checks/check.h"
#include "tools/folder_command.h"

namespace pedigreewatch {

/// What the checks find in the data file; nothing when it can no longer be read.
std::optional<CheckResult> check_population(const FolderRun& run);

}  // namespace pedigreewatch
