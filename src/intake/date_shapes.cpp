// A date is a row of numbers with signs between them. The piece of three digits or more is the year.

#include "intake/date_shapes.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "intake/date_words.h"
#include "text/plain_letters.h"

namespace pedigreewatch {
namespace {

/// Signs that may stand between the pieces of a date.
bool divides(char byte) {
  return byte == '-' || byte == '/' || byte == '.' || byte == ' ' || byte == ',' || byte == '\'';
}

/// Whether `text` is a time of day such as 12:30, 00:00:00.000Z or 3:15 PM.
bool is_time(std::string_view text) {
  constexpr std::string_view signs = "0123456789:.,+- ZzAaPpMm";
  return !text.empty() && is_digit(text.front()) && text.find(':') != std::string_view::npos &&
         text.find_first_not_of(signs) == std::string_view::npos;
}

/// Takes a time of day off the end of `text`.
bool take_time(std::string_view& text) {
  const std::size_t colon = text.find(':');
  if (colon == std::string_view::npos) return false;
  const std::size_t divider = text.find_last_of("T ", colon);
  if (divider == std::string_view::npos || !is_time(text.substr(divider + 1))) return false;
  text = text.substr(0, divider);
  while (!text.empty() && (text.back() == ' ' || text.back() == ',')) text.remove_suffix(1);
  return true;
}

constexpr std::size_t most_pieces = 3;

struct Pieces {
  std::array<std::string_view, most_pieces> texts = {};
  std::size_t count = 0;
  std::size_t word_count = 0;
  std::size_t word = 0;  ///< the place of the piece that is a word
};

/// Adds a number or a word; false for one too many.
bool add_piece(Pieces& pieces, std::string_view piece) {
  const bool is_word = !is_digit(piece.front());
  if (is_word && is_filler_of_date(piece)) return true;
  if (pieces.count == most_pieces) return false;
  if (is_word) {
    pieces.word = pieces.count;
    ++pieces.word_count;
  }
  pieces.texts[pieces.count++] = piece;
  return true;
}

/// Cuts `text` into numbers and words; false when it holds anything else, or too many of them.
bool cut_pieces(std::string_view text, Pieces& pieces) {
  while (!text.empty()) {
    if (divides(text.front())) return false;
    const bool is_number = is_digit(text.front());
    const auto* const end =
        std::find_if(text.begin(), text.end(), [&](char byte) { return divides(byte) || is_digit(byte) != is_number; });
    const std::size_t length = static_cast<std::size_t>(end - text.begin());
    if (!add_piece(pieces, text.substr(0, length))) return false;
    text.remove_prefix(length);
    const std::size_t rest = text.size();
    while (!text.empty() && divides(text.front())) text.remove_prefix(1);
    if (text.empty() && rest > 0 && pieces.word_count == 0) return false;  // ends in a sign
  }
  return pieces.word_count <= 1;
}

/// The value of at most two digits.
std::int32_t small_number(std::string_view digits) {
  std::int32_t value = 0;
  for (const char digit : digits) value = value * 10 + (digit - '0');
  return value;
}

bool is_year(std::string_view digits) {
  constexpr std::size_t most_digits_of_a_day = 2;
  return digits.size() > most_digits_of_a_day;
}

DatePiecesFound make(DateShape shape, std::string_view year, std::string_view first, std::string_view second) {
  DatePiecesFound found;
  found.shape = shape;
  found.year = year;
  found.first_text = first;
  found.second_text = second;
  found.first = small_number(first);
  found.second = small_number(second);
  return found;
}

/// A month in words and one number: the year, unless it may as well be a day.
DatePiecesFound cut_named_month(const Pieces& pieces, std::int32_t month) {
  const std::string_view number = pieces.texts[pieces.word == 0 ? 1 : 0];
  const bool is_whole_year = is_year(number);
  if (!is_whole_year && pieces.word != 0) return {};  // "12-Jul" is a day without a year
  DatePiecesFound found = make(is_whole_year ? DateShape::month_only : DateShape::short_month, number, {}, {});
  found.second = month;
  return found;
}

DatePiecesFound cut_named(const Pieces& pieces) {
  constexpr std::int32_t last_day = 31;
  const std::int32_t month = month_named(pieces.texts[pieces.word]);
  if (month == 0 || pieces.count < 2) return {};
  if (pieces.count == 2) return cut_named_month(pieces, month);
  std::array<std::string_view, 2> numbers = {};
  std::size_t count = 0;
  for (std::size_t i = 0; i < pieces.count; ++i) {
    if (i != pieces.word) numbers[count++] = pieces.texts[i];
  }
  if (is_year(numbers[0]) && is_year(numbers[1])) return {};
  const bool is_short = !is_year(numbers[0]) && !is_year(numbers[1]);
  const bool is_year_first = is_year(numbers[0]) || (is_short && small_number(numbers[0]) > last_day);
  DatePiecesFound found = make(is_short ? DateShape::short_named : DateShape::named, numbers[is_year_first ? 0 : 1],
                               numbers[is_year_first ? 1 : 0], {});
  found.second = month;
  return found;
}

DatePiecesFound cut_numbers(const Pieces& pieces) {
  const auto [a, b, c] = pieces.texts;
  if (pieces.count == 1) {
    if (a.size() == 8) return make(DateShape::compact, a, {}, {});
    if (a.size() == 4) return make(DateShape::year_only, a, {}, {});
    return {};
  }
  if (pieces.count == 2) {
    constexpr std::int32_t last_month = 12;
    if (is_year(a) == is_year(b)) return {};
    const DatePiecesFound found = make(DateShape::month_only, is_year(a) ? a : b, {}, is_year(a) ? b : a);
    return found.second > last_month ? DatePiecesFound{} : found;
  }
  if (is_year(a) && !is_year(b) && !is_year(c)) return make(DateShape::year_first, a, b, c);
  if (is_year(c) && !is_year(a) && !is_year(b)) return make(DateShape::year_last, c, a, b);
  const bool is_short = !is_year(a) && !is_year(b) && !is_year(c);
  return is_short ? make(DateShape::short_year, c, a, b) : DatePiecesFound{};
}

/// The number of a day in a spreadsheet, five digits for all days since 1927; the part of a day behind it is left out.
bool is_serial(std::string_view text) {
  constexpr std::size_t digit_count = 5;
  if (text.size() < digit_count || text.front() == '0') return false;
  if (!std::all_of(text.begin(), text.begin() + digit_count, is_digit)) return false;
  const std::string_view rest = text.substr(digit_count);
  if (rest.empty()) return true;
  return rest.size() > 1 && (rest.front() == '.' || rest.front() == ',') &&
         std::all_of(rest.begin() + 1, rest.end(), is_digit);
}

/// Whether `text` has a digit wherever `form` has a 9, and where it has a hyphen a sign that divides.
bool has_form(std::string_view text, std::string_view form) {
  if (text.size() != form.size()) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (form[i] == '9' ? !is_digit(text[i]) : !divides(text[i])) return false;
  }
  return true;
}

/// Whether a date names a day, and not a month or a year alone.
bool names_day(DateShape shape) {
  switch (shape) {
    case DateShape::year_first:
    case DateShape::year_last:
    case DateShape::compact:
    case DateShape::named:
    case DateShape::short_year:
    case DateShape::short_named: return true;
    default: return false;
  }
}

/// A date with the day of the week before it; unreadable where it has none.
DatePiecesFound cut_behind_weekday(std::string_view text) {
  const std::string_view date = behind_weekday(text);
  if (date.size() == text.size()) return {};
  const DatePiecesFound found = cut_date(date);
  return names_day(found.shape) ? found : DatePiecesFound{};  // "Mar 2019" is a month
}

}  // namespace

