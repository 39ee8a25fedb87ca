// Mending in the desk without a browser: corrections are proposed, applied, told, and gone with the next export.
#include "desk/mending_desk.h"

#include <gtest/gtest.h>

#include <string>

#include "checks/finding_kinds.h"
#include "desk/animal_desk.h"
#include "desk/check_desk.h"
#include "desk/export_desk.h"
#include "desk/run_desk.h"
#include "support/files.h"
#include "support/run_folder.h"

namespace pedigreewatch {
namespace {

using test::Files;
using test::RunFolder;

/// C is its own grandfather, the date of D cannot be read, and E has a misspelt dam; the blank line shifts the others.
constexpr const char* broken =
    "ID,Sex,Born,Father,Mother\n"
    "A,ram,13-01-2000,,\n"
    "Bella-1,ewe,14-01-2000,,\n"
    "\n"
    "C,ram,15-02-2002,D,Bella-1\n"
    "D,ram,15-02-2x03,C,Bella-1\n"
    "E,ewe,15-03-2004,A,bella1\n"
    "F,ewe,15-03-2005,A,bella1\n";

constexpr std::string_view heading = "id\tfield\twas\tbecomes\twhy\twhen\n";

bool holds(const std::string& text, std::string_view wanted) {
  return text.find(wanted) != std::string::npos;
}

struct MendedDesk {
  RunFolder folder;
  Desk desk;

