// Rows are written as they come, with the cells that they have; the width of the table is known at its end.

#include "sheets/sheet_table.h"

#include <algorithm>
#include <utility>

#include "text/utf_8.h"

namespace pedigreewatch {
namespace {

constexpr char delimiter = '\t';

bool refuse(SheetBuilder& builder, WorkbookFault fault, std::string_view text, WorkbookProblem& problem) {
  problem.fault = fault;
  problem.sheet = builder.table.sheet;
  problem.text = text;
  return false;
}

bool is_valid(std::string_view text) {
  for (std::size_t place = ascii_length(text); place < text.size();) {
    const std::size_t length = letter_length(text.substr(place));
    if (length == 0) return false;
    place += length;
    place += ascii_length(text.substr(place));
  }
  return true;
}

/// Control characters, line ends and tabs among them, become blanks; quotation marks stand in others, doubled.
void append_cell(std::string& bytes, std::string_view text) {
  const bool in_quotes = text.find('"') != std::string_view::npos;
  if (in_quotes) bytes.push_back('"');
  for (const char byte : text) {
    bytes.push_back(static_cast<unsigned char>(byte) < ' ' ? ' ' : byte);
    if (byte == '"') bytes.push_back('"');
  }
  if (in_quotes) bytes.push_back('"');
}

/// Ends the line of the row at hand, if there is one.
void end_row(SheetBuilder& builder) {
  if (builder.row == 0) return;
  builder.table.text.push_back('\n');
  builder.widths.push_back(static_cast<std::uint32_t>(builder.filled));
  builder.table.column_count = std::max(builder.table.column_count, builder.filled);
  if (builder.filled == 0) return;
  builder.table.row_count = builder.row;
  ++builder.table.filled_row_count;
}

/// Takes away the lines behind the last filled row.
void cut_blank_end(SheetBuilder& builder) {
  const auto kept = static_cast<std::size_t>(builder.table.row_count);
  builder.table.text.resize(builder.table.text.size() - (builder.widths.size() - kept));
  builder.widths.resize(kept);
}

/// Adds the empty cells that rows lack.
void widen_rows(SheetBuilder& builder, std::size_t lacking) {
  SheetTable& table = builder.table;
  std::string wide;
  wide.reserve(table.text.size() + lacking);
  std::size_t place = 0;
  for (const std::uint32_t width : builder.widths) {
    const std::size_t end = table.text.find('\n', place);
    wide.append(table.text, place, end - place);
    if (width > 0) wide.append(table.column_count - width, delimiter);
    wide.push_back('\n');
    place = end + 1;
  }
  table.text = std::move(wide);
}

}  // namespace

void note_cell(NotedCells& noted, std::string place) {
  ++noted.count;
  if (noted.first.size() < most_noted_cells) noted.first.push_back(std::move(place));
}

std::string column_letters(std::size_t column) {
  constexpr std::size_t letter_count = 26;
  std::string letters;
  for (std::size_t rest = column + 1; rest > 0; rest = (rest - 1) / letter_count) {
    letters.insert(letters.begin(), static_cast<char>('A' + static_cast<int>((rest - 1) % letter_count)));
  }
  return letters;
}

std::string cell_place(const SheetBuilder& builder, std::size_t column) {
  return column_letters(column) + std::to_string(builder.row);
}

bool begin_row(SheetBuilder& builder, std::int64_t row, WorkbookProblem& problem) {
  if (row <= builder.row) return refuse(builder, WorkbookFault::odd_cell, std::to_string(row), problem);
  if (row > most_sheet_rows) return refuse(builder, WorkbookFault::too_many_rows, std::to_string(row), problem);
  end_row(builder);
  const auto blank_count = static_cast<std::size_t>(row - builder.row - 1);
  builder.table.text.append(blank_count, '\n');
  builder.widths.insert(builder.widths.end(), blank_count, 0);
  builder.row = row;
  builder.next_column = builder.filled = 0;
  return true;
}

bool add_cell(SheetBuilder& builder, std::size_t column, std::string_view text, WorkbookProblem& problem) {
  const auto refuse_cell = [&](WorkbookFault fault) {
    problem.cell = cell_place(builder, column);
    return refuse(builder, fault, text, problem);
  };
  if (column < builder.next_column) return refuse_cell(WorkbookFault::odd_cell);
  builder.next_column = column + 1;
  if (text.empty()) return true;
  if (column >= most_sheet_columns) return refuse_cell(WorkbookFault::too_many_columns);
  if (!is_valid(text)) return refuse_cell(WorkbookFault::other_encoding);
  const std::size_t gap = column - builder.filled + (builder.filled > 0 ? 1 : 0);
  builder.table.text.append(gap, delimiter);
  append_cell(builder.table.text, text);
  builder.filled = column + 1;
  return builder.table.text.size() <= most_sheet_text || refuse(builder, WorkbookFault::too_much_text, {}, problem);
}

bool repeat_row(SheetBuilder& builder, std::int64_t count, WorkbookProblem& problem) {
  if (count <= 0) return true;
  const std::size_t filled = builder.filled;
  if (filled == 0) {
    // Sheets end in a million blank rows, of which nothing is kept.
    const std::int64_t last = std::min(builder.row + count, most_sheet_rows);
    return last == builder.row || begin_row(builder, last, problem);
  }
  const std::size_t start = builder.table.text.rfind('\n') + 1;  // of a text without line feed: 0
  const std::string line = builder.table.text.substr(start);
  for (std::int64_t i = 0; i < count; ++i) {
    if (!begin_row(builder, builder.row + 1, problem)) return false;
    builder.table.text += line;
    builder.filled = filled;
    if (builder.table.text.size() > most_sheet_text) {
      return refuse(builder, WorkbookFault::too_much_text, {}, problem);
    }
  }
  return true;
}

bool finish_table(SheetBuilder& builder, WorkbookProblem& problem) {
  end_row(builder);
  cut_blank_end(builder);
  std::size_t lacking = 0;
  for (const std::uint32_t width : builder.widths) lacking += width == 0 ? 0 : builder.table.column_count - width;
  if (builder.table.text.size() + lacking > most_sheet_text) {
    return refuse(builder, WorkbookFault::too_much_text, {}, problem);
  }
  if (lacking > 0) widen_rows(builder, lacking);
  return true;
}

}  // namespace pedigreewatch
