// Workbooks and encodings on their way into a preparation.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/lines.h"
#include "support/prepared_run.h"
#include "support/run_folder.h"
#include "support/workbook_files.h"

namespace pedigreewatch::test {
namespace {

std::string cells(const std::vector<std::string>& texts) {
  std::string row;
  for (const std::string& text : texts) row += "<c t=\"inlineStr\"><is><t>" + text + "</t></is></c>";
  return row;
}

std::string row(int number, const std::string& inside) {
  return "<row r=\"" + std::to_string(number) + "\">" + inside + "</row>";
}

/// Three dogs on the second sheet; their dates are dates by format.
WorkbookPieces dogs() {
  WorkbookPieces pieces;
  pieces.names = {"Cover", "Dogs"};
  pieces.styles = "<cellXfs><xf numFmtId=\"0\"/><xf numFmtId=\"14\"/></cellXfs>";
  const auto born = [](int day) { return "<c s=\"1\"><v>" + std::to_string(day) + "</v></c>"; };
  pieces.sheets = {"<sheetData>" + row(1, cells({"Herd book"})) + "</sheetData>",
                   "<sheetData>" + row(1, cells({"ID", "Name", "Sire", "Dam", "Sex", "Date of birth"})) +
                       row(2, cells({"a1", "Zo\u00EB", "", "", "F"}) + born(31850)) +
                       row(3, cells({"a2", "Rex", "", "", "M"}) + born(31850)) +
                       row(5, cells({"a3", "Bo", "a2", "a1", "M"}) + born(43536)) + "</sheetData>"};
  return pieces;
}

WholeRun prepare_book(const std::string& bytes, std::vector<std::string> options = {}) {
  const RunFolder folder(Files{{"dogs.xlsx", bytes}});
  options.insert(options.end(), {"--species", "dog"});
  return run_program_in(folder, prepare_with(options, "dogs.xlsx"));
}

TEST(PreparedWorkbook, IsADataFileLikeThatOfAText) {
  const WholeRun run = prepare_book(workbook_of(dogs()));
  EXPECT_EQ(run.messages, "");
  ASSERT_EQ(run.exit_status, 0);
  EXPECT_EQ(run.files.at("dogs.txt"),
            "id;name;sex;birthdate;sire;dam\n"
            "a1;Zo\xEB;f;1987-03-14;;\n"
            "a2;Rex;m;1987-03-14;;\n"
            "a3;Bo;m;2019-03-12;a2;a1\n");
  EXPECT_TRUE(has_line(run.console,
                       "Sheet         \"Dogs\" of 2; its rows are the lines of what follows (another one: --sheet)"));
}

TEST(PreparedWorkbook, TheSheetIsChosenByTheUser) {
  EXPECT_EQ(prepare_book(workbook_of(dogs()), {"--sheet", "Dogs"}).exit_status, 0);
  EXPECT_EQ(prepare_book(workbook_of(dogs()), {"--sheet=2"}).exit_status, 0);
  const WholeRun run = prepare_book(workbook_of(dogs()), {"--sheet", "Cats"});
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(
      run.messages,
      "dogs.xlsx: there is no sheet \"Cats\". Choose one with --sheet NAME (or its number): \"Cover\", \"Dogs\".\n");
}

TEST(PreparedWorkbook, WhatCannotBeReadIsSaid) {
  EXPECT_EQ(prepare_book(workbook_of(dogs()).substr(0, 200)).messages,
            "dogs.xlsx: this workbook is not complete. Copy or export it again.\n");
  EXPECT_TRUE(has(prepare_book("<html><table><tr><td>id</td></tr></table></html>").messages,
                  "dogs.xlsx: this is a web page (HTML), whatever its name says."));
  EXPECT_TRUE(has(prepare_book("\xD0\xCF\x11\xE0 and so on").messages, "a form used before 2007 (.xls)"));
}

/// What is said of an export in which that is the name of an animal.
WholeRun prepare_name(const std::string& name, std::vector<std::string> options = {}) {
  const RunFolder folder(Files{
      {"dogs.csv", "ID;Name;Sire;Dam;Sex;Date of birth\na1;" + name + ";;;F;14-03-1987\na2;Rex;;;M;14-03-1987\n"}});
  options.insert(options.end(), {"--species", "dog"});
  return run_program_in(folder, prepare_with(options, "dogs.csv"));
}

TEST(PreparedEncoding, IsRecognisedByTheWordsOfTheExport) {
  const WholeRun run = prepare_name("J\x8Ager M\x9Fller K\x8Athe Br\x9Asel");
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_TRUE(has(run.console, "Encoding      MacRoman; letters with accents: 4, such as in \"J\u00E4ger\""));
  EXPECT_TRUE(has(run.files.at("dogs.txt"), "J\xE4ger M\xFCller K\xE4the Br\xF6sel"));
}

TEST(PreparedEncoding, IsAskedWhereSeveralMakeSense) {
  const WholeRun run = prepare_name("Ri\xF1o");
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.messages,
            "dogs.csv: the letters with accents fit several encodings: Windows-1252: \"Ri\u00F1o\"; Windows-1250: "
            "\"Ri\u0144o\". Say which is right: --encoding NAME.\n");
  EXPECT_EQ(prepare_name("Ri\xF1o", {"--encoding", "windows-1252"}).exit_status, 0);
}

}  // namespace
}  // namespace pedigreewatch::test
