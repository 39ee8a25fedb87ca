#include "desk/settings_text.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "intake/answers_file.h"

namespace pedigreewatch {
namespace {

TEST(SettingsText, WithoutLinesLeavesEverythingToBeRecognised) {
  const PrepareOptions options = options_from("", {});
  EXPECT_FALSE(options.delimiter || options.encoding || options.dates || options.has_header);
  EXPECT_TRUE(options.columns.empty());
  EXPECT_FALSE(options.subpopulations.is_given);
}

TEST(SettingsText, ReadsEachNameWithItsValue) {
  const PrepareOptions options = options_from(
      "encoding=windows-1252\ndelimiter=tab\nheader=no\ndates=mm-dd-yyyy\nmale=ram=1\nspecies=sheep\nlanguage=nl\n"
      "name=Moor\ncolumn.sire=4\ncolumn.colour=none\nunknown= x , y,,",
      {});
  EXPECT_EQ(options.encoding, Encoding::windows_1252);
  EXPECT_EQ(options.delimiter, '\t');
  EXPECT_EQ(options.has_header, false);
  EXPECT_EQ(options.dates, DateOrder::month_day_year);
  EXPECT_EQ(options.male, std::vector<std::string>{"ram=1"});
  EXPECT_EQ(options.species, "sheep");
  EXPECT_EQ(options.language, ToolLanguage::dutch);
  EXPECT_EQ(options.population_name, "Moor");
  ASSERT_EQ(options.columns.size(), 2U);
  EXPECT_EQ(options.columns[0].code, sire_column);
  EXPECT_EQ(options.columns[0].column, "4");
  EXPECT_EQ(options.columns[1].column, "none");
  EXPECT_EQ(options.unknown, (std::vector<std::string>{"x", "y"}));
}

TEST(SettingsText, NamesSubpopulationsByTheirPlaceInTheSurvey) {
  ExportSurvey survey;
  for (const char* name : {"North", "South", "Hill"}) count_text(survey.subpopulations, name, 1);
  const PrepareOptions options = options_from("subpopulations=2,0,9,x", survey);
  EXPECT_TRUE(options.subpopulations.is_given);
  EXPECT_EQ(options.subpopulations.names, (std::vector<std::string>{"Hill", "North"}));
}

TEST(SettingsText, LeavesOutAListOfWhichNothingIsTicked) {
  EXPECT_TRUE(options_from("colours=none", {}).colours.leaves_out);
  EXPECT_TRUE(options_from("colours=99", {}).colours.leaves_out);
  const NameWish all = options_from("colours=all", {}).colours;
  EXPECT_TRUE(all.is_given && !all.leaves_out && all.names.empty());
}

using Settings = std::vector<std::pair<std::string, std::string>>;

/// As the page hands them over.
std::string lines_of(const Settings& settings) {
  std::string lines;
  for (const auto& [name, value] : settings) lines += name + "=" + value + "\n";
  return lines;
}

TEST(SettingsOf, EveryEncodingThatIsKeptComesBack) {
  const int last = static_cast<int>(Encoding::utf_8_twice);
  for (int place = static_cast<int>(Encoding::plain) + 1; place <= last; ++place) {
    PrepareOptions kept;
    kept.encoding = static_cast<Encoding>(place);
    SavedAnswers answers = read_answers(answers_text(kept, {}));
    ASSERT_EQ(answers.lines.size(), 1U) << name_of(*kept.encoding);
    EXPECT_EQ(answers.lines[0].value, name_of(*kept.encoding));
    PrepareOptions read;
    add_answers(answers, {}, read);
    EXPECT_EQ(options_from(lines_of(settings_of(read, ToolLanguage::english)), {}).encoding, kept.encoding)
        << name_of(*kept.encoding);
  }
}

TEST(SettingsOf, AreInTheWordsThatThePageOffers) {
  PrepareOptions options;
  options.encoding = Encoding::utf_8_twice;
  options.delimiter = '|';
  options.has_header = false;
  options.dates = DateOrder::day_month_year;
  EXPECT_EQ(settings_of(options, ToolLanguage::dutch),
            (Settings{{"encoding", "utf-8-twice"}, {"delimiter", "bar"}, {"header", "no"}, {"dates", "dd-mm-jjjj"}}));
  options = {};
  options.encoding = Encoding::utf_16_le;
  options.delimiter = '~';
  options.dates = DateOrder::day_month_year;
  EXPECT_EQ(settings_of(options, ToolLanguage::english),
            (Settings{{"encoding", "utf-16"}, {"delimiter", "~"}, {"dates", "dd-mm-yyyy"}}));
}

TEST(SettingsOfAnswers, AreThoseOfTheCommandLine) {
  const std::string json = settings_of_answers(
      "# a remark\r\nheadings: Tag | Sire\r\n--language nl\r\n--sheet 2\n--encoding UTF-8 twice\n--delimiter ;\n"
      "--header ja\n--column id=Tag no\n--column name=none\n--dates dd/mm/yyyy\n--dates serial-1904\n--century 1925\n"
      "--ids zeros+marks\n--young 6,7\n--availability none\n--gone sold\n--present a, b\n--male Ram\n--male Wether\n"
      "--female Ewe\n--unknown stray\n--known all\n--subpopulations North,South\n--colours Roan, blue;\n"
      "--species sheep\n--name Moor = Hill\n",
      ToolLanguage::english);
  EXPECT_EQ(
      json,
      R"j({"messages":[],"settings":[["sheet","2"],["encoding","utf-8-twice"],["delimiter","semicolon"],)j"
      R"j(["header","yes"],["column.id","Tag no"],["column.name","none"],["dates","dd-mm-yyyy"],)j"
      R"j(["serials","serial-1904"],["century","1925"],["ids","zeros+marks"],["young","6;7"],)j"
      R"j(["availability","none"],["gone","sold\u0009"],["present","a, b\u0009"],["male","Ram\u0009Wether\u0009"],)j"
      R"j(["female","Ewe\u0009"],["unknown","stray\u0009"],["known","all\u0009"],["subpopulations","North;South"],)j"
      R"j(["colours","Roan, blue;"],["species","sheep"],["name","Moor = Hill"]],"unread":[]})j");
}

TEST(SettingsOfAnswers, TellLinesThatCannotBeRead) {
  EXPECT_EQ(
      settings_of_answers("--out x\n\n--dates yy\nsheep\n--species unicorn\n--encoding UTF-17\n--male m\n--colours",
                          ToolLanguage::english),
      R"j({"messages":[],"settings":[["male","m\u0009"]],"unread":[{"line":1,"text":"--out x"},)j"
      R"j({"line":3,"text":"--dates yy"},{"line":4,"text":"sheep"},{"line":5,"text":"--species unicorn"},)j"
      R"j({"line":6,"text":"--encoding UTF-17"},{"line":8,"text":"--colours"}]})j");
}

TEST(SettingsText, PassesOverWhatItDoesNotKnow) {
  const PrepareOptions options = options_from("weather=sun\ncolumn.tail=3\nno value\nencoding=klingon\n=", {});
  EXPECT_TRUE(options.columns.empty());
  EXPECT_FALSE(options.encoding);
}

}  // namespace
}  // namespace pedigreewatch
