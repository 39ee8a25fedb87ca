// What has to be asked about the dates of birth.
#pragma once

#include <cstdint>
#include <vector>

#include "intake/column_choice.h"
#include "intake/export_survey.h"
#include "intake/prepare_options.h"
#include "intake/remark.h"

namespace pedigreewatch {

/// Dates that are not understood are asked about when they are more than one in so many.
inline constexpr std::int64_t tolerated_odd_dates = 50;
/// Where the user says the order, they are asked about when they are more than half.
inline constexpr std::int64_t tolerated_in_wished_order = 2;

/// The order of day and month, the hundred years of two digits, how numbers of days are counted; and whether the column
/// is the right one, where more than a few of its texts, or all, are no dates.
std::vector<Question> ask_for_dates(const ExportSurvey& survey, const DatePlan& plan, const ColumnChoice& columns,
                                    const PrepareOptions& options);

}  // namespace pedigreewatch
