// The layout of an export's dates: from the numbers that can only be a day or only be a month, and the layout in which
// all of them are written.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "intake/birth_circle.h"
#include "intake/date_shapes.h"
#include "intake/exchanged_dates.h"
#include "intake/noted_texts.h"
#include "sheets/cell_values.h"

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

bool has_year_first(DateOrder order);
bool has_day_before_month(DateOrder order);

/// Whether there is such a day, or could be where day or month is not told (0). A year of less than three digits may
/// be any one.
bool can_be_day_and_month(std::int32_t day, std::int32_t month, std::int32_t year);

/// The layout as the steer file writes it: "dd-mm-yyyy", "ddmmyyyy", with "jjjj" in Dutch.
std::string layout_text(DateOrder order, bool is_dutch);

/// The layout that a user names with the letters d, m and y or j; nothing when one of the three is missing.
std::optional<DateOrder> date_order_named(std::string_view text);

/// The way of counting days that a user names: "serial-1900" or "serial-1904".
std::optional<DateSystem> date_system_named(std::string_view text);

/// The first of the hundred years that a user names, such as 1925; nothing for what is no year of four digits.
std::optional<std::int32_t> century_named(std::string_view text);

/// What the dates of one shape allow.
struct OrderCounts {
  std::int64_t total = 0;
  std::array<std::int64_t, date_order_count> only = {};  ///< dates that fit this layout and not its counterpart
  std::int64_t either = 0;                               ///< fit both, and would be different days
  NotedTexts neither;                                    ///< no layout makes a day of them
  ExchangedDates if_day_first, if_month_first;           ///< what is odd if that is the order
};

/// Dates with a year of two digits, and how many of them are a day in each order.
struct ShortDates {
  std::int64_t total = 0;
  std::int64_t day_month_year = 0, month_day_year = 0, year_month_day = 0;
  NotedTexts no_day_month_year, no_month_day_year, no_year_month_day;  ///< those that are none in that order
  std::int64_t with_month_word = 0;                                    ///< besides: the year is plain
  NotedTexts noted;                                                    ///< all of them
};

/// Dates that are numbers of days.
struct SerialDates {
  std::int32_t lowest = INT32_MAX, highest = 0;
  NotedTexts noted;  ///< all of them
};

/// The years of dates that tell them plainly, and of eight digits in each order that fits them. Where there is none the
/// last is before the first.
struct SurveyedYears {
  static constexpr BirthSpan none = {INT32_MAX, 0};
  BirthSpan plain = none;
  std::array<BirthSpan, date_order_count> compact = {none, none, none, none, none, none, none, none};
};

struct DateSurvey {
  OrderCounts year_first, year_last, compact;
  ShortDates short_dates;
  SerialDates serials;
  std::array<NotedTexts, 4> unfit_compact = {};  ///< of eight digits: for each such order those that are no day in it
  NotedTexts odd_words;                          ///< of the empty ones: with words that nobody knows
  std::int64_t empty = 0, named = 0, year_only = 0, month_only = 0, with_time = 0, rough = 0;
  NotedTexts unreadable;
  SurveyedYears years;
  ShortYears short_years;  ///< filled only where there are short dates
};

/// Looks at one more date.
void survey_date(DateSurvey& survey, std::string_view text, std::int64_t line);

/// What is decided about the dates.
struct DatePlan {
  DateOrder year_first = DateOrder::year_month_day;  ///< how dates with the year at the start are read
  DateOrder year_last = DateOrder::day_month_year;
  std::optional<DateOrder> compact;                   ///< nothing: eight digits are no date
  DateOrder short_order = DateOrder::day_month_year;  ///< how three numbers of two digits are read
  std::optional<BirthSpan> short_years;               ///< what years of two digits mean; nothing: they stay
  DateSystem serials = DateSystem::since_1900;        ///< how numbers of days are read
  DateOrder written = DateOrder::day_month_year;      ///< the layout of the data file
  bool is_ambiguous = false;  ///< the dates that decide the layout fit two orders: the user has to say which
  /// Dates of the shape in question that fit the one and the other order only, and both.
  std::int64_t first_count = 0, second_count = 0, either_count = 0;
  DateOrder first_order = DateOrder::day_month_year, second_order = DateOrder::month_day_year;
  bool is_century_open = false, are_serials_open = false;  ///< the user has to say that too
};

/// What the user says about the dates, and the year in which he does.
struct DateWish {
  std::optional<DateOrder> order;
  std::optional<DateSystem> serials;
  std::optional<std::int32_t> century;  ///< the first year of the hundred that years of two digits mean
  std::int32_t this_year = 0;           ///< 0: not known
};

/// Decides by what most dates allow; `wanted` overrules it.
DatePlan plan_dates(const DateSurvey& survey, const DateWish& wanted);

/// What is odd about the dates with the year at that end, as the plan reads them.
const ExchangedDates& exchanged_year_first(const DateSurvey& survey, const DatePlan& plan);
const ExchangedDates& exchanged_year_last(const DateSurvey& survey, const DatePlan& plan);

/// Dates of eight digits, and of three short numbers, that are no day as the plan reads them.
const NotedTexts& unfit_compact(const DateSurvey& survey, const DatePlan& plan);
const NotedTexts& unfit_short(const DateSurvey& survey, const DatePlan& plan);

/// All dates, and those of them that the plan makes no day, month or year of.
struct DateCounts {
  std::int64_t all = 0, not_understood = 0;
};
DateCounts count_dates(const DateSurvey& survey, const DatePlan& plan);

/// The day of that number as "2019-03-12"; the part of a day behind it (43536.0) is left out.
std::string day_of_serial(std::string_view digits, DateSystem system);

/// Years of birth; others are slips of the pen, and their dates cannot be read.
inline constexpr std::int32_t first_year_of_birth = 1500, last_year_of_birth = 2199;

/// The date in the layout of the plan; a year alone stays a year. What cannot be read, or not before the user has said
/// how, becomes empty: the program stops at dates that are no numbers.
void append_date(std::string& bytes, std::string_view text, const DatePlan& plan);

}  // namespace pedigreewatch
