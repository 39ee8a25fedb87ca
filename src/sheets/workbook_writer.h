// Writes a workbook (.xlsx: Office Open XML, ECMA-376): a sheet for each table, its first row the names of the columns,
// which stays in view and has buttons to filter by. Numbers are numbers wherever the workbook is opened, days are days,
// and a text is a text whatever it looks like: "00123" keeps its zeros, "=1+1" computes nothing.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "sheets/zip_writer.h"
#include "text/phrases.h"

namespace pedigreewatch {

/// The bounds of a sheet. A table with more rows goes on in another one.
struct SheetLimits {
  std::int64_t rows = 1'048'576;
  std::size_t columns = 16'384;
  std::size_t letters = 32'767;                  ///< of a cell; a longer text is cut, and ends in "[...]"
  std::uint64_t bytes = std::uint64_t{1} << 30;  ///< of a sheet before it is packed
};

enum class WorkbookWritingFault : std::uint8_t { none, too_many_columns, too_large };

/// The sheet that is being written.
struct OpenSheet {
  std::string table;  ///< the name asked for
  std::int64_t rows = 0;
  std::size_t column = 0, columns = 0;  ///< the next cell of the row at hand; of the widest row
  bool is_in_row = false, has_begun = false;
  std::string xml;                  ///< rows that have not gone to the archive yet
  std::uint64_t size = 0;           ///< of those that have
  std::vector<std::size_t> widths;  ///< letters of the longest cell of each column
};

struct WorkbookWriter {
  ZipWriter zip;
  SheetLimits limits = {};
  std::vector<std::string> sheets;   ///< names of those that are complete, and of the one at hand
  std::vector<std::string> filters;  ///< the cells that each sheet filters, such as "$A$1:$C$8"
  OpenSheet sheet = {};
  std::vector<std::string> heading;  ///< of the table at hand
  std::vector<std::string> letters;  ///< of columns, as far as they were needed
  WorkbookWritingFault fault = WorkbookWritingFault::none;
  std::string fault_sheet;
};

/// Begins a table. Letters that a name may not have become blanks, one that is too long is cut, one that is there
/// already gets a number.
void begin_sheet(WorkbookWriter& writer, std::string_view name);

/// Add a cell to the row at hand. The first row of a table has the names of its columns.
void skip_cell(WorkbookWriter& writer);
void add_text_cell(WorkbookWriter& writer, std::string_view text);      ///< UTF-8; an empty text is no cell
void add_number_cell(WorkbookWriter& writer, std::string_view digits);  ///< "12", "-0.5", "1e-07"; else a text
/// A day as "2004-02-29". One before March 1900, from when on all programs count alike, is a text; so is what is no
/// day.
void add_date_cell(WorkbookWriter& writer, std::string_view day);
void end_sheet_row(WorkbookWriter& writer);

void end_sheet(WorkbookWriter& writer);

/// Ends the workbook, which has a sheet. False when it leaves what a workbook can hold: `fault` says how.
bool finish_workbook(WorkbookWriter& writer);

/// The fault in words for the user, ending in what to do.
std::string message_of(const WorkbookWriter& writer, ToolLanguage language);

}  // namespace pedigreewatch
