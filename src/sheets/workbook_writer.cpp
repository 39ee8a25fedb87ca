// The first rows of a sheet wait until its columns have their widths, which stand in front of them; from then on rows
// go to the archive in large pieces. What belongs to all sheets comes behind them.

#include "sheets/workbook_writer.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>

#include "core/fixed_text.h"
#include "sheets/sheet_table.h"
#include "text/plain_letters.h"
#include "text/utf_8.h"

namespace pedigreewatch {
namespace {

constexpr Wording too_many_columns = {
    "table {1} has more columns than the {2} of a workbook: make text tables, without --workbook",
    "tabel {1} heeft meer kolommen dan de {2} van een werkmap: maak teksttabellen, zonder --workbook"};
constexpr Wording too_large = {
    "it would be larger than 4 GB, which no workbook can be: make text tables, without --workbook",
    "het zou groter worden dan 4 GB, en dat kan geen werkmap zijn: maak teksttabellen, zonder --workbook"};

constexpr std::size_t piece_size = 1'000'000;
/// Rows by which columns get their widths.
constexpr std::int64_t rows_for_widths = 200;
constexpr std::size_t least_width = 6, most_width = 60, width_of_button = 3;
/// Spreadsheets show longer texts of the format of texts as a row of signs.
constexpr std::size_t most_letters_of_format = 255;
constexpr std::size_t most_sheet_name = 31;

/// What cells look like, by their place in the styles.
enum class CellStyle : std::uint8_t { number, heading, text, text_like_formula, day };

constexpr std::string_view xml_start = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n";
constexpr std::string_view main_names = "xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\"";
constexpr std::string_view link_names =
    "xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\"";

// In the order of CellStyle. 49 is the format of texts, 14 that of days in the way of the reader's country.
constexpr std::string_view styles =
    "><fonts count=\"2\"><font><sz val=\"11\"/><name val=\"Calibri\"/></font>"
    "<font><b/><sz val=\"11\"/><name val=\"Calibri\"/></font></fonts>"
    "<fills count=\"2\"><fill><patternFill patternType=\"none\"/></fill>"
    "<fill><patternFill patternType=\"gray125\"/></fill></fills>"
    "<borders count=\"1\"><border><left/><right/><top/><bottom/><diagonal/></border></borders>"
    "<cellStyleXfs count=\"1\"><xf numFmtId=\"0\" fontId=\"0\" fillId=\"0\" borderId=\"0\"/></cellStyleXfs>"
    "<cellXfs count=\"5\"><xf numFmtId=\"0\" fontId=\"0\" fillId=\"0\" borderId=\"0\" xfId=\"0\"/>"
    "<xf numFmtId=\"49\" fontId=\"1\" fillId=\"0\" borderId=\"0\" xfId=\"0\" applyNumberFormat=\"1\" applyFont=\"1\"/>"
    "<xf numFmtId=\"49\" fontId=\"0\" fillId=\"0\" borderId=\"0\" xfId=\"0\" applyNumberFormat=\"1\"/>"
    "<xf numFmtId=\"49\" fontId=\"0\" fillId=\"0\" borderId=\"0\" xfId=\"0\" applyNumberFormat=\"1\" quotePrefix=\"1\"/>"
    "<xf numFmtId=\"14\" fontId=\"0\" fillId=\"0\" borderId=\"0\" xfId=\"0\" applyNumberFormat=\"1\"/></cellXfs>"
    "<cellStyles count=\"1\"><cellStyle name=\"Normal\" xfId=\"0\" builtinId=\"0\"/></cellStyles></styleSheet>";

std::string_view reference_of(char32_t letter) {
  switch (letter) {
    case '&': return "&amp;";
    case '<': return "&lt;";
    case '>': return "&gt;";
    case '"': return "&quot;";
    default: return {};
  }
}

/// Letters that XML may not hold.
bool is_refused(char32_t letter) {
  return (letter < ' ' && letter != '\t' && letter != '\n') || letter == 0xFFFE || letter == 0xFFFF;
}

/// Whether the text goes on like "_x000D_", which spreadsheets take for a letter.
bool is_letter_escape(std::string_view text) {
  constexpr std::size_t length = 7;
  if (text.size() < length || !text.starts_with("_x") || text[length - 1] != '_') return false;
  return text.substr(2, 4).find_first_not_of("0123456789abcdefABCDEF") == std::string_view::npos;
}

constexpr std::array<bool, 256> plain_bytes = [] {
  std::array<bool, 256> is_plain = {};
  for (std::size_t byte = ' '; byte <= '~'; ++byte) {
    is_plain[byte] = byte != '&' && byte != '<' && byte != '>' && byte != '"' && byte != '_';
  }
  return is_plain;
}();

bool is_plain(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char byte) { return plain_bytes[static_cast<unsigned char>(byte)]; });
}

