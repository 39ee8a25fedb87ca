// Whole answers of the desk on exports that hold what its own sentences could be taken for.

#include "desk/export_answer.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>

#include "desk/export_desk.h"
#include "support/run_folder.h"

namespace pedigreewatch {
namespace {

using test::Files;
using test::RunFolder;

std::string answer_on(const std::string& name, const std::string& bytes,
                      ToolLanguage language = ToolLanguage::english) {
  const RunFolder folder(Files{{name, bytes}});
  Desk desk;
  desk.folder = folder.path();
  desk.language = language;
  return open_export(desk, folder.path(name), language == ToolLanguage::english ? "language=en" : "language=nl");
}

constexpr std::string_view english_fields =
    R"j("fields":[{"name":"id","description":"id of the animal","isRequired":true},)j"
    R"j({"name":"name","description":"name of the animal","isRequired":false},)j"
    R"j({"name":"sex","description":"sex","isRequired":true},)j"
    R"j({"name":"birthdate","description":"date of birth","isRequired":true},)j"
    R"j({"name":"sire","description":"id of the father","isRequired":true},)j"
    R"j({"name":"dam","description":"id of the mother","isRequired":true},)j"
    R"j({"name":"colour","description":"colour","isRequired":false},)j"
    R"j({"name":"breeder","description":"breeder","isRequired":false},)j"
    R"j({"name":"subpopulation","description":"subpopulation","isRequired":false},)j"
    R"j({"name":"import","description":"import","isRequired":false},)j"
    R"j({"name":"availability","description":"who has gone","isRequired":false}],)j";

constexpr std::string_view dutch_fields =
    R"j("fields":[{"name":"id","description":"id van het dier","isRequired":true},)j"
    R"j({"name":"name","description":"naam van het dier","isRequired":false},)j"
    R"j({"name":"sex","description":"geslacht","isRequired":true},)j"
    R"j({"name":"birthdate","description":"geboortedatum","isRequired":true},)j"
    R"j({"name":"sire","description":"id van de vader","isRequired":true},)j"
    R"j({"name":"dam","description":"id van de moeder","isRequired":true},)j"
    R"j({"name":"colour","description":"kleur","isRequired":false},)j"
    R"j({"name":"breeder","description":"fokker","isRequired":false},)j"
    R"j({"name":"subpopulation","description":"subpopulatie","isRequired":false},)j"
    R"j({"name":"import","description":"import","isRequired":false},)j"
    R"j({"name":"availability","description":"welke dieren weg zijn","isRequired":false}],)j";

std::string with(std::string_view before, std::string_view fields, std::string_view after) {
  return std::string(before).append(fields).append(after);
}

TEST(ExportAnswer, LeavesNamesAndSexesThatLookLikeOptionsAsTheyAre) {
  const std::string answer = answer_on("herd--male.csv",
                                       "id;sex;birthdate;sire;dam\n"
                                       "A;--male q;13-01-2000;;\n"
                                       "B;x: --species, y;14-01-2001;A;\n");
  EXPECT_EQ(
      answer,
      with(
          R"j({"messages":[],"questions":[{"text":"It is not clear which animals are male: the sexes are written )j"
          R"j(\u0022--male q\u0022 (1), \u0022x: --species, y\u0022 (1). Choose it at \u0022Sexes\u0022.",)j"
          R"j("setting":"male","answers":[{"value":"--male q","text":"--male q"},)j"
          R"j({"value":"x: --species, y","text":"x: --species, y"}]},)j"
          R"j({"text":"The species is needed, for the words of the report. Choose it at \u0022Species\u0022.",)j"
          R"j("setting":"species","answers":[{"value":"dog","text":"dog"},{"value":"cat","text":"cat"},)j"
          R"j({"value":"cattle","text":"cattle"},{"value":"sheep","text":"sheep"},{"value":"horse","text":"horse"},)j"
          R"j({"value":"poultry","text":"poultry"},{"value":"pig","text":"pig"},{"value":"other","text":"other"}]}],)j"
          R"j("evidence":[{"label":"Export","text":"herd--male.csv: 3 lines"},)j"
          R"j({"label":"Letters","text":"plain letters only (ASCII)"},)j"
          R"j({"label":"Divided by","text":"; (semicolon): 3 of the first 3 lines have 5 columns"},)j"
          R"j({"label":"Headings","text":"in line 1"},{"label":"Animals","text":"2"},{"label":"Columns","text":"5"},)j"
          R"j({"label":"In use","text":"column 1, id: id of the animal; filled in 2"},)j"
          R"j({"label":"","text":"column 2, sex: sex; filled in 2"},)j"
          R"j({"label":"","text":"column 3, birthdate: date of birth; filled in 2"},)j"
          R"j({"label":"","text":"column 4, sire: id of the father; filled in 1"},)j"
          R"j({"label":"","text":"column 5, dam: id of the mother; filled in 0"},)j"
          R"j({"label":"Fathers","text":"1 different ones, 1 of them have a line of their own"},)j"
          R"j({"label":"Mothers","text":"0 different ones, 0 of them have a line of their own"},)j"
          R"j({"label":"Unknown parents","text":"written as empty (3)"},)j"
          R"j({"label":"Dates","text":"written as dd-mm-yyyy"},)j"
          R"j({"label":"","text":"As dd-mm-yyyy: 2; 2 of them fit no other order, 0 would fit mm-dd-yyyy too"},)j"
          R"j({"label":"Sexes","text":"male: none; female: none"},)j"
          R"j({"label":"","text":"Unknown, count as female in the report: \u0022--male q\u0022 (1), )j"
          R"j(\u0022x: --species, y\u0022 (1)"},)j"
          R"j({"label":"Population","text":"herd--male"}],)j"
          R"j("sheets":[],"sheet":"","encoding":"ASCII","delimiter":";","hasHeader":true,"animals":2,)j"
          R"j("headings":["id","sex","birthdate","sire","dam"],"columns":["id","sex","birthdate","sire","dam"],)j",
          english_fields,
          R"j("lines":[["A","--male q","13-01-2000","",""],["B","x: --species, y","14-01-2001","A",""]],)j"
          R"j("sexes":[{"text":"--male q","count":1,"meaning":"unknown"},)j"
          R"j({"text":"x: --species, y","count":1,"meaning":"unknown"}],)j"
          R"j("unknownParents":[{"text":"","count":3,"isUnknown":true}],"availability":[],"subpopulations":[],"colours":[],)j"
          R"j("dates":{"isAmbiguous":false,"hasShortYears":false,"hasSerials":false,"written":"dd-mm-yyyy","orders":[]},"species":"",)j"
          R"j("allSpecies":["dog","cat","cattle","sheep","horse","poultry","pig","other"],"name":"herd--male",)j"
          R"j("steer":"","dataName":"herd--male.txt","availableName":""})j"));
}

