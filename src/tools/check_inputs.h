// What a check needs besides the data file: the lines of the steer file, and today's date.
#pragma once

#include <string>
#include <vector>

#include "checks/calendar.h"

namespace pedigreewatch {

/// The lines of the steer file in this folder as they stand; far more than it can have are not kept. None when it
/// cannot be opened.
std::vector<std::string> lines_of_steer_file();

/// Today, by the clock of the computer (UTC).
CalendarDate current_date();

}  // namespace pedigreewatch
