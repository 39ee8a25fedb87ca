// Whether the dates are written in the layout that the steer file gives.
#pragma once

#include "checks/check_settings.h"
#include "checks/file_reading.h"
#include "checks/findings.h"
#include "checks/reading_plan.h"

namespace pedigreewatch {

/// Looks at the dates again when many of them do not fit. Where another layout fits nearly all of them the plan gets
/// it, `findings` says so, and the file has to be read again: yields true then. `data` is at its start before and
/// after.
bool mend_date_layout(LineReader& data, const FileSurvey& survey, ReadingPlan& plan, ToolLanguage language,
                      Findings& findings);

}  // namespace pedigreewatch