TEST(ExportAnswer, TellsOfBlankLinesAndOfAStrayDelimiterInDutch) {
  const std::string answer = answer_on("kudde.csv",
                                       "id;sekse;geboortedatum;vader;moeder\n"
                                       "A;ram;13-01-2000;;\n"
                                       "\n"
                                       "B;ooi;14-01-2001;A;;\n",
                                       ToolLanguage::dutch);
  EXPECT_EQ(
      answer,
      with(
          R"j({"messages":[],"questions":[],)j"
          R"j("evidence":[{"label":"Export","text":"kudde.csv: 4 regels"},)j"
          R"j({"label":"Letters","text":"alleen gewone letters (ASCII)"},)j"
          R"j({"label":"Gescheiden door","text":"; (puntkomma): 2 van de eerste 3 regels hebben 5 kolommen"},)j"
          R"j({"label":"Koppen","text":"in regel 1"},{"label":"Dieren","text":"2"},{"label":"Kolommen","text":"5"},)j"
          R"j({"label":"In gebruik","text":"kolom 1, id: id van het dier; gevuld bij 2"},)j"
          R"j({"label":"","text":"kolom 2, sekse: geslacht; gevuld bij 2"},)j"
          R"j({"label":"","text":"kolom 3, geboortedatum: geboortedatum; gevuld bij 2"},)j"
          R"j({"label":"","text":"kolom 4, vader: id van de vader; gevuld bij 1"},)j"
          R"j({"label":"","text":"kolom 5, moeder: id van de moeder; gevuld bij 0"},)j"
          R"j({"label":"Vaders","text":"1 verschillende, 1 daarvan hebben een eigen regel"},)j"
          R"j({"label":"Moeders","text":"0 verschillende, 0 daarvan hebben een eigen regel"},)j"
          R"j({"label":"Onbekende ouders","text":"geschreven als leeg (3)"},)j"
          R"j({"label":"Datums","text":"geschreven als dd-mm-jjjj"},)j"
          R"j({"label":"","text":"Als dd-mm-jjjj: 2; 2 daarvan passen in geen andere volgorde, 0 ook in mm-dd-jjjj"},)j"
          R"j({"label":"Geslacht","text":"mannelijk: \u0022ram\u0022 (1); vrouwelijk: \u0022ooi\u0022 (1)"},)j"
          R"j({"label":"Diersoort","text":"schaap"},{"label":"Populatie","text":"kudde"},)j"
          R"j({"label":"Let op","text":"Regels met meer of minder kolommen dan de 5 van de eerste regel; wat erin staat )j"
          R"j(kan in de verkeerde kolom staan: 1: regel 4 \u00226\u0022"},)j"
          R"j({"label":"Weggelaten","text":"Regels zonder dier: 1"},)j"
          R"j({"label":"Regelnummers","text":"Door lege regels, of regeleinden binnen aanhalingstekens, hebben regels )j"
          R"j(van het databestand een ander nummer."},)j"
          R"j({"label":"","text":"Vanaf regel 4 van de export: regel 3 van kudde.txt"}],)j"
          R"j("sheets":[],"sheet":"","encoding":"ASCII","delimiter":";","hasHeader":true,"animals":2,)j"
          R"j("headings":["id","sekse","geboortedatum","vader","moeder"],)j"
          R"j("columns":["id","sex","birthdate","sire","dam"],)j",
          dutch_fields,
          R"j("lines":[["A","ram","13-01-2000","",""],["B","ooi","14-01-2001","A","",""]],)j"
          R"j("sexes":[{"text":"ram","count":1,"meaning":"male"},{"text":"ooi","count":1,"meaning":"female"}],)j"
          R"j("unknownParents":[{"text":"","count":3,"isUnknown":true}],"availability":[],"subpopulations":[],"colours":[],)j"
          R"j("dates":{"isAmbiguous":false,"hasShortYears":false,"hasSerials":false,"written":"dd-mm-jjjj","orders":[]},"species":"schaap",)j"
          R"j("allSpecies":["hond","kat","rund","schaap","paard","pluimvee","varken","overig"],"name":"kudde",)j"
          R"j("steer":"kudde\u000akudde.txt\u000a;\u000an\u000add-mm-jjjj\u000aschaap\u000am\u000anl\u000ay\u000a)j"
          R"j(0\u000a0\u000a","dataName":"kudde.txt","availableName":""})j"));
}

