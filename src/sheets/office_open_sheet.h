// Workbooks of Office Open XML (.xlsx, .xlsm; ECMA-376): which parts there are, formats, shared texts, and one sheet.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "sheets/cell_values.h"
#include "sheets/sheet_table.h"
#include "sheets/workbook_problem.h"
#include "sheets/zip_archive.h"

namespace pedigreewatch {

struct SheetEntry {
  std::string name;
  std::string part;  ///< of the archive
  bool is_hidden = false;
};

/// Many texts behind one another.
struct SharedTexts {
  std::string letters;
  std::vector<std::size_t> ends;
};

struct OfficeOpenBook {
  std::vector<SheetEntry> sheets;  ///< in their order
  DateSystem dates = DateSystem::since_1900;
  std::vector<CellFormat> formats;  ///< by the number that cells have
  SharedTexts texts;
  std::string styles_part, texts_part;
};

/// Whether the archive is such a workbook, or a near relation of it, which `open_office_open_book` refuses by name.
bool is_office_open(const ZipArchive& archive);

/// Reads everything but the sheets.
bool open_office_open_book(ZipArchive& archive, OfficeOpenBook& book, WorkbookProblem& problem);

/// Reads one sheet in one pass.
bool read_office_open_sheet(ZipArchive& archive, const OfficeOpenBook& book, const SheetEntry& sheet, SheetTable& table,
                            WorkbookProblem& problem);

}  // namespace pedigreewatch
