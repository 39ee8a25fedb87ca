// A date is a row of numbers with signs between them. The piece of three digits or more is the year.

#include "intake/date_shapes.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>

#include "text/folded_words.h"

namespace pedigreewatch {
namespace {

bool is_digit(char byte) {
  return byte >= '0' && byte <= '9';
}

/// Signs that may stand between the pieces of a date.
bool divides(char byte) {
  return byte == '-' || byte == '/' || byte == '.' || byte == ' ' || byte == ',';
}

struct MonthName {
  std::string_view start;  ///< folded; the first three letters tell the months apart in each language
  std::int32_t month;
};

constexpr auto month_names = std::to_array<MonthName>({
    {"jan", 1}, {"feb", 2}, {"fev", 2},  {"mar", 3},  {"maa", 3},  {"mrt", 3},  {"mrz", 3},  {"mae", 3}, {"apr", 4},
    {"avr", 4}, {"may", 5}, {"mei", 5},  {"mai", 5},  {"juin", 6}, {"jun", 6},  {"juil", 7}, {"jul", 7}, {"aug", 8},
    {"aou", 8}, {"sep", 9}, {"oct", 10}, {"okt", 10}, {"nov", 11}, {"dec", 12}, {"dez", 12},
});

/// The month that a word names; 0 for none.
std::int32_t month_named(std::string_view word) {
  const std::string plain = folded(word);
  for (const MonthName& entry : month_names) {
    if (plain.starts_with(entry.start)) return entry.month;
  }
  return 0;
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

/// Cuts `text` into numbers and words; false when it holds anything else, or too many of them.
bool cut_pieces(std::string_view text, Pieces& pieces) {
  while (!text.empty()) {
    if (pieces.count == most_pieces || divides(text.front())) return false;
    const bool is_number = is_digit(text.front());
    const auto* const end =
        std::find_if(text.begin(), text.end(), [&](char byte) { return divides(byte) || is_digit(byte) != is_number; });
    const std::size_t length = static_cast<std::size_t>(end - text.begin());
    if (!is_number) {
      pieces.word = pieces.count;
      ++pieces.word_count;
    }
    pieces.texts[pieces.count++] = text.substr(0, length);
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
  return {shape, year, first, second, small_number(first), small_number(second), false};
}

DatePiecesFound cut_named(const Pieces& pieces) {
  const std::int32_t month = month_named(pieces.texts[pieces.word]);
  std::array<std::string_view, 2> numbers = {};
  std::size_t count = 0;
  for (std::size_t i = 0; i < pieces.count; ++i) {
    if (i != pieces.word) numbers[count++] = pieces.texts[i];
  }
  if (month == 0 || count != 2 || is_year(numbers[0]) == is_year(numbers[1])) return {};
  const bool is_year_first = is_year(numbers[0]);
  DatePiecesFound found = make(DateShape::named, numbers[is_year_first ? 0 : 1], numbers[is_year_first ? 1 : 0], {});
  found.second = month;
  return found;
}

DatePiecesFound cut_numbers(const Pieces& pieces) {
  const auto [a, b, c] = pieces.texts;
  if (pieces.count == 1) {
    if (a.size() == 8) return {.shape = DateShape::compact, .year = a, .first_text = {}, .second_text = {}};
    if (a.size() == 4) return make(DateShape::year_only, a, {}, {});
    return {};
  }
  if (pieces.count == 2) {
    if (is_year(a) == is_year(b)) return {};
    const DatePiecesFound found = make(DateShape::month_only, is_year(a) ? a : b, {}, is_year(a) ? b : a);
    return found.second > 12 ? DatePiecesFound{} : found;
  }
  if (is_year(a) && !is_year(b) && !is_year(c)) return make(DateShape::year_first, a, b, c);
  if (is_year(c) && !is_year(a) && !is_year(b)) return make(DateShape::year_last, c, a, b);
  const bool has_short_year = !is_year(a) && !is_year(b) && !is_year(c);
  return {.shape = has_short_year ? DateShape::short_year : DateShape::unreadable,
          .year = {},
          .first_text = {},
          .second_text = {}};
}

/// Whether `text` has a digit wherever `form` has a 9, and where it has a hyphen a sign that divides.
bool has_form(std::string_view text, std::string_view form) {
  if (text.size() != form.size()) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (form[i] == '9' ? !is_digit(text[i]) : !divides(text[i])) return false;
  }
  return true;
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
  if (std::none_of(text.begin(), text.end(), is_digit))
    return {.shape = DateShape::empty, .year = {}, .first_text = {}, .second_text = {}};
  const bool has_time = take_time(text);
  Pieces pieces;
  if (!cut_pieces(text, pieces)) return {};
  DatePiecesFound found = pieces.word_count == 1 ? cut_named(pieces) : cut_numbers(pieces);
  found.has_time = has_time;
  return found;
}

}  // namespace pedigreewatch
