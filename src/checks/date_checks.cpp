#include "checks/date_checks.h"

#include <algorithm>
#include <array>

#include "core/fixed_text.h"

namespace pedigreewatch {
namespace {

constexpr std::string_view digits = "0123456789";

/// With separators a text of digits alone serves as first and last piece at once: it is a year.
bool is_lone_number(std::string_view text, const DateLayout& layout) {
  return layout.has_delimiters && text.find_first_not_of(digits) == std::string_view::npos;
}

bool is_whole_year(std::int32_t year) {
  constexpr std::int32_t first_of_four_digits = 1000, last_of_four_digits = 9999;
  return year >= first_of_four_digits && year <= last_of_four_digits;
}

}  // namespace

DateReading look_at_date(std::string_view field, const DateLayout& layout) {
  DateReading reading;
  const std::string_view text = without_trailing_blanks(field);
  if (text.find_first_of(digits) == std::string_view::npos) return reading;
  BirthDate raw;
  if (!cut_birth_date(field, layout, raw)) {
    reading.kind = DateKind::unreadable;
    return reading;
  }
  reading.date = repaired(raw);
  const bool has_neither = (raw.day == 0 && raw.month == 0) || is_lone_number(text, layout);
  constexpr std::int32_t last_month = 12;
  const bool has_month_only = raw.day == 0 && raw.month >= 1 && raw.month <= last_month;
  const bool is_changed = raw.day != reading.date.day || raw.month != reading.date.month;
  reading.fits_layout = is_whole_year(raw.year) && (has_neither || has_month_only || !is_changed);
  if (raw.year == 0) {
    const bool has_nothing = raw.day == 0 && raw.month == 0;
    reading.kind = has_nothing ? DateKind::unknown : DateKind::repaired;
  } else if (has_neither || has_month_only) {
    reading.kind = DateKind::year_only;
  } else {
    reading.kind = is_changed || raw.day <= 0 ? DateKind::repaired : DateKind::full;
  }
  return reading;
}

bool is_exchanged(std::string_view field, const DateLayout& layout) {
  constexpr std::int32_t last_month = 12, last_day = 31;
  BirthDate raw;
  return cut_birth_date(field, layout, raw) && raw.month > last_month && raw.month <= last_day && raw.day >= 1 &&
         raw.day <= last_month;
}

bool is_placeholder_date(const BirthDate& date) {
  constexpr auto placeholders = std::to_array<std::array<std::int32_t, 3>>({{1900, 1, 1},
                                                                            {1900, 1, 0},
                                                                            {1899, 12, 30},
                                                                            {1899, 12, 31},
                                                                            {1753, 1, 1},
                                                                            {1601, 1, 1},
                                                                            {1, 1, 1},
                                                                            {1111, 11, 11},
                                                                            {9999, 12, 31},
                                                                            {9999, 9, 9}});
  constexpr std::int32_t largest_year = 9999;
  const bool is_largest = date.year == largest_year;
  const std::array<std::int32_t, 3> given = {date.year, date.month, date.day};
  return is_largest || std::find(placeholders.begin(), placeholders.end(), given) != placeholders.end();
}

}  // namespace pedigreewatch
