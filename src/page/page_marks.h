// What is unusual in the figures of a year, as marks of its chart.
#pragma once

#include "page/chart.h"
#include "page/page_frame.h"

namespace pedigreewatch {

/// Marks each year whose F, the first series, lies more than 0.01 (one percentage point) above that of the calendar
/// year before. After a year without animals there is nothing to compare with.
void mark_rises(Chart& chart, const PageFrame& frame);

/// Marks the first year of the data when no animal was born in the year behind it: often a mistyped date.
void mark_lone_first_year(Chart& chart, const PageFrame& frame);

/// Marks each mean age below 0.
void mark_negative_ages(Chart& chart, const PageFrame& frame);

}  // namespace pedigreewatch