void append_xml(std::string& xml, std::string_view text) {
  if (is_plain(text)) {
    xml += text;
    return;
  }
  while (!text.empty()) {
    if (is_letter_escape(text)) xml += "_x005F";
    const char32_t letter = take_letter(text);
    if (const std::string_view reference = reference_of(letter); !reference.empty()) {
      xml += reference;
    } else {
      append_letter(xml, is_refused(letter) ? replacement_letter : letter);
    }
  }
}

bool is_blank(char byte) {
  return byte == ' ' || byte == '\t' || byte == '\n';
}

std::size_t count_letters(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(
      text.begin(), text.end(), [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }));
}

/// The text as far as a cell holds it. Spreadsheets count letters beyond U+FFFF twice.
std::string cut_text(std::string_view text, std::size_t most) {
  constexpr std::string_view cut_mark = "[...]";
  constexpr char32_t last_single = 0xFFFF;
  std::size_t count = 0;
  std::string first;  // as much as leaves room for the mark
  for (std::string_view rest = text; !rest.empty();) {
    const char32_t letter = take_letter(rest);
    count += letter > last_single ? 2 : 1;
    if (count > most) return first.append(cut_mark);
    if (count + cut_mark.size() <= most) append_letter(first, letter);
  }
  return std::string(text);
}

/// A number as XML schema and people write it.
bool is_number(std::string_view digits) {
  const auto take_digits = [&] {
    const std::size_t count = std::min(digits.find_first_not_of("0123456789"), digits.size());
    digits.remove_prefix(count);
    return count > 0;
  };
  if (digits.starts_with('-')) digits.remove_prefix(1);
  if (!take_digits()) return false;
  if (digits.starts_with('.')) {
    digits.remove_prefix(1);
    if (!take_digits()) return false;
  }
  if (digits.empty()) return true;
  if (digits.front() != 'e' && digits.front() != 'E') return false;
  digits.remove_prefix(1);
  if (digits.starts_with('-') || digits.starts_with('+')) digits.remove_prefix(1);
  return take_digits() && digits.empty();
}

/// The number of a day; 0 when it is no day, or one that programs count differently.
std::int64_t serial_of(std::string_view day) {
  constexpr std::size_t length = 10;
  if (day.size() != length || day[4] != '-' || day[7] != '-') return 0;
  int year = 0;
  unsigned month = 0, day_of_month = 0;
  const auto read = [&](std::size_t first, std::size_t last, auto& number) {
    const auto [stop, error] = std::from_chars(day.data() + first, day.data() + last, number);
    return error == std::errc() && stop == day.data() + last;
  };
  if (!read(0, 4, year) || !read(5, 7, month) || !read(8, length, day_of_month)) return 0;
  namespace calendar = std::chrono;
  const calendar::year_month_day date = calendar::year(year) / calendar::month(month) / calendar::day(day_of_month);
  constexpr calendar::sys_days first_day = calendar::year(1899) / 12 / 30, alike_from = calendar::year(1900) / 3 / 1;
  if (!date.ok() || calendar::sys_days(date) < alike_from) return 0;
  return (calendar::sys_days(date) - first_day).count();
}

void append_number(std::string& text, std::int64_t number) {
  std::array<char, 24> digits;
  text.append(digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr);
}

const std::string& letters_of(WorkbookWriter& writer, std::size_t column) {
  while (writer.letters.size() <= column) writer.letters.push_back(column_letters(writer.letters.size()));
  return writer.letters[column];
}

/// The first letters of a text.
std::string_view first_letters(std::string_view text, std::size_t count) {
  std::string_view rest = text;
  for (; count > 0 && !rest.empty(); --count) take_letter(rest);
  return text.substr(0, text.size() - rest.size());
}

