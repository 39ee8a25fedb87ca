// The table that a sheet holds, as the text that everything else here reads: a line a row, with tabs between the cells,
// in UTF-8. Line N of the text is row N of the sheet: blank rows are blank lines, and line ends within a cell become
// blanks. What a text cannot hold is kept beside it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "sheets/workbook_problem.h"

namespace pedigreewatch {

/// Places in a sheet that a message names: the first ones, and how many there are.
struct NotedCells {
  std::vector<std::string> first;  ///< "D12", "A1:C1", or the number of a row or the letters of a column
  std::int64_t count = 0;
};

inline constexpr std::size_t most_noted_cells = 20;
void note_cell(NotedCells& noted, std::string place);

struct SheetTable {
  std::string sheet;  ///< its name
  std::string text;
  std::int64_t row_count = 0;  ///< up to the last row that is filled
  std::int64_t filled_row_count = 0;
  std::size_t column_count = 0;  ///< of the widest row; each filled row has as many cells
  NotedCells errors;             ///< cells that hold an error (#N/A, #REF!), which were left empty: "D12 #N/A"
  NotedCells uncomputed;         ///< formulas without a value, which were left empty
  NotedCells odd_dates;          ///< dates that are no day, which stay numbers
  NotedCells merged;             ///< cells that were merged: the first one has the text, the others are empty
  NotedCells hidden_rows, hidden_columns;  ///< they were read like all others
};

/// A table while it is read.
struct SheetBuilder {
  SheetTable table;
  std::int64_t row = 0;               ///< the row at hand, counted from 1
  std::size_t next_column = 0;        ///< where the next cell would stand, counted from 0
  std::size_t filled = 0;             ///< columns of the row at hand up to its last filled cell
  std::vector<std::uint32_t> widths;  ///< of each row
};

/// Letters of a column counted from 0: "A", "AA"; and the cell: "AA7".
std::string column_letters(std::size_t column);
std::string cell_place(const SheetBuilder& builder, std::size_t column);

/// Begins a row behind the last one. False when it stands before it, or beyond the bounds.
bool begin_row(SheetBuilder& builder, std::int64_t row, WorkbookProblem& problem);

/// Puts a text into the row at hand; an empty one is none. False when its column stands before the last cell, or beyond
/// the bounds, or when it is no UTF-8.
bool add_cell(SheetBuilder& builder, std::size_t column, std::string_view text, WorkbookProblem& problem);

/// Adds the row at hand `count` times more; blank ones cost nothing. False when they leave the bounds.
bool repeat_row(SheetBuilder& builder, std::int64_t count, WorkbookProblem& problem);

/// Ends the table: each filled row gets the cells of the widest. False when that leaves the bounds.
bool finish_table(SheetBuilder& builder, WorkbookProblem& problem);

}  // namespace pedigreewatch
