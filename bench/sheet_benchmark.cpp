// Makes a workbook of a herd, and measures how long one is read and what memory that takes.
//   sheet_benchmark --make FILE [ROWS]   20 columns: shared texts, numbers, dates by format; 100,000 rows
//   sheet_benchmark FILE                 reads it and prints seconds and peak memory

#include <sys/resource.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "sheets/workbook.h"
#include "support/workbook_files.h"

namespace {

using namespace pedigreewatch;

constexpr int column_count = 20, name_count = 5000;

std::string cell(int column, int row, std::string_view attributes, std::string_view value) {
  return "<c r=\"" + column_letters(static_cast<std::size_t>(column)) + std::to_string(row) + "\"" +
         std::string(attributes) + "><v>" + std::string(value) + "</v></c>";
}

/// Identifications of animal and parents, a name, a date, a sex; then numbers and texts in turns.
std::string cells_of(int row) {
  const auto number = [](int value) { return std::to_string(value); };
  constexpr std::string_view shared = " t=\"s\"";
  std::string cells;
  for (int column = 0; column < column_count; ++column) {
    switch (column) {
      case 0: cells += cell(column, row, "", "528000000" + number(100000 + row)); break;
      case 1:
      case 2: cells += cell(column, row, "", "528000000" + number(100000 + row / 2)); break;
      case 3: cells += cell(column, row, " s=\"1\"", number(30000 + row % 15000)); break;
      default:
        cells += column % 2 == 0 ? cell(column, row, shared, number(row * column % name_count))
                                 : cell(column, row, "", number(row % 977) + "." + number(column));
    }
  }
  return cells;
}

int make(const char* name, int row_count) {
  test::WorkbookPieces pieces;
  pieces.styles = "<cellXfs><xf numFmtId=\"0\"/><xf numFmtId=\"14\"/></cellXfs>";
  for (int i = 0; i < name_count; ++i) pieces.texts += "<si><t>Name of animal " + std::to_string(i) + "</t></si>";
  std::string rows;
  for (int row = 1; row <= row_count; ++row) {
    rows += "<row r=\"" + std::to_string(row) + "\">" + cells_of(row) + "</row>";
  }
  pieces.sheets = {"<sheetData>" + rows + "</sheetData>"};
  std::ofstream(name, std::ios::binary) << test::workbook_of(pieces);
  return 0;
}

int read(const char* name) {
  const auto start = std::chrono::steady_clock::now();
  std::ifstream file(name, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  SheetTable table;
  WorkbookSheets sheets;
  WorkbookProblem problem;
  if (!read_workbook(bytes, {}, table, sheets, problem)) {
    std::printf("%s\n", message_of(problem, ToolLanguage::english).c_str());
    return 1;
  }
  const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
  rusage usage = {};
  getrusage(RUSAGE_SELF, &usage);
  std::printf("%lld rows of %zu columns, a file of %.1f MB: %.2f s, %ld MB at most\n",
              static_cast<long long>(table.row_count), table.column_count, static_cast<double>(bytes.size()) / 1e6,
              seconds.count(), usage.ru_maxrss / 1000);
  return 0;
}

}  // namespace

int main(int count, char** arguments) {
  const bool makes = count > 2 && std::string_view(arguments[1]) == "--make";
  if (makes) return make(arguments[2], count > 3 ? std::atoi(arguments[3]) : 100'000);
  if (count == 2) return read(arguments[1]);
  std::fprintf(stderr, "usage: sheet_benchmark --make FILE [ROWS] | FILE\n");
  return 2;
}
