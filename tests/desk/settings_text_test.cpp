#include "desk/settings_text.h"

#include <gtest/gtest.h>

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

TEST(SettingsText, PassesOverWhatItDoesNotKnow) {
  const PrepareOptions options = options_from("weather=sun\ncolumn.tail=3\nno value\nencoding=klingon\n=", {});
  EXPECT_TRUE(options.columns.empty());
  EXPECT_FALSE(options.encoding);
}

}  // namespace
}  // namespace pedigreewatch
