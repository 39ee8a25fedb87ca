// The birth years of a population: from the first to the last one, a row of every yearly table for each.
#pragma once

#include <cstdint>

namespace pedigreewatch {

/// Fixed before parents are appended.
struct BirthYears {
  std::int32_t first = 2147483647;      ///< smallest birth year other than 0
  std::int32_t last = -2147483647 - 1;  ///< largest birth year
  std::int32_t count = 2;               ///< last - first + 1, wrapped: 2 for an empty store, negative without dates

  /// The year of a row, counted from 1.
  std::int32_t year_of(std::int64_t row) const {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(first) + static_cast<std::uint32_t>(row) - 1U);
  }
  /// Rows of a year table.
  std::int32_t row_count() const { return count > 0 ? count : 0; }
  /// Rows that stand for a year from first to last: none when there is no year at all.
  std::int32_t dated_row_count() const { return last >= first ? row_count() : 0; }
  /// The row of a birth year, 0 when it has none.
  std::int32_t row_of(std::int32_t year) const {
    return year >= first && year <= last ? static_cast<std::int32_t>(std::int64_t{year} - first + 1) : 0;
  }
};

}  // namespace pedigreewatch