std::string allowed_name(std::string_view table) {
  std::string name(table);
  std::replace_if(
      name.begin(), name.end(),
      [](char byte) { return std::string_view("[]:*?/\\'").find(byte) != std::string_view::npos; }, ' ');
  return name.empty() ? std::string("-") : name;
}

/// A name for a sheet that no other has.
std::string take_sheet_name(const WorkbookWriter& writer) {
  const std::string wanted = allowed_name(writer.sheet.table);
  std::string name(first_letters(wanted, most_sheet_name));
  const auto is_taken = [&] {
    return std::any_of(writer.sheets.begin(), writer.sheets.end(),
                       [&](const std::string& other) { return small_letters(other) == small_letters(name); });
  };
  for (int number = 2; is_taken(); ++number) {
    const std::string ending = " (" + std::to_string(number) + ")";
    name = std::string(first_letters(wanted, most_sheet_name - ending.size())) + ending;
  }
  return name;
}

/// Everything in front of the rows.
std::string head_of(const WorkbookWriter& writer) {
  const bool is_first = writer.sheets.size() == 1;
  std::string head = std::string(xml_start) + "<worksheet " + std::string(main_names) +
                     "><sheetViews><sheetView workbookViewId=\"0\"" + (is_first ? " tabSelected=\"1\"" : "") +
                     "><pane ySplit=\"1\" topLeftCell=\"A2\" activePane=\"bottomLeft\" state=\"frozen\"/>"
                     "<selection pane=\"bottomLeft\" activeCell=\"A2\" sqref=\"A2\"/></sheetView></sheetViews>";
  const std::vector<std::size_t>& widths = writer.sheet.widths;
  if (!widths.empty()) head += "<cols>";
  for (std::size_t column = 0; column < widths.size(); ++column) {
    const std::string number = std::to_string(column + 1);
    const std::size_t width = std::clamp(widths[column], least_width, most_width) + width_of_button;
    head.append("<col min=\"").append(number).append("\" max=\"").append(number).append("\" width=\"");
    head.append(std::to_string(width)).append("\" customWidth=\"1\"/>");
  }
  if (!widths.empty()) head += "</cols>";
  return head + "<sheetData>";
}

void hand_over_rows(WorkbookWriter& writer) {
  OpenSheet& sheet = writer.sheet;
  if (!sheet.has_begun) {
    begin_part(writer.zip, "xl/worksheets/sheet" + std::to_string(writer.sheets.size()) + ".xml");
    extend_part(writer.zip, head_of(writer));
    sheet.has_begun = true;
  }
  extend_part(writer.zip, sheet.xml);
  sheet.size += sheet.xml.size();
  sheet.xml.clear();
}

void open_sheet(WorkbookWriter& writer) {
  const std::string table = std::move(writer.sheet.table);
  writer.sheet = {};
  writer.sheet.table = table;
  writer.sheets.push_back(take_sheet_name(writer));
}

void close_sheet(WorkbookWriter& writer) {
  hand_over_rows(writer);
  const OpenSheet& sheet = writer.sheet;
  std::string tail = "</sheetData>";
  std::string filter;
  if (sheet.rows > 0 && sheet.columns > 0) {
    const std::string last = letters_of(writer, sheet.columns - 1), rows = std::to_string(sheet.rows);
    const std::string cells = "A1:" + last + rows;
    tail += "<autoFilter ref=\"" + cells + "\"/><ignoredErrors><ignoredError sqref=\"" + cells +
            "\" numberStoredAsText=\"1\"/></ignoredErrors>";
    filter = "$A$1:$" + last + "$" + rows;
  }
  extend_part(writer.zip, tail + "</worksheet>");
  end_part(writer.zip);
  writer.filters.push_back(filter);
}

/// Goes on in another sheet, below the same heading.
void go_on_elsewhere(WorkbookWriter& writer) {
  close_sheet(writer);
  open_sheet(writer);
  const std::vector<std::string> heading = std::move(writer.heading);
  writer.heading.clear();
  for (const std::string& name : heading) add_text_cell(writer, name);
  end_sheet_row(writer);
}

void begin_row(WorkbookWriter& writer) {
  OpenSheet& sheet = writer.sheet;
  if (sheet.is_in_row) return;
  const bool is_full = sheet.rows >= writer.limits.rows || sheet.size + sheet.xml.size() >= writer.limits.bytes;
  if (is_full && sheet.rows > 1) go_on_elsewhere(writer);
  sheet.is_in_row = true;
  sheet.xml += "<row r=\"";
  append_number(sheet.xml, sheet.rows + 1);
  sheet.xml += "\">";
}

