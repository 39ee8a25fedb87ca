// Each date votes: 31-12-2005 can only be day-month-year, 04-05-2005 can be two days, 05-05-2005 is one day in either
// order. The votes of each shape decide about its order; the shape with most dates decides how all are written.

#include "intake/date_layout_recognition.h"

#include <algorithm>
#include <utility>

namespace pedigreewatch {
namespace {

constexpr std::array<std::string_view, date_order_count> layouts = {
    "dd-mm-yyyy", "mm-dd-yyyy", "yyyy-mm-dd", "yyyy-dd-mm", "ddmmyyyy", "mmddyyyy", "yyyymmdd", "yyyyddmm"};

std::size_t place_of(DateOrder order) {
  return static_cast<std::size_t>(order);
}

bool is_compact(DateOrder order) {
  return place_of(order) >= place_of(DateOrder::compact_day_month_year);
}

bool has_year_first(DateOrder order) {
  return place_of(order) % 4 >= 2;
}

bool has_day_before_month(DateOrder order) {
  return order == DateOrder::day_month_year || order == DateOrder::year_day_month ||
         order == DateOrder::compact_day_month_year || order == DateOrder::compact_year_day_month;
}

bool can_be_day_and_month(std::int32_t day, std::int32_t month) {
  constexpr std::int32_t last_day = 31, last_month = 12;
  return day <= last_day && month <= last_month;
}

/// `ahead` is the order in which the first number is the day.
void vote(OrderCounts& counts, const DatePiecesFound& date, std::int64_t line, std::string_view text,
          std::pair<DateOrder, DateOrder> day_first_and_month_first) {
  const bool is_day_first = can_be_day_and_month(date.first, date.second);
  const bool is_month_first = can_be_day_and_month(date.second, date.first);
  const auto [day_first, month_first] = day_first_and_month_first;
  ++counts.total;
  if (is_day_first && is_month_first) {
    counts.either += date.first != date.second ? 1 : 0;
  } else if (is_day_first) {
    ++counts.only[place_of(day_first)];
  } else if (is_month_first) {
    ++counts.only[place_of(month_first)];
  } else {
    note_text(counts.neither, line, text);
  }
}

struct CompactPieces {
  std::string_view year, month, day;
};

CompactPieces cut_compact(std::string_view digits, DateOrder order) {
  const bool year_first = has_year_first(order), day_first = has_day_before_month(order);
  const std::string_view first = digits.substr(year_first ? 4 : 0, 2), second = digits.substr(year_first ? 6 : 2, 2);
  return {digits.substr(year_first ? 0 : 4, 4), day_first ? second : first, day_first ? first : second};
}

std::int32_t number_of(std::string_view digits) {
  std::int32_t value = 0;
  for (const char digit : digits) value = value * 10 + (digit - '0');
  return value;
}

/// Whether eight digits make a likely date in this order.
bool fits_compact(std::string_view digits, DateOrder order) {
  constexpr std::int32_t first_year = 1700, last_year = 2199;
  const CompactPieces pieces = cut_compact(digits, order);
  const std::int32_t year = number_of(pieces.year);
  return year >= first_year && year <= last_year &&
         can_be_day_and_month(number_of(pieces.day), number_of(pieces.month));
}

constexpr std::array<DateOrder, 4> compact_orders = {
    DateOrder::compact_day_month_year, DateOrder::compact_month_day_year, DateOrder::compact_year_month_day,
    DateOrder::compact_year_day_month};

/// Counts in `only` every order that fits: the order with most of them is the likely one.
void vote_compact(OrderCounts& counts, std::string_view digits, std::int64_t line) {
  ++counts.total;
  bool fits_any = false;
  for (const DateOrder order : compact_orders) {
    if (!fits_compact(digits, order)) continue;
    ++counts.only[place_of(order)];
    fits_any = true;
  }
  if (!fits_any) note_text(counts.neither, line, digits);
}

/// One order is clear when hardly any date speaks for the other.
constexpr std::int64_t clear_majority = 20;

/// The order of a shape with two possible ones. `usual` is taken where no date tells them apart and none would differ.
DateOrder decide(DatePlan& plan, const OrderCounts& counts, DateOrder usual, DateOrder other, bool is_usual_certain) {
  const std::int64_t for_usual = counts.only[place_of(usual)], for_other = counts.only[place_of(other)];
  const bool is_other_likely = for_other * clear_majority > counts.either;  // and not a slip of the pen
  if (for_other > for_usual * clear_majority && is_other_likely) return other;
  if (for_usual > for_other * clear_majority) return usual;
  if (for_usual == 0 && for_other == 0 && (counts.either == 0 || is_usual_certain)) return usual;
  plan.is_ambiguous = true;
  plan.first_order = usual;
  plan.second_order = other;
  plan.first_count = for_usual;
  plan.second_count = for_other;
  plan.either_count = counts.either;
  return usual;
}

std::optional<DateOrder> decide_compact(DatePlan& plan, const OrderCounts& counts) {
  if (counts.total == 0) return std::nullopt;
  std::array<DateOrder, 4> orders = compact_orders;
  const auto votes = [&](DateOrder order) { return counts.only[place_of(order)]; };
  std::stable_sort(orders.begin(), orders.end(), [&](DateOrder a, DateOrder b) { return votes(a) > votes(b); });
  if (votes(orders[0]) == 0) return std::nullopt;
  // Every yyyymmdd date up to the 12th of a month fits yyyyddmm too, hence a lead of a few dates is enough.
  if (votes(orders[0]) > votes(orders[1])) return orders[0];
  plan.is_ambiguous = true;
  plan.first_order = orders[0];
  plan.second_order = orders[1];
  plan.first_count = plan.second_count = 0;
  plan.either_count = votes(orders[0]);
  return orders[0];
}

/// How most dates are written.
DateOrder most_common(const DatePlan& plan, const DateSurvey& survey) {
  const std::int64_t last = survey.year_last.total + survey.named;
  if (plan.compact && survey.compact.total > std::max(last, survey.year_first.total)) return *plan.compact;
  return survey.year_first.total > last ? plan.year_first : plan.year_last;
}

void append_padded(std::string& bytes, std::string_view digits) {
  if (digits.size() < 2) bytes.append(2 - digits.size(), '0');
  bytes.append(digits);
}

/// Year, month and day in the layout; a month or day that is not known is 00.
void append_in_order(std::string& bytes, DateOrder order, const CompactPieces& date) {
  const std::string_view divider = is_compact(order) ? "" : "-";
  const std::string_view first = has_day_before_month(order) ? date.day : date.month;
  const std::string_view second = has_day_before_month(order) ? date.month : date.day;
  if (has_year_first(order)) bytes.append(date.year).append(divider);
  append_padded(bytes, first);
  bytes.append(divider);
  append_padded(bytes, second);
  if (!has_year_first(order)) bytes.append(divider).append(date.year);
}

constexpr std::array<std::string_view, 13> month_digits = {"00", "01", "02", "03", "04", "05", "06",
                                                           "07", "08", "09", "10", "11", "12"};

}  // namespace

std::string layout_text(DateOrder order, bool is_dutch) {
  std::string text(layouts[place_of(order)]);
  if (is_dutch) std::replace(text.begin(), text.end(), 'y', 'j');
  return text;
}

std::optional<DateOrder> date_order_named(std::string_view text) {
  const std::size_t day = text.find_first_of("dD"), month = text.find_first_of("mM"), year = text.find_first_of("yYjJ");
  constexpr std::size_t nowhere = std::string_view::npos;
  if (day == nowhere || month == nowhere || year == nowhere) return std::nullopt;
  if (year > std::min(day, month) && year < std::max(day, month)) return std::nullopt;
  const bool is_divided = text.find_first_not_of("dDmMyYjJ") != nowhere;
  std::size_t place = is_divided ? 0 : 4;
  if (year < month) {
    place += day < month ? 3 : 2;
  } else {
    place += day < month ? 0 : 1;
  }
  return static_cast<DateOrder>(place);
}

void note_text(NotedTexts& noted, std::int64_t line, std::string_view text, std::size_t most) {
  ++noted.count;
  if (noted.first.size() < most) noted.first.push_back({line, std::string(text)});
}

void survey_date(DateSurvey& survey, std::string_view text, std::int64_t line) {
  const DatePiecesFound date = cut_date(text);
  survey.with_time += date.has_time ? 1 : 0;
  switch (date.shape) {
    case DateShape::empty: ++survey.empty; return;
    case DateShape::year_first:
      return vote(survey.year_first, date, line, text, {DateOrder::year_day_month, DateOrder::year_month_day});
    case DateShape::year_last:
      return vote(survey.year_last, date, line, text, {DateOrder::day_month_year, DateOrder::month_day_year});
    case DateShape::compact: return vote_compact(survey.compact, date.year, line);
    case DateShape::named: ++survey.named; return;
    case DateShape::year_only: ++survey.year_only; return;
    case DateShape::month_only: ++survey.month_only; return;
    case DateShape::short_year: return note_text(survey.short_years, line, text);
    case DateShape::unreadable: return note_text(survey.unreadable, line, text);
  }
}

DatePlan plan_dates(const DateSurvey& survey, std::optional<DateOrder> wanted) {
  DatePlan plan;
  plan.year_first = decide(plan, survey.year_first, DateOrder::year_month_day, DateOrder::year_day_month, true);
  plan.year_last = decide(plan, survey.year_last, DateOrder::day_month_year, DateOrder::month_day_year, false);
  plan.compact = decide_compact(plan, survey.compact);
  plan.written = most_common(plan, survey);
  if (!wanted) return plan;
  plan.is_ambiguous = false;
  plan.written = *wanted;
  if (is_compact(*wanted)) {
    plan.compact = wanted;
  } else {
    (has_year_first(*wanted) ? plan.year_first : plan.year_last) = *wanted;
  }
  return plan;
}

void append_date(std::string& bytes, std::string_view text, const DatePlan& plan) {
  const DatePiecesFound date = cut_date(text);
  const auto append_full = [&](DateOrder read) {
    const bool day_first = has_day_before_month(read);
    append_in_order(
        bytes, plan.written,
        {date.year, day_first ? date.second_text : date.first_text, day_first ? date.first_text : date.second_text});
  };
  switch (date.shape) {
    case DateShape::empty: return;
    case DateShape::year_first: return append_full(plan.year_first);
    case DateShape::year_last: return append_full(plan.year_last);
    case DateShape::compact:
      if (!plan.compact || *plan.compact == plan.written) break;
      return append_in_order(bytes, plan.written, cut_compact(date.year, *plan.compact));
    case DateShape::named:
      return append_in_order(bytes, plan.written,
                             {date.year, month_digits[static_cast<std::size_t>(date.second)], date.first_text});
    case DateShape::month_only: return append_in_order(bytes, plan.written, {date.year, date.second_text, ""});
    case DateShape::year_only:
      if (!is_compact(plan.written)) break;
      return append_in_order(bytes, plan.written, {date.year, "", ""});
    case DateShape::short_year:
    case DateShape::unreadable: break;
  }
  bytes.append(text);
}

}  // namespace pedigreewatch
