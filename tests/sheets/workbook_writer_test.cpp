// What stands in the parts of a workbook that is written, and what a reader makes of it.
#include "sheets/workbook_writer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/written_workbook.h"

namespace pedigreewatch::test {
namespace {

/// The workbook with these rows of texts on one sheet.
std::string workbook_of_rows(const std::vector<std::vector<std::string>>& rows, const SheetLimits& limits = {},
                             std::string_view name = "animals") {
  WorkbookWriter writer;
  writer.limits = limits;
  begin_sheet(writer, name);
  for (const std::vector<std::string>& row : rows) {
    for (const std::string& cell : row) add_text_cell(writer, cell);
    end_sheet_row(writer);
  }
  end_sheet(writer);
  EXPECT_TRUE(finish_workbook(writer));
  return writer.zip.bytes;
}

const std::string first_sheet = "xl/worksheets/sheet1.xml";

/// What stands between <sheetData> and its end.
std::string rows_of(const std::string& workbook, const std::string& part = first_sheet) {
  const std::string xml = part_of(workbook, part);
  const std::size_t first = xml.find("<sheetData>") + 11;
  return xml.substr(first, xml.find("</sheetData>") - first);
}

bool has(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST(WorkbookWriter, EveryKindOfCellIsWhatItIs) {
  WorkbookWriter writer;
  begin_sheet(writer, "animals");
  for (const char* const name : {"id", "F", "born", "text"}) add_text_cell(writer, name);
  end_sheet_row(writer);
  add_text_cell(writer, "00123");
  add_number_cell(writer, "0.0625");
  add_date_cell(writer, "2004-02-29");
  add_text_cell(writer, "=1+1");
  end_sheet_row(writer);
  end_sheet(writer);
  ASSERT_TRUE(finish_workbook(writer));
  EXPECT_EQ(rows_of(writer.zip.bytes),
            "<row r=\"1\"><c r=\"A1\" s=\"1\" t=\"inlineStr\"><is><t>id</t></is></c>"
            "<c r=\"B1\" s=\"1\" t=\"inlineStr\"><is><t>F</t></is></c>"
            "<c r=\"C1\" s=\"1\" t=\"inlineStr\"><is><t>born</t></is></c>"
            "<c r=\"D1\" s=\"1\" t=\"inlineStr\"><is><t>text</t></is></c></row>"
            "<row r=\"2\"><c r=\"A2\" s=\"2\" t=\"inlineStr\"><is><t>00123</t></is></c>"
            "<c r=\"B2\"><v>0.0625</v></c><c r=\"C2\" s=\"4\"><v>38046</v></c>"
            "<c r=\"D2\" s=\"3\" t=\"inlineStr\"><is><t>=1+1</t></is></c></row>");
  const ReadTable table = sheet_of(writer.zip.bytes, "animals");
  EXPECT_EQ(table.names, (std::vector<std::string>{"id", "F", "born", "text"}));
  EXPECT_EQ(table.rows.front(), (std::vector<std::string>{"00123", "0.0625", "2004-02-29", "=1+1"}));
}

TEST(WorkbookWriter, TheHeadingStaysInViewAndIsFiltered) {
  const std::string workbook = workbook_of_rows({{"id", "name", "sex"}, {"a", "b", "c"}, {"d"}}, {}, "my 'dogs'");
  const std::string sheet = part_of(workbook, first_sheet);
  EXPECT_TRUE(has(sheet, "<pane ySplit=\"1\" topLeftCell=\"A2\" activePane=\"bottomLeft\" state=\"frozen\"/>"));
  EXPECT_TRUE(has(sheet, "</sheetData><autoFilter ref=\"A1:C3\"/>"));
  EXPECT_TRUE(has(part_of(workbook, "xl/workbook.xml"),
                  "<definedName name=\"_xlnm._FilterDatabase\" localSheetId=\"0\" hidden=\"1\">'my  dogs '!$A$1:$C$3"));
}

TEST(WorkbookWriter, DaysThatProgramsCountDifferentlyAreTexts) {
  WorkbookWriter writer;
  begin_sheet(writer, "days");
  end_sheet_row(writer);
  for (const char* const day : {"1900-02-28", "1900-03-01", "2024-12-31", "9999-12-31", "2023-02-29", "2023-13-01",
                                "1850-01-01", "2023-1-01", "", "soon"}) {
    add_date_cell(writer, day);
  }
  end_sheet_row(writer);
  end_sheet(writer);
  ASSERT_TRUE(finish_workbook(writer));
  const std::string rows = rows_of(writer.zip.bytes);
  EXPECT_TRUE(has(rows, "<t>1900-02-28</t>"));
  EXPECT_TRUE(has(rows,
                  "<c r=\"B2\" s=\"4\"><v>61</v></c><c r=\"C2\" s=\"4\"><v>45657</v></c>"
                  "<c r=\"D2\" s=\"4\"><v>2958465</v></c>"));
  for (const std::string text : {"2023-02-29", "2023-13-01", "1850-01-01", "2023-1-01", "soon"}) {
    EXPECT_TRUE(has(rows, "<t>" + text + "</t>")) << text;
  }
  EXPECT_FALSE(has(rows, "\"I2\""));
}

TEST(WorkbookWriter, OnlyNumbersAreNumbers) {
  WorkbookWriter writer;
  begin_sheet(writer, "numbers");
  end_sheet_row(writer);
  const std::vector<std::string> numbers = {"0", "-12", "0.5", "1e-07", "2.5E+10", "-0.25"};
  const std::vector<std::string> others = {"nan", "inf", "-", ".5", "5.", "1e", "1,5", "0x1", "1 2", "+1", "12a"};
  for (const std::string& number : numbers) add_number_cell(writer, number);
  for (const std::string& other : others) add_number_cell(writer, other);
  end_sheet_row(writer);
  end_sheet(writer);
  ASSERT_TRUE(finish_workbook(writer));
  const std::string rows = rows_of(writer.zip.bytes);
  for (const std::string& number : numbers) EXPECT_TRUE(has(rows, "<v>" + number + "</v>")) << number;
  for (const std::string& other : others) EXPECT_TRUE(has(rows, "<t>" + other + "</t>")) << other;
}

TEST(WorkbookWriter, TextsComeBackAsTheyWere) {
  const std::vector<std::string> texts = {"a<b>&\"c\"'", " blank ends ", "_x0041_", "_x004", "Zo\xC3\xAB",
                                          "@home",       "-5",           "+31",     "=A1",   "\xF0\x9F\x90\x84",
                                          "1,5",         "007"};
  const std::string workbook = workbook_of_rows({std::vector<std::string>(texts.size(), "name"), texts});
  EXPECT_EQ(sheet_of(workbook, "animals").rows.front(), texts);
  EXPECT_TRUE(has(rows_of(workbook), "<c r=\"G2\" s=\"3\" t=\"inlineStr\"><is><t>-5</t>"));
}

TEST(WorkbookWriter, WhatXmlCannotHoldIsReplaced) {
  const std::string workbook = workbook_of_rows({{"id"}, {std::string("a\x01z\xFF\xEF\xBF\xBF", 7)}});
  EXPECT_TRUE(has(rows_of(workbook), "<t>a\xEF\xBF\xBDz\xEF\xBF\xBD\xEF\xBF\xBD</t>"));
}

TEST(WorkbookWriter, ALongTextIsCutAndSaysSo) {
  SheetLimits limits;
  limits.letters = 10;
  const std::string workbook = workbook_of_rows({{"id"}, {"0123456789"}, {"01234567890"}}, limits);
  EXPECT_TRUE(has(rows_of(workbook), "<t>0123456789</t>"));
  EXPECT_TRUE(has(rows_of(workbook), "<t>01234[...]</t>"));
  // A letter that counts twice, and one of two bytes that counts once.
  const std::string wide = workbook_of_rows({{"id"},
                                             {"\xF0\x9F\x90\x84"
                                              "23456789"
                                              "0"},
                                             {"\xC3\xAB"
                                              "123456789"}},
                                            limits);
  EXPECT_TRUE(has(rows_of(wide),
                  "<t>\xF0\x9F\x90\x84"
                  "234[...]</t>"));
  EXPECT_TRUE(has(rows_of(wide),
                  "<t>\xC3\xAB"
                  "123456789</t>"));
}

TEST(WorkbookWriter, LongTextsAreNotOfTheFormatOfTexts) {
  const std::string workbook = workbook_of_rows({{"id"}, {std::string(255, 'a'), std::string(256, 'a')}});
  EXPECT_TRUE(has(rows_of(workbook), "<c r=\"A2\" s=\"2\" "));
  EXPECT_TRUE(has(rows_of(workbook), "<c r=\"B2\" t="));
}

TEST(WorkbookWriter, ATableWithMoreRowsGoesOnBelowTheSameHeading) {
  SheetLimits limits;
  limits.rows = 3;
  const std::string workbook = workbook_of_rows({{"id", "", "name"}, {"1"}, {"2"}, {"3"}, {"4"}, {"5"}}, limits);
  EXPECT_EQ(sheets_of(workbook), (std::vector<std::string>{"animals", "animals (2)", "animals (3)"}));
  EXPECT_EQ(sheet_of(workbook, "animals").rows.size(), 2U);
  const ReadTable second = sheet_of(workbook, "animals (2)");
  EXPECT_EQ(second.names, (std::vector<std::string>{"id", "", "name"}));
  EXPECT_EQ(second.rows, (std::vector<std::vector<std::string>>{{"3", "", ""}, {"4", "", ""}}));
  EXPECT_EQ(sheet_of(workbook, "animals (3)").rows.size(), 1U);
  EXPECT_TRUE(has(part_of(workbook, "xl/worksheets/sheet3.xml"), "<autoFilter ref=\"A1:C2\"/>"));
}

TEST(WorkbookWriter, ASheetOfManyBytesGoesOnToo) {
  SheetLimits limits;
  limits.bytes = 100;  // the heading and one row
  const std::string workbook = workbook_of_rows({{"id"}, {"1"}, {"2"}}, limits);
  EXPECT_EQ(sheets_of(workbook), (std::vector<std::string>{"animals", "animals (2)"}));
}

TEST(WorkbookWriter, TheBoundsAreThoseOfSpreadsheets) {
  // ECMA-376 leaves them open; these are what the spreadsheets of today open.
  EXPECT_EQ(SheetLimits{}.rows, 1LL << 20);
  EXPECT_EQ(SheetLimits{}.columns, 1U << 14);
  EXPECT_EQ(SheetLimits{}.letters, (1U << 15) - 1);
}

TEST(WorkbookWriter, MoreColumnsThanASheetHasAreRefused) {
  WorkbookWriter writer;
  writer.limits.columns = 2;
  begin_sheet(writer, "years");
  for (const char* const name : {"a", "b"}) add_text_cell(writer, name);
  end_sheet_row(writer);
  EXPECT_EQ(writer.fault, WorkbookWritingFault::none);
  for (const char* const name : {"a", "b", "c"}) add_text_cell(writer, name);
  end_sheet_row(writer);
  end_sheet(writer);
  EXPECT_FALSE(finish_workbook(writer));
  EXPECT_EQ(message_of(writer, ToolLanguage::english),
            "table years has more columns than the 2 of a workbook: make text tables, without --workbook");
}

TEST(WorkbookWriter, AWorkbookThatIsTooLargeSaysSo) {
  WorkbookWriter writer;
  begin_sheet(writer, "years");
  end_sheet(writer);
  writer.zip.gone = most_archive_bytes;
  EXPECT_FALSE(finish_workbook(writer));
  EXPECT_EQ(message_of(writer, ToolLanguage::dutch),
            "het zou groter worden dan 4 GB, en dat kan geen werkmap zijn: maak teksttabellen, zonder --workbook");
}

TEST(WorkbookWriter, NamesOfSheetsAreAllowedAndDifferent) {
  WorkbookWriter writer;
  for (const char* const name : {"a/b:c*[d]?\\", "A b c  d   ", "", "an extremely long name of a table",
                                 "An extremely long name of a table (other)"}) {
    begin_sheet(writer, name);
    add_text_cell(writer, "id");
    end_sheet_row(writer);
    end_sheet(writer);
  }
  ASSERT_TRUE(finish_workbook(writer));
  EXPECT_EQ(sheets_of(writer.zip.bytes),
            (std::vector<std::string>{"a b c  d   ", "A b c  d    (2)", "-", "an extremely long name of a tab",
                                      "An extremely long name of a (2)"}));
}

TEST(WorkbookWriter, ColumnsAreAsWideAsTheirTexts) {
  const std::string sheet = part_of(
      workbook_of_rows({{"id", "name", "note"}, {"a", "Zo\xC3\xAB the third of the Hill", std::string(99, 'x')}}),
      first_sheet);
  EXPECT_TRUE(has(sheet,
                  "<col min=\"1\" max=\"1\" width=\"9\" customWidth=\"1\"/>"
                  "<col min=\"2\" max=\"2\" width=\"28\" customWidth=\"1\"/>"
                  "<col min=\"3\" max=\"3\" width=\"63\" customWidth=\"1\"/>"));
}

TEST(WorkbookWriter, TheSameTablesMakeTheSameBytes) {
  const std::vector<std::vector<std::string>> rows = {{"id"}, {"a"}};
  EXPECT_EQ(workbook_of_rows(rows), workbook_of_rows(rows));
}

}  // namespace
}  // namespace pedigreewatch::test