/// Begins a cell; false when there is no room for it.
bool begin_cell(WorkbookWriter& writer, CellStyle style, std::size_t letters) {
  begin_row(writer);
  OpenSheet& sheet = writer.sheet;
  const std::size_t column = sheet.column++;
  if (column >= writer.limits.columns) {
    writer.fault = WorkbookWritingFault::too_many_columns;
    writer.fault_sheet = sheet.table;
    return false;
  }
  sheet.columns = std::max(sheet.columns, sheet.column);
  if (sheet.rows < rows_for_widths) {
    sheet.widths.resize(sheet.columns);
    sheet.widths[column] = std::max(sheet.widths[column], letters);
  }
  sheet.xml += "<c r=\"";
  sheet.xml += letters_of(writer, column);
  append_number(sheet.xml, sheet.rows + 1);
  if (style != CellStyle::number) {
    sheet.xml += "\" s=\"";
    append_number(sheet.xml, static_cast<std::int64_t>(style));
  }
  return true;
}

CellStyle style_of_text(const WorkbookWriter& writer, std::string_view text, std::size_t letters) {
  if (writer.sheet.rows == 0) return CellStyle::heading;
  constexpr std::string_view beginnings = "=+-@\t\r\n";
  if (beginnings.find(text.front()) != std::string_view::npos) return CellStyle::text_like_formula;
  return letters > most_letters_of_format ? CellStyle::number : CellStyle::text;
}

void add_links(std::string& xml, std::string_view id, std::string_view kind, std::string_view target) {
  constexpr std::string_view kinds = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";
  xml.append("<Relationship Id=\"").append(id).append("\" Type=\"").append(kinds).append(kind);
  xml.append("\" Target=\"").append(target).append("\"/>");
}

constexpr std::string_view links_start =
    "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">";

std::string workbook_part(const WorkbookWriter& writer) {
  std::string xml = std::string(xml_start) + "<workbook " + std::string(main_names) + " " + std::string(link_names) +
                    "><bookViews><workbookView activeTab=\"0\"/></bookViews><sheets>";
  for (std::size_t k = 0; k < writer.sheets.size(); ++k) {
    const std::string number = std::to_string(k + 1);
    xml += "<sheet name=\"";
    append_xml(xml, writer.sheets[k]);
    xml.append("\" sheetId=\"").append(number).append("\" r:id=\"rId").append(number).append("\"/>");
  }
  xml += "</sheets>";
  std::string names;
  for (std::size_t k = 0; k < writer.filters.size(); ++k) {
    if (writer.filters[k].empty()) continue;
    names += "<definedName name=\"_xlnm._FilterDatabase\" localSheetId=\"" + std::to_string(k) + "\" hidden=\"1\">'";
    append_xml(names, writer.sheets[k]);
    names += "'!" + writer.filters[k] + "</definedName>";
  }
  if (!names.empty()) xml += "<definedNames>" + names + "</definedNames>";
  return xml + "</workbook>";
}

std::string types_part(std::size_t sheets) {
  constexpr std::string_view kinds = "application/vnd.openxmlformats-officedocument.spreadsheetml.";
  std::string xml = std::string(xml_start) +
                    "<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">"
                    "<Default Extension=\"rels\" "
                    "ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/>"
                    "<Default Extension=\"xml\" ContentType=\"application/xml\"/>";
  const auto add = [&](const std::string& part, std::string_view kind) {
    xml.append("<Override PartName=\"").append(part).append("\" ContentType=\"").append(kinds).append(kind);
    xml.append("+xml\"/>");
  };
  add("/xl/workbook.xml", "sheet.main");
  for (std::size_t k = 1; k <= sheets; ++k) add("/xl/worksheets/sheet" + std::to_string(k) + ".xml", "worksheet");
  add("/xl/styles.xml", "styles");
  return xml + "</Types>";
}

std::string links_of_workbook(std::size_t sheets) {
  std::string xml = std::string(xml_start) + std::string(links_start);
  for (std::size_t k = 1; k <= sheets; ++k) {
    const std::string number = std::to_string(k);
    add_links(xml, "rId" + number, "worksheet", "worksheets/sheet" + number + ".xml");
  }
  add_links(xml, "rId" + std::to_string(sheets + 1), "styles", "styles.xml");
  return xml + "</Relationships>";
}