  explicit MendedDesk(const std::string& bytes = broken) : folder(Files{{"export.csv", bytes}}) {
    desk.folder = folder.path();
    desk.today = {2026, 1, 31};
    open_export(desk, folder.path("export.csv"), "language=en\nspecies=sheep\ncolumn.birthdate=3");
  }
  /// Makes the files, checks them and yields what was found.
  std::string check() {
    write_files_of_export(desk);
    return check_files(desk);
  }
  std::string take(const std::string& rows) { return set_corrections(desk, std::string(heading) + rows); }
};

TEST(MendingDesk, AppliesTheListAndTellsWhatBecameOfIt) {
  MendedDesk mended;
  const std::string answer = mended.take(
      "D\tbirthdate\t15-02-2x03\t20-12-2003\ttyping error\t2026-01-31\nE\tsire\tZ\tA\t\t\nG\tsex\t\tram\t\t\n");
  EXPECT_TRUE(holds(
      answer, R"("messages":[],"list":"id\u0009field\u0009was\u0009becomes\u0009why\u0009when\u000aD\u0009birthdate)"))
      << answer;
  EXPECT_TRUE(holds(answer, R"("sentence":"Corrections applied: 1; already mended in the export: 1;)")) << answer;
  EXPECT_TRUE(
      holds(answer, R"("becomes":"20-12-2003","why":"typing error","when":"2026-01-31","fate":"applied","said":"")"));
  EXPECT_TRUE(holds(answer, R"("fate":"alreadySo","said":"\u0022E\u0022, sire: \u0022A\u0022 is already mended)"))
      << answer;
  EXPECT_TRUE(holds(answer, R"("fate":"noAnimal")"));
  mended.check();
  EXPECT_TRUE(holds(test::bytes_of(mended.folder.path("export.txt")), "D;m;20-12-2003"));
  EXPECT_EQ(test::bytes_of(mended.folder.path("export.csv")), broken) << "the export stays as it is";
}

TEST(MendingDesk, AnotherListBeginsWithTheExportAgain) {
  MendedDesk mended;
  mended.take("A\tid\tA\tQ\t\t\n");
  const std::string second = mended.take("A\tsex\tram\tewe\t\t\n");
  EXPECT_TRUE(holds(second, R"("fate":"applied")")) << second;
  EXPECT_TRUE(holds(mended.take(""), R"("messages":[],"list":"","sentence":"","rows":[])"));
  mended.check();
  EXPECT_TRUE(holds(test::bytes_of(mended.folder.path("export.txt")), "\nA;m;13-01-2000"));
}

TEST(MendingDesk, ChangingSettingsKeepsCorrectionsApplied) {
  MendedDesk mended;
  mended.take("A\tsex\tram\tewe\t\t\n");
  change_settings(mended.desk, "language=en\nspecies=sheep\ncolumn.dam=none");
  ASSERT_EQ(mended.desk.preparation.corrections.size(), 1U);
  EXPECT_EQ(mended.desk.preparation.corrections.front().fate, CorrectionFate::applied);
}

TEST(MendingDesk, NamesLinesOfAListThatCannotBeRead) {
  MendedDesk mended;
  EXPECT_TRUE(holds(mended.take("A\tweight\t1\t2\n"),
                    R"("messages":["list of corrections, line 2: \u0022weight\u0022 is no field)"));
}

TEST(MendingDesk, ProposesWhatAChangedCellMeans) {
  const MendedDesk mended;
  EXPECT_EQ(
      propose_correction(mended.desk, {6, "birthdate", " 20-12-2003 ", "", false}),
      R"({"list":"id\u0009field\u0009was\u0009becomes\u0009why\u0009when\u000aD\u0009birthdate\u000915-02-2x03\u000920-12-2003\u0009\u00092026-01-31\u000a","count":1})");
  EXPECT_TRUE(holds(propose_correction(mended.desk, {6, "birthdate", "15-02-2x03", "", false}), R"("count":0)"));
  EXPECT_TRUE(holds(propose_correction(mended.desk, {6, "weight", "2", "", false}), R"("count":0)"));
  EXPECT_TRUE(holds(propose_correction(mended.desk, {99, "sex", "ewe", "", false}), R"("count":0)"));
  EXPECT_TRUE(holds(propose_correction(mended.desk, {7, "dam", "Bella-1", "", true}), R"("count":2)")) << "E and F";
  EXPECT_TRUE(holds(propose_correction(mended.desk, {8, "leave out", "", "", false}),
                    R"(F\u0009leave out\u0009F | ewe | 15-03-2005 | A | bella1\u0009\u0009)"));
  EXPECT_TRUE(
      holds(propose_correction(mended.desk, {8, "same as", "E", "", true}), R"(F\u0009same as\u0009\u0009E\u0009)"));
}

TEST(MendingDesk, GoesOnWithoutDatesAndParents) {
  MendedDesk mended;
  const std::string found = mended.check();
  EXPECT_TRUE(holds(found, R"("canRun":false)")) << found;
  EXPECT_TRUE(holds(found, R"("canDropDates":true,"canDropParents":false)")) << found;
  const std::string dates = propose_going_on(mended.desk, "", "dates");
  EXPECT_TRUE(holds(
      dates, R"(D\u0009birthdate\u000915-02-2x03\u0009\u0009unknown for now: Date cannot be read\u00092026-01-31)"))
      << dates;
  EXPECT_TRUE(holds(dates, R"("count":1)"));
  const std::string parents = propose_going_on(mended.desk, "loop", "parents");
  EXPECT_TRUE(holds(parents, R"(\u0009sire\u0009)")) << parents;
  EXPECT_TRUE(holds(parents, R"("count":2)")) << "sire and dam of one animal of the loop: " << parents;
  EXPECT_TRUE(holds(propose_going_on(mended.desk, "loop", "dates"), R"("count":0)"));
}

TEST(MendingDesk, ShowsTheLinesOfAFinding) {
  MendedDesk mended;
  mended.check();
  choose_findings(mended.desk, "date-unreadable", "");
  const std::string lines = finding_lines(mended.desk, 0);
  EXPECT_TRUE(holds(
      lines,
      R"("headings":["ID","Sex","Born","Father","Mother"],"fields":["id","sex","birthdate","sire","dam"],"column":2)"))
      << lines;
  EXPECT_TRUE(holds(
      lines,
      R"("cell":"15-02-2x03","proposal":"","number":1,"mayBeOne":false,"rows":[{"line":6,"cells":["D","ram","15-02-2x03","C","Bella-1"]}])"))
      << lines;
  choose_findings(mended.desk, "parent-spelling", "");
  const std::string spelling = finding_lines(mended.desk, 0);
  EXPECT_TRUE(holds(spelling, R"("column":4,"cell":"bella1","proposal":"Bella-1","number":2)")) << spelling;
  EXPECT_TRUE(holds(spelling, R"("line":7,)"));
  EXPECT_EQ(finding_lines(mended.desk, 99), "{}");
}

/// F is older than both its parents, whose dates agree with all others.
constexpr const char* contradicted =
    "ID,Sex,Born,Father,Mother\n"
    "A,ram,13-01-2000,,\n"
    "B,ewe,14-01-2000,,\n"
    "C,ram,15-02-2002,A,B\n"
    "D,ewe,16-02-2002,A,B\n"
    "F,ewe,17-01-1890,C,D\n"
    "G,ewe,17-01-2004,C,\n";

TEST(MendingDesk, LeavesTheDatesOfRelativesThatContradictOne) {
  MendedDesk mended(contradicted);
  mended.check();
  EXPECT_TRUE(holds(choose_findings(mended.desk, "date-contradicted", ""), R"("count":1)"));
  const std::string lines = finding_lines(mended.desk, 0);
  EXPECT_TRUE(holds(lines, R"("column":2,"cell":"17-01-1890")")) << lines;
  EXPECT_TRUE(holds(lines, R"("rows":[{"line":6,)")) << lines;
  EXPECT_TRUE(holds(lines, R"({"line":4,)")) << "the relatives are shown";
  const std::string going_on = propose_going_on(mended.desk, "date-contradicted", "dates");
  EXPECT_TRUE(holds(going_on, R"(F\u0009birthdate\u000917-01-1890\u0009\u0009)")) << going_on;
  EXPECT_TRUE(holds(going_on, R"("count":1)"));
}

TEST(MendingDesk, AListThatIsAppliedKeepsTheResults) {
  MendedDesk mended("ID,Sex,Born,Father,Mother\nA,ram,13-01-2000,,\nB,ewe,14-01-2000,,\nC,ram,15-02-2002,A,B\n");
  mended.take("C\tsex\tram\tewe\t\t\n");
  mended.check();
  run_analysis(mended.desk);
  EXPECT_TRUE(holds(mended.take("C\tsex\tram\tewe\t\t\n"), R"("fate":"applied")"));
  EXPECT_TRUE(mended.desk.results.has_value());
  mended.take("");
  EXPECT_FALSE(mended.desk.results.has_value());
}

TEST(ChooseFindings, PutsWhatStopsTheRunFirst) {
  MendedDesk mended;
  mended.check();
  choose_findings(mended.desk, "", "");
  const std::string rows = list_findings(mended.desk, 0, 50);
  const std::size_t falsifies = rows.find(R"("severity":"W")");
  ASSERT_NE(falsifies, std::string::npos) << rows;
  EXPECT_LT(rows.find(R"("severity":"S")"), falsifies) << rows;
  EXPECT_EQ(rows.find(R"("severity":"S")", falsifies), std::string::npos) << "the loop and the date stand before";
}

TEST(WaysOn, AreDatesForDatesAndParentsForParents) {
  const auto ways = [](FindingCode code) { return std::pair(ways_on(code).dates, ways_on(code).parents); };
  EXPECT_EQ(ways(FindingCode::date_unreadable), std::pair(true, false));
  EXPECT_EQ(ways(FindingCode::loop), std::pair(false, true));
  EXPECT_EQ(ways(FindingCode::born_before_parent), std::pair(true, true));
  EXPECT_EQ(ways(FindingCode::utf_16), std::pair(false, false));
}

TEST(AnimalDesk, AnswersWithACardWhoseAnimalsCanBePressed) {
  MendedDesk mended("ID,Sex,Born,Father,Mother\nA,ram,13-01-2000,,\nB,ewe,14-01-2000,,\nC,ram,15-02-2002,A,B\n");
  EXPECT_EQ(animal_card(mended.desk, 1), "{}") << "there are no results yet";
  EXPECT_EQ(position_of_id(mended.desk, "C"), R"({"position":0})");
  write_files_of_export(mended.desk);
  run_analysis(mended.desk);
  EXPECT_EQ(position_of_id(mended.desk, "C"), R"({"position":3})");
  EXPECT_EQ(position_of_id(mended.desk, " "), R"({"position":0})");
  const std::string card = animal_card(mended.desk, 3);
  EXPECT_TRUE(holds(card, R"({"position":3,"id":"C","name":"")")) << card.substr(0, 200);
  EXPECT_TRUE(holds(card, R"(data-animal=\u00221\u0022)"));
  EXPECT_TRUE(holds(animal_page(mended.desk), "<h2 id=\"pw-animal-3\">C</h2>"));
  EXPECT_FALSE(holds(animal_page(mended.desk), "data-animal="));
  EXPECT_EQ(animal_card(mended.desk, 4), "{}");
}

}  // namespace
}  // namespace pedigreewatch
