// Several females against several males, lists of animals, and animals that are left out, without a browser.
#include "desk/mates_desk.h"

#include <gtest/gtest.h>

#include <string>

#include "desk/board_desk.h"
#include "desk/export_desk.h"
#include "desk/matings_desk.h"
#include "desk/plan_desk.h"
#include "desk/run_desk.h"
#include "support/files.h"
#include "support/read_table.h"
#include "support/run_folder.h"
#include "support/written_workbook.h"

namespace pedigreewatch {
namespace {

/// Two litters of full sibs, unrelated to each other.
constexpr const char* litters_of_sibs =
    "ID,Name,Sex,Born,Father,Mother\n"
    "A,,ram,13-01-2000,,\nB,,ewe,14-01-2000,,\nC,,ram,13-01-2000,,\nD,,ewe,14-01-2000,,\n"
    "E,,ram,15-02-2002,A,B\nF,,ewe,15-02-2002,A,B\nG,,ram,15-03-2002,C,D\nH,,ewe,15-03-2002,C,D\n";

bool answer_says(const std::string& text, std::string_view wanted) {
  return text.find(wanted) != std::string::npos;
}

struct DeskWithMates {
  test::RunFolder folder;
  Desk desk;

  explicit DeskWithMates(const std::string& bytes = litters_of_sibs) : folder(test::Files{{"export.csv", bytes}}) {
    desk.folder = folder.path();
    desk.today = {2026, 1, 31};
    open_export(desk, folder.path("export.csv"), "language=en\nspecies=sheep");
    write_files_of_export(desk);
    run_analysis(desk);
  }
  /// Positions of animals, as the page says them.
  std::string positions(const std::string& letters) const {
    std::string text;
    const PopulationStore& store = desk.results->population.store;
    for (const char letter : letters) {
      for (std::int32_t i = 1; i <= store.animal_count; ++i) {
        if (without_trailing_blanks(store.id(i)) == std::string(1, letter)) text += std::to_string(i) + ",";
      }
    }
    return text;
  }
};

TEST(MatesDesk, ComparesEachFemaleWithEachMaleInTheOrderAsked) {
  DeskWithMates mates;
  // H, then F, with G, E and A: half of the genes of full sibs, and of a father and his daughter, are the same.
  const std::string answer = compare_mates(mates.desk, mates.positions("HF"), mates.positions("GEAG"));
  EXPECT_TRUE(answer_says(answer, R"("f":[0.25,0,0,0,0.25,0.25],"classes":[3,0,0,0,3,3],"beyond":[0,4,5],)")) << answer;
  EXPECT_TRUE(answer_says(answer, R"("limit":0.0625})")) << answer;
  EXPECT_TRUE(answer_says(answer, R"("equivalents":1,"isShallow":true)")) << answer;
  const test::ReadTable table = test::read_table(mates_table(mates.desk));
  EXPECT_EQ(table.names, (std::vector<std::string>{"female", "G", "E", "A"}));
  EXPECT_EQ(table.rows, (std::vector<std::vector<std::string>>{{"H", "0.25", "0", "0"}, {"F", "0", "0.25", "0.25"}}));
  test::expect_same_cells(test::sheet_of(mates_workbook(mates.desk), "F of offspring"), table);
  EXPECT_EQ(set_board(mates.desk, {"", "", "25"}).find("no per cent"), std::string::npos);
  EXPECT_TRUE(answer_says(compare_mates(mates.desk, mates.positions("HF"), mates.positions("GEA")), R"("beyond":[],)"));
}

TEST(MatesDesk, FindsAllOfASexThatWereBornInSomeYears) {
  DeskWithMates mates(
      "ID,Name,Sex,Born,Father,Mother,Died\nA,,ram,13-01-2000,,,16-03-2003\nB,,ewe,14-01-2000,,,17-03-2003\n"
      "C,,ram,13-01-2001,,,\nD,,ewe,14-01-2001,,,\nE,,ewe,14-01-2002,,,\n");
  EXPECT_TRUE(answer_says(find_born(mates.desk, {female, 2000, 2001, false}),
                          R"({"count":1,"most":100,"animals":[{"position":4,"id":"D",)"));
  EXPECT_TRUE(answer_says(find_born(mates.desk, {female, 2000, 2001, true}), R"({"count":2,)"));
  EXPECT_TRUE(answer_says(find_born(mates.desk, {male, 2001, 2002, false}),
                          R"({"count":1,"most":100,"animals":[{"position":3,"id":"C",)"));
  leave_out(mates.desk, mates.positions("D"));
  EXPECT_EQ(find_born(mates.desk, {female, 2000, 2001, false}), R"({"count":0,"most":100,"animals":[]})");
  EXPECT_EQ(find_born(Desk{}, {female, 2000, 2001, false}), R"({"count":0,"most":100,"animals":[]})");
}

TEST(MatesDesk, TablesMarkThoseThatHaveGone) {
  DeskWithMates mates(
      "ID,Name,Sex,Born,Father,Mother,Died\nA,,ram,13-01-2000,,,16-03-2003\nB,,ewe,14-01-2000,,,17-03-2003\n"
      "C,,ram,13-01-2000,,,\nD,,ewe,14-01-2000,,,\n");
  compare_mates(mates.desk, mates.positions("BD"), mates.positions("AC"));
  const test::ReadTable table = test::read_table(mates_table(mates.desk));
  EXPECT_EQ(table.names, (std::vector<std::string>{"female", "no_longer_there", "A", "C"}));
  EXPECT_EQ(table.rows,
            (std::vector<std::vector<std::string>>{{"B", "no longer there (Died: 17-03-2003)", "0", "0"},
                                                   {"D", "", "0", "0"},
                                                   {"no_longer_there", "", "no longer there (Died: 16-03-2003)", ""}}));
  test::expect_same_cells(test::sheet_of(mates_workbook(mates.desk), "F of offspring"), table);
  compare_mates(mates.desk, mates.positions("D"), mates.positions("A"));
  EXPECT_EQ(mates_table(mates.desk), "female\tA\nD\t0\nno_longer_there\tno longer there (Died: 16-03-2003)\n");
  compare_mates(mates.desk, mates.positions("D"), mates.positions("C"));
  EXPECT_EQ(mates_table(mates.desk), "female\tC\nD\t0\n");
  const auto female = static_cast<std::int32_t>(std::stoi(mates.positions("D")));
  rank_males(mates.desk, female, {2000, 2000, true});
  EXPECT_TRUE(answer_says(males_table(mates.desk), "\tbeyond_limit\tno_longer_there\n")) << males_table(mates.desk);
  EXPECT_TRUE(answer_says(males_table(mates.desk), "\t0\tno longer there (Died: 16-03-2003)\n"));
  rank_males(mates.desk, female, {2000, 2000, false});
  EXPECT_TRUE(answer_says(males_table(mates.desk), "\tbeyond_limit\n"));
}

TEST(MatesDesk, IsInTheLanguageOfTheDesk) {
  DeskWithMates mates;
  mates.desk.language = ToolLanguage::dutch;
  EXPECT_TRUE(
      answer_says(compare_mates(mates.desk, "", mates.positions("G")), "Kies minstens één moeder en één vader."));
  compare_mates(mates.desk, mates.positions("H"), mates.positions("G"));
  EXPECT_EQ(test::sheets_of(mates_workbook(mates.desk)), (std::vector<std::string>{"F van jongen"}));
}

TEST(MatesDesk, TakesAHundredOfEachAtMost) {
  std::string bytes = litters_of_sibs;
  for (int k = 0; k < 101; ++k) bytes += "N" + std::to_string(k) + ",,ewe,15-03-2003,,\n";
  DeskWithMates mates(bytes);
  const auto females = [&](int count) {
    std::string ids;
    for (int k = 0; k < count; ++k) ids += "N" + std::to_string(k) + "\n";
    std::string positions, answer = find_listed(mates.desk, ids);
    for (std::size_t at = 0; (at = answer.find(R"("position":)", at)) != std::string::npos; at += 11) {
      positions += answer.substr(at + 11, answer.find(',', at) - at - 11) + ",";
    }
    return positions;
  };
  const std::string all = find_born(mates.desk, {female, 2003, 2003, false});
  EXPECT_TRUE(answer_says(all, R"({"count":101,"most":100,"animals":[]})")) << "too many for a table";
  leave_out(mates.desk, females(1));
  EXPECT_TRUE(
      answer_says(find_born(mates.desk, {female, 2003, 2003, false}), R"({"count":100,"most":100,"animals":[{)"));
  EXPECT_TRUE(answer_says(compare_mates(mates.desk, females(100), mates.positions("A")), R"("messages":[],)"));
  EXPECT_FALSE(mates_table(mates.desk).empty());
  EXPECT_TRUE(
      answer_says(compare_mates(mates.desk, females(101), mates.positions("A")), "At most 100 females and 100 males"));
  EXPECT_EQ(mates_table(mates.desk) + mates_workbook(mates.desk), "") << "nothing is left of the table before";
}

TEST(MatesDesk, FindsTheAnimalsOfAListLineByLine) {
  DeskWithMates mates;
  const std::string answer = find_listed(mates.desk, "H\n\n  nobody \r\nA");
  EXPECT_TRUE(answer_says(answer, R"("id":"H","name":"","isMale":false)")) << answer;
  EXPECT_TRUE(answer_says(answer, R"(},{"position":0,"id":"nobody"},{)")) << answer;
  EXPECT_TRUE(answer_says(answer, R"("id":"A")")) << answer;
  EXPECT_EQ(find_listed(Desk(), "H"), R"({"animals":[{"position":0,"id":"H"}]})");
}

TEST(MatesDesk, WhoIsLeftOutStandsInNoRankingAndNoPlan) {
  DeskWithMates mates;
  const auto female = static_cast<std::int32_t>(std::stoi(mates.positions("F")));
  EXPECT_EQ(rank_males(mates.desk, female, {2000, 2002}), R"({"count":4})");
  EXPECT_EQ(leave_out(mates.desk, mates.positions("GH") + "0,99999,x"), R"({"count":2})");
  EXPECT_EQ(rank_males(mates.desk, female, {2000, 2002}), R"({"count":3})");
  EXPECT_FALSE(answer_says(list_males(mates.desk, 0, 9), R"("id":"G")"));
  make_desk_plan(mates.desk, "years=9\nmatings=2\nmostPerFemale=2");
  const test::ReadTable plan = test::read_table(plan_table(mates.desk));
  ASSERT_FALSE(plan.rows.empty());
  for (const auto& row : plan.rows) {
    EXPECT_NE(row[plan.place("male")], "G");
    EXPECT_NE(row[plan.place("female")], "H");
  }
  EXPECT_TRUE(answer_says(contributions_table(mates.desk), "excluded"));
  EXPECT_EQ(leave_out(mates.desk, ""), R"({"count":0})") << "all are back";
  EXPECT_EQ(rank_males(mates.desk, female, {2000, 2002}), R"({"count":4})");
}

TEST(MatesDesk, HasNothingBeforeARun) {
  Desk desk;
  EXPECT_TRUE(answer_says(compare_mates(desk, "1", "2"), "Choose at least one female and one male."));
  EXPECT_EQ(leave_out(desk, "1,2"), R"({"count":0})");
  EXPECT_EQ(mates_table(desk) + mates_workbook(desk), "");
}

}  // namespace
}  // namespace pedigreewatch
