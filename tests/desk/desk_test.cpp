// The road of the desk from an export to a mating, without a browser.

#include "desk/desk.h"

#include <gtest/gtest.h>

#include <fstream>

#include "desk/board_desk.h"
#include "desk/check_desk.h"
#include "desk/desk_interface.h"
#include "desk/export_desk.h"
#include "desk/matings_desk.h"
#include "desk/plan_desk.h"
#include "desk/run_desk.h"
#include "desk/tables_desk.h"
#include "support/program_run.h"
#include "support/run_folder.h"
#include "support/written_workbook.h"

namespace pedigreewatch {
namespace {

using test::Files;
using test::RunFolder;

/// Two founders, their son and daughter, the young of those two (F = 1/4), and a dam from elsewhere.
constexpr const char* family =
    "ID,Name,Sex,Born,Father,Mother,Subpopulation\n"
    "A,Adam,ram,13-01-2000,,,North\n"
    "B,Bea,ewe,14-01-2000,,,North\n"
    "\n"
    "C,Cas,ram,15-02-2002,A,B,South\n"
    "D,Dot,ewe,15-02-2002,A,B,South\n"
    "E,Eef,ram,15-03-2004,C,D,South\n"
    "F,Fay,ewe,15-03-2004,,,North\n";

bool holds(const std::string& text, std::string_view wanted) {
  return text.find(wanted) != std::string::npos;
}

/// A desk that works in a folder of its own, with an export opened.
struct OpenedDesk {
  RunFolder folder;
  Desk desk;
  std::string answer;

