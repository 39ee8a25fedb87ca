// The list for the office as a workbook, and the order of identifications in it.
#include "desk/office_list.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "desk/export_desk.h"
#include "desk/mending_desk.h"
#include "support/files.h"
#include "support/run_folder.h"
#include "support/written_workbook.h"

namespace pedigreewatch {
namespace {

TEST(OfficeList, NumbersInIdentificationsCountAsNumbers) {
  const std::vector<std::string> in_order = {"", "9", "10", "NL-7", "NL-007b", "NL-8", "NL-08-1", "S9", "S10", "S10a"};
  for (std::size_t i = 0; i < in_order.size(); ++i) {
    for (std::size_t k = 0; k < in_order.size(); ++k) {
      EXPECT_EQ(stands_before(in_order[i], in_order[k]), i < k) << in_order[i] << " " << in_order[k];
    }
  }
  // Those that differ in leading zeros alone have an order too, or a sort would lose its way.
  EXPECT_TRUE(stands_before("S007", "S07"));
  EXPECT_FALSE(stands_before("S07", "S007"));
  EXPECT_TRUE(stands_before("99999999999999999999", "100000000000000000000")) << "more digits than a number can have";
}

/// A desk with an export to which corrections are applied: of one the export says something else.
struct CorrectedDesk {
  test::RunFolder folder{test::Files{{"export.csv",
                                      "ID,Sex,Born,Father,Mother\n"
                                      "S10,ram,13-01-2000,,\nS9,ewe,14-01-2000,,\nS11,ewe,15-02-2002,S10,S9\n"
                                      "S12,ewe,15-02-2002,S10,S9\n"}}};
  Desk desk;

  explicit CorrectedDesk(const std::string& language) {
    desk.folder = folder.path();
    desk.today = {2026, 1, 31};
    desk.language = language == "nl" ? ToolLanguage::dutch : ToolLanguage::english;
    open_export(desk, folder.path("export.csv"), "language=" + language + "\nspecies=sheep");
    set_corrections(desk,
                    "id\tfield\twas\tbecomes\twhy\twhen\n"
                    "S10\tbirthdate\t13-01-2000\t13-02-2000\t=typing error\t\n"
                    "S9\tbirthdate\t14-01-2000\t\t\t\n"
                    "S11\tbirthdate\t01-01-1999\t01-01-2000\t\t\n"
                    "S12\tleave out\t\t\ttwice\t\n");
  }
};

TEST(OfficeList, HasWhatTheExportDoesNotSayYetByAnimal) {
  const CorrectedDesk corrected("en");
  const std::string workbook = office_workbook(corrected.desk);
  EXPECT_EQ(test::sheets_of(workbook), (std::vector<std::string>{"corrections"}));
  const test::ReadTable sheet = test::sheet_of(workbook, "corrections");
  EXPECT_EQ(sheet.names, (std::vector<std::string>{"Id", "Field", "Was", "Becomes", "Why"}));
  ASSERT_EQ(sheet.rows.size(), 3U) << "S11 says something else now";
  EXPECT_EQ(sheet.rows[0], (std::vector<std::string>{"S9", "date of birth", "14-01-2000", "", ""}));
  EXPECT_EQ(sheet.rows[1],
            (std::vector<std::string>{"S10", "date of birth", "13-01-2000", "13-02-2000", "=typing error"}));
  EXPECT_EQ(sheet.rows[2][0] + ", " + sheet.rows[2][1], "S12, leave out");
}

TEST(OfficeList, IsInTheLanguageOfTheDesk) {
  const CorrectedDesk corrected("nl");
  const test::ReadTable sheet = test::sheet_of(office_workbook(corrected.desk), "correcties");
  EXPECT_EQ(sheet.names, (std::vector<std::string>{"Id", "Veld", "Was", "Wordt", "Waarom"}));
  EXPECT_EQ(sheet.rows.at(2).at(1), "weglaten");
}

TEST(OfficeList, IsNothingWithoutAnExport) {
  EXPECT_EQ(office_workbook(Desk()), "");
}

}  // namespace
}  // namespace pedigreewatch