TEST(ExportAnswer, SaysThatAFileIsEmpty) {
  EXPECT_EQ(answer_on("leeg--name.csv", ""), R"j({"messages":["leeg--name.csv is empty"]})j");
  EXPECT_EQ(answer_on("leeg--name.csv", "", ToolLanguage::dutch), R"j({"messages":["leeg--name.csv is leeg"]})j");
}

TEST(ExportAnswer, SaysWhichDelimitersWereTried) {
  EXPECT_EQ(
      answer_on("a.csv", "id\nA: with --delimiter\n"),
      R"j({"messages":["a.csv: it is not clear which character divides the columns (; (semicolon): 2 of 2 lines )j"
      R"j(have 1 columns; , (comma): 2 of 2 lines have 1 columns; tab: 2 of 2 lines have 1 columns; | (bar): )j"
      R"j(2 of 2 lines have 1 columns). Choose it at \u0022Divided by\u0022, under \u0022How the file is )j"
      R"j(read\u0022."]})j");
}

/// How often `wanted` stands in the list of this name.
int count_in_list(const std::string& answer, const std::string& name, std::string_view wanted) {
  const std::size_t begin = answer.find("\"" + name + "\":[");
  const std::string list = answer.substr(begin, answer.find("],", begin) - begin);
  int count = 0;
  for (std::size_t at = list.find(wanted); at != std::string::npos; at = list.find(wanted, at + 1)) ++count;
  return count;
}

