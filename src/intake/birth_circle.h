// Years of two digits: the hundred years that they mean is told by parents, which are born before their young. Years
// stand on a circle of a hundred; where it is cut open, the first year of the hundred lies, and no young may lie on the
// other side of the cut than its parent.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace pedigreewatch {

inline constexpr std::size_t years_of_circle = 100;

/// What parents and young tell of the years.
struct BirthCircle {
  std::array<std::int64_t, years_of_circle> births = {};
  std::array<std::int64_t, years_of_circle> torn = {};  ///< young that a cut before this year parts from a parent
  std::int64_t pairs = 0;                               ///< of a parent and its young, born in different years
};

/// The same for each place in a date of three short numbers at which the year may stand.
struct ShortYears {
  BirthCircle year_last, year_first;
};

/// Notes the birth of an animal, and that of its parent where it is known; years from 0 to 99.
void note_birth(BirthCircle& births, std::int32_t year);
void note_pair(BirthCircle& births, std::int32_t parent_year, std::int32_t young_year);

/// Fewer pairs of parent and young tell no hundred.
inline constexpr std::int64_t fewest_year_pairs = 10;
/// A cut is no good one when it tears more than one pair in so many.
inline constexpr std::int64_t tolerated_torn_pairs = 50;

/// Whether there is a place to cut the circle at which hardly any young is parted from its parent.
bool is_in_order(const BirthCircle& births);

/// Years from the first to the last birth.
struct BirthSpan {
  std::int32_t first = 0, last = 0;
};

/// The years that the births mean: the latest ones up to `this_year` that begin where the circle can be cut, if that is
/// one place: the longest time without births, more than twice as long as any other at which it could be cut too.
std::optional<BirthSpan> tell_years(const BirthCircle& births, std::int32_t this_year);

/// The year of two digits in the hundred years that begin with `first_year`.
std::int32_t whole_year(std::int32_t short_year, std::int32_t first_year);

}  // namespace pedigreewatch
