// Cells and rows that are alike are written once with a number. What a cell shows stands in paragraphs of it; its value
// in attributes, which tell more of numbers and dates.

#include "sheets/open_document_sheet.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "sheets/cell_values.h"
#include "sheets/xml_reader.h"

namespace pedigreewatch {
namespace {

constexpr std::string_view content_part = "content.xml", kind_part = "mimetype", list_part = "META-INF/manifest.xml";

/// A cell while it is read.
struct OpenCell {
  std::string type, value, shown;
  std::int64_t repeat = 1;
  bool has_error = false, has_formula = false, is_covered = false;
  int paragraph_count = 0;
};

struct SheetReader {
  XmlReader xml = {};
  SheetBuilder builder = {};
  WorkbookProblem& problem;
  OpenCell cell = {};
  std::int64_t row_repeat = 1;
  std::size_t column_definition = 0;  ///< how many columns were described
  bool is_in_cell = false;
  int paragraph_depth = 0;
  std::string text = {};  ///< what the cell means
};

std::int64_t number_in(std::string_view text, std::int64_t otherwise) {
  std::int64_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc() && end == text.data() + text.size() && value > 0 ? value : otherwise;
}

bool refuse(WorkbookFault fault, std::string_view part, WorkbookProblem& problem) {
  problem.fault = fault;
  problem.part = part;
  return false;
}

/// An encrypted document says so in its list of parts; its content is then noise.
bool is_encrypted(ZipArchive& archive) {
  const ZipPart* const part = find_part(archive, list_part);
  if (part == nullptr) return false;
  XmlReader reader = read_xml(open_part(*part, archive));
  for (;;) {
    switch (next_event(reader)) {
      case XmlEvent::start:
        if (local_name(reader.name) == "encryption-data") return true;
        break;
      case XmlEvent::done:
      case XmlEvent::broken: return false;
      default: break;
    }
  }
}

/// Opens the content; false when it is not there or locked.
bool open_content(ZipArchive& archive, XmlReader& reader, WorkbookProblem& problem) {
  const ZipPart* const part = find_part(archive, content_part);
  if (part == nullptr) return refuse(WorkbookFault::no_workbook, content_part, problem);
  if (is_encrypted(archive)) return refuse(WorkbookFault::is_protected, content_part, problem);
  reader = read_xml(open_part(*part, archive));
  return true;
}

bool is_hidden(std::string_view visibility) {
  return visibility == "collapse" || visibility == "filter";
}

bool start_row(SheetReader& reader) {
  reader.row_repeat = number_in(attribute_of(reader.xml, "table:number-rows-repeated"), 1);
  if (reader.builder.row >= most_sheet_rows && reader.builder.filled == 0) {
    // Behind the last row that there can be: nothing may stand there, which the first cell would show.
    return true;
  }
  if (!begin_row(reader.builder, reader.builder.row + 1, reader.problem)) return false;
  if (is_hidden(attribute_of(reader.xml, "table:visibility"))) {
    note_cell(reader.builder.table.hidden_rows, std::to_string(reader.builder.row));
  }
  return true;
}

void note_hidden_columns(SheetReader& reader) {
  const auto count = static_cast<std::size_t>(number_in(attribute_of(reader.xml, "table:number-columns-repeated"), 1));
  const std::size_t first = reader.column_definition;
  constexpr std::size_t most_columns = 16'384;
  if (count > most_columns || first > most_columns) return;
  reader.column_definition += count;
  if (!is_hidden(attribute_of(reader.xml, "table:visibility"))) return;
  const std::string letters = column_letters(first);
  note_cell(reader.builder.table.hidden_columns,
            count == 1 ? letters : letters + ":" + column_letters(first + count - 1));
}

void note_merged(SheetReader& reader) {
  const std::int64_t columns = number_in(attribute_of(reader.xml, "table:number-columns-spanned"), 1);
  const std::int64_t rows = number_in(attribute_of(reader.xml, "table:number-rows-spanned"), 1);
  constexpr std::int64_t most = 2'000'000;
  if ((columns == 1 && rows == 1) || columns > most || rows > most) return;
  const std::size_t last_column = reader.builder.next_column + static_cast<std::size_t>(columns) - 1;
  note_cell(reader.builder.table.merged, cell_place(reader.builder, reader.builder.next_column) + ":" +
                                             column_letters(last_column) +
                                             std::to_string(reader.builder.row + rows - 1));
}

void start_cell(SheetReader& reader, bool is_covered) {
  OpenCell& cell = reader.cell;
  cell = {};
  cell.is_covered = is_covered;
  reader.is_in_cell = true;
  reader.paragraph_depth = 0;
  std::string_view rest = reader.xml.attributes, name, value;
  while (take_attribute(rest, name, value)) {
    if (name == "table:number-columns-repeated") cell.repeat = number_in(value, 1);
    if (name == "office:value-type") cell.type = value;
    if (name == "table:formula") cell.has_formula = true;
    if (name == "calcext:value-type" && value == "error") cell.has_error = true;
    if (name == "office:value" || name == "office:date-value" || name == "office:time-value" ||
        name == "office:boolean-value" || name == "office:string-value") {
      append_text(cell.value, value);
    }
  }
  note_merged(reader);
}

/// Whether a text is that of an error: "#N/A", "#REF!", "Err:502".
bool is_error_text(std::string_view text) {
  return text.starts_with("Err:") || text == "#N/A" || (text.starts_with('#') && text.ends_with('!')) ||
         (text.starts_with('#') && text.ends_with('?'));
}

/// Leading zeros that are shown belong to what people see: "00012" of the number 12.
bool shows_leading_zeros(std::string_view shown, std::string_view value) {
  if (!shown.starts_with('0') || shown.find_first_not_of("0123456789") != std::string_view::npos) return false;
  const std::size_t first = shown.find_first_not_of('0');
  return (first == std::string_view::npos ? std::string_view("0") : shown.substr(first)) == value;
}

/// The numbers and the words of a text: "mrt 87" has one of each.
struct TextParts {
  int numbers = 0, words = 0;
};

TextParts parts_of(std::string_view text) {
  TextParts parts;
  char last = ' ';
  for (const char byte : text) {
    const auto kind_of = [](char one) {
      const bool is_letter = (one >= 'a' && one <= 'z') || (one >= 'A' && one <= 'Z') || (one & 0x80) != 0;
      return one >= '0' && one <= '9' ? 'n' : is_letter ? 'w' : ' ';
    };
    const char kind = kind_of(byte);
    if (kind == 'n' && kind_of(last) != 'n') ++parts.numbers;
    if (kind == 'w' && kind_of(last) != 'w') ++parts.words;
    last = byte;
  }
  return parts;
}

/// "1987-03-14T00:00:00" without a time of day that says nothing; the first day of a month is the month where no day is
/// shown, and the first of January the year.
std::string_view date_of(std::string_view value, std::string_view shown) {
  constexpr std::size_t day_length = 10, month_length = 7, year_length = 4;
  const std::size_t time = value.find('T');
  const bool has_time =
      time != std::string_view::npos && value.find_first_not_of("0:.", time + 1) != std::string_view::npos;
  if (has_time) return value;
  value = value.substr(0, time);
  if (value.size() != day_length || !value.ends_with("-01")) return value;
  const TextParts parts = parts_of(shown);
  if (parts.numbers == 1 && parts.words == 0 && value.ends_with("-01-01")) return value.substr(0, year_length);
  return parts.numbers + parts.words == 2 ? value.substr(0, month_length) : value;
}

/// What the cell means, in `reader.text`.
void read_cell(SheetReader& reader) {
  const OpenCell& cell = reader.cell;
  SheetTable& table = reader.builder.table;
  const std::string& shown = cell.shown;
  reader.text.clear();
  if (cell.has_error || (cell.has_formula && is_error_text(shown))) {
    note_cell(table.errors, cell_place(reader.builder, reader.builder.next_column) + " " + shown);
  } else if (cell.type == "float" || cell.type == "percentage" || cell.type == "currency") {
    const bool has_number = !shows_leading_zeros(shown, cell.value) && append_number(reader.text, cell.value, {});
    if (!has_number) reader.text = shown;
  } else if (cell.type == "date") {
    reader.text = cell.value.empty() ? std::string_view(shown) : date_of(cell.value, shown);
  } else if (cell.type == "boolean") {
    reader.text = cell.value == "true" ? "TRUE" : "FALSE";
  } else if (cell.type == "string" && shown.empty()) {
    reader.text = cell.value;
  } else {
    reader.text = shown;
    if (cell.type.empty() && cell.has_formula && shown.empty()) {
      note_cell(table.uncomputed, cell_place(reader.builder, reader.builder.next_column));
    }
  }
}

bool end_cell(SheetReader& reader) {
  reader.is_in_cell = false;
  SheetBuilder& builder = reader.builder;
  if (reader.cell.is_covered) {
    reader.text.clear();
  } else {
    read_cell(reader);
  }
  const auto repeat = static_cast<std::size_t>(std::min<std::int64_t>(reader.cell.repeat, most_sheet_rows));
  if (reader.text.empty()) {
    builder.next_column += repeat;
    return true;
  }
  for (std::size_t i = 0; i < repeat; ++i) {
    if (!add_cell(builder, builder.next_column, reader.text, reader.problem)) return false;
  }
  return true;
}

/// Elements within a cell: paragraphs, and what stands for blanks in them. Remarks and drawings are skipped.
bool start_in_cell(SheetReader& reader, std::string_view name) {
  OpenCell& cell = reader.cell;
  if (name == "text:p" || name == "text:h") {
    if (cell.paragraph_count++ > 0) cell.shown.push_back(' ');
    ++reader.paragraph_depth;
    return true;
  }
  if (reader.paragraph_depth == 0) return skip_element(reader.xml);
  if (name == "text:s" || name == "text:tab" || name == "text:line-break") cell.shown.push_back(' ');
  if (name == "office:annotation") return skip_element(reader.xml);
  return true;
}

bool take_start(SheetReader& reader) {
  const std::string_view name = reader.xml.name;
  if (reader.is_in_cell) return start_in_cell(reader, name);
  if (name == "table:table-row") return start_row(reader);
  if (name == "table:table-column") note_hidden_columns(reader);
  if (name == "table:table-cell" || name == "table:covered-table-cell") {
    start_cell(reader, name == "table:covered-table-cell");
  }
  const bool is_no_cell = name == "table:shapes" || name == "office:forms" || name == "table:table";
  return !is_no_cell || skip_element(reader.xml);
}

bool take_end(SheetReader& reader) {
  const std::string_view name = reader.xml.name;
  if (name == "text:p" || name == "text:h") reader.paragraph_depth = std::max(0, reader.paragraph_depth - 1);
  if (name == "table:table-cell" || name == "table:covered-table-cell") return end_cell(reader);
  if (name == "table:table-row") return repeat_row(reader.builder, reader.row_repeat - 1, reader.problem);
  return true;
}

/// Reads what stands within the table that has just begun.
bool read_rows(SheetReader& reader) {
  for (std::size_t depth = 1; depth > 0;) {
    const XmlEvent event = next_event(reader.xml);
    if (event == XmlEvent::done || event == XmlEvent::broken) break;
    if (event == XmlEvent::text && reader.is_in_cell && reader.paragraph_depth > 0) {
      append_text(reader.cell.shown, reader.xml);
    }
    if (event == XmlEvent::end) {
      --depth;
      if (depth > 0 && !take_end(reader)) return false;
    }
    if (event != XmlEvent::start) continue;
    const std::size_t open = reader.xml.open_at.size();
    if (!take_start(reader)) break;
    if (reader.xml.open_at.size() == open) ++depth;  // else it was skipped
  }
  if (reader.problem.fault != WorkbookFault::none) return false;
  reader.problem.fault = reader.xml.fault;
  if (reader.builder.row > 0) reader.problem.cell = cell_place(reader.builder, reader.builder.next_column);
  return reader.xml.fault == WorkbookFault::none;
}

/// Steps to the start of the next table; false at the end, or when something is broken.
bool next_table(XmlReader& reader) {
  for (;;) {
    switch (next_event(reader)) {
      case XmlEvent::start:
        if (reader.name == "table:table") return true;
        // Histories of changes and the like hold tables of their own.
        if (reader.name == "table:tracked-changes" && !skip_element(reader)) return false;
        break;
      case XmlEvent::end:
      case XmlEvent::text: break;
      case XmlEvent::done:
      case XmlEvent::broken: return false;
    }
  }
}

}  // namespace

bool is_open_document(const ZipArchive& archive) {
  const ZipPart* const kind = find_part(archive, kind_part);
  return kind != nullptr && find_part(archive, content_part) != nullptr &&
         kind->bytes.starts_with("application/vnd.oasis.opendocument.spreadsheet");
}

bool list_open_document_sheets(ZipArchive& archive, std::vector<std::string>& names, WorkbookProblem& problem) {
  XmlReader reader;
  if (!open_content(archive, reader, problem)) return false;
  while (next_table(reader)) {
    if (names.size() < most_sheets) names.push_back(attribute_text(reader, "table:name"));
    if (!skip_element(reader)) break;
  }
  return reader.fault == WorkbookFault::none || refuse(reader.fault, content_part, problem);
}

bool read_open_document_sheet(ZipArchive& archive, std::size_t place, SheetTable& table, WorkbookProblem& problem) {
  SheetReader reader = {.problem = problem};
  if (!open_content(archive, reader.xml, problem)) return false;
  problem.part = content_part;
  for (std::size_t i = 0; i <= place; ++i) {
    if (!next_table(reader.xml) || (i < place && !skip_element(reader.xml)))
      return refuse(reader.xml.fault, content_part, problem);
  }
  reader.builder.table.sheet = problem.sheet = attribute_text(reader.xml, "table:name");
  if (!read_rows(reader) || !finish_table(reader.builder, problem)) return false;
  table = std::move(reader.builder.table);
  problem = {};
  return true;
}

}  // namespace pedigreewatch
