// The first and the last year of the dates of an export: a report has a row for each year between them.
#pragma once

#include "intake/date_layout_recognition.h"

namespace pedigreewatch {

/// As the plan reads the dates; the last is before the first when no date has a year.
BirthSpan years_of_dates(const DateSurvey& survey, const DatePlan& plan);

}  // namespace pedigreewatch
