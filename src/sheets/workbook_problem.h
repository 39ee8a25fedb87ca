// Why a workbook cannot be read, as a value: what is wrong and where.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "text/phrases.h"

namespace pedigreewatch {

enum class WorkbookFault {
  none,
  cut_off,          ///< the file is not complete: its table of contents is missing or points nowhere
  no_workbook,      ///< an archive that holds no sheets
  old_workbook,     ///< .xls of before 2007, which is no archive
  binary_workbook,  ///< .xlsb
  html,             ///< a page for a browser that is called .xls
  xml_2003,         ///< a workbook as one XML file
  is_protected,     ///< a password is needed
  unknown_packing,  ///< packed by another method than deflate
  broken_packing,   ///< what was unpacked is not what was packed
  too_large,        ///< unpacks to more than `most_unpacked_bytes`
  broken_xml,
  has_definitions,  ///< definitions of its own (DOCTYPE), with which a small file can grow without end
  too_deep,         ///< more than `most_xml_levels`
  too_long,         ///< one text of more than `most_xml_token`
  other_encoding,   ///< a part that is not UTF-8
  odd_cell,         ///< a cell or row that stands nowhere, or not behind the one before it
  no_such_text,     ///< a cell that refers to a shared text that is not there
  too_many_rows,
  too_many_columns,
  too_much_text,  ///< more than `most_sheet_text`
  no_such_sheet,
  no_table,  ///< no sheet holds anything
};

/// The bounds of reading. Real workbooks stay far below them: a million rows of 20 columns unpack to about a
/// gigabyte, of which 200 MB are text.
inline constexpr std::uint64_t most_unpacked_bytes = std::uint64_t{2} << 30;
inline constexpr std::size_t most_xml_levels = 64;
inline constexpr std::size_t most_xml_token = std::size_t{1} << 20;
inline constexpr std::size_t most_sheets = 1000;
inline constexpr std::int64_t most_sheet_rows = 1'048'576;
inline constexpr std::size_t most_sheet_columns = 1000;
inline constexpr std::size_t most_sheet_text = std::size_t{1} << 28;

struct WorkbookProblem {
  WorkbookFault fault = WorkbookFault::none;
  std::string part;                  ///< of the archive, such as "xl/workbook.xml"
  std::string sheet, cell;           ///< "Dogs", "D12"; empty where none is meant
  std::string text;                  ///< what stands there
  std::vector<std::string> choices;  ///< the sheets that there are
};

/// The problem in words for the user, ending in what to do.
std::string message_of(const WorkbookProblem& problem, ToolLanguage language);

}  // namespace pedigreewatch
