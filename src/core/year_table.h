// A table with one row for each year of birth and a fixed number of columns. Rows and columns are counted from 1,
// as on paper; only this file subtracts the 1. A row takes memory from the moment something is put into it, so that
// one mistyped year far from all others costs nothing but the lines it adds to the report.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace pedigreewatch {

/// The birth years of a population, fixed before parents are appended.
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

template <typename Cell>
struct YearTable {
  std::int64_t row_count = 0, column_count = 0;
  std::vector<std::uint32_t> places;  ///< for each row its place among the stored rows, counted from 1; 0: all zero
  std::vector<Cell> cells;            ///< the stored rows, one after another

  YearTable() = default;
  YearTable(std::int64_t rows, std::int64_t columns)
      : row_count(rows), column_count(columns), places(static_cast<std::size_t>(rows), 0) {}

  bool has(std::int64_t row, std::int64_t column) const {
    return row >= 1 && row <= row_count && column >= 1 && column <= column_count;
  }
  /// Whether anything was put into the row; all cells of another one are 0.
  bool is_stored(std::int64_t row) const {
    return row >= 1 && row <= row_count && places[static_cast<std::size_t>(row - 1)] != 0;
  }
  /// The value of a cell; a row or column that the table does not have counts as 0.
  Cell value(std::int64_t row, std::int64_t column) const {
    if (!has(row, column)) return Cell{};
    const std::uint32_t place = places[static_cast<std::size_t>(row - 1)];
    return place == 0 ? Cell{} : cells[offset(place, column)];
  }
  /// The cell itself, to be changed. The row and column must exist.
  Cell& at(std::int64_t row, std::int64_t column) {
    std::uint32_t& place = places[static_cast<std::size_t>(row - 1)];
    if (place == 0) {
      cells.resize(cells.size() + static_cast<std::size_t>(column_count), Cell{});
      place = static_cast<std::uint32_t>(++stored_rows);
    }
    return cells[offset(place, column)];
  }

 private:
  std::size_t stored_rows = 0;
  std::size_t offset(std::uint32_t place, std::int64_t column) const {
    return (place - std::size_t{1}) * static_cast<std::size_t>(column_count) + static_cast<std::size_t>(column - 1);
  }
};

}  // namespace pedigreewatch