DatePiecesFound cut_date(std::string_view text) {
  // The two forms of nearly all dates are told at a glance.
  if (has_form(text, "9999-99-99")) {
    return make(DateShape::year_first, text.substr(0, 4), text.substr(5, 2), text.substr(8, 2));
  }
  if (has_form(text, "99-99-9999")) {
    return make(DateShape::year_last, text.substr(6, 4), text.substr(0, 2), text.substr(3, 2));
  }
  if (std::none_of(text.begin(), text.end(), is_digit)) return make(DateShape::empty, {}, {}, {});
  if (is_serial(text)) return make(DateShape::serial, text.substr(0, 5), {}, {});
  if (!is_digit(text.front())) {
    const DatePiecesFound found = cut_behind_weekday(text);
    if (found.shape != DateShape::unreadable) return found;
  }
  const bool is_rough = take_rough_signs(text);
  const bool has_time = take_time(text);
  Pieces pieces;
  if (!cut_pieces(text, pieces) || pieces.count == 0) return {};
  DatePiecesFound found = pieces.word_count == 1 ? cut_named(pieces) : cut_numbers(pieces);
  found.has_time = has_time;
  found.is_rough = is_rough;
  return found;
}

bool has_short_year(DateShape shape) {
  return shape == DateShape::short_year || shape == DateShape::short_named || shape == DateShape::short_month;
}

}  // namespace pedigreewatch
