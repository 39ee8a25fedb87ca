// A format code says by its letters what it shows: y, m, d, h, s outside of quotation marks, brackets and escapes.

#include "sheets/cell_values.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "core/real_digits.h"
#include "text/plain_letters.h"

namespace pedigreewatch {
namespace {

/// The letters of a code that show something, in small letters: without texts in quotation marks, escaped signs,
/// fillers and colours; of several sections the first.
std::string letters_of_code(std::string_view code) {
  std::string letters;
  for (std::size_t i = 0; i < code.size() && code[i] != ';'; ++i) {
    const char byte = code[i];
    if (byte == '"') {
      i = std::min(code.find('"', i + 1), code.size());
    } else if (byte == '\\' || byte == '_' || byte == '*') {
      ++i;
    } else if (byte == '[') {
      const std::size_t end = std::min(code.find(']', i), code.size());
      // [h], [mm], [s] are durations; all else is a colour, a condition or a country.
      const std::string_view inside = code.substr(i + 1, end - i - 1);
      if (!inside.empty() && inside.find_first_not_of("hHmMsS") == std::string_view::npos) letters.push_back('h');
      i = end;
    } else {
      letters.push_back(byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte);
    }
  }
  return letters;
}

bool holds(std::string_view letters, char letter) {
  return letters.find(letter) != std::string_view::npos;
}

bool is_whole_number(std::string_view raw) {
  return !raw.empty() && std::all_of(raw.begin(), raw.end(), is_digit);
}

void append_padded(std::string& text, std::string_view digits, std::size_t width) {
  text.append(width - std::min(width, digits.size()), '0').append(digits);
}

void append_padded(std::string& text, std::int64_t value, std::size_t width) {
  append_padded(text, std::to_string(value), width);
}

struct CivilDay {
  std::int64_t year = 0, month = 0, day = 0;
};

/// The day that is `days` behind the 1st of January 1970 (Hinnant 2013).
CivilDay civil_day(std::int64_t days) {
  constexpr std::int64_t days_to_march_0000 = 719468, days_of_400_years = 146097;
  const std::int64_t shifted = days + days_to_march_0000;
  const std::int64_t era = shifted / days_of_400_years, of_era = shifted % days_of_400_years;
  const std::int64_t year_of_era = (of_era - of_era / 1460 + of_era / 36524 - of_era / 146096) / 365;
  const std::int64_t of_year = of_era - (365 * year_of_era + year_of_era / 4 - year_of_era / 100);
  const std::int64_t month_from_march = (5 * of_year + 2) / 153;
  const std::int64_t month = month_from_march < 10 ? month_from_march + 3 : month_from_march - 9;
  const std::int64_t year = year_of_era + era * 400 + (month <= 2 ? 1 : 0);
  return {year, month, of_year - (153 * month_from_march + 2) / 5 + 1};
}

/// A spreadsheet takes 1900 for a leap year: its days from the 1st of March 1900 on count one more.
CivilDay day_of_serial(std::int64_t serial, DateSystem system) {
  constexpr std::int64_t start_1900 = -25568, start_1904 = -24107;  // 31-12-1899 and 1-1-1904, from 1970 on
  constexpr std::int64_t day_that_never_was = 60;
  if (system == DateSystem::since_1904) return civil_day(start_1904 + serial);
  if (serial == day_that_never_was) return {1900, 2, 29};
  return civil_day(start_1900 + serial - (serial > day_that_never_was ? 1 : 0));
}

/// A month that is typed is kept as its first day, a year as the first of January. Another day was typed as one,
/// whatever the format shows of it.
void append_day(std::string& text, const CivilDay& day, CellKind kind) {
  const bool is_year = kind == CellKind::year && day.month == 1 && day.day == 1;
  const bool is_month = kind == CellKind::month && day.day == 1;
  append_padded(text, day.year, 4);
  if (is_year) return;
  append_padded(text.append("-"), day.month, 2);
  if (is_month) return;
  append_padded(text.append("-"), day.day, 2);
}

void append_time(std::string& text, std::int64_t seconds) {
  append_padded(text, seconds / 3600, 2);
  append_padded(text.append(":"), seconds / 60 % 60, 2);
  append_padded(text.append(":"), seconds % 60, 2);
}

/// The 15 digits of a spreadsheet, as digits and the place of the point behind the first of them.
struct Digits {
  std::string digits;
  int exponent = 0;
  bool is_negative = false;
};

Digits digits_of(double value) {
  constexpr std::size_t digits_behind_first = 14;
  const std::string written = scientific_digits(value, digits_behind_first);
  const std::string_view text = written;
  const std::size_t sign = text.find('e');
  Digits result;
  for (const char byte : text.substr(0, sign)) {
    if (is_digit(byte)) result.digits.push_back(byte);
  }
  result.is_negative = text.starts_with('-');
  std::string_view exponent = text.substr(sign + 1);
  if (exponent.starts_with('+')) exponent.remove_prefix(1);
  std::from_chars(exponent.data(), exponent.data() + exponent.size(), result.exponent);
  while (result.digits.size() > 1 && result.digits.back() == '0') result.digits.pop_back();
  return result;
}

void append_digits(std::string& text, const Digits& number, std::size_t least_digits) {
  constexpr int most_places = 330;
  const int exponent = std::clamp(number.exponent, -most_places, most_places);
  std::string whole, fraction;
  if (exponent < 0) {
    whole = "0";
    fraction = std::string(static_cast<std::size_t>(-exponent - 1), '0') + number.digits;
  } else {
    const auto whole_count = static_cast<std::size_t>(exponent) + 1;
    whole = number.digits.substr(0, whole_count);
    whole.append(whole_count - whole.size(), '0');
    fraction = number.digits.substr(std::min(whole_count, number.digits.size()));
  }
  if (number.is_negative) text.push_back('-');
  append_padded(text, whole, least_digits);
  if (!fraction.empty() && fraction != "0") text.append(".").append(fraction);
}

}  // namespace

CellFormat format_of_code(std::string_view code) {
  const std::string letters = letters_of_code(code);
  CellFormat format;
  if (letters == "general" || letters == "standard" || letters == "@") return format;
  const bool has_year = holds(letters, 'y'), has_day = holds(letters, 'd');
  const bool has_time = holds(letters, 'h') || holds(letters, 's');
  if (has_year || has_day || (holds(letters, 'm') && !has_time)) {
    format.kind = has_time ? CellKind::date_time : CellKind::date;
    if (!has_time && !has_day && has_year) format.kind = holds(letters, 'm') ? CellKind::month : CellKind::year;
  } else if (has_time) {
    format.kind = CellKind::time;
  } else if (!letters.empty() && letters.find_first_not_of('0') == std::string::npos) {
    format.digits = letters.size();
  }
  return format;
}

CellFormat format_of_number(std::int32_t number) {
  const auto is_from = [&](std::int32_t first, std::int32_t last) { return number >= first && number <= last; };
  // 27 to 36 and 50 to 58 are the dates of eastern Asia.
  if (is_from(14, 16) || is_from(27, 31) || number == 36 || is_from(50, 54) || number == 57 || number == 58) {
    return {CellKind::date, 0};
  }
  if (number == 17 || number == 55) return {CellKind::month, 0};
  if (number == 22) return {CellKind::date_time, 0};
  if (is_from(18, 21) || is_from(32, 35) || is_from(45, 47)) return {CellKind::time, 0};
  return {};
}

bool append_date_of_serial(std::string& text, double serial, CellKind kind, DateSystem system) {
  constexpr double last_serial = 2'958'466;  // behind 31-12-9999
  constexpr std::int64_t seconds_of_day = 86'400;
  if (!(serial >= 0) || serial >= last_serial) return false;
  const auto seconds = static_cast<std::int64_t>(std::llround(serial * static_cast<double>(seconds_of_day)));
  if (kind == CellKind::time) {
    append_time(text, seconds);
    return true;
  }
  const bool has_time = kind == CellKind::date_time;
  const bool shows_time = has_time && seconds % seconds_of_day != 0;
  const std::int64_t days = has_time ? seconds / seconds_of_day : static_cast<std::int64_t>(serial);
  if (days == 0 && system == DateSystem::since_1900) return false;
  const CivilDay day = day_of_serial(days, system);
  constexpr std::int64_t last_year = 9999;
  if (day.year > last_year) return false;
  append_day(text, day, kind);
  if (shows_time) append_time(text.append("T"), seconds % seconds_of_day);
  return true;
}

bool number_of(std::string_view raw, double& value) {
  // Not every library has std::from_chars for reals. Signs and digits alone: no "inf", no hexadecimal number.
  constexpr std::size_t longest_number = 400;
  if (raw.empty() || raw.size() > longest_number) return false;
  if (raw.find_first_not_of("0123456789+-.eE") != std::string_view::npos) return false;
  const std::string terminated(raw);
  char* end = nullptr;
  value = std::strtod(terminated.c_str(), &end);
  return end == terminated.c_str() + terminated.size() && std::isfinite(value);
}

bool append_number(std::string& text, std::string_view raw, const CellFormat& format) {
  if (is_whole_number(raw)) {
    append_padded(text, raw, format.digits);
    return true;
  }
  double value = 0;
  if (!number_of(raw, value)) return false;
  append_digits(text, digits_of(value), format.digits);
  return true;
}

}  // namespace pedigreewatch
