// The day on which a tool runs.
#pragma once

#include "checks/calendar.h"

namespace pedigreewatch {

/// Today, by the clock of the computer (UTC).
CalendarDate current_date();

}  // namespace pedigreewatch