  explicit OpenedDesk(const std::string& bytes, std::string_view settings = "language=en")
      : folder(Files{{"export.csv", bytes}}) {
    desk.folder = folder.path();
    desk.today = {2026, 1, 31};
    answer = open_export(desk, folder.path("export.csv"), settings);
  }
};

TEST(Desk, SaysWhatAnExportIs) {
  const OpenedDesk opened(family);
  EXPECT_TRUE(holds(opened.answer, R"("messages":[],"questions":[])")) << opened.answer;
  EXPECT_TRUE(holds(opened.answer, R"("columns":["id","name","sex","birthdate","sire","dam","subpopulation"])"))
      << opened.answer;
  EXPECT_TRUE(holds(opened.answer, R"("lines":[["A","Adam","ram","13-01-2000","","","North"])")) << opened.answer;
  EXPECT_TRUE(holds(opened.answer, R"({"text":"ram","count":3,"meaning":"male"})")) << opened.answer;
  EXPECT_TRUE(holds(opened.answer, R"({"place":1,"text":"South","count":3,"isListed":true})")) << opened.answer;
  EXPECT_TRUE(holds(opened.answer, R"("species":"sheep")")) << opened.answer;
  EXPECT_TRUE(holds(opened.answer, R"({"label":"Columns","text":"7"})")) << opened.answer;
}

TEST(Desk, TellsWhereAColumnIsChosen) {
  const OpenedDesk opened("key;sex;birthdate;sire;dam\nA;ram;01-02-2000;;\n");
  EXPECT_TRUE(holds(opened.answer, R"(the id of the animal. Choose it above its column. What stands in the columns)"))
      << opened.answer;
}

TEST(Desk, RefusesWhatIsNoText) {
  const OpenedDesk opened(std::string("\x89PNG\r\n\x1A\n\0\0", 10));
  EXPECT_TRUE(holds(opened.answer, "no text")) << opened.answer;
  EXPECT_FALSE(holds(opened.answer, "evidence"));
  EXPECT_FALSE(opened.desk.has_export);
}

TEST(Desk, TakesColumnsAsItsUserSays) {
  OpenedDesk opened(family);
  const std::string answer = change_settings(opened.desk, "language=en\ncolumn.subpopulation=none\ncolumn.colour=7");
  EXPECT_TRUE(holds(answer, R"("dam","colour"])")) << answer;
}

TEST(Desk, ForgetsTheRunWhenASettingChangesButNotWithTheLanguage) {
  OpenedDesk opened(family);
  write_files_of_export(opened.desk);
  ASSERT_TRUE(holds(run_analysis(opened.desk), R"("animals":6)"));
  opened.desk.language = ToolLanguage::dutch;
  const std::string answer = change_settings(opened.desk, "language=en");
  EXPECT_TRUE(holds(answer, "Gescheiden door")) << answer;
  EXPECT_TRUE(holds(answer, R"("hond")")) << answer;
  EXPECT_TRUE(opened.desk.results);
  change_settings(opened.desk, "language=nl");
  EXPECT_FALSE(opened.desk.results || opened.desk.files || opened.desk.steer);
}

TEST(Desk, WritesTheReportOfTheProgram) {
  OpenedDesk opened(family);
  write_files_of_export(opened.desk);
  run_analysis(opened.desk);
  const test::WholeRun run = run_program_in(opened.folder);
  ASSERT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_EQ(report_bytes(opened.desk), run.file("export.out"));
  EXPECT_FALSE(report_bytes(opened.desk).empty());
}

TEST(Desk, WritesTheReportInTheLanguageOfTheSettings) {
  OpenedDesk opened(family, "language=nl");
  EXPECT_TRUE(holds(opened.answer, "Divided by")) << "the desk itself is English";
  const std::string answer = write_files_of_export(opened.desk);
  EXPECT_TRUE(holds(answer, "schaap")) << answer;
  run_analysis(opened.desk);
  EXPECT_EQ(report_bytes(opened.desk), run_program_in(opened.folder).file("export.out"));
}

TEST(Desk, ShowsFindingsWithTheLinesOfTheExport) {
  std::string bytes(family);
  bytes += "G,Gus,ram,15-03-2001,E,,North\n";  // older than its father
  OpenedDesk opened(bytes);
  write_files_of_export(opened.desk);
  const std::string summary = check_files(opened.desk);
  EXPECT_TRUE(holds(summary, R"("animals":7,"canRun":true,"isFromExport":true)")) << summary;
  EXPECT_FALSE(holds(choose_findings(opened.desk, "born-before-parent", ""), R"("count":0)"));
  const std::string rows = list_findings(opened.desk, 0, 10);
  EXPECT_TRUE(holds(rows, R"("line":9,)")) << rows;
  EXPECT_TRUE(holds(rows, R"("original":"G,Gus,ram,15-03-2001,E,,North")")) << rows;
  EXPECT_TRUE(holds(findings_table(opened.desk), "\n9\t\tG\tborn-before-parent\t"));
  EXPECT_TRUE(holds(choose_findings(opened.desk, "", "nobody has this"), R"("count":0)"));
}

// Of two lines the second falsifies more: a year by itself all figures, a young that is too old the effective size.
TEST(Desk, PutsFirstWhatFalsifiesMost) {
  std::string bytes(family);
  bytes += "G,Gus,ram,15-03-2001,E,,North\n";  // older than its father
  bytes += "H,Hus,ram,15-03-1921,,,North\n";
  OpenedDesk opened(bytes);
  write_files_of_export(opened.desk);
  const std::string summary = check_files(opened.desk);
  const std::size_t all = summary.find(R"("name":"year-lone")"), size = summary.find(R"("name":"born-before-parent")");
  ASSERT_NE(all, std::string::npos) << summary;
  EXPECT_LT(all, size);
  choose_findings(opened.desk, "", "");
  const std::string rows = list_findings(opened.desk, 0, 10);
  EXPECT_LT(rows.find(R"("line":10,)"), rows.find(R"("line":9,)")) << rows;
}

TEST(Desk, NamesTheKindsOfFindingsInTheLanguageOfTheDesk) {
  std::string bytes(family);
  bytes += "G,Gus,ram,15-03-2001,E,,North\n";  // older than its father
  OpenedDesk opened(bytes);
  write_files_of_export(opened.desk);
  EXPECT_TRUE(holds(check_files(opened.desk), R"("name":"born-before-parent","title":"Born before its parent")"));
  choose_findings(opened.desk, "born-before-parent", "");
  EXPECT_TRUE(holds(list_findings(opened.desk, 0, 10), R"("kind":"Born before its parent")"));
  opened.desk.language = ToolLanguage::dutch;
  EXPECT_TRUE(holds(check_files(opened.desk), R"("name":"born-before-parent","title":"Geboren voor zijn ouder")"));
}

TEST(Desk, SaysWhyThereAreNoResults) {
  OpenedDesk opened("id;sex;birthdate;sire;dam\nA;ram;01-01-2000;C;\nB;ewe;13-01-2000;;\nC;ram;01-01-2001;A;B\n");
  write_files_of_export(opened.desk);
  EXPECT_TRUE(holds(check_files(opened.desk), R"("canRun":false)"));
  const std::string answer = run_analysis(opened.desk);
  EXPECT_TRUE(holds(answer, "Check")) << answer;
  EXPECT_FALSE(opened.desk.results);
  EXPECT_EQ(results_body(opened.desk), "");
  EXPECT_EQ(report_text(opened.desk), "");
}

TEST(Desk, TakesADataFileWithItsSteerFile) {
  OpenedDesk opened(family);
  write_files_of_export(opened.desk);
  run_analysis(opened.desk);
  const std::string report = report_bytes(opened.desk);
  Desk other;
  other.today = opened.desk.today;
  const std::string answer =
      open_given_files(other, opened.folder.path("pedigreewatch.ini"), opened.folder.path("export.txt"));
  EXPECT_TRUE(holds(answer, R"("messages":[],"note":"")")) << answer;
  EXPECT_TRUE(holds(check_files(other), R"("isFromExport":false)"));
  run_analysis(other);
  EXPECT_EQ(report_bytes(other), report);
}

TEST(Desk, SaysWhenAFileOfAPairIsNotThere) {
  Desk desk;
  EXPECT_TRUE(holds(open_given_files(desk, "no-such.ini", "no-such.txt"), "could not be opened"));
}

TEST(Desk, FindsThirtyAnimals) {
  const auto found_among = [](int animals) {
    std::string text = "ID,Name,Sex,Born,Father,Mother\n";
    for (int k = 10; k < 10 + animals; ++k) text += "A" + std::to_string(k) + ",Rex,ram,13-01-2000,,\n";
    OpenedDesk opened(text);
    write_files_of_export(opened.desk);
    run_analysis(opened.desk);
    const std::string answer = find_in_results(opened.desk, "Rex");
    int count = 0;
    for (std::size_t at = answer.find("\"id\""); at != std::string::npos; at = answer.find("\"id\"", at + 1)) ++count;
    return count;
  };
  EXPECT_EQ(found_among(30), 30);
  EXPECT_EQ(found_among(31), 30);
}

TEST(Desk, ShowsAMillionBytesOfASteerFile) {
  const auto shows_line_behind = [](std::size_t bytes) {
    std::string steer = "herd\nherd.txt\n;\nn\ndd-mm-yyyy\nsheep\nm\nen\ny\n0\n0\n";
    while (steer.size() + 2 <= bytes) steer += "x\n";
    if (steer.size() < bytes) steer += '\n';
    const RunFolder folder(Files{{"herd.ini", steer + "the last line\n"}, {"herd.txt", "id;sex;birthdate;sire;dam\n"}});
    Desk desk;
    const std::string answer = open_given_files(desk, folder.path("herd.ini"), folder.path("herd.txt"));
    EXPECT_TRUE(holds(answer, R"("messages":[])")) << answer.substr(0, 200);
    return holds(answer, "the last line");
  };
  EXPECT_TRUE(shows_line_behind(999'999));
  EXPECT_FALSE(shows_line_behind(1'000'000));
}

/// The position of the only animal that is found.
std::int32_t position_of(const Desk& desk, std::string_view id) {
  const std::string answer = find_in_results(desk, id);
  const std::string before = R"({"animals":[{"position":)";
  return answer.starts_with(before) ? std::stoi(answer.substr(before.size())) : 0;
}

TEST(Desk, WorksOutMatings) {
  OpenedDesk opened(family);
  write_files_of_export(opened.desk);
  run_analysis(opened.desk);
  const std::int32_t c = position_of(opened.desk, "C"), d = position_of(opened.desk, "D"),
                     f = position_of(opened.desk, "F");
  const std::string siblings = describe_pair(opened.desk, c, d);
  EXPECT_TRUE(holds(siblings, R"("offspringF":0.25)")) << siblings;
  EXPECT_TRUE(holds(siblings, R"("contribution":0.125)")) << siblings;
  EXPECT_TRUE(holds(siblings, R"("equivalents":1})")) << siblings;  // both parents of each are known, and no more
  EXPECT_TRUE(holds(describe_pair(opened.desk, c, f), R"("offspringF":0,)"));
  EXPECT_EQ(describe_pair(opened.desk, 0, 99), "{}");
  EXPECT_EQ(rank_males(opened.desk, d, {2000, 2004}), R"({"count":3})");
  // With her son E: half of his genes are hers, a quarter more came through C.
  EXPECT_TRUE(holds(list_males(opened.desk, 0, 1), R"("id":"A")"));
  EXPECT_TRUE(holds(list_males(opened.desk, 2, 5), R"("offspringF":0.375)"));
  EXPECT_TRUE(holds(males_table(opened.desk), "D\tE\tEef\t2004\t0.375000\t"));
  EXPECT_EQ(rank_males(opened.desk, d, {1990, 1991}), R"({"count":0})");
}

TEST(Desk, TakesOnlyAnimalsThatAreStillThere) {
  const std::string told =
      "ID,Name,Sex,Born,Father,Mother,Died\n"
      "A,x,ram,13-01-2000,,,\nB,x,ewe,14-01-2000,,,\nC,x,ram,15-02-2002,A,B,16-03-2003\nD,x,ewe,15-02-2002,A,B,\n"
      "E,x,wether,15-02-2002,A,B,\nF,x,ram,15-02-2001,,,\n";
  OpenedDesk opened(told.c_str());
  EXPECT_TRUE(holds(write_files_of_export(opened.desk), R"("available":4)"));
  EXPECT_TRUE(holds(run_analysis(opened.desk), R"("isAvailabilityTold":true,"available":4)"));
  const std::int32_t d = position_of(opened.desk, "D");
  EXPECT_EQ(rank_males(opened.desk, d, {2000, 2002}), R"({"count":2})");
  EXPECT_EQ(rank_males(opened.desk, d, {2000, 2002, true}), R"({"count":4})");
  // F is as old as A was as a sire. C and E are younger, and gone.
  EXPECT_TRUE(find_in_results(opened.desk, "x", male).find(R"("id":"F")") <
              find_in_results(opened.desk, "x", male).find(R"("id":"C")"));
  EXPECT_TRUE(holds(make_desk_plan(opened.desk, "years=3\nmatings=1"), "males: 2, born 2000 to 2002"));
  EXPECT_TRUE(holds(make_desk_plan(opened.desk, "years=3\nmatings=1"), "2 animals of these ages or years"));
  EXPECT_TRUE(holds(make_desk_plan(opened.desk, "years=3\nmatings=1\nallAnimals=1"), "males: 4, born"));
}

TEST(Desk, SaysOfAnAnimalThatItHasGoneAndByWhat) {
  OpenedDesk opened(
      "ID,Name,Sex,Born,Father,Mother,Died\nA,x,ram,13-01-2000,,,16-03-2003\nB,x,wether,14-01-2000,,,\n"
      "C,x,ewe,14-01-2000,,,\n");
  write_files_of_export(opened.desk);
  run_analysis(opened.desk);
  const std::string found = find_in_results(opened.desk, "x");
  EXPECT_TRUE(holds(found, R"("id":"A","name":"x","isMale":true,"year":2000,"f":0,"gone":"Died: 16-03-2003"})"))
      << found;
  EXPECT_TRUE(holds(found, R"("gone":"Sex: wether"})")) << found;
  EXPECT_TRUE(holds(found, R"("id":"C","name":"x","isMale":false,"year":2000,"f":0})")) << found;
}

TEST(Desk, TakesTheListOfAnimalsStillThereWithADataFile) {
  OpenedDesk opened(family);
  write_files_of_export(opened.desk);
  const auto run_with = [&](const std::string& list) {
    const std::string name = opened.folder.path("export_available.txt");
    std::ofstream(name, std::ios::binary) << list;
    Desk other;
    other.today = opened.desk.today;
    open_given_files(other, opened.folder.path("pedigreewatch.ini"), opened.folder.path("export.txt"), name);
    const std::string answer = run_analysis(other);
    return answer + find_in_results(other, "Bea");
  };
  const std::string told = run_with("A\n\nC\r\nnobody\n");
  EXPECT_TRUE(holds(told, R"("isAvailabilityTold":true,"available":2,"availableNote":"Lines of the list)")) << told;
  EXPECT_TRUE(holds(told, R"("id":"B","name":"Bea","isMale":false,"year":2000,"f":0,"gone":""})")) << told;
  const std::string none = run_with("nobody\n");
  EXPECT_TRUE(holds(none, R"("isAvailabilityTold":false,"available":0,"availableNote":"No animal of these data)"))
      << none;
  EXPECT_FALSE(holds(none, "\"gone\""));
}

TEST(Desk, NamesNoSireThatHasGoneAsOneToUseLess) {
  const std::string told =
      "ID,Name,Sex,Born,Father,Mother,Died\n"
      "A,x,ram,13-01-2000,,,\nB,x,ewe,14-01-2000,,,\nC,x,ram,15-02-2002,A,B,16-03-2003\nD,x,ewe,15-02-2002,A,B,\n";
  OpenedDesk there(told.c_str());
  write_files_of_export(there.desk);
  run_analysis(there.desk);
  EXPECT_TRUE(holds(standing_table(there.desk), "\noverused_sire_1\tA\t")) << standing_table(there.desk);
  std::string later = told;
  later.insert(later.find("\nB,"), "17-04-2003");
  OpenedDesk gone(later.c_str());
  write_files_of_export(gone.desk);
  run_analysis(gone.desk);
  EXPECT_FALSE(holds(standing_table(gone.desk), "\noverused_sire_1\t"));
  EXPECT_TRUE(holds(standing_table(gone.desk), "\noverused_sires_gone\t1\t")) << standing_table(gone.desk);
}

/// Two litters of full sibs, unrelated to each other.
constexpr const char* two_litters =
    "ID,Name,Sex,Born,Father,Mother\n"
    "A,,ram,13-01-2000,,\nB,,ewe,14-01-2000,,\nC,,ram,13-01-2000,,\nD,,ewe,14-01-2000,,\n"
    "E,,ram,15-02-2002,A,B\nF,,ewe,15-02-2002,A,B\nG,,ram,15-03-2002,C,D\nH,,ewe,15-03-2002,C,D\n";

/// The same with a run behind it.
struct DeskWithRun : OpenedDesk {
  DeskWithRun() : OpenedDesk(two_litters) {
    write_files_of_export(desk);
    run_analysis(desk);
  }
};

TEST(DeskPlanning, MakesAPlanAndChangesItByHand) {
  DeskWithRun opened;
  Desk& desk = opened.desk;
  const std::string made = make_desk_plan(desk, "years=1\nmatings=2\nmostPerMale=1");
  EXPECT_TRUE(holds(made, R"("messages":[])")) << made;
  EXPECT_TRUE(holds(made, R"("count":2,"meanF":0)")) << made;
  EXPECT_TRUE(holds(made, "males: 2, born 2002")) << made;
  const std::string rows = list_plan(desk, 0, 10);
  EXPECT_TRUE(holds(rows, R"("id":"F")")) << rows;
  EXPECT_FALSE(holds(rows, R"("isFixed":true)")) << rows;
  // Brother with sister: F is 1/4 for both, and both stay.
  const std::string swapped = change_plan(desk, "swap", 0, 1);
  EXPECT_TRUE(holds(swapped, R"("meanF":0.25)")) << swapped;
  EXPECT_FALSE(holds(swapped, "pairs: mean F")) << "no longer proved: " << swapped;
  EXPECT_TRUE(holds(list_plan(desk, 1, 1), R"("f":0.25,"isFixed":true)"));
  EXPECT_TRUE(holds(plan_table(desk), "F\tE\t1\t0.25\t0.25\t\t\tyes\t")) << plan_table(desk);
  // Without this pair its two animals are all that is left for each other.
  const std::string refused = change_plan(desk, "forbid", 0, 0);
  EXPECT_TRUE(holds(refused, "nothing was changed")) << refused;
  EXPECT_TRUE(holds(list_plan(desk, 0, 1), R"("f":0.25)"));
  // Loosened, the other one makes room.
  change_plan(desk, "fix", 1, 0);
  EXPECT_TRUE(holds(change_plan(desk, "forbid", 0, 0), R"("meanF":0)"));
  EXPECT_TRUE(holds(plan_page(desk), "<h1>Breeding plan: "));
  EXPECT_EQ(test::sheets_of(plan_workbook(desk)), (std::vector<std::string>{"plan", "contributions", "comparison"}));
  EXPECT_TRUE(holds(contributions_table(desk), "mean_kinship")) << contributions_table(desk);
}

TEST(DeskPlanning, TakesNoFieldThatItCannotReadForBlank) {
  DeskWithRun opened;
  const auto expect = [&](const std::string& settings, const std::string& part) {
    const std::string answer = make_desk_plan(opened.desk, settings);
    EXPECT_TRUE(holds(answer, part)) << settings << ": " << answer;
  };
  expect("matings=0", R"(\u0022matings\u0022: 0 is no number from 1 to 1000000)");
  expect("matings=1000001", "1000001 is no number");
  EXPECT_FALSE(holds(make_desk_plan(opened.desk, "matings=2\nleastPerMale=1000000\nmostPerMale=2"), "is no number"));
  expect("matings=2\nmostPerMale=1.5", R"(\u0022matings of a male at most\u0022: 1.5 is no number)");
  expect("years=x\nmatings=2", R"(\u0022born in the last years\u0022: x is no number)");
  expect("matings=2\nmostF=101", R"(\u0022F at most\u0022: 101 is no per cent from 0 to 100)");
  expect("matings=2\nmostF=-1", "-1 is no per cent");
  expect("matings=2\nmostF=1.2.3", "1.2.3 is no per cent");
  expect("matings=2\nmostPerMale=1\nleastPerMale=2", "is above");
  expect("matings=2\nrate=1", "has no meaning without breeding values");
  EXPECT_EQ(list_plan(opened.desk, 0, 5), R"({"rows":[]})");
  expect("years=1\nmatings=2\nmostF=100\nmostPerMale=2\nleastPerMale=2", R"("messages":[])");
  expect("years=1\nmatings=2\nmostF=12,5", R"("messages":[])");
  opened.desk.language = ToolLanguage::dutch;
  expect("matings=0", R"(\u0022paringen\u0022: 0 is geen getal van 1 tot en met 1000000)");
}

// F with G and H with E, or brothers with sisters: there is nothing else.
TEST(DeskPlanning, SwapsToNoPairThatMayNotBe) {
  DeskWithRun opened;
  Desk& desk = opened.desk;
  const std::string made = make_desk_plan(desk, "years=1\nmatings=2\nmostPerMale=1\nforbidden=E F");
  EXPECT_TRUE(holds(made, R"("messages":[])")) << made;
  const std::string refused = change_plan(desk, "swap", 0, 1);
  EXPECT_TRUE(holds(refused, "This swap makes a pair that may not be, F with E; nothing was changed.")) << refused;
  EXPECT_TRUE(holds(list_plan(desk, 0, 1), R"("f":0,"isFixed":false)"));
  change_plan(desk, "fix", 0, 0);
  EXPECT_TRUE(holds(plan_page(desk), "pairs that may not be: 1; pairs wished for: 1"));
}

TEST(DeskPlanning, NamesItsOwnFieldWhereABoundCannotBeMet) {
  DeskWithRun opened;
  const std::string answer = make_desk_plan(opened.desk,
                                            "males=E\nfemales=F\nmatings=1\nrate=0\nvalues=E 1\x1E"
                                            "F 2");
  EXPECT_TRUE(holds(answer, R"(give a higher \u0022inbreeding a generation at most\u0022 (from )")) << answer;
  EXPECT_FALSE(holds(answer, "--")) << answer;
}

TEST(DeskPlanning, SaysWhatStandsInTheWayInItsOwnWords) {
  DeskWithRun opened;
  const std::string few = make_desk_plan(opened.desk, "years=1\nmatings=5");
  EXPECT_TRUE(holds(few, "there is no room for 5 matings")) << few;
  EXPECT_FALSE(holds(few, "--")) << few;
  EXPECT_EQ(list_plan(opened.desk, 0, 5), R"({"rows":[]})");
  const std::string close = make_desk_plan(opened.desk, "years=1\nmatings=2\nmostF=0\nmostPerMale=1");
  EXPECT_TRUE(holds(close, R"("meanF":0)")) << close;
  Desk empty;
  EXPECT_TRUE(holds(make_desk_plan(empty, ""), "no results"));
  EXPECT_EQ(plan_table(empty) + plan_page(empty) + contributions_table(empty) + plan_workbook(empty), "");
  EXPECT_TRUE(holds(change_plan(empty, "swap", 0, 0), "messages"));
}

TEST(Desk, PlansWithListsThatWereTyped) {
  OpenedDesk opened(family);
  Desk& desk = opened.desk;
  write_files_of_export(desk);
  run_analysis(desk);
  const std::string named = make_desk_plan(desk,
                                           "males=A\x1E"
                                           "C\nfemales=B\x1E"
                                           "D\nmatings=2\nnumbers=id number\x1E"
                                           "A 2");
  EXPECT_TRUE(holds(named, R"("messages":[])")) << named;
  EXPECT_TRUE(holds(named, "males: 2, of the list")) << named;
  EXPECT_TRUE(holds(named, "numbers, line 1: taken for the names of the columns")) << named;
  EXPECT_TRUE(holds(plan_table(desk), "B\tA\t1\t0\t")) << plan_table(desk);
  EXPECT_TRUE(holds(plan_table(desk), "D\tA\t1\t0.25\t")) << plan_table(desk);
  const std::string refused = make_desk_plan(desk, "males=A\x1Enobody\nmatings=1");
  EXPECT_TRUE(holds(refused, R"(males, line 2: \u0022nobody\u0022: no animal has this identification)")) << refused;
  const std::string valued = make_desk_plan(desk,
                                            "males=A\x1E"
                                            "C\nfemales=B\nmatings=1\nvalues=C 10\x1E"
                                            "A 1\nrate=50");
  EXPECT_TRUE(holds(valued, "mean breeding value")) << valued;
  EXPECT_TRUE(holds(make_desk_plan(desk, "years=3\nmatings=1\nexclude= \x1E "), R"("messages":[])"));
}

TEST(Desk, HasNothingOfMatingsBeforeARun) {
  Desk desk;
  EXPECT_EQ(find_in_results(desk, "A"), R"({"animals":[],"count":0})");
  EXPECT_EQ(describe_pair(desk, 1, 2), "{}");
  EXPECT_EQ(rank_males(desk, 1, {2000, 2001}), R"({"count":0})");
  EXPECT_EQ(years_table(desk) + animals_table(desk) + diversity_table(desk) + subpopulations_table(desk), "");
  EXPECT_EQ(tables_workbook(desk), "");
}

TEST(Desk, AllTablesAreSheetsOfAWorkbook) {
  OpenedDesk opened(family);
  write_files_of_export(opened.desk);
  run_analysis(opened.desk);
  const std::string workbook = tables_workbook(opened.desk);
  EXPECT_EQ(test::sheets_of(workbook),
            (std::vector<std::string>{"years", "subpopulations", "animals", "diversity", "standing", "cohorts",
                                      "by_kinship", "most_inbred", "used_sires", "division"}));
  const auto expect_same = [&](const std::string& sheet, const std::string& table) {
    SCOPED_TRACE(sheet);
    test::expect_same_cells(test::sheet_of(workbook, sheet), test::read_table(table));
  };
  expect_same("animals", animals_table(opened.desk));
  expect_same("diversity", diversity_table(opened.desk));
  expect_same("standing", standing_table(opened.desk));
  expect_same("used_sires", used_sires_table(opened.desk));
}

TEST(Desk, TellsWhoWatchesOfEachPhase) {
  OpenedDesk opened(family);
  std::string phases;
  opened.desk.watch = {
      [](void* watcher, std::string_view phase) { *static_cast<std::string*>(watcher) += std::string(phase) + ";"; },
      &phases};
  write_files_of_export(opened.desk);
  run_analysis(opened.desk);
  EXPECT_TRUE(phases.starts_with("writing;counting lines;reading records;")) << phases;
  EXPECT_TRUE(holds(phases, "inbreeding;kinship per year;report;diversity;")) << phases;
}

TEST(DeskInterface, AnswersThroughAHandle) {
  const RunFolder folder(Files{{"export.csv", family}});
  DeskHandle* const handle = desk_create(folder.path().c_str(), 20260131, nullptr);
  const auto answer = [&] { return std::string(desk_answer(handle), desk_answer_size(handle)); };
  desk_set_language(handle, "nl");
  desk_open(handle, folder.path("export.csv").c_str(), "language=nl");
  EXPECT_TRUE(holds(answer(), "Gescheiden door"));
  desk_write(handle);
  EXPECT_TRUE(holds(answer(), "export.txt"));
  desk_run(handle);
  EXPECT_TRUE(holds(answer(), R"("firstYear":2000,"lastYear":2004)")) << answer();
  desk_text(handle, "body");
  EXPECT_TRUE(holds(answer(), "<svg"));
  desk_text(handle, "years");
  EXPECT_TRUE(holds(answer(), "\n2000\t"));
  desk_text(handle, "no such text");
  EXPECT_EQ(answer(), "");
  desk_find(handle, "Ad", 2);
  EXPECT_EQ(answer(), R"({"animals":[],"count":0})");
  desk_find(handle, "Ad", 1);
  EXPECT_TRUE(holds(answer(), R"("name":"Adam")"));
  desk_destroy(handle);
}

}  // namespace
}  // namespace pedigreewatch
