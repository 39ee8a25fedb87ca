// From what the steer file says about a run to what the checks of its data file are told.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "checks/check_settings.h"
#include "control/steer_settings.h"

namespace pedigreewatch {

/// The lines of a steer file as they stand; far more than it can have are not kept. None when it cannot be opened.
std::vector<std::string> lines_of_steer_file(const std::string& name);

/// What stands beside a data file about the export that it was made of. Nothing when it stands there no longer as it
/// was made; `is_outdated` tells whether that is so because the data file was changed since.
std::optional<ExportLines> export_lines_beside(const std::string& data_file, bool& is_outdated);

/// The settings of a check of the data file that the steer file names, with the limits of its species. `steer_lines`
/// are the lines of the steer file itself; a birth beyond `today` is in the future.
CheckSettings make_check_settings(const SteerSettings& steer, std::vector<std::string> steer_lines,
                                  const CalendarDate& today);

}  // namespace pedigreewatch
