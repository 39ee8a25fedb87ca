// Each date votes: 31-12-2005 can only be day-month-year, 04-05-2005 can be two days, 05-05-2005 is one day in either
// order. The votes of each shape decide about its order; the shape with most dates decides how all are written.

#include "intake/date_layout_recognition.h"

#include <algorithm>
#include <utility>

#include "core/leap_year.h"
#include "intake/value_words.h"

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

/// The place among the four orders of eight digits.
std::size_t place_of_compact(DateOrder order) {
  return place_of(order) - place_of(DateOrder::compact_day_month_year);
}

std::int32_t number_of(std::string_view digits) {
  std::int32_t value = 0;
  for (const char digit : digits.substr(0, 9)) value = value * 10 + (digit - '0');
  return value;
}

/// A year of 0 is not known.
void note_year(BirthSpan& span, std::int32_t year) {
  if (year == 0) return;
  span = {std::min(span.first, year), std::max(span.last, year)};
}

/// `ahead` is the order in which the first number is the day.
void vote(OrderCounts& counts, const DatePiecesFound& date, std::int64_t line, std::string_view text,
          std::pair<DateOrder, DateOrder> day_first_and_month_first) {
  const std::int32_t year = number_of(date.year);
  const bool is_day_first = can_be_day_and_month(date.first, date.second, year);
  const bool is_month_first = can_be_day_and_month(date.second, date.first, year);
  const auto [day_first, month_first] = day_first_and_month_first;
  ++counts.total;
  if (is_day_first && is_month_first) {
    if (date.first == date.second) return;
    ++counts.either;
    note_fit(counts.if_day_first, DateFit::either, line, text);
    note_fit(counts.if_month_first, DateFit::either, line, text);
  } else if (is_day_first || is_month_first) {
    ++counts.only[place_of(is_day_first ? day_first : month_first)];
    note_fit(counts.if_day_first, is_day_first ? DateFit::certain : DateFit::impossible, line, text);
    note_fit(counts.if_month_first, is_month_first ? DateFit::certain : DateFit::impossible, line, text);
  } else {
    note_text(counts.neither, line, text);
  }
}

void survey_short(ShortDates& dates, const DatePiecesFound& date, std::int64_t line, std::string_view text) {
  note_text(dates.noted, line, text);
  if (date.shape != DateShape::short_year) {
    ++dates.with_month_word;
    return;
  }
  constexpr std::int32_t any_year = 0;
  const std::int32_t third = number_of(date.year);
  ++dates.total;
  const auto count = [&](std::int64_t& fitting, NotedTexts& unfit, std::int32_t day, std::int32_t month) {
    const bool fits = can_be_day_and_month(day, month, any_year);
    fitting += fits ? 1 : 0;
    if (!fits) note_text(unfit, line, text);
  };
  count(dates.day_month_year, dates.no_day_month_year, date.first, date.second);
  count(dates.month_day_year, dates.no_month_day_year, date.second, date.first);
  count(dates.year_month_day, dates.no_year_month_day, third, date.second);
}

struct CompactPieces {
  std::string_view year, month, day;
};

CompactPieces cut_compact(std::string_view digits, DateOrder order) {
  const bool year_first = has_year_first(order), day_first = has_day_before_month(order);
  const std::string_view first = digits.substr(year_first ? 4 : 0, 2), second = digits.substr(year_first ? 6 : 2, 2);
  return {digits.substr(year_first ? 0 : 4, 4), day_first ? second : first, day_first ? first : second};
}

/// Whether eight digits make a likely date in this order.
bool fits_compact(std::string_view digits, DateOrder order) {
  constexpr std::int32_t first_year = 1700;  // the digits of a day and a month before that make years too
  const CompactPieces pieces = cut_compact(digits, order);
  const std::int32_t year = number_of(pieces.year);
  return year >= first_year && year <= last_year_of_birth &&
         can_be_day_and_month(number_of(pieces.day), number_of(pieces.month), year);
}

constexpr std::array<DateOrder, 4> compact_orders = {
    DateOrder::compact_day_month_year, DateOrder::compact_month_day_year, DateOrder::compact_year_month_day,
    DateOrder::compact_year_day_month};

