#include "intake/typed_date.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "intake/export_records.h"

namespace pedigreewatch {
namespace {

struct Day {
  std::int32_t year = 0, month = 0, day = 0;
};

std::int32_t value_of(std::string_view digits) {
  constexpr std::size_t most_digits = 9;
  std::int32_t value = 0;
  for (const char byte : digits.substr(0, most_digits)) value = value * 10 + (byte - '0');
  return value;
}

bool is_day(const Day& day) {
  return day.day > 0 && day.month > 0 && can_be_day_and_month(day.day, day.month, day.year);
}

std::string padded(std::int32_t value, std::size_t width) {
  std::string digits = std::to_string(value);
  return std::string(width - std::min(width, digits.size()), '0') + digits;
}

std::string iso_text(const Day& day) {
  return padded(day.year, 4) + "-" + padded(day.month, 2) + "-" + padded(day.day, 2);
}

/// The shape of most dates, if it is one in which any day can be written.
DateShape shape_of_most(const DateSurvey& survey) {
  const std::array<std::pair<std::int64_t, DateShape>, 5> counts = {
      {{survey.year_first.total, DateShape::year_first},
       {survey.year_last.total, DateShape::year_last},
       {survey.compact.total, DateShape::compact},
       {survey.serials.noted.count, DateShape::serial},
       {survey.named + survey.short_dates.noted.count, DateShape::unreadable}}};
  const auto* const most = std::max_element(counts.begin(), counts.end(),
                                            [](const auto& one, const auto& other) { return one.first < other.first; });
  return most->first > 0 ? most->second : DateShape::unreadable;
}

/// What stands between two pieces of a text, or behind the last one.
std::string_view between(std::string_view text, std::string_view piece, std::string_view next) {
  const auto begin = static_cast<std::size_t>(piece.data() + piece.size() - text.data());
  const auto end = next.empty() ? text.size() : static_cast<std::size_t>(next.data() - text.data());
  return text.substr(begin, end - begin);
}

/// Takes the signs between the numbers of a date.
void take_signs(DayForm& form, std::string_view text, const DatePiecesFound& date) {
  const bool is_year_first = date.shape == DateShape::year_first;
  const std::string_view first = is_year_first ? date.year : date.first_text;
  const std::string_view second = is_year_first ? date.first_text : date.second_text;
  const std::string_view third = is_year_first ? date.second_text : date.year;
  form.first_divider = between(text, first, second);
  form.second_divider = between(text, second, third);
  const std::string_view behind = between(text, third, {});
  constexpr std::string_view no_time = " T0:.Z";
  if (date.has_time && behind.find_first_not_of(no_time) == std::string_view::npos) form.behind = behind;
}

/// The day before the month: by the dates of the column, or by its eight digits; none where they do not tell.
std::optional<bool> has_day_first(const DateColumn& column) {
  if (column.survey.year_last.total > 0) return has_day_before_month(column.plan.year_last);
  const std::optional<DateOrder>& compact = column.plan.compact;
  if (compact && !has_year_first(*compact)) return has_day_before_month(*compact);
  return column.is_day_first_usual ? std::optional(true) : std::nullopt;
}

/// The days that a text may be: none, one or, where only the order of day and month tells them apart, two.
struct PossibleDays {
  std::optional<Day> day, other;
};

PossibleDays days_typed(const DatePiecesFound& date, const DateColumn& column) {
  const std::int32_t year = value_of(date.year);
  const Day day_first = {year, date.second, date.first}, month_first = {year, date.first, date.second};
  const auto one_of = [](const Day& likely, const Day& other) -> PossibleDays {
    if (is_day(likely)) return {likely, {}};
    return is_day(other) ? PossibleDays{other, {}} : PossibleDays{};
  };
  constexpr std::size_t digits_of_year = 4;
  if (date.has_time || date.is_rough || date.year.size() != digits_of_year) return {};
  if (date.shape == DateShape::named) {
    const Day named = {year, date.second, value_of(date.first_text)};
    return is_day(named) ? PossibleDays{named, {}} : PossibleDays{};
  }
  if (date.shape == DateShape::year_first) {
    const bool is_odd = column.survey.year_first.total > 0 && has_day_before_month(column.plan.year_first);
    return is_odd ? one_of(day_first, month_first) : one_of(month_first, day_first);
  }
  if (date.shape != DateShape::year_last) return {};
  const std::optional<bool> known = has_day_first(column);
  const bool is_clear = date.first == date.second || !is_day(day_first) || !is_day(month_first);
  if (known || is_clear) return known.value_or(true) ? one_of(day_first, month_first) : one_of(month_first, day_first);
  return {day_first, month_first};
}

/// The number of a day, of five digits; none for a day that has no such number.
std::optional<std::string> serial_of(const Day& day, DateSystem system) {
  constexpr std::int32_t first_serial = 10'000, behind_last = 100'000;
  const std::string wanted = iso_text(day);
  std::int32_t low = first_serial, high = behind_last;
  while (low < high) {
    const std::int32_t middle = low + (high - low) / 2;
    if (day_of_serial(std::to_string(middle), system) < wanted) {
      low = middle + 1;
    } else {
      high = middle;
    }
  }
  const std::string serial = std::to_string(low);
  if (low == behind_last || day_of_serial(serial, system) != wanted) return std::nullopt;
  return serial;
}

/// A day as the column writes it; none where it cannot.
std::optional<std::string> written_day(const Day& day, const DateColumn& column) {
  const auto& [form, survey, plan, is_usual] = column;
  constexpr std::int32_t last_year = 9999;
  if (day.year > last_year) return std::nullopt;
  const std::string year = padded(day.year, 4);
  const std::size_t width = form.is_padded ? 2 : 1;
  const auto in_order = [&](bool is_day_first) {
    const std::string first = padded(is_day_first ? day.day : day.month, width);
    const std::string second = padded(is_day_first ? day.month : day.day, width);
    return std::pair(first, second);
  };
  switch (form.shape) {
    case DateShape::year_first: {
      const auto [first, second] = in_order(has_day_before_month(plan.year_first));
      return year + form.first_divider + first + form.second_divider + second + form.behind;
    }
    case DateShape::year_last: {
      const auto [first, second] = in_order(has_day_before_month(plan.year_last));
      return first + form.first_divider + second + form.second_divider + year + form.behind;
    }
    case DateShape::compact: {
      if (!plan.compact) return std::nullopt;
      const auto [first, second] = in_order(has_day_before_month(*plan.compact));
      return has_year_first(*plan.compact) ? year + first + second : first + second + year;
    }
    case DateShape::serial: return plan.are_serials_open ? std::nullopt : serial_of(day, plan.serials);
    default: return std::nullopt;
  }
}

}  // namespace

DayForm day_form(std::string_view text, char delimiter, const ColumnChoice& columns, const DateSurvey& survey) {
  DayForm form;
  form.shape = shape_of_most(survey);
  const std::optional<std::size_t>& place = columns.place[birthdate_column];
  if (!place || (form.shape != DateShape::year_first && form.shape != DateShape::year_last)) return form;
  constexpr std::int32_t enough_dates = 1000;
  RecordReader reader = read_records(text, delimiter);
  ExportRecord record;
  std::int32_t seen = 0;
  while (seen < enough_dates && next_record(reader, record)) {
    if (*place >= record.fields.size()) continue;
    const std::string_view field = trimmed(record.fields[*place]);
    const DatePiecesFound date = cut_date(field);
    if (date.shape != form.shape || date.is_rough) continue;
    if (++seen == 1) take_signs(form, field, date);
    if (date.first_text.size() == 1 || date.second_text.size() == 1) form.is_padded = false;
  }
  return form;
}

TypedDate typed_date(std::string_view typed, const DateColumn& column) {
  const DatePiecesFound date = cut_date(typed);
  const PossibleDays days = days_typed(date, column);
  const std::optional<std::string> text = days.day ? written_day(*days.day, column) : std::nullopt;
  if (!text) return {std::string(typed), {}};
  if (!days.other) return {*text, {}};
  if (column.form.shape == DateShape::serial)
    return {std::string(typed), std::pair(iso_text(*days.day), iso_text(*days.other))};
  return {std::string(typed), std::pair(*text, written_day(*days.other, column).value_or(iso_text(*days.other)))};
}

std::string day_shown(std::string_view cell, const DatePlan& plan) {
  std::string shown;
  if (cut_date(cell).shape == DateShape::serial && !plan.are_serials_open) append_date(shown, cell, plan);
  return shown;
}

}  // namespace pedigreewatch
