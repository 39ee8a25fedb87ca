// The layout of an export's dates: from the numbers that can only be a day or only be a month, and the layout in which
// all of them are written.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "intake/date_shapes.h"

namespace pedigreewatch {

/// The layouts of full dates. Those with the year at one end take any signs between the numbers.
enum class DateOrder {
  day_month_year,
  month_day_year,
  year_month_day,
  year_day_month,
  compact_day_month_year,
  compact_month_day_year,
  compact_year_month_day,
  compact_year_day_month,
};
inline constexpr std::size_t date_order_count = 8;

/// The layout as the steer file writes it: "dd-mm-yyyy", "ddmmyyyy", with "jjjj" in Dutch.
std::string layout_text(DateOrder order, bool is_dutch);

/// The layout that a user names with the letters d, m and y or j; nothing when one of the three is missing.
std::optional<DateOrder> date_order_named(std::string_view text);

/// A text of the export that a message names.
struct NotedText {
  std::int64_t line = 0;
  std::string text;
};

/// Texts that are listed: the first ones, and how many there are.
struct NotedTexts {
  std::vector<NotedText> first;
  std::int64_t count = 0;
};

inline constexpr std::size_t most_noted_texts = 20;
/// Lines that hold no animal are all told, up to this many.
inline constexpr std::size_t most_told_lines = 500;
void note_text(NotedTexts& noted, std::int64_t line, std::string_view text, std::size_t most = most_noted_texts);

/// What the dates of one shape allow.
struct OrderCounts {
  std::int64_t total = 0;
  std::array<std::int64_t, date_order_count> only = {};  ///< dates that fit this layout and not its counterpart
  std::int64_t either = 0;                               ///< fit both, and would be different days
  NotedTexts neither;                                    ///< no layout makes a day of them
};

struct DateSurvey {
  OrderCounts year_first, year_last, compact;
  std::int64_t empty = 0, named = 0, year_only = 0, month_only = 0, with_time = 0;
  NotedTexts short_years, unreadable;
};

/// Looks at one more date.
void survey_date(DateSurvey& survey, std::string_view text, std::int64_t line);

/// What is decided about the dates.
struct DatePlan {
  DateOrder year_first = DateOrder::year_month_day;  ///< how dates with the year at the start are read
  DateOrder year_last = DateOrder::day_month_year;
  std::optional<DateOrder> compact;               ///< nothing: eight digits are no date
  DateOrder written = DateOrder::day_month_year;  ///< the layout of the data file
  bool is_ambiguous = false;  ///< the dates that decide the layout fit two orders: the user has to say which
  /// Dates of the shape in question that fit the one and the other order only, and both.
  std::int64_t first_count = 0, second_count = 0, either_count = 0;
  DateOrder first_order = DateOrder::day_month_year, second_order = DateOrder::month_day_year;
};

/// Decides by what most dates allow; `wanted` overrules it.
DatePlan plan_dates(const DateSurvey& survey, std::optional<DateOrder> wanted);

/// The date in the layout of the plan; a text that is no full date stays as it is, one without a digit becomes empty.
void append_date(std::string& bytes, std::string_view text, const DatePlan& plan);

}  // namespace pedigreewatch
