#include "sheets/workbook.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/files.h"
#include "support/lines.h"
#include "support/places.h"
#include "support/workbook_files.h"

namespace pedigreewatch::test {
namespace {

using namespace std::string_literals;

/// What was read of a workbook.
struct Read {
  bool is_read = false;
  SheetTable table;
  WorkbookSheets sheets;
  WorkbookProblem problem;
};

Read read(const std::string& bytes, const std::string& sheet = {}) {
  Read result;
  result.is_read = read_workbook(bytes, sheet, result.table, result.sheets, result.problem);
  return result;
}

std::string message(const Read& result, ToolLanguage language = ToolLanguage::english) {
  return result.is_read ? "" : message_of(result.problem, language);
}

/// A cell with a text of its own.
std::string cell(const std::string& place, const std::string& text) {
  return "<c r=\"" + place + "\" t=\"inlineStr\"><is><t>" + text + "</t></is></c>";
}

std::string row(int number, const std::string& cells) {
  return "<row r=\"" + std::to_string(number) + "\">" + cells + "</row>";
}

std::string sheet_data(const std::string& rows) {
  return "<sheetData>" + rows + "</sheetData>";
}

/// The text of a sheet with these rows.
std::string text_of(const std::string& rows, WorkbookPieces pieces = {}) {
  pieces.sheets = {sheet_data(rows)};
  const Read result = read(workbook_of(pieces));
  EXPECT_TRUE(result.is_read) << message(result);
  return result.table.text;
}

TEST(ReadWorkbook, LineNOfTheTextIsRowNOfTheSheet) {
  EXPECT_EQ(text_of(row(2, cell("A2", "id") + cell("B2", "sire") + cell("C2", "dam")) +
                    row(5, cell("A5", "rex") + cell("C5", "saar"))),
            "\nid\tsire\tdam\n\n\nrex\t\tsaar\n");
}

TEST(ReadWorkbook, EveryFilledRowHasTheCellsOfTheWidest) {
  EXPECT_EQ(text_of(row(1, cell("B1", "x")) + row(2, cell("A2", "y")) + row(3, cell("D3", "z"))),
            "\tx\t\t\ny\t\t\t\n\t\t\tz\n");
}

TEST(ReadWorkbook, ReadsUnpackedPartsToo) {
  WorkbookPieces pieces;
  pieces.is_packed = false;
  EXPECT_EQ(text_of(row(1, cell("A1", "x")), pieces), "x\n");
}

TEST(ReadWorkbook, CellsWithoutAPlaceStandBehindTheLastOne) {
  EXPECT_EQ(text_of("<row><c><v>1</v></c><c r=\"C1\"><v>3</v></c><c><v>4</v></c></row><row><c><v>5</v></c></row>"),
            "1\t\t3\t4\n5\t\t\t\n");
}

TEST(ReadWorkbook, TextsWithQuotesAreQuotedAndTabsAndLineEndsBecomeBlanks) {
  EXPECT_EQ(text_of(row(1, cell("A1", "a&#9;b") + cell("B1", "the &quot;great&quot;") + cell("C1", "x&#10;y"))),
            "a b\t\"the \"\"great\"\"\"\tx y\n");
}

TEST(ReadWorkbook, SharedTextsAreTheirPiecesWithoutPronunciation) {
  WorkbookPieces pieces;
  pieces.texts =
      "<si><t>Zo\u00EB</t></si><si><r><t>Re</t></r><r><t xml:space=\"preserve\">x </t></r>"
      "<rPh sb=\"0\" eb=\"1\"><t>no</t></rPh></si><si><t>a_x000D_b</t></si><si/>";
  EXPECT_EQ(text_of("<row r=\"1\"><c r=\"A1\" t=\"s\"><v>1</v></c><c r=\"B1\" t=\"s\"><v>0</v></c>"
                    "<c r=\"C1\" t=\"s\"><v>2</v></c><c r=\"D1\" t=\"s\"><v>3</v></c></row>",
                    pieces),
            "Rex \tZo\u00EB\ta b\n");
}

TEST(ReadWorkbook, NumbersHaveNoExponent) {
  EXPECT_EQ(text_of("<row r=\"1\"><c><v>5.2800000000123399E14</v></c><c><v>528000000001234</v></c><c><v>0.5</v></c>"
                    "<c><v>1.2300000000000001E-3</v></c><c><v>-7</v></c></row>"),
            "528000000001234\t528000000001234\t0.5\t0.00123\t-7\n");
}

/// Formats: 0 general, 1 built-in date, 2 own date with time, 3 month and year, 4 five zeros, 5 a time.
WorkbookPieces with_formats() {
  WorkbookPieces pieces;
  pieces.styles =
      "<numFmts><numFmt numFmtId=\"164\" formatCode=\"dd/mm/yyyy\\ hh:mm\"/>"
      "<numFmt numFmtId=\"165\" formatCode=\"[$-413]mmmm\\ yyyy;@\"/><numFmt numFmtId=\"166\" formatCode=\"00000\"/>"
      "</numFmts><cellStyleXfs><xf numFmtId=\"14\"/></cellStyleXfs><cellXfs><xf numFmtId=\"0\"/><xf numFmtId=\"14\"/>"
      "<xf numFmtId=\"164\"/><xf numFmtId=\"165\"/><xf numFmtId=\"166\"/><xf numFmtId=\"20\"/></cellXfs>";
  return pieces;
}

TEST(ReadWorkbook, DatesAreThoseOfTheFormat) {
  // 31850 is the 14th of March 1987 when days are counted from 1900.
  EXPECT_EQ(text_of("<row r=\"1\"><c s=\"1\"><v>31850</v></c><c s=\"0\"><v>31850</v></c><c s=\"2\"><v>31850.25</v></c>"
                    "<c s=\"3\"><v>31837</v></c><c s=\"4\"><v>12</v></c><c s=\"5\"><v>0.75</v></c>"
                    "<c s=\"2\"><v>31850</v></c><c t=\"d\"><v>1987-03-14</v></c></row>",
                    with_formats()),
            "1987-03-14\t31850\t1987-03-14T06:00:00\t1987-03\t00012\t18:00:00\t1987-03-14\t1987-03-14\n");
}

TEST(ReadWorkbook, DatesMayBeCountedFrom1904) {
  WorkbookPieces pieces = with_formats();
  pieces.book_settings = "<workbookPr date1904=\"1\"/>";
  // 1462 days less.
  EXPECT_EQ(text_of("<row r=\"1\"><c s=\"1\"><v>30388</v></c></row>", pieces), "1987-03-14\n");
}

TEST(NoteCell, KeepsTheFirstTwentyAndCountsAll) {
  NotedCells noted;
  for (int k = 1; k <= 22; ++k) note_cell(noted, "A" + std::to_string(k));
  EXPECT_EQ(noted.count, 22);
  ASSERT_EQ(noted.first.size(), 20U);
  EXPECT_EQ(noted.first.back(), "A20");
}

TEST(ReadWorkbook, ADateThatIsNoDayStaysANumberAndIsTold) {
  WorkbookPieces pieces = with_formats();
  pieces.sheets = {sheet_data("<row r=\"1\"><c r=\"A1\" s=\"1\"><v>-5</v></c><c s=\"1\"><v>9999999</v></c></row>")};
  const Read result = read(workbook_of(pieces));
  EXPECT_EQ(result.table.text, "-5\t9999999\n");
  EXPECT_EQ(result.table.odd_dates.first, (std::vector<std::string>{"A1", "B1"}));
}

TEST(ReadWorkbook, FormulasHaveTheValueThatWasKeptForThem) {
  WorkbookPieces pieces;
  pieces.sheets = {
      sheet_data("<row r=\"3\"><c r=\"A3\" t=\"str\"><f>B1&amp;C1</f><v>rex</v></c>"
                 "<c r=\"B3\"><f>1+1</f><v>2</v></c><c r=\"C3\"><f>1+1</f></c>"
                 "<c r=\"D3\" t=\"e\"><f>X</f><v>#REF!</v></c><c r=\"E3\" t=\"b\"><v>1</v></c>"
                 "<c r=\"F3\" t=\"str\"><f>\"\"</f><v></v></c></row>")};
  const Read result = read(workbook_of(pieces));
  EXPECT_EQ(result.table.text, "\n\nrex\t2\t\t\tTRUE\n");
  EXPECT_EQ(result.table.errors.first, std::vector<std::string>{"D3 #REF!"});
  EXPECT_EQ(result.table.uncomputed.first, std::vector<std::string>{"C3"});
  EXPECT_EQ(result.table.errors.count, 1);
}

TEST(ReadWorkbook, HiddenAndMergedPlacesAreReadAndTold) {
  WorkbookPieces pieces;
  pieces.sheets = {
      "<cols><col min=\"2\" max=\"3\" hidden=\"1\"/><col min=\"5\" max=\"5\" hidden=\"true\"/>"
      "<col min=\"6\" max=\"6\"/></cols>" +
      sheet_data("<row r=\"2\" hidden=\"1\">" + cell("A2", "x") + "</row>") +
      "<mergeCells><mergeCell ref=\"A1:C1\"/></mergeCells>"};
  const Read result = read(workbook_of(pieces));
  EXPECT_EQ(result.table.text, "\nx\n");
  EXPECT_EQ(result.table.hidden_rows.first, std::vector<std::string>{"2"});
  EXPECT_EQ(result.table.hidden_columns.first, (std::vector<std::string>{"B:C", "E"}));
  EXPECT_EQ(result.table.merged.first, std::vector<std::string>{"A1:C1"});
}

const std::string table_rows =
    sheet_data(row(1, cell("A1", "id") + cell("B1", "sire") + cell("C1", "dam")) + row(2, cell("A2", "rex")));

TEST(ReadWorkbook, TheFirstVisibleSheetWithATableIsTaken) {
  WorkbookPieces pieces;
  pieces.names = {"Hidden", "Cover", "Narrow", "Dogs"};
  const std::string one_row = sheet_data(row(1, cell("A1", "a") + cell("B1", "b") + cell("C1", "c")));
  const std::string two_columns = sheet_data(row(1, cell("A1", "a") + cell("B1", "b")) + row(2, cell("A2", "c")));
  pieces.sheets = {table_rows, one_row, two_columns, table_rows};
  pieces.sheet_attributes = "state=\"hidden\"";
  const Read result = read(workbook_of(pieces));
  EXPECT_EQ(result.sheets.chosen, 3U);
  EXPECT_EQ(result.table.sheet, "Dogs");
  EXPECT_FALSE(result.sheets.was_named);
  EXPECT_EQ(read(workbook_of(pieces), "Hidden").table.sheet, "Hidden");
  EXPECT_EQ(read(workbook_of(pieces), "3").table.sheet, "Narrow");
  EXPECT_TRUE(read(workbook_of(pieces), "3").sheets.was_named);
}

/// `2002 1, 2003 2`: the sheets that have the headings of the one that is read, with their rows.
std::string alike_in(const WorkbookPieces& pieces, const std::string& sheet = {}) {
  std::string text;
  for (const AlikeSheet& other : read(workbook_of(pieces), sheet).sheets.alike) {
    text += (text.empty() ? "" : ", ") + other.name + " " + std::to_string(other.rows);
  }
  return text;
}

TEST(ReadWorkbook, SheetsOfTheSameHeadingsAreTold) {
  const std::string header = cell("A3", "id") + cell("B3", "sire") + cell("C3", "dam");
  const std::string below_title = sheet_data(row(1, cell("A1", "Year 2003")) + row(3, header) +
                                             row(4, cell("A4", "a")) + row(6, cell("B6", "b") + cell("D6", "note")));
  const std::string other_headings =
      sheet_data(row(1, cell("A1", "id") + cell("B1", "sire") + cell("C1", "mother")) + row(2, cell("A2", "rex")));
  const std::string no_animals = sheet_data(row(1, cell("A1", "id") + cell("B1", "sire") + cell("C1", "dam")));
  WorkbookPieces pieces;
  pieces.names = {"2001", "2002", "Other", "Empty", "2003"};
  pieces.sheets = {table_rows, table_rows, other_headings, no_animals, below_title};
  EXPECT_EQ(alike_in(pieces), "2002 1, 2003 2");
  EXPECT_EQ(alike_in(pieces, "2001"), "") << "somebody has chosen";
}

TEST(ReadWorkbook, FiftySheetsAreCompared) {
  const auto count_alike = [](int others) {
    WorkbookPieces pieces;
    pieces.names = {"first"};
    pieces.sheets = {table_rows};
    for (int k = 0; k < others; ++k) {
      pieces.names.push_back("s" + std::to_string(k));
      pieces.sheets.push_back(table_rows);
    }
    return read(workbook_of(pieces)).sheets.alike.size();
  };
  EXPECT_EQ(count_alike(50), 50U);
  EXPECT_EQ(count_alike(51), 50U);
}

TEST(ReadWorkbook, WithoutATableTheFirstSheetThatHoldsAnythingIsTaken) {
  WorkbookPieces pieces;
  pieces.names = {"Empty", "Few"};
  pieces.sheets = {sheet_data(""), sheet_data(row(1, cell("A1", "x")))};
  EXPECT_EQ(read(workbook_of(pieces)).table.sheet, "Few");
  EXPECT_EQ(message(read(workbook_of(pieces), "Empty")),
            "the workbook holds nothing that could be read (sheet \"Empty\").");
  EXPECT_EQ(message(read(workbook_of(pieces), "Cats")),
            "there is no sheet \"Cats\". Choose one with --sheet NAME (or its number): \"Empty\", \"Few\".");
  EXPECT_EQ(message(read(workbook_of(pieces), "3"), ToolLanguage::dutch),
            "er is geen blad \"3\". Kies er een met --sheet NAAM (of het nummer): \"Empty\", \"Few\".");
}

TEST(ReadWorkbook, ANameGoesBeforeANumber) {
  WorkbookPieces pieces;
  pieces.names = {"2", "1"};
  pieces.sheets = {table_rows, table_rows};
  EXPECT_EQ(read(workbook_of(pieces), "1").sheets.chosen, 1U);
}

// --- What is broken or hostile ---

std::string refusal(const std::string& rows) {
  WorkbookPieces pieces;
  pieces.sheets = {sheet_data(rows)};
  return message(read(workbook_of(pieces)));
}

constexpr std::string_view save_again =
    " Open it in the spreadsheet program, save it again as .xlsx, .ods or CSV, and take that.";

TEST(ReadWorkbook, CellsOutOfTheirOrderAreRefusedWithTheirPlace) {
  EXPECT_EQ(refusal(row(3, cell("B3", "x") + cell("A3", "y"))),
            "the cells of the workbook are not in their order (sheet \"Dogs\", cell A3)." + std::string(save_again));
  EXPECT_TRUE(has(refusal(row(3, "") + row(3, "")), "not in their order"));
  EXPECT_TRUE(has(refusal("<row r=\"0\"/>"), "not in their order"));
  EXPECT_TRUE(has(refusal(row(1, "<c r=\"1\"><v>1</v></c>")), "not in their order"));
}

TEST(ReadWorkbook, ATextThatIsNotThereIsRefusedWithItsCell) {
  EXPECT_EQ(refusal(row(4, "<c r=\"D4\" t=\"s\"><v>7</v></c>")),
            "a cell refers to the text number \"7\", which is not there (sheet \"Dogs\", cell D4)." +
                std::string(save_again));
  EXPECT_TRUE(has(refusal(row(4, "<c r=\"D4\" t=\"s\"><v>-1</v></c>")), "\"-1\""));
}

TEST(ReadWorkbook, RowsAndColumnsHaveBounds) {
  EXPECT_EQ(text_of(row(1, cell("ALL1", "x"))), std::string(999, '\t') + "x\n");
  EXPECT_EQ(refusal(row(1, cell("ALM1", "x"))),
            "\"x\" stands too far to the right (sheet \"Dogs\", cell ALM1); at most 1000 columns are read. "
            "Remove what is not needed there.");
  EXPECT_EQ(text_of(row(1048576, cell("A1048576", "x"))), std::string(1048575, '\n') + "x\n");
  EXPECT_EQ(refusal(row(1048577, cell("A1048577", "x"))),
            "there is a row 1048577 (sheet \"Dogs\"); at most 1048576 rows are read.");
}

TEST(ReadWorkbook, BrokenXmlIsRefused) {
  EXPECT_TRUE(has(refusal("<row r=\"1\"><c r=\"A1\"></row>"), "is broken (sheet \"Dogs\", cell A1)"));
  EXPECT_TRUE(has(refusal("<row r=\"1\""), "is broken"));
  EXPECT_TRUE(has(refusal(row(1, cell("A1", "Zo\xEB"))), "is not written in UTF-8 (sheet \"Dogs\", cell A1)"));
}

/// A workbook whose first sheet is these bytes.
std::string workbook_with_sheet(const std::string& bytes) {
  std::vector<ArchivePart> parts = parts_of({});
  for (ArchivePart& part : parts) {
    if (part.name == "xl/worksheets/sheet1.xml") part.bytes = bytes;
  }
  return archive_of(parts);
}

TEST(ReadWorkbook, DefinitionsAreRefused) {
  EXPECT_TRUE(has(message(read(workbook_with_sheet("<!DOCTYPE x [<!ENTITY a \"aaaa\">]><worksheet/>"))), "(DOCTYPE)"));
}

TEST(ReadWorkbook, OtherEncodingsOfXmlAreRefused) {
  EXPECT_TRUE(has(message(read(workbook_with_sheet("\xFF\xFE<\0w\0"s))), "not written in UTF-8"));
}

TEST(ReadWorkbook, LevelsAndLengthsHaveBounds) {
  const auto nested = [](std::size_t levels) {
    std::string text;
    for (std::size_t i = 0; i < levels; ++i) text += "<x>";
    for (std::size_t i = 0; i < levels; ++i) text += "</x>";
    return message(read(workbook_with_sheet(text)));
  };
  EXPECT_TRUE(has(nested(most_xml_levels), "holds nothing"));
  EXPECT_TRUE(has(nested(most_xml_levels + 1), "has more than 64 levels"));
  const auto with_text = [](std::size_t length) {
    return message(read(workbook_with_sheet("<w>" + std::string(length, 'x') + "</w>")));
  };
  EXPECT_TRUE(has(with_text(most_xml_token / 2), "holds nothing"));
  EXPECT_TRUE(has(with_text(2 * most_xml_token), "longer than a million letters"));
}

TEST(ReadWorkbook, DamagedPartsAreRefused) {
  std::vector<ArchivePart> parts = parts_of({});
  for (ArchivePart& part : parts) {
    if (part.name == "xl/worksheets/sheet1.xml") part.checksum_error = 1;
  }
  EXPECT_EQ(message(read(archive_of(parts))),
            "the part \"xl/worksheets/sheet1.xml\" of the workbook is damaged. Copy or export it again.");
}

TEST(ReadWorkbook, ACutOffFileIsRefused) {
  const std::string whole = workbook_of({});
  for (const std::size_t kept : {std::size_t{4}, whole.size() / 2, whole.size() - 1}) {
    EXPECT_EQ(message(read(whole.substr(0, kept))), "this workbook is not complete. Copy or export it again.");
  }
}

TEST(ReadWorkbook, OtherArchivesAreRefused) {
  EXPECT_TRUE(has(message(read(archive_of({{"letter.txt", "x"}}))), "an archive (zip) and no workbook"));
  EXPECT_TRUE(has(message(read(archive_of({}))), "an archive (zip) and no workbook"));
}

TEST(ReadWorkbook, ManyRepeatedCellsLeaveNoMoreThanTheBound) {
  const std::string text(60'000, 'x');
  const Read result = read(open_document_of(
      "<table:table table:name=\"A\"><table:table-row table:number-rows-repeated=\"1000000\"><table:table-cell "
      "table:number-columns-repeated=\"100\" office:value-type=\"string\"><text:p>" +
      text + "</text:p></table:table-cell></table:table-row></table:table>"));
  EXPECT_EQ(message(result), "the sheet holds more than 256 MB of text (sheet \"A\"); it was not read further.");
}

// --- OpenDocument ---

std::string document_cell(const std::string& attributes, const std::string& shown) {
  return "<table:table-cell " + attributes + "><text:p>" + shown + "</text:p></table:table-cell>";
}

std::string document_table(const std::string& name, const std::string& rows) {
  return "<table:table table:name=\"" + name + "\">" + rows + "</table:table>";
}

std::string document_row(const std::string& cells, const std::string& attributes = {}) {
  return "<table:table-row " + attributes + ">" + cells + "</table:table-row>";
}

const std::string text_type = "office:value-type=\"string\"";

TEST(ReadOpenDocument, CellsMeanWhatTheyShow) {
  const Read result = read(open_document_of(document_table(
      "Dogs", document_row(document_cell(text_type, "Zo\u00EB<text:s/>x") +
                           document_cell("office:value-type=\"float\" office:value=\"5.28E14\"", "5,28E+14") +
                           document_cell("office:value-type=\"float\" office:value=\"12\"", "00012") +
                           document_cell("office:value-type=\"date\" office:date-value=\"1987-03-14\"", "14-03-87") +
                           document_cell("office:value-type=\"date\" office:date-value=\"1987-03-14T08:30:00\"", "x") +
                           document_cell("office:value-type=\"boolean\" office:boolean-value=\"true\"", "WAAR") +
                           "<table:table-cell><text:p>a</text:p><text:p>b</text:p></table:table-cell>"))));
  EXPECT_EQ(result.table.text, "Zo\u00EB x\t528000000000000\t00012\t1987-03-14\t1987-03-14T08:30:00\tTRUE\ta b\n");
  EXPECT_EQ(result.table.sheet, "Dogs");
}

TEST(ReadOpenDocument, AMonthOrAYearIsShownWithoutADay) {
  const auto date = [](const std::string& value, const std::string& shown) {
    return document_cell("office:value-type=\"date\" office:date-value=\"" + value + "\"", shown);
  };
  const Read result = read(open_document_of(
      document_table("Dogs", document_row(date("1987-03-01", "mrt 87") + date("1987-03-01", "03-1987") +
                                          date("1987-01-01", "1987") + date("1987-03-01", "1 mrt 87") +
                                          date("1987-03-14", "mrt 87") + date("1987-03-01T00:00:00", "1987-03-01")))));
  EXPECT_EQ(result.table.text, "1987-03\t1987-03\t1987\t1987-03-01\t1987-03-14\t1987-03-01\n");
}

TEST(ReadOpenDocument, RepeatedRowsAndCellsAreReadAndBlankEndsAreNot) {
  const std::string blank = "<table:table-cell table:number-columns-repeated=\"16384\"/>";
  const Read result = read(open_document_of(document_table(
      "Dogs",
      document_row(document_cell(text_type + " table:number-columns-repeated=\"2\"", "x") + blank) +
          document_row(blank, "table:number-rows-repeated=\"2\"") +
          document_row("<table:table-cell/>" + document_cell(text_type, "y"), "table:number-rows-repeated=\"2\"") +
          document_row(blank, "table:number-rows-repeated=\"1048571\""))));
  EXPECT_TRUE(result.is_read) << message(result);
  EXPECT_EQ(result.table.text, "x\tx\n\n\n\ty\n\ty\n");
  EXPECT_EQ(result.table.row_count, 5);
}

TEST(ReadOpenDocument, ErrorsRemarksHiddenAndMergedPlacesAreTold) {
  const Read result = read(open_document_of(document_table(
      "Dogs",
      "<table:table-column/><table:table-column table:number-columns-repeated=\"2\" table:visibility=\"collapse\"/>" +
          document_row(document_cell(text_type + " calcext:value-type=\"error\" table:formula=\"of:=x\"", "#N/A") +
                           "<table:table-cell table:number-columns-spanned=\"2\" table:number-rows-spanned=\"1\" " +
                           text_type +
                           "><office:annotation><text:p>remark</text:p></office:annotation><text:p>m</text:p>"
                           "</table:table-cell><table:covered-table-cell/>",
                       "table:visibility=\"filter\""))));
  EXPECT_EQ(result.table.text, "\tm\n");
  EXPECT_EQ(result.table.errors.first, std::vector<std::string>{"A1 #N/A"});
  EXPECT_EQ(result.table.merged.first, std::vector<std::string>{"B1:C1"});
  EXPECT_EQ(result.table.hidden_rows.first, std::vector<std::string>{"1"});
  EXPECT_EQ(result.table.hidden_columns.first, std::vector<std::string>{"B:C"});
}

TEST(ReadOpenDocument, SheetsAreChosenByNameOrNumber) {
  const std::string cells = document_cell(text_type + " table:number-columns-repeated=\"3\"", "x");
  const std::string bytes = open_document_of(document_table("A", document_row(document_cell(text_type, "a"))) +
                                             document_table("B", document_row(cells) + document_row(cells)));
  EXPECT_EQ(read(bytes).table.sheet, "B");
  EXPECT_EQ(read(bytes, "1").table.text, "a\n");
  EXPECT_TRUE(has(message(read(bytes, "C")), "\"A\", \"B\""));
}

TEST(ReadOpenDocument, APasswordIsTold) {
  std::vector<ArchivePart> parts = {{"mimetype", "application/vnd.oasis.opendocument.spreadsheet", false},
                                    {"content.xml", "noise", false},
                                    {"META-INF/manifest.xml", "<m:manifest><m:encryption-data/></m:manifest>"}};
  EXPECT_EQ(message(read(archive_of(parts))), "this workbook has a password. Save it without one, and take that.");
}

// --- Workbooks of other programs: the same sheet, written by a library and saved by an office program ---

TEST(ReadWorkbook, ReadsWhatOtherProgramsWrite) {
  for (const char* const name : {"written_by_library.xlsx", "written_by_office.xlsx", "written_by_office.ods"}) {
    const Read result = read(bytes_of(source_folder() + "/tests/sheets/files/" + name));
    ASSERT_TRUE(result.is_read) << name << ": " << message(result);
    EXPECT_EQ(result.table.sheet, "Dogs");
    const bool is_computed = result.table.uncomputed.count == 0;
    EXPECT_EQ(is_computed, std::string_view(name) != "written_by_library.xlsx");
    EXPECT_EQ(result.table.text,
              "Reg. no\tName\tSire\tDam\tSex\tBorn\tWeight\tChip\tWhelped\n"
              "00001\tZo\u00EB\t\t\tF\t1987-03-14\t12.5\t528000000001234\t1987-03-14T08:30:00\n"
              "00002\t\"Rex \"\"the dog\"\"\"\t\t\tM\t1986-01-02\t0.3\t528000000001235\t\n"
              "00003\ttwo lines\t2\t1\tM\t1990-12-31\t" +
                  std::string(is_computed ? "14" : "") +
                  "\t528000000001236\t\n"
                  "\n"
                  "3 animals\t\t\t\t\t\t\t\t\n");
    EXPECT_EQ(result.table.errors.first, std::vector<std::string>{"J4 #N/A"});
    EXPECT_EQ(result.table.merged.first, std::vector<std::string>{"A6:C6"});
    EXPECT_EQ(result.table.hidden_rows.first, std::vector<std::string>{"3"});
    EXPECT_EQ(result.table.hidden_columns.first, std::vector<std::string>{"H"});
  }
}

// --- What is no workbook that can be read ---

WorkbookFault fault_of(const std::string& bytes) {
  WorkbookProblem problem;
  kind_of_workbook(bytes, problem);
  return problem.fault;
}

TEST(KindOfWorkbook, KnowsWorkbooksThatAreNotRead) {
  WorkbookProblem problem;
  EXPECT_EQ(kind_of_workbook("PK\x03\x04rest", problem), WorkbookKind::archive);
  EXPECT_EQ(kind_of_workbook("id;sire;dam\n", problem), WorkbookKind::none);
  EXPECT_EQ(kind_of_workbook("<1 year;x\n", problem), WorkbookKind::none);
  EXPECT_EQ(fault_of("\xD0\xCF\x11\xE0 and so on"), WorkbookFault::old_workbook);
  EXPECT_EQ(fault_of("\xD0\xCF\x11\xE0 E\0n\0c\0r\0y\0p\0t\0e\0d\0P\0a\0c\0k\0a\0g\0e\0"s),
            WorkbookFault::is_protected);
  EXPECT_EQ(fault_of("\n <HTML><body>"), WorkbookFault::html);
  EXPECT_EQ(fault_of("\xEF\xBB\xBF<table border=1>"), WorkbookFault::html);
  EXPECT_EQ(fault_of("<?xml version=\"1.0\"?><Workbook xmlns=\"urn:schemas-microsoft-com:office:spreadsheet\">"),
            WorkbookFault::xml_2003);
}

TEST(MessageOfWorkbookProblem, SaysWhatToDo) {
  EXPECT_EQ(message_of({WorkbookFault::old_workbook, {}, {}, {}, {}, {}}, ToolLanguage::english),
            "this is a workbook of a form used before 2007 (.xls), which cannot be read." + std::string(save_again));
  EXPECT_EQ(message_of({WorkbookFault::html, {}, {}, {}, {}, {}}, ToolLanguage::dutch),
            "dit is een webpagina (HTML), wat de naam ook zegt. Open het in het rekenbladprogramma, bewaar het "
            "opnieuw als .xlsx, .ods of CSV, en neem dat.");
}

}  // namespace
}  // namespace pedigreewatch::test
