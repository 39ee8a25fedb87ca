// A table as a text file: cells between tabs or commas, a row a line. UTF-8, a decimal point, nothing in a cell whose
// value is unknown. A cell with a separator or a quotation mark in it stands in quotation marks, and quotation marks
// within it are doubled (RFC 4180); control characters are written by name, "<U+0009>", so that no cell breaks a row. A
// text that begins like a formula stands behind an apostrophe. Or the same table as the sheet at hand of a workbook.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/new_files.h"
#include "core/side_by_side.h"
#include "sheets/workbook_writer.h"

namespace pedigreewatch {

enum class TableForm : std::uint8_t { tabs, commas };

constexpr char separator_of(TableForm form) {
  return form == TableForm::tabs ? '\t' : ',';
}
/// ".tsv" or ".csv".
constexpr std::string_view ending_of(TableForm form) {
  return form == TableForm::tabs ? ".tsv" : ".csv";
}

/// Texts of single precision by a few bits of the number: the last one with these bits. The same figures come again
/// from animal to animal: full sibs have the same F.
struct RealTexts {
  struct Entry {
    std::uint32_t bits = 0;
    std::uint8_t length = 0;  ///< 0: nothing is kept here
    std::array<char, 19> text = {};
  };
  std::vector<Entry> entries;  ///< empty until the first one is wanted
  std::string found;           ///< working space
};

struct TableWriter {
  TableForm form = TableForm::tabs;
  NewFile* file = nullptr;             ///< null: the bytes stay in `text` (tests read them there)
  WorkbookWriter* workbook = nullptr;  ///< where it is not null, all cells go there
  std::string text;                    ///< what has not gone to the file yet
  bool is_in_row = false;              ///< the row at hand has a cell already
  bool is_plain = false;               ///< what begins like a formula is written as it is
  std::int32_t threads = 1;            ///< that make rows at once where there are many; the bytes are the same
  std::int64_t corrections = 0;        ///< of the export, that the data contain: above 0 a last column tells how many
  bool has_heading = false;            ///< the first row, that of the names, has been written
  RealTexts real_texts = {};
};

/// Adds a cell to the row at hand. Texts are bytes of the data file. Reals that are not finite make an empty cell.
void add_nothing(TableWriter& writer);
void add_text(TableWriter& writer, std::string_view bytes);
void add_plain(TableWriter& writer, std::string_view text);     ///< letters, digits and the like, which need no look at
void add_number(TableWriter& writer, std::string_view digits);  ///< a number that has its digits already; may be empty
void add_day(TableWriter& writer, std::string_view day);        ///< "2004-02-29"; may be empty
void add_integer(TableWriter& writer, std::int64_t value);
void add_real(TableWriter& writer, float value);
void add_real(TableWriter& writer, double value);

/// A cell as it is handed over where it is not yet known what it will be; the empty state is an empty cell.
using Cell = std::variant<std::monostate, std::int64_t, float, double, std::string>;
void add_cell(TableWriter& writer, const Cell& cell);

/// Begins another table, as a sheet of the workbook.
void begin_table_sheet(TableWriter& writer, std::string_view name);

/// Ends the row. What has been collected goes to the file in large pieces.
void end_row(TableWriter& writer);

/// Hands the rest to the file.
void flush(TableWriter& writer);

/// Writes rows `begin` to `end` of a table, which end with `end_row`.
using RowsWriter = std::function<void(TableWriter& writer, WorkPart rows)>;

/// Has rows written, many of them at once where there are threads, while those before them go to the file.
void write_many_rows(TableWriter& writer, WorkPart rows, const RowsWriter& write);

}  // namespace pedigreewatch
