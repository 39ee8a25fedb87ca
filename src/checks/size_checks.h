// Whether a report of these data can be made at all.
#pragma once

#include "checks/check_settings.h"
#include "checks/file_reading.h"
#include "checks/findings.h"
#include "checks/pedigree_columns.h"
#include "checks/reading_plan.h"

namespace pedigreewatch {

/// Finds subpopulations and birth years so many that the size of the report stops the run.
void check_report_size(const PedigreeColumns& animals, const FileSurvey& survey, const ReadingPlan& plan,
                       const CheckSettings& settings, Findings& findings);

}  // namespace pedigreewatch
