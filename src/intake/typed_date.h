// A date of birth that somebody types into a cell of the export. It is kept as the column writes its days: next year's
// export then has the same text, once the date is mended in the office program.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "intake/column_choice.h"
#include "intake/date_layout_recognition.h"
#include "intake/date_shapes.h"

namespace pedigreewatch {

/// How a column writes most of its days.
struct DayForm {
  DateShape shape = DateShape::unreadable;  ///< in numbers with the year first or last, compact, serial; else any other
  std::string first_divider = "-", second_divider = "-";
  bool is_padded = true;  ///< "04-03-2005", not "4-3-2005"
  std::string behind;     ///< a time of day that says nothing: " 00:00:00"
};

/// The form of the column of birth dates of an export, by the survey of its dates.
DayForm day_form(std::string_view text, char delimiter, const ColumnChoice& columns, const DateSurvey& survey);

/// What is known of a column of dates.
struct DateColumn {
  const DayForm& form;
  const DateSurvey& survey;
  const DatePlan& plan;
  bool is_day_first_usual = false;  ///< where the column does not tell whether the day stands before the month
};

struct TypedDate {
  std::string
      text;  ///< as the column would have it; as it was typed where it is no day, or the column has no such form
  /// It may be two days: both, as the column would have them (of numbers of days as yyyy-mm-dd).
  std::optional<std::pair<std::string, std::string>> either;
};

TypedDate typed_date(std::string_view typed, const DateColumn& column);

/// What people would write for a cell that holds the number of a day, in the layout of the plan; empty for all others.
std::string day_shown(std::string_view cell, const DatePlan& plan);

}  // namespace pedigreewatch
