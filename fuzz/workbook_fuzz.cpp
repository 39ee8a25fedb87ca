// Any workbook. The first line says what the rest is: "archive" (the file as it is), or a part of a workbook that is
// otherwise sound: "sheet", "styles", "texts", "book", or "document" (the content of an OpenDocument). What is read
// must be a table: as many lines as rows, as many cells in each filled one as the widest has, letters of UTF-8. What is
// not must be refused with a word about it.

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "sheets/workbook.h"
#include "support/workbook_files.h"
#include "text/utf_8.h"

namespace {

using namespace pedigreewatch;

void require(bool holds) {
  if (!holds) std::abort();
}

std::string file_of(std::string_view kind, const std::string& rest) {
  test::WorkbookPieces pieces;
  pieces.is_packed = false;
  pieces.sheets = {"<sheetData><row r=\"1\"><c s=\"1\"><v>1</v></c><c t=\"s\"><v>0</v></c></row></sheetData>"};
  if (kind == "document") return test::open_document_of(rest);
  if (kind == "sheet") pieces.sheets = {rest};
  if (kind == "styles") pieces.styles = rest;
  if (kind == "texts") pieces.texts = rest;
  if (kind == "book") pieces.book_settings = rest;
  return kind == "archive" ? rest : test::workbook_of(pieces);
}

/// The cells of a line: delimiters within quotation marks are none.
std::size_t cells_of(std::string_view line) {
  std::size_t count = 1;
  bool is_quoted = false;
  for (const char byte : line) {
    if (byte == '"') is_quoted = !is_quoted;
    if (byte == '\t' && !is_quoted) ++count;
    require(byte == '\t' || static_cast<unsigned char>(byte) >= ' ');
  }
  require(!is_quoted);
  return count;
}

void check_table(const SheetTable& table) {
  std::string_view rest = table.text;
  std::int64_t lines = 0, filled = 0;
  while (!rest.empty()) {
    const std::size_t end = rest.find('\n');
    require(end != std::string_view::npos);
    const std::string_view line = rest.substr(0, end);
    ++lines;
    filled += line.empty() ? 0 : 1;
    require(line.empty() || cells_of(line) == table.column_count);
    rest.remove_prefix(end + 1);
  }
  require(lines == table.row_count);
  require(filled == table.filled_row_count || table.column_count == 1);
  for (std::string_view text = table.text; !text.empty(); text.remove_prefix(letter_length(text))) {
    require(letter_length(text) > 0);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const std::string_view input(reinterpret_cast<const char*>(bytes), size);
  const std::size_t end = std::min(input.find('\n'), input.size());
  const std::string file = file_of(input.substr(0, end), std::string(input.substr(std::min(end + 1, input.size()))));
  WorkbookProblem problem;
  SheetTable table;
  WorkbookSheets sheets;
  kind_of_workbook(file, problem);
  if (read_workbook(file, {}, table, sheets, problem)) {
    require(problem.fault == WorkbookFault::none && sheets.chosen < sheets.names.size());
    check_table(table);
  } else {
    require(problem.fault != WorkbookFault::none);
    require(!message_of(problem, ToolLanguage::dutch).empty());
  }
  return 0;
}
