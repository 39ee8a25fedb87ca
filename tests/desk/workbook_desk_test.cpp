// What the browser is told to unpack of a workbook.

#include "desk/workbook_desk.h"

#include <gtest/gtest.h>

#include <string>

#include "desk/export_desk.h"
#include "support/run_folder.h"
#include "support/workbook_files.h"

namespace pedigreewatch::test {
namespace {

std::string parts_in(const std::string& bytes) {
  const RunFolder folder({{"herd.xlsx", bytes}});
  return packed_parts_of(Desk{}, folder.path("herd.xlsx"));
}

TEST(PackedPartsOf, PlacesAndSizesOfThePartsThatHoldText) {
  // A header of 30 bytes and its name stand in front of each part.
  const std::string archive =
      archive_of({{"a.xml", "<a/>", false}, {"b.png", "picture", false}, {"c.rels", "<c/>", false}});
  const std::string answer = parts_in(archive);
  EXPECT_NE(answer.find(R"({"name":"a.xml","begin":35,"packedSize":4,"size":4,)"), std::string::npos) << answer;
  EXPECT_EQ(answer.find("b.png"), std::string::npos) << answer;
  EXPECT_NE(answer.find(R"({"name":"c.rels","begin":117,"packedSize":4,"size":4,)"), std::string::npos) << answer;
  EXPECT_EQ(answer.find(R"("isPacked":true)"), std::string::npos) << answer;
}

TEST(PackedPartsOf, WhatIsPacked) {
  const std::string answer = parts_in(workbook_of({}));
  EXPECT_NE(answer.find(R"("isPacked":true)"), std::string::npos) << answer;
  EXPECT_NE(answer.find(R"("messages":[])"), std::string::npos) << answer;
}

TEST(PackedPartsOf, OtherFilesHaveNone) {
  const std::string nothing = R"({"messages":[],"parts":[]})";
  EXPECT_EQ(parts_in("id;sire;dam\n1;;\n"), nothing);
  EXPECT_EQ(parts_in("PK\x03\x04 cut off"), nothing);
  EXPECT_EQ(packed_parts_of(Desk{}, "/no/such/file"), nothing);
}

TEST(OpenExport, AWorkbookNamesItsSheets) {
  const std::string rows =
      "<sheetData>"
      "<row><c t=\"inlineStr\"><is><t>id</t></is></c><c t=\"inlineStr\"><is><t>sire</t></is></c>"
      "<c t=\"inlineStr\"><is><t>dam</t></is></c></row>"
      "<row><c><v>1</v></c><c/><c/></row></sheetData>";
  WorkbookPieces pieces;
  pieces.sheets = {rows, rows};
  pieces.names = {"Dogs", "Cats"};
  const RunFolder folder({{"herd.xlsx", workbook_of(pieces)}});
  Desk desk;
  desk.today = {2026, 11, 22};
  const std::string opened = open_export(desk, folder.path("herd.xlsx"), "");
  EXPECT_NE(opened.find(R"("sheets":["Dogs","Cats"],"sheet":"Dogs")"), std::string::npos) << opened;
  EXPECT_NE(change_settings(desk, "sheet=Cats\n").find(R"("sheet":"Cats")"), std::string::npos);
}

}  // namespace
}  // namespace pedigreewatch::test
