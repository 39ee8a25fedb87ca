// The table of all animals without a browser: which are chosen, in which order, and the rows of a window.
#include "desk/all_animals_desk.h"

#include <gtest/gtest.h>

#include <regex>
#include <string>

#include "desk/export_desk.h"
#include "desk/run_desk.h"
#include "support/files.h"
#include "support/run_folder.h"

namespace pedigreewatch {
namespace {

using test::Files;
using test::RunFolder;

/// E has full sibs as parents, so its F is 0.25; of G neither date nor parents are known.
constexpr const char* herd =
    "ID,Name,Sex,Born,Father,Mother,Region\n"
    "A,Zeno,ram,13-01-2000,,,north\n"
    "B,Bea,ewe,14-01-2000,,,north\n"
    "C,,ram,15-02-2002,A,B,south\n"
    "D,Dee,ewe,16-02-2002,A,B,south\n"
    "E,Eva,ewe,17-03-2004,C,D,south\n"
    "G,Gea,ewe,,,,north\n";

struct DeskWithResults {
  RunFolder folder;
  Desk desk;

  DeskWithResults() : folder(Files{{"export.csv", herd}}) {
    desk.folder = folder.path();
    desk.today = {2026, 1, 31};
    open_export(desk, folder.path("export.csv"), "language=en\nspecies=sheep\ncolumn.subpopulation=7");
    write_files_of_export(desk);
    run_analysis(desk);
  }

  /// The identifications that a wish yields, in their order.
  std::string ids(std::string_view wishes) {
    const std::string chosen = choose_animals(desk, wishes), rows = list_animals(desk, 0, 100);
    const std::regex id("\"id\":\"([^\"]*)\"");
    std::string all;
    for (std::sregex_iterator found(rows.begin(), rows.end(), id), end; found != end; ++found) all += (*found)[1].str();
    EXPECT_NE(chosen.find("\"count\":" + std::to_string(all.size())), std::string::npos) << chosen;
    return all;
  }
};

TEST(AllAnimals, AreOrderedByFiguresAndThoseWithoutOneStandLast) {
  DeskWithResults herd_desk;
  EXPECT_EQ(herd_desk.ids("order=year"), "ABCDEG");
  EXPECT_EQ(herd_desk.ids("order=year\nisDescending=1"), "ECDABG");
  EXPECT_EQ(herd_desk.ids("order=f\nisDescending=1").front(), 'E');
  EXPECT_EQ(herd_desk.ids("order=f").back(), 'E');
  EXPECT_EQ(herd_desk.ids("order=offspring\nisDescending=1").substr(0, 4), "ABCD");
  EXPECT_EQ(herd_desk.ids("order=generations\nisDescending=1").front(), 'E');
}

TEST(AllAnimals, AreOrderedByTexts) {
  DeskWithResults herd_desk;
  EXPECT_EQ(herd_desk.ids("order=id"), "ABCDEG");
  EXPECT_EQ(herd_desk.ids("order=id\nisDescending=1"), "GEDCBA");
  EXPECT_EQ(herd_desk.ids("order=name"), "BDEGAC") << "the one without a name stands last";
  EXPECT_EQ(herd_desk.ids("order=name\nisDescending=1"), "AGEDBC");
}

TEST(AllAnimals, AreChosenByWhatIsAskedFor) {
  DeskWithResults herd_desk;
  EXPECT_EQ(herd_desk.ids("order=id\nfirstYear=2002\nlastYear=2002"), "CD");
  EXPECT_EQ(herd_desk.ids("order=id\nfirstYear=2002"), "CDE") << "the year of G is not known";
  EXPECT_EQ(herd_desk.ids("order=id\nsex=male"), "AC");
  EXPECT_EQ(herd_desk.ids("order=id\nsex=female\nlastYear=2003"), "BD");
  EXPECT_EQ(herd_desk.ids("order=id\nleastF=25"), "E");
  EXPECT_EQ(herd_desk.ids("order=id\nleastF=25,1"), "");
  EXPECT_EQ(herd_desk.ids("order=id\nmostF=24,9"), "ABCDG");
  EXPECT_EQ(herd_desk.ids("order=id\ntext=e "), "ABDEG") << "Zeno, Bea, Dee, E and Gea";
  EXPECT_EQ(herd_desk.ids("order=id\nsubpopulation=2"), "CDE");
  EXPECT_EQ(herd_desk.ids("order=id\nleastKinship=0\nmostKinship=100"), "ABCDEG");
  EXPECT_EQ(herd_desk.ids("order=id\nleastKinship=99"), "");
}

TEST(AllAnimals, WishesThatCannotBeReadAreNamedAndAskForNothing) {
  DeskWithResults herd_desk;
  const std::string wishes =
      "order=id\nfirstYear=2o02\nlastYear=2003\nleastF=x\nmostF=101\nleastKinship=0,5\nmostKinship=1.2.3";
  EXPECT_EQ(choose_animals(herd_desk.desk, wishes),
            R"({"count":4,"unread":["firstYear","leastF","mostF","mostKinship"]})");
}

TEST(AllAnimals, AreListedInAWindow) {
  DeskWithResults herd_desk;
  EXPECT_EQ(choose_animals(herd_desk.desk, "order=id"), R"({"count":6,"unread":[]})");
  EXPECT_NE(run_analysis(herd_desk.desk).find(R"("subpopulations":["north","south"])"), std::string::npos);
  EXPECT_NE(run_analysis(herd_desk.desk).find(R"("sireAges":[2,2],"damAges":[2,2])"), std::string::npos)
      << "A and C, and B and D, at two years each";
  const std::string rows = list_animals(herd_desk.desk, 4, 1);
  EXPECT_EQ(rows.find(R"({"rows":[{"position":)"), 0U) << rows;
  EXPECT_NE(rows.find(R"("id":"E","name":"Eva","isMale":false,"year":2004,"f":0.25,"meanKinship":)"), std::string::npos)
      << rows;
  EXPECT_NE(rows.find(R"("generations":2,"offspring":0,"subpopulation":"south"}]})"), std::string::npos) << rows;
  EXPECT_EQ(list_animals(herd_desk.desk, 6, 10), R"({"rows":[]})");
}

TEST(AllAnimals, ThereAreNoneWithoutResults) {
  Desk desk;
  EXPECT_EQ(choose_animals(desk, "order=id"), R"({"count":0,"unread":[]})");
  EXPECT_EQ(list_animals(desk, 0, 10), R"({"rows":[]})");
}

}  // namespace
}  // namespace pedigreewatch
