// What is unusual in the figures of a year, as marks of its chart.
#pragma once

#include "page/chart.h"
#include "page/page_frame.h"

namespace pedigreewatch {

/// Marks spans of years in which F, the first series, in per cent, rose by more than 1 % per generation: over one
/// generation interval, three years at least, between years with ten animals or more; the five fastest. Without a
/// generation interval nothing is marked.
void mark_rises(Chart& chart, const PageFrame& frame);

/// Marks the first year of the data when no animal was born in the year behind it: often a mistyped date.
void mark_lone_first_year(Chart& chart, const PageFrame& frame);

/// Marks each mean age below 0.
void mark_negative_ages(Chart& chart, const PageFrame& frame);

}  // namespace pedigreewatch
