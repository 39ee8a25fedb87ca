// A date is cut at its separators or at fixed places, and only then read as numbers. Days are checked against the month
// but never against the year: the 29th of February is a day of every year.

#include "pedigree/birth_date.h"

#include <algorithm>
#include <array>

#include "core/by_number.h"
#include "core/fixed_text.h"
#include "text/plain_letters.h"

namespace pedigreewatch {
namespace {

constexpr NumberedArray<std::int32_t, 12> month_lengths = {{31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31}};

constexpr std::string_view digit_characters = "0123456789";

struct DatePieces {
  std::string_view year, month, day;
};

/// The part of `text` from `first` to `last`, counted from 1, as far as the text reaches.
std::string_view part(std::string_view text, std::size_t first, std::size_t last) {
  last = std::min(last, text.size());
  return first > last ? std::string_view() : text.substr(first - 1, last - first + 1);
}

DatePieces cut_by_position(std::string_view text, const DateLayout& layout) {
  if (layout.year_first) {
    const std::string_view fifth = part(text, 5, 6), seventh = part(text, 7, 8);
    return {part(text, 1, 4), layout.day_first ? seventh : fifth, layout.day_first ? fifth : seventh};
  }
  const std::string_view first = part(text, 1, 2), third = part(text, 3, 4);
  return {part(text, 5, 8), layout.day_first ? third : first, layout.day_first ? first : third};
}

/// Any character that is no digit separates; a text without any is one piece that serves as the first and the last.
DatePieces cut_by_separators(std::string_view text, const DateLayout& layout) {
  const std::size_t first_found = text.find_first_not_of(digit_characters);
  const std::size_t last_found = text.find_last_not_of(digit_characters);
  const bool has_none = first_found == std::string_view::npos;
  const std::size_t first_place = has_none ? text.size() + 1 : first_found + 1;
  const std::size_t last_place = has_none ? 0 : last_found + 1;
  const std::string_view front = part(text, 1, first_place - 1);
  const std::string_view middle = part(text, first_place + 1, last_place == 0 ? 0 : last_place - 1);
  const std::string_view back = part(text, last_place + 1, text.size());
  if (layout.year_first) return {front, layout.day_first ? back : middle, layout.day_first ? middle : back};
  return {back, layout.day_first ? middle : front, layout.day_first ? front : middle};
}

/// Takes digits off the start of `text`, up to nine of them, and yields their value; -1 when there are none or more.
std::int32_t take_digits(std::string_view& text) {
  constexpr std::size_t most_digits = 9;
  std::int32_t value = 0;
  std::size_t count = 0;
  for (; count < text.size() && is_digit(text[count]); ++count) {
    if (count == most_digits) return -1;
    value = value * 10 + (text[count] - '0');
  }
  text.remove_prefix(count);
  return count == 0 ? -1 : value;
}

/// A date as nearly all of them are written: three numbers with one separator between each two. Yields false for any
/// other text, which is then read with more care.
bool read_usual_date(std::string_view text, const DateLayout& layout, BirthDate& date) {
  std::array<std::int32_t, 3> numbers = {};
  for (std::size_t piece = 0; piece < numbers.size(); ++piece) {
    if (piece > 0) {
      if (text.empty()) return false;
      text.remove_prefix(1);  // not a digit, or it would have been taken
    }
    numbers[piece] = take_digits(text);
    if (numbers[piece] < 0) return false;
  }
  if (!text.empty()) return false;
  const std::size_t first = layout.year_first ? 1 : 0;  // of day and month
  date.year = numbers[layout.year_first ? 0 : 2];
  date.day = numbers[layout.day_first ? first : first + 1];
  date.month = numbers[layout.day_first ? first + 1 : first];
  return true;
}

/// Blanks do not count; an optional sign and digits. An empty piece is 0.
bool read_piece(std::string_view piece, std::int32_t& value) {
  std::int64_t total = 0;
  bool is_negative = false, has_sign = false, has_digit = false;
  for (const char byte : piece) {
    if (byte == ' ') continue;
    if (is_digit(byte)) {
      has_digit = true;
      total = total * 10 + (byte - '0');
      if (total > std::int64_t{INT32_MAX} + 1) return false;
    } else if ((byte == '-' || byte == '+') && !has_sign && !has_digit) {
      has_sign = true;
      is_negative = byte == '-';
    } else {
      return false;
    }
  }
  if (has_sign && !has_digit) return false;
  total = is_negative ? -total : total;
  if (total > INT32_MAX) return false;
  value = static_cast<std::int32_t>(total);
  return true;
}

}  // namespace

DateLayout date_layout_of(std::string_view text) {
  const std::string_view letters = without_trailing_blanks(text);
  const auto place_of = [&](std::string_view wanted) {  // counted from 1; 0 when absent
    const std::size_t place = letters.find_first_of(wanted);
    return place == std::string_view::npos ? std::size_t{0} : place + 1;
  };
  const std::size_t day = place_of("d"), month = place_of("m"), year = place_of("jy");
  return {.has_delimiters = letters.find_first_not_of("dmyj") != std::string_view::npos,
          .year_first = year < month,
          .day_first = day < month};
}

bool cut_birth_date(std::string_view field, const DateLayout& layout, BirthDate& date) {
  const std::string_view text = without_trailing_blanks(field);
  if (layout.has_delimiters && read_usual_date(text, layout, date)) return true;
  if (text.find_first_of(digit_characters) == std::string_view::npos) {
    date = BirthDate{};
    return true;
  }
  const DatePieces pieces = layout.has_delimiters ? cut_by_separators(text, layout) : cut_by_position(text, layout);
  BirthDate result;
  if (!read_piece(pieces.year, result.year) || !read_piece(pieces.month, result.month) ||
      !read_piece(pieces.day, result.day)) {
    return false;
  }
  date = result;
  return true;
}

BirthDate repaired(BirthDate date) {
  if (date.month < 1 || date.month > 12) date.month = 1;
  if (date.day > month_lengths.at(date.month)) date.day = 1;
  return date;
}

bool read_birth_date(std::string_view field, const DateLayout& layout, BirthDate& date) {
  BirthDate result;
  if (!cut_birth_date(field, layout, result)) return false;
  date = repaired(result);
  return true;
}

}  // namespace pedigreewatch
