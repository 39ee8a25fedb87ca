#include "intake/birth_circle.h"

#include <algorithm>

namespace pedigreewatch {
namespace {

constexpr std::int32_t circle = static_cast<std::int32_t>(years_of_circle);

std::size_t place_of(std::int32_t year) {
  return static_cast<std::size_t>((year % circle + circle) % circle);
}

/// The last year with a birth before `year`.
std::int32_t last_birth_before(const BirthCircle& births, std::int32_t year) {
  std::int32_t last = year - 1;
  while (last > year - circle && births.births[place_of(last)] == 0) --last;
  return last;
}

bool can_be_cut(const BirthCircle& births, std::int32_t year) {
  return births.torn[place_of(year)] * tolerated_torn_pairs <= births.pairs;
}

/// A year with births before which there are none for a while.
struct Gap {
  std::int32_t first_year = 0, length = 0;
};

/// The longest gap at which the circle can be cut, and the length of the second longest.
Gap longest_gap(const BirthCircle& births, std::int32_t& second_length) {
  Gap longest;
  second_length = 0;
  for (std::int32_t year = 0; year < circle; ++year) {
    if (births.births[place_of(year)] == 0 || !can_be_cut(births, year)) continue;
    const std::int32_t length = year - last_birth_before(births, year) - 1;
    if (length > longest.length) {
      second_length = longest.length;
      longest = {year, length};
    } else {
      second_length = std::max(second_length, length);
    }
  }
  return longest;
}

}  // namespace

void note_birth(BirthCircle& births, std::int32_t year) {
  ++births.births[place_of(year)];
}

void note_pair(BirthCircle& births, std::int32_t parent_year, std::int32_t young_year) {
  if (place_of(parent_year) == place_of(young_year)) return;
  ++births.pairs;
  for (std::size_t cut = place_of(parent_year); cut != place_of(young_year);) {
    cut = (cut + 1) % years_of_circle;
    ++births.torn[cut];
  }
}

bool is_in_order(const BirthCircle& births) {
  if (births.pairs < fewest_year_pairs) return false;
  for (std::int32_t year = 0; year < circle; ++year) {
    if (can_be_cut(births, year)) return true;
  }
  return false;
}

std::optional<BirthSpan> tell_years(const BirthCircle& births, std::int32_t this_year) {
  if (births.pairs < fewest_year_pairs) return std::nullopt;
  std::int32_t second_length = 0;
  const Gap gap = longest_gap(births, second_length);
  if (gap.length <= 2 * second_length || gap.length == 0) return std::nullopt;
  const std::int32_t last = last_birth_before(births, gap.first_year + circle);
  const std::int32_t before_now = (this_year - last) / circle * circle;
  return BirthSpan{gap.first_year + before_now, last + before_now};
}

std::int32_t whole_year(std::int32_t short_year, std::int32_t first_year) {
  return first_year + static_cast<std::int32_t>(place_of(short_year - first_year));
}

}  // namespace pedigreewatch
