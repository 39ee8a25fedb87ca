// Workbooks that the programs write, opened again with the reader of this tree.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "support/read_table.h"

namespace pedigreewatch::test {

/// The names of its sheets in their order; the test fails when it is no workbook.
std::vector<std::string> sheets_of(const std::string& workbook);

/// A sheet as its table; the test fails when there is none of this name.
ReadTable sheet_of(const std::string& workbook, const std::string& sheet);

/// Expects the same cells. Of numbers the reader shows 15 digits, as spreadsheets do, and the tables have 17.
void expect_same_cells(const ReadTable& sheet, const ReadTable& table);

/// The bytes of a part; the test fails when there is none of this name.
std::string part_of(const std::string& workbook, std::string_view part);

}  // namespace pedigreewatch::test
