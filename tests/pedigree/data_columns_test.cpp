#include "pedigree/data_columns.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "pedigree/header_words.h"
#include "support/pedigree_runs.h"
#include "support/streams.h"

namespace pedigreewatch::test {
namespace {

using Codes = std::vector<std::int32_t>;
using Lines = std::vector<std::string>;

constexpr std::string_view complete_header = "id;sire;dam;sex;dob\n";

/// The map without the unused columns at its end.
Codes shortened(const ColumnMap& columns) {
  Codes codes(columns.begin(), columns.end());
  while (!codes.empty() && codes.back() == unused_column) codes.pop_back();
  return codes;
}

Lines found(std::int32_t column_no, std::string_view word) {
  return {"  Name found for column " + number(column_no) + " " + padded(word, 16)};
}

Lines not_recognised(std::int32_t column_no, std::string_view word) {
  return {"  Name " + padded(word, 16) + " found for column " + number(column_no) + "  not recognised",
          "  check if correct", "  Column " + number(column_no) + "  will be skipped"};
}

Lines empty_word(std::int32_t column_no) {
  return {"  No name found for column " + number(column_no),
          "  check if correct, i.e. if consecutive delimiters should be treated as indicati", " ng empty field",
          "  Column " + number(column_no) + "  will be skipped"};
}

std::string console_of(std::initializer_list<Lines> groups) {
  std::string text;
  for (const Lines& group : groups) text += joined(group);
  return text;
}

/// A header line, its map and what the console said.
struct Header {
  Codes codes;
  std::string console;
};

Header read_header(std::string_view line, const TestLayout& settings) {
  TextOutput console = output_in(settings.english);
  const ColumnMap columns = read_header_line(line, settings, console);
  return {shortened(columns), console.pending};
}

Header read_header(std::string_view line) {
  return read_header(line, settings_in(true));
}

Header read_merged(std::string_view line) {
  TestLayout settings = settings_in(true);
  settings.merge_delimiters = true;
  return read_header(line, settings);
}

// ---- splitting the header line -----------------------------------------------------------------------------------

TEST(ReadHeaderLine, ReportsEveryWordInEnglish) {
  const Header header = read_header("id;weight;dam");
  EXPECT_EQ(header.codes, (Codes{id_column, unused_column, dam_column}));
  EXPECT_EQ(header.console, console_of({found(1, "id"), not_recognised(2, "weight"), found(3, "dam")}));
}

TEST(ReadHeaderLine, ReportsEveryWordInDutch) {
  const Header header = read_header("dier;gewicht;;vader", settings_in(false));
  EXPECT_EQ(header.codes, (Codes{id_column, unused_column, unused_column, sire_column}));
  EXPECT_EQ(header.console,
            "  Naam gevonden voor kolom            1 dier            \n"
            "  Naam gewicht          boven kolom            2  niet herkend\n"
            "  Ga na of dit klopt\n"
            "  Kolom            2  zal worden overgeslagen\n"
            "  Geen naam gevonden voor kolom            3\n"
            "  Ga na of dit klopt: misschien moeten opeenvolgende scheidingstekens niet als e\n"
            " en leeg veld worden gezien\n"
            "  Kolom            3  zal worden overgeslagen\n"
            "  Naam                  boven kolom            3  niet herkend\n"
            "  Ga na of dit klopt\n"
            "  Kolom            3  zal worden overgeslagen\n"
            "  Naam gevonden voor kolom            4 vader           \n");
}

TEST(ReadHeaderLine, LineThatEndsInADelimiterHasOneMoreBlankWord) {
  const Header header = read_header("id;sire;");
  EXPECT_EQ(header.codes, (Codes{id_column, sire_column}));
  EXPECT_EQ(header.console, console_of({found(1, "id"), found(2, "sire"), not_recognised(3, "")}));
}

TEST(ReadHeaderLine, LineThatEndsInADelimiterHasABlankWordWhenDelimitersAreMergedToo) {
  EXPECT_EQ(read_merged("id;").console, console_of({found(1, "id"), not_recognised(2, "")}));
}

TEST(ReadHeaderLine, BlanksAroundAWordDoNotMatter) {
  const Header header = read_header("   id  ;  sire;dam    ;    name dad");
  EXPECT_EQ(header.codes, (Codes{id_column, sire_column, dam_column, sire_name_column}));
  EXPECT_EQ(header.console, console_of({found(1, "id"), found(2, "sire"), found(3, "dam"), found(4, "name dad")}));
}

TEST(ReadHeaderLine, WordIsCutTo16CharactersAndThenNeverFound) {
  const Header header = read_header("subpopulation1234;abcdefghijklmnopqrstuvwxyz;   abcdefghijklmnop");
  EXPECT_EQ(header.codes, Codes{});
  EXPECT_EQ(header.console, console_of({not_recognised(1, "subpopulation123"), not_recognised(2, "abcdefghijklmnop"),
                                        not_recognised(3, "abcdefghijklmnop")}));
}

TEST(ReadHeaderLine, TabSeparatesWords) {
  TestLayout settings = settings_in(true);
  settings.delimiter = '\t';
  EXPECT_EQ(read_header("id\tsire\tid dam", settings).codes, (Codes{id_column, sire_column, dam_column}));
}

TEST(ReadHeaderLine, EmptyWordIsReportedTwice) {
  const Header header = read_header(";id;;dam");
  EXPECT_EQ(header.codes, (Codes{unused_column, id_column, unused_column, dam_column}));
  EXPECT_EQ(header.console, console_of({empty_word(1), not_recognised(1, ""), found(2, "id"), empty_word(3),
                                        not_recognised(3, ""), found(4, "dam")}));
}

TEST(ReadHeaderLine, MergedDelimitersInARowEndTheHeaderWithoutAMessage) {
  const Header header = read_merged("id;sire;;dam;sex;dob");
  EXPECT_EQ(header.codes, (Codes{id_column, sire_column}));
  EXPECT_EQ(header.console, console_of({found(1, "id"), found(2, "sire")}));
}

TEST(ReadHeaderLine, MergedDelimiterAtTheStartLeavesNoColumnAtAll) {
  const Header header = read_merged(";id;sire");
  EXPECT_EQ(header.codes, Codes{});
  EXPECT_EQ(header.console, "");
}

TEST(ReadHeaderLine, WordsBehindThe25thAreIgnoredWithoutAMessage) {
  std::string line = "id";
  std::vector<Lines> groups = {found(1, "id")};
  for (std::int32_t c = 2; c <= 25; ++c) {
    line += ";x" + std::to_string(c);
    groups.push_back(not_recognised(c, "x" + std::to_string(c)));
  }
  std::string expected;
  for (const Lines& group : groups) expected += joined(group);
  const Header header = read_header(line + ";sire;dam");
  EXPECT_EQ(header.codes, Codes{id_column});
  EXPECT_EQ(header.console, expected);
}

TEST(ReadHeaderLine, The25thWordCounts) {
  std::string line;
  for (std::int32_t c = 1; c <= 24; ++c) line += "-;";
  const Header header = read_header(line + "dam;sire");
  ASSERT_EQ(header.codes.size(), 25U);
  EXPECT_EQ(header.codes.back(), dam_column);
}

TEST(ReadHeaderLine, WordThatBeginsInColumn599Counts) {
  // Columns 1 to 597, the delimiter in column 598, then "id" in 599 and 600.
  const Header header = read_header("sire" + std::string(593, ' ') + ";id");
  EXPECT_EQ(header.codes, (Codes{sire_column, id_column}));
  EXPECT_EQ(header.console, console_of({found(1, "sire"), found(2, "id")}));
}

TEST(ReadHeaderLine, WordThatWouldBeginInColumn600IsNotLookedAt) {
  const Header header = read_header("sire" + std::string(594, ' ') + ";x");
  EXPECT_EQ(header.codes, Codes{sire_column});
  EXPECT_EQ(header.console, console_of({found(1, "sire")}));
}

TEST(ReadHeaderLine, DelimiterInColumn599BehindOneIn598IsAnEmptyWord) {
  const Header header = read_header("sire" + std::string(593, ' ') + ";;x");
  EXPECT_EQ(header.codes, Codes{sire_column});
  EXPECT_EQ(header.console, console_of({found(1, "sire"), empty_word(2), not_recognised(2, "")}));
}

TEST(ReadHeaderLine, WordIsCutAtColumn600) {
  const Header header = read_header("sire" + std::string(590, ' ') + ";name_dad");  // "name_" is left of it
  EXPECT_EQ(header.codes, Codes{sire_column});
  EXPECT_EQ(header.console, console_of({found(1, "sire"), not_recognised(2, "name_")}));
}

TEST(ReadHeaderLine, BlankAsDelimiterFindsEmptyWordsBehindTheLine) {
  TestLayout settings = settings_in(true);
  settings.delimiter = ' ';
  const Header header = read_header("id sire", settings);
  EXPECT_EQ(header.codes, (Codes{id_column, sire_column}));
  std::string expected = console_of({found(1, "id"), found(2, "sire")});
  for (std::int32_t c = 3; c <= 25; ++c) expected += console_of({empty_word(c), not_recognised(c, "")});
  EXPECT_EQ(header.console, expected);
}

TEST(ReadHeaderLine, BlankAsMergedDelimiterIsSilentBehindTheLine) {
  TestLayout settings = settings_in(true);
  settings.delimiter = ' ';
  settings.merge_delimiters = true;
  const Header header = read_header("id sire dam", settings);
  EXPECT_EQ(header.codes, (Codes{id_column, sire_column, dam_column}));
  EXPECT_EQ(header.console, console_of({found(1, "id"), found(2, "sire"), found(3, "dam")}));
}

TEST(ReadHeaderLine, BlankLineIsOneBlankWord) {
  EXPECT_EQ(read_header("").console, console_of({not_recognised(1, "")}));
  EXPECT_EQ(read_merged("").console, console_of({not_recognised(1, "")}));
}

// ---- the map and its announcement --------------------------------------------------------------------------------

/// The columns of a data file, the store whose flags they set, and what the run printed.
struct Columns {
  Codes codes;
  PopulationStore store;
  RunStreams streams;
  std::int64_t lines_read = 0;
  bool has_stopped = false;
};

Columns read(std::string_view data, const TestLayout& settings) {
  Columns result;
  result.streams = streams_in(settings.english);
  LineReader reader;
  reader.name = "dogs.txt";
  reader.text = data;
  result.has_stopped =
      stops([&] { result.codes = shortened(read_columns(reader, settings, result.store, result.streams).codes); });
  result.lines_read = reader.line_number;
  return result;
}

/// Columns given by the steer file, whose header is never read.
Columns read_codes(const Codes& codes, bool english) {
  TestLayout settings = settings_in(english);
  std::copy(codes.begin(), codes.end(), settings.column_codes.begin());
  return read("", settings);
}

TEST(ReadColumns, AnnouncesAllFieldsInTheOrderOfTheirCodesInEnglish) {
  const Columns columns = read_codes({12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1}, true);
  EXPECT_FALSE(columns.has_stopped);
  EXPECT_EQ(columns.streams.console.pending,
            " Column number           12  is interpreted as id of animals\n"
            " Column number           11  is interpreted as id of the fathers of animals\n"
            " Column number           10  is interpreted as id of the mothers of animals\n"
            " Column number            9  is interpreted as names of the animals\n"
            " Column number            8  is interpreted as names of the fathers of animals\n"
            " Column number            7  is interpreted as names of the mothers of animals\n"
            " Column number            6  is interpreted as sex of animals\n"
            " Column number            5  is interpreted as date of birth of animals\n"
            " Column number            4  is interpreted as colour of animals\n"
            " Column number            3  is interpreted as breeder of the animals\n"
            " Column number            2\n"
            "  is interpreted as the subpopulation to which the animals belong\n"
            " parameters will be estimated for the whole population and for each subpopulatio\n"
            " n seperately if more than 1\n"
            "   only subpopulations with names provided in input will be analysed\n"
            " Column number            1\n"
            "  is interpreted as indicator whether animals have been imported and/or bred out\n"
            " side this population\n"
            " if text in the column animal is regarded as being outside the population\n");
  EXPECT_EQ(columns.streams.report.pending, "");
}

TEST(ReadColumns, AnnouncesAllFieldsInTheOrderOfTheirCodesInDutch) {
  const Columns columns = read_codes({12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1}, false);
  EXPECT_FALSE(columns.has_stopped);
  EXPECT_EQ(columns.streams.console.pending,
            " Kolom nummer           12  wordt beschouwd als Id van dieren\n"
            " Kolom nummer           11  wordt beschouwd als Id van de vaders van de dieren\n"
            " Kolom nummer           10  wordt beschouwd als Id van de moeders van de dieren\n"
            " Kolom nummer            9  wordt beschouwd als namen van de dieren\n"
            " Kolom nummer            8\n"
            "  wordt beschouwd als namen van de vaders van de dieren\n"
            " Kolom nummer            7\n"
            "  wordt beschouwd als namen van de moeders van de dieren\n"
            " Kolom nummer            6  wordt beschouwd als het geslacht van de dieren\n"
            " Kolom nummer            5  wordt beschouwd als geboortedatum van de dieren\n"
            " Kolom nummer            4  wordt beschouwd als de kleurslag van de dieren\n"
            " Kolom nummer            3  wordt beschouwd als de fokker van de dieren\n"
            " Kolom nummer            2\n"
            "  zal worden gelezen als de subpopulatie waartoe het dier behoort\n"
            " parameters zullen voor de totale populatie worden geschat, en voor elke subpopu\n"
            " latie apart als er meer dan 1 is\n"
            "   alleen subpopulaties waarvan de naam in de invoer is gegeven zullen worden ge\n"
            " analyseerd\n"
            " Kolom nummer            1\n"
            "  zal worden gelezen als een aanduiding of het dier is ge\xEF"
            "mporteerd en/of buiten\n"
            "  de populatie gefokt\n"
            " Als tekst in de kolom dan wordt het dier buiten de populatie beschouwd\n");
}

struct MissingColumn {
  std::int32_t code;
  std::string english, dutch;
};

const std::vector<MissingColumn> missing_columns = {
    {id_column,
     " No column found with id number of animals\n"
     " program will not run without id numbers of animals\n"
     " Please add a column with \"id\" in header\n",
     " Geen kolom gevonden met het id nummer van de dieren\n"
     " programma kan niet draaien zonder id nummer van de dieren\n"
     " AUB kolom toevoegen met \"id\" op de 1ste regel\n"},
    {sire_column,
     " No column found with id number of fathers of the animals\n"
     " program will not run without id of fathers\n"
     " Please add a column with \"id_father\" in header\n",
     " Geen kolom gevonden met het id nummer van vaders de dieren\n"
     " programma kan niet draaien zonder id nummer van de vaders\n"
     " AUB kolom toevoegen met \"id_vader\" op de 1ste regel\n"},
    {dam_column,
     " No column found with id number of mothers of the animals\n"
     " program will not run without id of mothers\n"
     " Please add a column with \"id_mother\" in header\n",
     " Geen kolom gevonden met het id nummer van moeders de dieren\n"
     " programma kan niet draaien zonder id nummer van de moeders\n"
     " AUB kolom toevoegen met \"id_moeder\" op de 1ste regel\n"},
    {sex_column,
     " No column found with sex of animals\n"
     " program will not run without sex of animals\n"
     " Please add a column with \"sex\" in header\n",
     " Geen kolom gevonden met de sekse van de dieren\n"
     " programma kan niet draaien zonder sekse van de dieren\n"
     " AUB kolom toevoegen met \"sekse\" op de 1ste regel\n"},
    {birthdate_column,
     " No column found with birthdate number of animals\n"
     " program will not run without birthdate of animals\n"
     " Please add a column with \"birthdate\" in header\n",
     " Geen kolom gevonden met de geboortedata van de dieren\n"
     " programma kan niet draaien zonder geboortedata\n"
     " AUB kolom toevoegen met \"Geboortedatum\" op de 1ste regel\n"},
};

TEST(ReadColumns, MissingRequiredColumnStopsTheRunInBothLanguages) {
  for (const MissingColumn& missing : missing_columns) {
    for (const bool english : {true, false}) {
      Codes codes;
      for (std::int32_t code = 1; code <= 12; ++code) {
        if (code != missing.code) codes.push_back(code);
      }
      const Columns columns = read_codes(codes, english);
      EXPECT_TRUE(columns.has_stopped);
      const std::string& expected = english ? missing.english : missing.dutch;
      const std::string& console = columns.streams.console.pending;
      ASSERT_GE(console.size(), expected.size());
      EXPECT_EQ(console.substr(console.size() - expected.size()), expected);
      // The fields before it have been announced, one line each, and nothing else.
      const std::string label = english ? " Column number " : " Kolom nummer ";
      std::size_t announced = 0;
      for (std::size_t at = console.find(label); at != std::string::npos; at = console.find(label, at + 1)) ++announced;
      EXPECT_EQ(announced, static_cast<std::size_t>(missing.code) - 1);
      EXPECT_EQ(columns.streams.report.pending, "");
      EXPECT_EQ(columns.streams.messages.pending, "");
    }
  }
}

TEST(ReadColumns, FirstMissingColumnIsTheOnlyOneThatIsReported) {
  EXPECT_EQ(read_codes({7}, true).streams.console.pending, missing_columns[0].english);
  EXPECT_EQ(read_codes({2, 1}, true).streams.console.pending,
            " Column number            2  is interpreted as id of animals\n"
            " Column number            1  is interpreted as id of the fathers of animals\n" +
                missing_columns[2].english);
}

TEST(ReadColumns, UnknownHeaderWordMeansItsColumnIsMissing) {
  const Columns columns = read("id;id_father;dam;sex;dob\n", settings_in(true));
  EXPECT_TRUE(columns.has_stopped);
  EXPECT_EQ(columns.streams.console.pending,
            console_of({found(1, "id"),
                        not_recognised(2, "id_father"),
                        found(3, "dam"),
                        found(4, "sex"),
                        found(5, "dob"),
                        {" Column number            1  is interpreted as id of animals"}}) +
                missing_columns[1].english);
}

TEST(ReadColumns, MergedDelimitersInARowMayLeaveARequiredColumnMissing) {
  TestLayout settings = settings_in(true);
  settings.merge_delimiters = true;
  const Columns columns = read("id;sire;;dam;sex;dob\n", settings);
  EXPECT_TRUE(columns.has_stopped);
  EXPECT_TRUE(columns.streams.console.pending.ends_with(missing_columns[2].english));
}

TEST(ReadColumns, HeaderIsReadWhenTheSteerFileGivesNoCodes) {
  const Columns columns = read(std::string(complete_header) + "1;0;0;m;1-1-2000\n", settings_in(true));
  EXPECT_FALSE(columns.has_stopped);
  EXPECT_EQ(columns.lines_read, 1);
  EXPECT_EQ(columns.codes, (Codes{1, 2, 3, 7, 8}));
  EXPECT_EQ(columns.streams.console.pending,
            console_of({found(1, "id"), found(2, "sire"), found(3, "dam"), found(4, "sex"), found(5, "dob")}) +
                " Column number            1  is interpreted as id of animals\n"
                " Column number            2  is interpreted as id of the fathers of animals\n"
                " Column number            3  is interpreted as id of the mothers of animals\n"
                " Column number            4  is interpreted as sex of animals\n"
                " Column number            5  is interpreted as date of birth of animals\n");
}

TEST(ReadColumns, NoLineIsReadWhenTheSteerFileGivesCodes) {
  TestLayout settings = settings_in(true);
  settings.column_codes = {8, 0, 7, 3, 2, 1};
  const Columns columns = read(complete_header, settings);
  EXPECT_FALSE(columns.has_stopped);
  EXPECT_EQ(columns.lines_read, 0);
  EXPECT_EQ(columns.codes, (Codes{8, 0, 7, 3, 2, 1}));
}

TEST(ReadColumns, CodesWithSumZeroAskForTheHeader) {
  TestLayout settings = settings_in(true);
  settings.column_codes = {1, 2, 3, 7, 8, -21};
  const Columns columns = read("dob;sex;dam;sire;id\n", settings);
  EXPECT_EQ(columns.lines_read, 1);
  EXPECT_EQ(columns.codes, (Codes{8, 7, 3, 2, 1}));
}

TEST(ReadColumns, CodesOutsideTheTableAreKeptAndNotAnnounced) {
  const Columns columns = read_codes({13, 1, 2, 3, 7, 8, -5, 99}, true);
  EXPECT_FALSE(columns.has_stopped);
  EXPECT_EQ(columns.codes, (Codes{13, 1, 2, 3, 7, 8, -5, 99}));
  EXPECT_EQ(lines_of(columns.streams.console).size(), 5U);
}

TEST(ReadColumns, OfTwoColumnsWithOneCodeTheFirstIsAnnounced) {
  const Columns columns = read_codes({0, 1, 2, 3, 7, 8, 1}, true);
  EXPECT_EQ(lines_of(columns.streams.console).front(), " Column number            2  is interpreted as id of animals");
  EXPECT_EQ(lines_of(columns.streams.console).size(), 5U);
}

TEST(ReadColumns, OptionalFieldsSetTheirFlags) {
  struct Flag {
    std::int32_t code;
    bool PopulationStore::*flag;
  };
  const std::vector<Flag> flags = {{name_column, &PopulationStore::has_name},
                                   {colour_column, &PopulationStore::has_colour},
                                   {breeder_column, &PopulationStore::has_breeder},
                                   {subpopulation_column, &PopulationStore::has_subpopulation},
                                   {import_column, &PopulationStore::has_import}};
  for (const Flag& given : flags) {
    const Columns columns = read_codes({1, 2, 3, 7, 8, given.code}, true);
    for (const Flag& flag : flags) {
      EXPECT_EQ(columns.store.*flag.flag, flag.code == given.code) << given.code << ", flag of " << flag.code;
    }
  }
}

TEST(ReadColumns, MissingOptionalFieldClearsItsFlag) {
  PopulationStore store;
  store.has_colour = store.has_import = true;
  TestLayout settings = settings_in(true);
  settings.column_codes = {1, 2, 3, 7, 8};
  LineReader reader;
  RunStreams streams;
  read_columns(reader, settings, store, streams);
  EXPECT_FALSE(store.has_colour);
  EXPECT_FALSE(store.has_import);
}

TEST(ReadColumns, LowerCaseImportIsSkipped) {
  const Columns columns = read("id;sire;dam;sex;dob;import\n", settings_in(true));
  EXPECT_FALSE(columns.has_stopped);
  EXPECT_FALSE(columns.store.has_import);
  EXPECT_TRUE(read("id;sire;dam;sex;dob;Import\n", settings_in(true)).store.has_import);
}

TEST(ReadColumns, FileWithoutAnyLineStopsTheRun) {
  const Columns columns = read("", settings_in(false));
  EXPECT_TRUE(columns.has_stopped);
  EXPECT_EQ(columns.streams.console.pending, "");
  EXPECT_EQ(columns.streams.messages.pending,
            "dogs.txt: the file is empty: a line with the names of the columns was expected\n");
}

}  // namespace
}  // namespace pedigreewatch::test