/// Counts in `only` every order that fits: the order with most of them is the likely one.
void vote_compact(DateSurvey& survey, std::string_view digits, std::int64_t line) {
  OrderCounts& counts = survey.compact;
  ++counts.total;
  bool fits_any = false;
  for (const DateOrder order : compact_orders) {
    if (!fits_compact(digits, order)) {
      note_text(survey.unfit_compact[place_of_compact(order)], line, digits);
      continue;
    }
    ++counts.only[place_of(order)];
    note_year(survey.years.compact[place_of(order)], number_of(cut_compact(digits, order).year));
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

/// The orders of three short numbers that are possible.
struct ShortOrders {
  bool day_first = false, month_first = false, year_first = false;
};

/// Those in which nearly all are a day. Where the year stands is told by parents and young, hardly any of which are in
/// order with a day in its place, or by the dates of the column that have all digits; and so is the order of day and
/// month by these.
ShortOrders possible_short_orders(const DatePlan& plan, const DateSurvey& survey) {
  const ShortDates& dates = survey.short_dates;
  const auto fits = [&](std::int64_t count) { return (dates.total - count) * clear_majority <= dates.total; };
  ShortOrders orders = {fits(dates.day_month_year), fits(dates.month_day_year), fits(dates.year_month_day)};
  const bool fits_last = is_in_order(survey.short_years.year_last);
  const bool fits_first = is_in_order(survey.short_years.year_first);
  const std::int64_t last = survey.year_last.total, first = survey.year_first.total;
  if (fits_last == fits_first ? last > first * clear_majority : fits_last) orders.year_first = false;
  if (orders.year_first && (fits_last == fits_first ? first > last * clear_majority : fits_first)) {
    orders.day_first = orders.month_first = false;
  }
  if (orders.day_first && orders.month_first && last > 0 && !plan.is_ambiguous) {
    orders.day_first = plan.year_last == DateOrder::day_month_year;
    orders.month_first = !orders.day_first;
  }
  return orders;
}

DateOrder decide_short(DatePlan& plan, const DateSurvey& survey) {
  const ShortOrders orders = possible_short_orders(plan, survey);
  if (orders.day_first && !orders.month_first && !orders.year_first) return DateOrder::day_month_year;
  if (orders.month_first && !orders.day_first && !orders.year_first) return DateOrder::month_day_year;
  if (orders.year_first && !orders.day_first && !orders.month_first) return DateOrder::year_month_day;
  const bool has_month_first = orders.month_first || !orders.year_first;
  plan.is_ambiguous = true;
  plan.first_order = orders.day_first || !orders.month_first ? DateOrder::day_month_year : DateOrder::month_day_year;
  plan.second_order = has_month_first && plan.first_order == DateOrder::day_month_year ? DateOrder::month_day_year
                                                                                       : DateOrder::year_month_day;
  plan.first_count = plan.second_count = 0;
  plan.either_count = survey.short_dates.total;
  return plan.first_order;
}

/// The hundred years of the short ones.
void decide_century(DatePlan& plan, const DateSurvey& survey, const DateWish& wanted) {
  if (survey.short_dates.noted.count == 0) return;
  const bool is_year_first = plan.short_order == DateOrder::year_month_day;
  if (wanted.century) {
    plan.short_years = {*wanted.century, *wanted.century + static_cast<std::int32_t>(years_of_circle) - 1};
  } else if (wanted.this_year > 0) {
    plan.short_years =
        tell_years(is_year_first ? survey.short_years.year_first : survey.short_years.year_last, wanted.this_year);
  }
  plan.is_century_open = !plan.short_years;
}

/// From which day the numbers of days are counted: from 1900 where some would be in the future otherwise.
void decide_serials(DatePlan& plan, const DateSurvey& survey, const DateWish& wanted) {
  if (survey.serials.noted.count == 0) return;
  plan.serials = wanted.serials.value_or(DateSystem::since_1900);
  if (wanted.serials) return;
  const std::string latest = day_of_serial(std::to_string(survey.serials.highest), DateSystem::since_1904);
  const bool is_known = wanted.this_year > 0;
  plan.are_serials_open = !is_known || number_of(latest.substr(0, 4)) <= wanted.this_year;
}

/// How most dates are written.
DateOrder most_common(const DatePlan& plan, const DateSurvey& survey) {
  const std::int64_t last = survey.year_last.total + survey.named + survey.short_dates.noted.count;
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

/// A date whose year has two digits.
void append_short(std::string& bytes, const DatePiecesFound& date, const DatePlan& plan) {
  const bool is_year_first = date.shape == DateShape::short_year && has_year_first(plan.short_order);
  const bool is_day_first = has_day_before_month(plan.short_order) && !is_year_first;
  const std::string year =
      std::to_string(whole_year(number_of(is_year_first ? date.first_text : date.year), plan.short_years->first));
  if (date.shape != DateShape::short_year) {
    return append_in_order(bytes, plan.written,
                           {year, month_digits[static_cast<std::size_t>(date.second)], date.first_text});
  }
  const std::string_view day = is_year_first ? date.year : is_day_first ? date.first_text : date.second_text;
  const std::string_view month = is_year_first || is_day_first ? date.second_text : date.first_text;
  append_in_order(bytes, plan.written, {year, month, day});
}

void append_serial(std::string& bytes, std::string_view digits, const DatePlan& plan) {
  const std::string day = day_of_serial(digits, plan.serials);
  const std::string_view text = day;
  append_in_order(bytes, plan.written, {text.substr(0, 4), text.substr(5, 2), text.substr(8, 2)});
}

/// Whether an animal may be born in a year with these digits, or they stand for no year (0000).
bool is_year_of_birth(std::string_view digits) {
  constexpr std::size_t digit_count = 4;
  if (digits.size() != digit_count) return false;
  const std::int32_t year = number_of(digits);
  return year == 0 || (year >= first_year_of_birth && year <= last_year_of_birth);
}

bool tells_its_year(DateShape shape) {
  return shape == DateShape::year_first || shape == DateShape::year_last || shape == DateShape::named ||
         shape == DateShape::year_only || shape == DateShape::month_only;
}

/// Cuts a date of birth: 03-04-20145 and 11-08-3004 are slips of the pen, and a lone 0 says that there is none.
DatePiecesFound cut_date_of_birth(std::string_view text) {
  DatePiecesFound date = cut_date(text);
  if (tells_its_year(date.shape) && !is_year_of_birth(date.year)) date = {};
  if (date.shape == DateShape::unreadable && means_unknown(text)) date.shape = DateShape::empty;
  return date;
}

/// A word in the place of a date that is not known to mean that there is none.
bool is_odd_word(std::string_view text) {
  constexpr std::string_view too_narrow = "##";  // what a spreadsheet shows of a date in a narrow column
  if (text.find(too_narrow) != std::string_view::npos) return true;
  const bool has_letter = std::any_of(text.begin(), text.end(), [](char byte) {
    const bool is_plain = (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
    return is_plain || static_cast<unsigned char>(byte) >= 0x80;
  });
  return has_letter && !means_unknown_parent(text);
}

}  // namespace

bool has_year_first(DateOrder order) {
  return place_of(order) % 4 >= 2;
}

bool has_day_before_month(DateOrder order) {
  return order == DateOrder::day_month_year || order == DateOrder::year_day_month ||
         order == DateOrder::compact_day_month_year || order == DateOrder::compact_year_day_month;
}

bool can_be_day_and_month(std::int32_t day, std::int32_t month, std::int32_t year) {
  constexpr std::array<std::int32_t, 13> days = {31, 31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  constexpr std::int32_t last_month = 12, february = 2, last_short_year = 99;
  if (month > last_month) return false;
  const bool is_leap_year = year <= last_short_year || has_leap_day(year);
  return day <= days[static_cast<std::size_t>(month)] - (month == february && !is_leap_year ? 1 : 0);
}

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

std::optional<DateSystem> date_system_named(std::string_view text) {
  if (text == "serial-1900") return DateSystem::since_1900;
  if (text == "serial-1904") return DateSystem::since_1904;
  return std::nullopt;
}

std::optional<std::int32_t> century_named(std::string_view text) {
  constexpr std::size_t digit_count = 4;
  if (text.size() != digit_count || text.find_first_not_of("0123456789") != std::string_view::npos) return std::nullopt;
  return number_of(text);
}

void survey_date(DateSurvey& survey, std::string_view text, std::int64_t line) {
  const DatePiecesFound date = cut_date_of_birth(text);
  survey.with_time += date.has_time ? 1 : 0;
  survey.rough += date.is_rough && date.shape != DateShape::unreadable ? 1 : 0;
  if (tells_its_year(date.shape)) note_year(survey.years.plain, number_of(date.year));
  switch (date.shape) {
    case DateShape::empty:
      ++survey.empty;
      if (is_odd_word(text)) note_text(survey.odd_words, line, text);
      return;
    case DateShape::year_first:
      return vote(survey.year_first, date, line, text, {DateOrder::year_day_month, DateOrder::year_month_day});
    case DateShape::year_last:
      return vote(survey.year_last, date, line, text, {DateOrder::day_month_year, DateOrder::month_day_year});
    case DateShape::compact: return vote_compact(survey, date.year, line);
    case DateShape::named: ++survey.named; return;
    case DateShape::year_only: ++survey.year_only; return;
    case DateShape::month_only: ++survey.month_only; return;
    case DateShape::short_year:
    case DateShape::short_named:
    case DateShape::short_month: return survey_short(survey.short_dates, date, line, text);
    case DateShape::serial:
      survey.serials.lowest = std::min(survey.serials.lowest, number_of(date.year));
      survey.serials.highest = std::max(survey.serials.highest, number_of(date.year));
      return note_text(survey.serials.noted, line, text);
    case DateShape::unreadable: return note_text(survey.unreadable, line, text);
  }
}

DatePlan plan_dates(const DateSurvey& survey, const DateWish& wanted) {
  DatePlan plan;
  plan.year_first = decide(plan, survey.year_first, DateOrder::year_month_day, DateOrder::year_day_month, true);
  plan.year_last = decide(plan, survey.year_last, DateOrder::day_month_year, DateOrder::month_day_year, false);
  plan.compact = decide_compact(plan, survey.compact);
  if (survey.short_dates.total > 0) plan.short_order = decide_short(plan, survey);
  plan.written = most_common(plan, survey);
  if (wanted.order) {
    plan.is_ambiguous = false;
    plan.written = *wanted.order;
    if (is_compact(*wanted.order)) {
      plan.compact = wanted.order;
    } else {
      (has_year_first(*wanted.order) ? plan.year_first : plan.year_last) = *wanted.order;
      plan.short_order = *wanted.order;
    }
  }
  decide_century(plan, survey, wanted);
  decide_serials(plan, survey, wanted);
  return plan;
}

const ExchangedDates& exchanged_year_first(const DateSurvey& survey, const DatePlan& plan) {
  const OrderCounts& counts = survey.year_first;
  return has_day_before_month(plan.year_first) ? counts.if_day_first : counts.if_month_first;
}

const ExchangedDates& exchanged_year_last(const DateSurvey& survey, const DatePlan& plan) {
  const OrderCounts& counts = survey.year_last;
  return has_day_before_month(plan.year_last) ? counts.if_day_first : counts.if_month_first;
}

const NotedTexts& unfit_compact(const DateSurvey& survey, const DatePlan& plan) {
  return plan.compact ? survey.unfit_compact[place_of_compact(*plan.compact)] : survey.compact.neither;
}

const NotedTexts& unfit_short(const DateSurvey& survey, const DatePlan& plan) {
  const ShortDates& dates = survey.short_dates;
  if (has_year_first(plan.short_order)) return dates.no_year_month_day;
  return has_day_before_month(plan.short_order) ? dates.no_day_month_year : dates.no_month_day_year;
}

DateCounts count_dates(const DateSurvey& survey, const DatePlan& plan) {
  DateCounts counts;
  counts.not_understood = survey.unreadable.count + survey.odd_words.count + survey.year_first.neither.count +
                          survey.year_last.neither.count + exchanged_year_first(survey, plan).impossible.count +
                          exchanged_year_last(survey, plan).impossible.count + unfit_compact(survey, plan).count +
                          unfit_short(survey, plan).count;
  counts.all = survey.year_first.total + survey.year_last.total + survey.compact.total +
               survey.short_dates.noted.count + survey.serials.noted.count + survey.named + survey.year_only +
               survey.month_only + survey.unreadable.count + survey.odd_words.count;
  return counts;
}

std::string day_of_serial(std::string_view digits, DateSystem system) {
  std::string text;
  append_date_of_serial(text, number_of(digits.substr(0, digits.find_first_of(".,"))), CellKind::date, system);
  return text;
}

/// Eight digits: in the order of the plan, unless they hold no year of birth in it.
void append_compact(std::string& bytes, std::string_view digits, const DatePlan& plan) {
  if (!plan.compact) return;
  const CompactPieces pieces = cut_compact(digits, *plan.compact);
  if (is_year_of_birth(pieces.year)) append_in_order(bytes, plan.written, pieces);
}

void append_date(std::string& bytes, std::string_view text, const DatePlan& plan) {
  const DatePiecesFound date = cut_date_of_birth(text);
  const std::string_view month = month_digits[static_cast<std::size_t>(std::clamp(date.second, 0, 12))];
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
    case DateShape::compact: return append_compact(bytes, date.year, plan);
    case DateShape::named: return append_in_order(bytes, plan.written, {date.year, month, date.first_text});
    case DateShape::month_only: return append_in_order(bytes, plan.written, {date.year, month, ""});
    case DateShape::year_only:
      if (is_compact(plan.written)) return append_in_order(bytes, plan.written, {date.year, "", ""});
      bytes.append(date.year);
      return;
    case DateShape::short_year:
    case DateShape::short_named:
    case DateShape::short_month:
      if (plan.short_years) append_short(bytes, date, plan);
      return;
    case DateShape::serial: return append_serial(bytes, date.year, plan);
    case DateShape::unreadable: return;
  }
}

}  // namespace pedigreewatch
