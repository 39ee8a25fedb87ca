// Workbooks of OpenDocument (.ods; ISO/IEC 26300): all sheets stand in one part, one behind the other.
#pragma once

#include <string>
#include <vector>

#include "sheets/sheet_table.h"
#include "sheets/workbook_problem.h"
#include "sheets/zip_archive.h"

namespace pedigreewatch {

bool is_open_document(const ZipArchive& archive);

/// The names of the sheets in their order.
bool list_open_document_sheets(ZipArchive& archive, std::vector<std::string>& names, WorkbookProblem& problem);

/// Reads the sheet at that place, counted from 0, in one pass.
bool read_open_document_sheet(ZipArchive& archive, std::size_t place, SheetTable& table, WorkbookProblem& problem);

}  // namespace pedigreewatch
