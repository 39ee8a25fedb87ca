// A workbook that an office program wrote (.xlsx, .xlsm, .ods): the table on one of its sheets.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "sheets/sheet_table.h"
#include "sheets/workbook_problem.h"

namespace pedigreewatch {

/// What kind of file these are the bytes of, as far as sheets are concerned.
enum class WorkbookKind {
  none,       ///< text, or something else altogether
  archive,    ///< a zip archive, which a workbook is
  unreadable  ///< a workbook that is not read: the fault tells why
};

/// Looks at the first bytes: archives, workbooks of before 2007 and those with a password, pages that are called .xls.
WorkbookKind kind_of_workbook(std::string_view bytes, WorkbookProblem& problem);

/// A sheet, and its filled rows below the headings.
struct AlikeSheet {
  std::string name;
  std::int64_t rows = 0;
};

struct WorkbookSheets {
  std::vector<std::string> names;  ///< in their order, hidden ones too
  std::size_t chosen = 0;          ///< counted from 0
  bool was_named = false;          ///< the user chose it; otherwise it is the first that holds a table
  std::vector<AlikeSheet> alike;   ///< where nobody chose: visible ones behind it that have the same headings
};

/// From how many rows and columns on a sheet holds a table: a header and an animal with its parents.
inline constexpr std::int64_t least_table_rows = 2;
inline constexpr std::size_t least_table_columns = 3;

/// Reads the sheet of that name or number (counted from 1; a name goes first). Without one it is the first visible
/// sheet that holds a table; where none does, the first that holds anything; up to fifty sheets behind it are compared
/// with it. Everything is read within the bounds of
/// `workbook_problem.h`. False, with the problem, when that is not possible; `table` is then empty.
bool read_workbook(std::string_view bytes, std::string_view sheet, SheetTable& table, WorkbookSheets& sheets,
                   WorkbookProblem& problem);

}  // namespace pedigreewatch
