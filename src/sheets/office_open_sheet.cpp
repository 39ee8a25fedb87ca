// A sheet is rows of cells: <row r="3"><c r="B3" s="2" t="s"><v>7</v></c></row>; what is merged stands behind them.

#include "sheets/office_open_sheet.h"

#include <charconv>
#include <utility>

#include "sheets/xml_reader.h"

namespace pedigreewatch {
namespace {

/// A cell while it is read.
struct OpenCell {
  std::size_t column = 0;
  CellFormat format;
  std::string type;
  std::string value;  ///< of <v>, or the letters of <is>
  bool has_formula = false;
};

struct SheetReader {
  const OfficeOpenBook& book;
  XmlReader xml = {};
  SheetBuilder builder = {};
  WorkbookProblem& problem;
  OpenCell cell = {};
  bool is_in_value = false;
  std::string text = {};  ///< what the cell shows
};

bool refuse(SheetReader& reader, WorkbookFault fault, std::string_view place, std::string_view text) {
  reader.problem.fault = fault;
  reader.problem.sheet = reader.builder.table.sheet;
  reader.problem.cell = place;
  reader.problem.text = text;
  return false;
}

std::int64_t number_in(std::string_view text) {
  std::int64_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc() && end == text.data() + text.size() ? value : -1;
}

bool is_true(std::string_view text) {
  return text == "1" || text == "true";
}

/// The column, counted from 0, of a place such as "BC12"; false where no letters stand.
bool column_of(std::string_view place, std::size_t& column) {
  constexpr std::size_t letter_count = 26, most_letters = 3;
  std::size_t value = 0, length = 0;
  for (; length < place.size() && place[length] >= 'A' && place[length] <= 'Z'; ++length) {
    if (length == most_letters) return false;
    value = value * letter_count + static_cast<std::size_t>(place[length] - 'A') + 1;
  }
  column = value - 1;
  return length > 0;
}

bool start_row(SheetReader& reader) {
  const std::string_view number = attribute_of(reader.xml, "r");
  const std::int64_t row = number.empty() ? reader.builder.row + 1 : number_in(number);
  if (!begin_row(reader.builder, row, reader.problem)) return false;
  if (is_true(attribute_of(reader.xml, "hidden"))) {
    note_cell(reader.builder.table.hidden_rows, std::to_string(row));
  }
  return true;
}

bool start_cell(SheetReader& reader) {
  OpenCell& cell = reader.cell;
  cell.column = reader.builder.next_column;
  cell.format = {};
  cell.type.clear();
  cell.value.clear();
  cell.has_formula = false;
  std::string_view rest = reader.xml.attributes, name, value;
  while (take_attribute(rest, name, value)) {
    if (name == "r" && !column_of(value, cell.column)) return refuse(reader, WorkbookFault::odd_cell, value, value);
    if (name == "t") cell.type = value;
    if (name != "s") continue;
    const std::int64_t number = number_in(value);
    if (number >= 0 && static_cast<std::size_t>(number) < reader.book.formats.size()) {
      cell.format = reader.book.formats[static_cast<std::size_t>(number)];
    }
  }
  return reader.builder.row > 0 || refuse(reader, WorkbookFault::odd_cell, {}, {});
}

/// Letters that XML cannot hold are written as _x000D_.
void append_escaped(std::string& text, std::string_view value) {
  constexpr std::size_t escape_length = 7;
  for (std::size_t place = 0; place < value.size();) {
    const std::size_t next = std::min(value.find("_x", place), value.size());
    text.append(value.substr(place, next - place));
    place = next;
    if (place == value.size()) return;
    const std::string_view escape = value.substr(place, escape_length);
    std::uint32_t letter = 0;
    const bool is_long = escape.size() == escape_length && escape.back() == '_';
    const char* const end = escape.data() + escape.size() - 1;
    if (is_long && std::from_chars(escape.data() + 2, end, letter, 16).ptr == end) {
      if (letter < ' ') {
        text.push_back(' ');
      } else {
        append_text(text, "&#" + std::to_string(letter) + ";");
      }
      place += escape_length;
    } else {
      text.push_back('_');
      ++place;
    }
  }
}

bool append_shared_text(SheetReader& reader) {
  const std::int64_t number = number_in(reader.cell.value);
  const SharedTexts& texts = reader.book.texts;
  if (number < 0 || static_cast<std::size_t>(number) >= texts.ends.size()) {
    const std::string place = cell_place(reader.builder, reader.cell.column);
    return refuse(reader, WorkbookFault::no_such_text, place, reader.cell.value);
  }
  const auto index = static_cast<std::size_t>(number);
  const std::size_t start = index == 0 ? 0 : texts.ends[index - 1];
  append_escaped(reader.text, std::string_view(texts.letters).substr(start, texts.ends[index] - start));
  return true;
}

/// A date that is no day stays the number that it is.
void append_number_or_date(SheetReader& reader) {
  const OpenCell& cell = reader.cell;
  double serial = 0;
  const bool is_date = cell.format.kind != CellKind::number && number_of(cell.value, serial);
  if (is_date && append_date_of_serial(reader.text, serial, cell.format.kind, reader.book.dates)) return;
  if (is_date) note_cell(reader.builder.table.odd_dates, cell_place(reader.builder, cell.column));
  if (!append_number(reader.text, cell.value, is_date ? CellFormat{} : cell.format)) reader.text = cell.value;
}

bool end_cell(SheetReader& reader) {
  const OpenCell& cell = reader.cell;
  SheetTable& table = reader.builder.table;
  reader.text.clear();
  if (cell.value.empty()) {
    const bool shows_nothing = cell.type == "str";  // a formula whose text is empty
    if (cell.has_formula && !shows_nothing) note_cell(table.uncomputed, cell_place(reader.builder, cell.column));
  } else if (cell.type == "s") {
    if (!append_shared_text(reader)) return false;
  } else if (cell.type == "e") {
    note_cell(table.errors, cell_place(reader.builder, cell.column) + " " + cell.value);
  } else if (cell.type == "b") {
    reader.text = is_true(cell.value) ? "TRUE" : "FALSE";
  } else if (cell.type.empty() || cell.type == "n") {
    append_number_or_date(reader);
  } else {
    append_escaped(reader.text, cell.value);
  }
  return add_cell(reader.builder, cell.column, reader.text, reader.problem);
}

void note_hidden_columns(SheetReader& reader) {
  if (!is_true(attribute_of(reader.xml, "hidden"))) return;
  const std::int64_t first = number_in(attribute_of(reader.xml, "min"));
  const std::int64_t last = number_in(attribute_of(reader.xml, "max"));
  if (first < 1 || last < first) return;
  const std::string letters = column_letters(static_cast<std::size_t>(first) - 1);
  const bool is_one = first == last;
  note_cell(reader.builder.table.hidden_columns,
            is_one ? letters : letters + ":" + column_letters(static_cast<std::size_t>(last) - 1));
}

bool take_start(SheetReader& reader) {
  const std::string_view name = local_name(reader.xml.name);
  if (name == "row") return start_row(reader);
  if (name == "c") return start_cell(reader);
  if (name == "v" || name == "t") reader.is_in_value = true;
  if (name == "f") reader.cell.has_formula = true;
  if (name == "col") note_hidden_columns(reader);
  if (name == "mergeCell") note_cell(reader.builder.table.merged, attribute_text(reader.xml, "ref"));
  return name != "rPh" || skip_element(reader.xml);
}

bool take_end(SheetReader& reader) {
  reader.is_in_value = false;
  return local_name(reader.xml.name) != "c" || end_cell(reader);
}

}  // namespace

bool read_office_open_sheet(ZipArchive& archive, const OfficeOpenBook& book, const SheetEntry& sheet, SheetTable& table,
                            WorkbookProblem& problem) {
  problem.sheet = sheet.name;
  problem.part = sheet.part;
  const ZipPart* const part = find_part(archive, sheet.part);
  if (part == nullptr) {
    problem.fault = WorkbookFault::cut_off;
    return false;
  }
  SheetReader reader = {.book = book, .xml = read_xml(open_part(*part, archive)), .problem = problem};
  reader.builder.table.sheet = sheet.name;
  for (;;) {
    const XmlEvent event = next_event(reader.xml);
    if (event == XmlEvent::done) break;
    if (event == XmlEvent::text && reader.is_in_value) append_text(reader.cell.value, reader.xml);
    const bool is_sound = event == XmlEvent::start ? take_start(reader) : event != XmlEvent::end || take_end(reader);
    if (is_sound && event != XmlEvent::broken) continue;
    if (problem.fault == WorkbookFault::none) problem.fault = reader.xml.fault;
    if (problem.cell.empty() && reader.builder.row > 0) problem.cell = cell_place(reader.builder, reader.cell.column);
    return false;
  }
  if (!finish_table(reader.builder, problem)) return false;
  table = std::move(reader.builder.table);
  problem = {};
  return true;
}

}  // namespace pedigreewatch