/// Stands in front, for that is where programs look for what kind of archive it is.
void add_first_part(ZipWriter& zip) {
  std::string links = std::string(xml_start) + std::string(links_start);
  add_links(links, "rId1", "officeDocument", "xl/workbook.xml");
  add_part(zip, "_rels/.rels", links + "</Relationships>");
}

}  // namespace

void begin_sheet(WorkbookWriter& writer, std::string_view name) {
  if (writer.zip.parts.empty()) add_first_part(writer.zip);
  writer.sheet.table = name;
  writer.heading.clear();
  open_sheet(writer);
}

void skip_cell(WorkbookWriter& writer) {
  begin_row(writer);
  if (writer.sheet.rows == 0) writer.heading.emplace_back();
  ++writer.sheet.column;
}

void add_text_cell(WorkbookWriter& writer, std::string_view text) {
  if (text.empty()) return skip_cell(writer);
  if (text.size() > writer.limits.letters) {
    if (const std::string cut = cut_text(text, writer.limits.letters); cut != text) return add_text_cell(writer, cut);
  }
  begin_row(writer);
  OpenSheet& sheet = writer.sheet;
  if (sheet.rows == 0) writer.heading.emplace_back(text);
  const std::size_t letters = count_letters(text);
  if (!begin_cell(writer, style_of_text(writer, text, letters), letters)) return;
  const bool has_blank_ends = is_blank(text.front()) || is_blank(text.back());
  sheet.xml += has_blank_ends ? "\" t=\"inlineStr\"><is><t xml:space=\"preserve\">" : "\" t=\"inlineStr\"><is><t>";
  append_xml(sheet.xml, text);
  sheet.xml += "</t></is></c>";
}

void add_number_cell(WorkbookWriter& writer, std::string_view digits) {
  if (!is_number(digits)) return add_text_cell(writer, digits);
  if (!begin_cell(writer, CellStyle::number, digits.size())) return;
  writer.sheet.xml += "\"><v>";
  writer.sheet.xml += digits;
  writer.sheet.xml += "</v></c>";
}

void add_date_cell(WorkbookWriter& writer, std::string_view day) {
  const std::int64_t serial = serial_of(day);
  if (serial == 0) return add_text_cell(writer, day);
  if (!begin_cell(writer, CellStyle::day, day.size())) return;
  writer.sheet.xml += "\"><v>";
  append_number(writer.sheet.xml, serial);
  writer.sheet.xml += "</v></c>";
}

void end_sheet_row(WorkbookWriter& writer) {
  begin_row(writer);
  OpenSheet& sheet = writer.sheet;
  sheet.xml += "</row>";
  sheet.is_in_row = false;
  sheet.column = 0;
  ++sheet.rows;
  if (sheet.rows >= rows_for_widths && sheet.xml.size() >= piece_size) hand_over_rows(writer);
}

void end_sheet(WorkbookWriter& writer) {
  close_sheet(writer);
  writer.sheet = {};
}

bool finish_workbook(WorkbookWriter& writer) {
  const std::size_t sheets = writer.sheets.size();
  add_part(writer.zip, "xl/workbook.xml", workbook_part(writer));
  add_part(writer.zip, "xl/_rels/workbook.xml.rels", links_of_workbook(sheets));
  add_part(writer.zip, "xl/styles.xml",
           std::string(xml_start) + "<styleSheet " + std::string(main_names) + std::string(styles));
  add_part(writer.zip, "[Content_Types].xml", types_part(sheets));
  if (!finish_archive(writer.zip) && writer.fault == WorkbookWritingFault::none) {
    writer.fault = WorkbookWritingFault::too_large;
  }
  return writer.fault == WorkbookWritingFault::none;
}

std::string message_of(const WorkbookWriter& writer, ToolLanguage language) {
  if (writer.fault == WorkbookWritingFault::none) return {};
  if (writer.fault == WorkbookWritingFault::too_large) return phrase(too_large, language);
  return phrase(too_many_columns, language, {writer.fault_sheet, std::to_string(writer.limits.columns)});
}

}  // namespace pedigreewatch
