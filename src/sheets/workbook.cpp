// Finds out which of the two kinds of workbooks it is, and which sheet is meant.

#include "sheets/workbook.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <utility>

#include "sheets/office_open_sheet.h"
#include "sheets/open_document_sheet.h"
#include "sheets/zip_archive.h"

namespace pedigreewatch {
namespace {

/// An opened workbook of either kind.
struct Workbook {
  ZipArchive archive;
  bool is_open_document = false;
  OfficeOpenBook book;  ///< of the other kind
  std::vector<std::string> names;
  std::vector<bool> is_hidden;
};

bool open_workbook(std::string_view bytes, Workbook& workbook, WorkbookProblem& problem) {
  if (!list_parts(bytes, workbook.archive, problem)) return false;
  workbook.is_open_document = is_open_document(workbook.archive);
  if (workbook.is_open_document) {
    if (!list_open_document_sheets(workbook.archive, workbook.names, problem)) return false;
    workbook.is_hidden.resize(workbook.names.size());
    return true;
  }
  if (!is_office_open(workbook.archive)) {
    problem.fault = WorkbookFault::no_workbook;
    return false;
  }
  if (!open_office_open_book(workbook.archive, workbook.book, problem)) return false;
  for (const SheetEntry& sheet : workbook.book.sheets) {
    workbook.names.push_back(sheet.name);
    workbook.is_hidden.push_back(sheet.is_hidden);
  }
  return true;
}

bool read_sheet(Workbook& workbook, std::size_t place, SheetTable& table, WorkbookProblem& problem) {
  if (workbook.is_open_document) return read_open_document_sheet(workbook.archive, place, table, problem);
  return read_office_open_sheet(workbook.archive, workbook.book, workbook.book.sheets[place], table, problem);
}

/// The place of the sheet of that name, else of that number.
std::optional<std::size_t> place_of(const std::vector<std::string>& names, std::string_view wish) {
  const auto found = std::find(names.begin(), names.end(), wish);
  if (found != names.end()) return static_cast<std::size_t>(found - names.begin());
  std::size_t number = 0;
  const auto [end, error] = std::from_chars(wish.data(), wish.data() + wish.size(), number);
  if (error != std::errc() || end != wish.data() + wish.size()) return std::nullopt;
  if (number == 0 || number > names.size()) return std::nullopt;
  return number - 1;
}

bool holds_table(const SheetTable& table) {
  return table.filled_row_count >= least_table_rows && table.column_count >= least_table_columns;
}

/// The first visible sheet that holds a table; else the first that holds anything.
bool choose_sheet(Workbook& workbook, SheetTable& table, std::size_t& chosen, WorkbookProblem& problem) {
  SheetTable first_filled;
  for (std::size_t place = 0; place < workbook.names.size(); ++place) {
    if (workbook.is_hidden[place]) continue;
    SheetTable tried;
    if (!read_sheet(workbook, place, tried, problem)) return false;
    const bool is_first_filled = first_filled.row_count == 0 && tried.row_count > 0;
    if (is_first_filled || holds_table(tried)) chosen = place;
    if (holds_table(tried)) {
      table = std::move(tried);
      return true;
    }
    if (is_first_filled) first_filled = std::move(tried);
  }
  table = std::move(first_filled);
  if (table.row_count > 0) return true;
  problem.fault = WorkbookFault::no_table;
  return false;
}

/// The first row that has cells enough for a header.
std::string_view headings_of(const SheetTable& table) {
  std::string_view rest = table.text;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find('\n'), rest.size());
    std::string_view row = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    while (row.ends_with('\t')) row.remove_suffix(1);
    std::size_t filled = 0;
    for (std::size_t k = 0; k < row.size(); ++k) filled += row[k] != '\t' && (k == 0 || row[k - 1] == '\t') ? 1 : 0;
    if (filled >= least_table_columns) return row;
  }
  return {};
}

/// The filled rows below the first of these headings.
std::int64_t rows_below(const SheetTable& table, std::string_view headings) {
  const std::string_view text = table.text;
  const std::size_t place = static_cast<std::size_t>(headings.data() - text.data()) + headings.size();
  std::int64_t rows = 0;
  for (std::size_t end = text.find('\n', place); end < text.size(); end = text.find('\n', end + 1)) {
    const std::size_t next = std::min(text.find('\n', end + 1), text.size());
    rows += text.substr(end + 1, next - std::min(end + 1, next)).find_first_not_of('\t') < next - end - 1 ? 1 : 0;
  }
  return rows;
}

