// Birth years as a whole, and the ages of parents at the births of their young.
#pragma once

#include <vector>

#include "checks/check_limits.h"
#include "checks/date_conflicts.h"
#include "checks/file_reading.h"
#include "checks/findings.h"
#include "checks/pedigree_columns.h"
#include "checks/reading_plan.h"

namespace pedigreewatch {

/// Tells the animals with nothing but a year. Where most dates are mere years, as 1 January or without a day, every
/// such date is taken for a year, and that is told of the file instead.
void settle_year_only_dates(PedigreeColumns& animals, const FileSurvey& survey, const ReadingPlan& plan,
                            Findings& findings);

/// Finds dates beside impossible ones of which day and month may be exchanged too.
void check_exchanged_dates(const PedigreeColumns& animals, const FileSurvey& survey, const ReadingPlan& plan,
                           Findings& findings);

/// Finds years in the future, years far from all others, empty years and a span that stops the run.
void check_years(PedigreeColumns& animals, const ReadingPlan& plan, const CalendarDate& today, ToolLanguage language,
                 Findings& findings);

/// Finds young born before their parents, and parents too young or too old. Of dates without a day or month only what
/// no day could allow. What two dates make impossible, or a parent too old, is a conflict.
void check_ages(const PedigreeColumns& animals, const CheckLimits& limits, ToolLanguage language, Findings& findings,
                std::vector<DateConflict>& conflicts);

/// The first and last year as the program's tables take them; the last is before the first when no year is known.
struct YearsOfTables {
  std::int32_t first = 0, last = 0;
};
YearsOfTables years_of_tables(const PedigreeColumns& animals);

/// Of a year of the program's calendar, in which the ages of its tables are.
inline constexpr std::int32_t days_per_table_year = 365;

/// The age of a parent in days of that calendar, as far as 32 bits go; -1 when it is not known.
std::int32_t age_in_tables(const PedigreeColumns& animals, std::int32_t animal, std::int32_t parent);

/// Finds a parent so old that the tables of ages stop the run.
void check_age_figures(const PedigreeColumns& animals, Findings& findings);

}  // namespace pedigreewatch