/// So many animals, each with a text of its own in the column of this heading.
std::string export_with(const std::string& heading, int animals) {
  std::string text = "id;sex;birthdate;sire;dam;" + heading + "\n";
  for (int k = 1; k <= animals; ++k) {
    text += std::to_string(k) + (k % 2 == 0 ? ";m" : ";f") + ";13-01-2000;;;" + std::to_string(1 + k % 28) + "-" +
            std::to_string(1 + k / 28 % 12) + "-" + std::to_string(1900 + k / 336) + "\n";
  }
  return text;
}

TEST(ExportAnswer, ListsTwoThousandNames) {
  EXPECT_EQ(count_in_list(answer_on("a.csv", export_with("herd", 2000)), "subpopulations", "isListed"), 2000);
  EXPECT_EQ(count_in_list(answer_on("a.csv", export_with("herd", 2001)), "subpopulations", "isListed"), 2000);
}

TEST(ExportAnswer, ListsFiftyTextsOfAColumnThatTellsWhoHasGone) {
  EXPECT_EQ(count_in_list(answer_on("a.csv", export_with("Date of death", 50)), "availability", "isGone"), 50);
  EXPECT_EQ(count_in_list(answer_on("a.csv", export_with("Date of death", 51)), "availability", "isGone"), 50);
}

TEST(ExportAnswer, ListsFiftySexes) {
  const auto sexes_listed = [](int sexes) {
    std::string text = "id;sex;birthdate;sire;dam\n";
    for (int k = 0; k < sexes; ++k) {
      text += std::to_string(1000 + k) + ";kind" + std::to_string(k) + ";13-01-2000;;\n";
    }
    return count_in_list(answer_on("a.csv", text), "sexes", "meaning");
  };
  EXPECT_EQ(sexes_listed(50), 50);
  EXPECT_EQ(sexes_listed(51), 50);
}

TEST(ExportAnswer, ShowsEightyColumns) {
  const auto columns_shown = [](int columns) {
    std::string headings = "id;sex;birthdate;sire;dam", line = "1;m;13-01-2000;;";
    for (int k = 5; k < columns; ++k) headings += ";Q", line += ";x";
    const std::string answer = answer_on("a.csv", headings + "\n" + line + "\n");
    return std::pair(count_in_list(answer, "headings", "\"Q\""), count_in_list(answer, "lines", "\"x\""));
  };
  EXPECT_EQ(columns_shown(80), std::pair(75, 75));
  EXPECT_EQ(columns_shown(81), std::pair(75, 75));
}

TEST(ExportAnswer, ShowsTwelveLines) {
  const auto lines_shown = [](int animals) {
    const std::string answer = answer_on("a.csv", export_with("Coat", animals));
    const std::size_t begin = answer.find(R"("lines":[)");
    const std::string lines = answer.substr(begin, answer.find("]]", begin) - begin);
    int count = 0;
    for (std::size_t at = lines.find("13-01-2000"); at != std::string::npos; at = lines.find("13-01-2000", at + 1))
      ++count;
    return count;
  };
  EXPECT_EQ(lines_shown(12), 12);
  EXPECT_EQ(lines_shown(13), 12);
}

}  // namespace
}  // namespace pedigreewatch
