// Tables with one row for each year of birth. Rows and columns are counted from 1, as on paper; only this file
// subtracts the 1. A row takes memory from the moment something is put into it, so that one mistyped year far from all
// others costs nothing but the lines it adds to the report; and it reaches no further than to the last column that was
// put to use, so that columns which nobody uses cost nothing either.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "core/birth_years.h"

namespace pedigreewatch {

/// A row of a yearly table, counted from 1.
using Row = std::int64_t;

/// Which rows of a table are stored, and where.
struct StoredRows {
  std::vector<std::uint32_t> places;  ///< for each row its place among the stored rows, counted from 1; 0: not stored
  std::uint32_t count = 0;

  StoredRows() = default;
  explicit StoredRows(Row row_count) : places(static_cast<std::size_t>(row_count), 0) {}

  Row row_count() const { return static_cast<Row>(places.size()); }
  /// The place of a row; 0 for one that is not stored, or that the table does not have.
  std::uint32_t place_of(Row row) const {
    return row >= 1 && row <= row_count() ? places[static_cast<std::size_t>(row) - 1] : 0;
  }
  /// The place of a row of the table, which is stored from now on.
  std::uint32_t add(Row row) {
    std::uint32_t& place = places[static_cast<std::size_t>(row) - 1];
    if (place == 0) place = ++count;
    return place;
  }
};

/// A table whose columns have names: a record for each year.
template <typename Record>
struct YearRows {
  StoredRows rows;
  std::vector<Record> records;  ///< the stored rows, in the order in which they were first put to use

  YearRows() = default;
  explicit YearRows(Row row_count) : rows(row_count) {}

  Row row_count() const { return rows.row_count(); }
  /// The record of a year; one of zeros for a year without any, or that the table does not have.
  Record of(Row row) const {
    const std::uint32_t place = rows.place_of(row);
    return place == 0 ? Record{} : records[place - std::size_t{1}];
  }
  /// The record itself, to be changed. The row must exist.
  Record& at(Row row) {
    const std::uint32_t place = rows.add(row);
    if (place > records.size()) records.resize(place);
    return records[place - std::size_t{1}];
  }
};

/// A table with as many columns as the population asks for: a column for each colour, age, breeder or subpopulation.
template <typename Cell>
struct YearTable {
  StoredRows rows;
  std::int64_t column_count = 0;
  std::vector<std::vector<Cell>> stored;  ///< the stored rows, each up to the last column in use

  YearTable() = default;
  YearTable(Row row_count, std::int64_t columns) : rows(row_count), column_count(columns) {}

  Row row_count() const { return rows.row_count(); }
  /// Whether anything was put into the row; all cells of another one are 0.
  bool is_stored(Row row) const { return rows.place_of(row) != 0; }
  /// The value of a cell; a row or column that the table does not have counts as 0.
  Cell value(Row row, std::int64_t column) const {
    const std::uint32_t place = rows.place_of(row);
    if (place == 0 || column < 1) return Cell{};
    const std::vector<Cell>& cells = stored[place - std::size_t{1}];
    const std::size_t index = static_cast<std::size_t>(column) - 1;
    return index < cells.size() ? cells[index] : Cell{};
  }
  /// The cell itself, to be changed. The row and column must exist.
  Cell& at(Row row, std::int64_t column) {
    const std::size_t place = rows.places[static_cast<std::size_t>(row) - 1];
    const std::size_t index = static_cast<std::size_t>(column) - 1;
    if (place == 0 || index >= stored[place - 1].size()) return new_cell(row, index);
    return stored[place - 1][index];
  }

 private:
  /// Apart from `at`, which passes go through for each animal, so that it stays short.
  [[gnu::noinline]] Cell& new_cell(Row row, std::size_t index) {
    const std::size_t place = rows.add(row);
    if (stored.size() < place) stored.resize(place);
    std::vector<Cell>& cells = stored[place - 1];
    if (index >= cells.size()) cells.resize(index + 1, Cell{});
    return cells[index];
  }
};

}  // namespace pedigreewatch