/// Finds the sheets behind the chosen one that have its headings, as one for each year. What cannot be read is none.
void compare_sheets(Workbook& workbook, const SheetTable& table, WorkbookSheets& sheets) {
  constexpr std::size_t most_compared = 50;
  const std::string_view headings = headings_of(table);
  if (headings.empty()) return;
  const std::size_t end = std::min(workbook.names.size(), sheets.chosen + 1 + most_compared);
  for (std::size_t place = sheets.chosen + 1; place < end; ++place) {
    if (workbook.is_hidden[place]) continue;
    SheetTable other;
    WorkbookProblem ignored;
    if (!read_sheet(workbook, place, other, ignored) || headings_of(other) != headings) continue;
    const std::int64_t rows = rows_below(other, headings_of(other));
    if (rows > 0) sheets.alike.push_back({workbook.names[place], rows});
  }
}

std::string lower_start(std::string_view bytes) {
  constexpr std::size_t looked_at = 1024;
  std::string start(bytes.substr(0, looked_at));
  std::transform(start.begin(), start.end(), start.begin(),
                 [](char byte) { return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte; });
  return start;
}

bool has_text(std::string_view bytes, std::string_view text) {
  return bytes.find(text) != std::string_view::npos;
}

/// Pages and XML that are called a workbook; none for any other text.
WorkbookFault fault_of_markup(std::string_view bytes) {
  const std::string start = lower_start(bytes);
  const std::size_t first = start.find_first_not_of("\xEF\xBB\xBF \t\r\n");
  if (first == std::string::npos || start[first] != '<') return WorkbookFault::none;
  if (has_text(start, "urn:schemas-microsoft-com:office:spreadsheet")) return WorkbookFault::xml_2003;
  constexpr auto pages =
      std::to_array<std::string_view>({"<html", "<!doctype html", "<table", "<meta", "<head", "<body"});
  const bool is_page =
      std::any_of(pages.begin(), pages.end(), [&](std::string_view sign) { return has_text(start, sign); });
  return is_page ? WorkbookFault::html : WorkbookFault::none;
}

}  // namespace

WorkbookKind kind_of_workbook(std::string_view bytes, WorkbookProblem& problem) {
  using namespace std::string_view_literals;
  constexpr std::string_view archive = "PK\x03\x04", empty_archive = "PK\x05\x06", compound = "\xD0\xCF\x11\xE0";
  // The name of the part in which a compound file keeps a newer workbook that has a password.
  constexpr std::string_view encrypted = "E\0n\0c\0r\0y\0p\0t\0e\0d\0P\0a\0c\0k\0a\0g\0e"sv;
  problem = {};
  if (bytes.starts_with(archive) || bytes.starts_with(empty_archive)) return WorkbookKind::archive;
  if (bytes.starts_with(compound)) {
    problem.fault = has_text(bytes, encrypted) ? WorkbookFault::is_protected : WorkbookFault::old_workbook;
  } else {
    problem.fault = fault_of_markup(bytes);
  }
  return problem.fault == WorkbookFault::none ? WorkbookKind::none : WorkbookKind::unreadable;
}

bool read_workbook(std::string_view bytes, std::string_view sheet, SheetTable& table, WorkbookSheets& sheets,
                   WorkbookProblem& problem) {
  Workbook workbook;
  table = {};
  sheets = {};
  problem = {};
  if (!open_workbook(bytes, workbook, problem)) return false;
  sheets.names = workbook.names;
  sheets.was_named = !sheet.empty();
  if (!sheets.was_named) {
    if (!choose_sheet(workbook, table, sheets.chosen, problem)) return false;
    compare_sheets(workbook, table, sheets);
    return true;
  }
  const std::optional<std::size_t> place = place_of(workbook.names, sheet);
  if (!place) {
    problem.fault = WorkbookFault::no_such_sheet;
    problem.text = sheet;
    problem.choices = workbook.names;
    return false;
  }
  sheets.chosen = *place;
  if (!read_sheet(workbook, *place, table, problem)) return false;
  if (table.row_count > 0) return true;
  problem.fault = WorkbookFault::no_table;
  problem.sheet = table.sheet;
  return false;
}

}  // namespace pedigreewatch
