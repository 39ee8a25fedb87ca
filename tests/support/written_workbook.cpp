#include "support/written_workbook.h"

#include <gtest/gtest.h>

#include <cmath>

#include "sheets/cell_values.h"
#include "sheets/workbook.h"
#include "sheets/zip_archive.h"

namespace pedigreewatch::test {
namespace {

/// Everything at once: a sheet, and the names of all.
SheetTable opened(const std::string& workbook, const std::string& sheet, WorkbookSheets& sheets) {
  SheetTable table;
  WorkbookProblem problem;
  EXPECT_TRUE(read_workbook(workbook, sheet, table, sheets, problem)) << message_of(problem, ToolLanguage::english);
  return table;
}

}  // namespace

std::vector<std::string> sheets_of(const std::string& workbook) {
  WorkbookSheets sheets;
  opened(workbook, "1", sheets);
  return sheets.names;
}

ReadTable sheet_of(const std::string& workbook, const std::string& sheet) {
  WorkbookSheets sheets;
  return read_table(opened(workbook, sheet, sheets).text);
}

void expect_same_cells(const ReadTable& sheet, const ReadTable& table) {
  EXPECT_EQ(sheet.names, table.names);
  ASSERT_EQ(sheet.rows.size(), table.rows.size());
  constexpr std::size_t digits_shown = 15;
  for (std::size_t row = 0; row < table.rows.size(); ++row) {
    for (std::size_t column = 0; column < table.names.size(); ++column) {
      const std::string &shown = sheet.rows[row][column], &written = table.rows[row][column];
      double value = 0.0, number = 0.0;
      if (written.size() > digits_shown && number_of(shown, value) && number_of(written, number)) {
        EXPECT_NEAR(value, number, 1e-14 * std::abs(number)) << written;
      } else {
        EXPECT_EQ(shown, written) << table.names[column];
      }
    }
  }
}

std::string part_of(const std::string& workbook, std::string_view part) {
  ZipArchive archive;
  WorkbookProblem problem;
  EXPECT_TRUE(list_parts(workbook, archive, problem));
  const ZipPart* const found = find_part(archive, part);
  EXPECT_NE(found, nullptr) << part;
  if (found == nullptr) return {};
  PartReader reader = open_part(*found, archive);
  std::string bytes, piece(1000, '\0');
  for (std::size_t count = 1; count > 0;) {
    count = read_piece(reader, piece);
    bytes.append(piece, 0, count);
  }
  EXPECT_EQ(reader.fault, WorkbookFault::none) << part;
  return bytes;
}

}  // namespace pedigreewatch::test
