#include "control/steer_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "support/lines.h"
#include "support/steer_lines.h"
#include "support/streams.h"

namespace pedigreewatch::test {
namespace {

using Lines = std::vector<std::string>;

/// What a steer file yields and what it shows.
struct ReadSteerFile {
  SteerSettings settings;
  Lines console;
  std::string messages;
  bool has_stopped = false;
};

ReadSteerFile read_text(std::string_view text) {
  ReadSteerFile result;
  RunStreams streams;
  LineReader reader;
  reader.name = steer_file_name;
  reader.text = text;
  result.has_stopped = stops([&] { result.settings = read_steer_lines(reader, streams); });
  result.console = lines_of(streams.console);
  result.messages = streams.messages.pending;
  return result;
}

SteerSettings settings_of(const SteerLines& lines) {
  return read_text(lines.text()).settings;
}

// ---- the echo in both languages --------------------------------------------------------------------------------

TEST(SteerFileEcho, EnglishWithHeader) {
  SteerLines lines;
  lines.subpopulations = "2\nNoord\nZuid";
  lines.colours = "3\nbruin\nzwart\nwit";
  const Lines expected = {
      " consecutive delimiters indicate empty column",
      " Data file contains header, content of columns will be determined by first line",
      " number of subpopulations           2",
      " number of colours           3",
      " Colours to be analysed in datafile",
      " " + padded("bruin", 40),
      " " + padded("zwart", 40),
      " " + padded("wit", 40),
      " " + padded("Onbekend", 40),
      " " + padded("niet erkend", 40),
      " Data for " + padded("Village dogs", 40) + " will be read from ",
      " " + padded("dogs.txt", 30),
      " and written to " + padded("dogs.out", 30),
      " subpopulations allowed",
      " " + padded("Noord", 20),
      " " + padded("Zuid", 20),
      " colour/variety codes allowed ",
      " " + padded("bruin", 40),
      " " + padded("zwart", 40),
      " " + padded("wit", 40),
      " " + padded("Onbekend", 40),
      " " + padded("niet erkend", 40),
  };
  EXPECT_EQ(read_text(lines.text()).console, expected);
}

TEST(SteerFileEcho, DutchWithHeader) {
  SteerLines lines;
  lines.language = "nl";
  lines.consecutive = "y";
  lines.subpopulations = "1\nNoord";
  const Lines expected = {
      " consecutive delimiters will be considered as one",  // the language is not known yet
      " Data file heeft koppen boven de kolommen, Inhoud van een kolom wordt bepaald aa",
      " n de hand van de eerste regel",
      " number of subpopulations           1",
      " number of colours           0",
      " Kleuren te analyseren",
      " " + padded("Onbekend", 40),
      " " + padded("niet erkend", 40),
      " Gegevens voor " + padded("Village dogs", 40) + " worden gelezen uit ",
      " " + padded("dogs.txt", 30),
      " en weggeschreven naar " + padded("dogs.out", 30),
      " toegestane subpopulaties ",
      " " + padded("Noord", 20),
      " toegestane kleurcodes ",
      " " + padded("Onbekend", 40),
      " " + padded("niet erkend", 40),
  };
  EXPECT_EQ(read_text(lines.text()).console, expected);
}

TEST(SteerFileEcho, EnglishWithoutHeader) {
  SteerLines lines;
  lines.header = "n\nnumber of columns\n5\ncolumn codes\n5 1 2 3 7 8";
  const Lines console = read_text(lines.text()).console;
  EXPECT_EQ(console[1], number(5) + "  columns in data file");
  EXPECT_EQ(console[2], number(1) + number(2) + number(3) + number(7) + number(8));
  EXPECT_EQ(console[3], " number of subpopulations           0");
}

TEST(SteerFileEcho, DutchWithoutHeader) {
  SteerLines lines;
  lines.language = "nl";
  lines.header = "n\naantal kolommen\n5\ncodes\n5 1 2 3 7 8";
  const Lines console = read_text(lines.text()).console;
  EXPECT_EQ(console[1], number(5) + "  kolommen in datafile");
  EXPECT_EQ(console[2], number(1) + number(2) + number(3) + number(7) + number(8));
  EXPECT_EQ(console[3], " number of subpopulations           0");  // English in either language
}

TEST(SteerFileEcho, LongColumnListGoesOnInColumnOneOfTheNextLine) {
  SteerLines lines;
  lines.header = "n\n\n8\n\n8 1 2 3 4 5 6 7 8";
  const Lines console = read_text(lines.text()).console;
  EXPECT_EQ(console[2], number(1) + number(2) + number(3) + number(4) + number(5) + number(6));
  EXPECT_EQ(console[3], number(7) + number(8));
}

TEST(SteerFileEcho, EmptyColumnListIsAnEmptyLine) {
  SteerLines lines;
  lines.header = "n\n\n0\n\n0";
  const Lines console = read_text(lines.text()).console;
  EXPECT_EQ(console[1], number(0) + "  columns in data file");
  EXPECT_EQ(console[2], "");
  EXPECT_EQ(console[3], " number of subpopulations           0");
}

// ---- names, delimiter ------------------------------------------------------------------------------------------

TEST(SteerFile, KeepsNamesAsTheyStand) {
  SteerLines lines;
  lines.population_name = "  Kempisch Hoen, vari\xEBteit ";
  lines.data_file_name = "My Hens.txt";
  const SteerSettings settings = settings_of(lines);
  EXPECT_EQ(settings.population_name.full(), padded("  Kempisch Hoen, vari\xEBteit", 40));
  EXPECT_EQ(settings.data_file_name.full(), padded("My Hens.txt", 30));
}

TEST(SteerFile, IgnoresWhatStandsBehindAWidth) {
  SteerLines lines;
  lines.population_name = std::string(40, 'p') + "ignored";
  lines.data_file_name = std::string(26, 'd') + ".txt  ignored";
  lines.delimiter = ";ignored";
  lines.consecutive = "yes, they are one";
  lines.date_layout = "jjjj.mm.dd -- ignored";
  lines.species = "overig  ignored";
  lines.male_letter = "male";
  lines.language = "english";
  lines.header = "yes";
  lines.subpopulations = "1 subpopulation\n" + std::string(20, 's') + "ignored";
  lines.colours = "1 colour\n" + std::string(40, 'c') + "ignored";
  const SteerSettings settings = settings_of(lines);
  EXPECT_EQ(settings.population_name.full(), std::string(40, 'p'));
  EXPECT_EQ(settings.data_file_name.full(), std::string(26, 'd') + ".txt");
  EXPECT_EQ(settings.report_file_name.full(), std::string(26, 'd') + ".out");
  EXPECT_EQ(settings.layout.delimiter, ';');
  EXPECT_TRUE(settings.layout.merge_delimiters);
  EXPECT_EQ(settings.layout.date_layout.full(), "jjjj.mm.dd");
  EXPECT_EQ(settings.nouns.male, "father");
  EXPECT_EQ(settings.layout.male_letters, (std::array<char, 2>{'m', 'M'}));
  EXPECT_TRUE(settings.english);
  EXPECT_EQ(settings.layout.column_codes, ColumnMap{});
  EXPECT_EQ(settings.layout.subpopulations.names.entries.at(0).full(), std::string(20, 's'));
  EXPECT_EQ(settings.colour_names.at(0).full(), std::string(40, 'c'));
}

TEST(SteerFile, AnyByteCanBeTheDelimiter) {
  SteerLines lines;
  for (const std::string_view delimiter : {";", ",", "\t", "|", " ", "x", "\xA7"}) {
    lines.delimiter = delimiter;
    EXPECT_EQ(settings_of(lines).layout.delimiter, delimiter.front()) << delimiter;
  }
}

TEST(SteerFile, EmptyDelimiterLineIsABlank) {
  SteerLines lines;
  lines.delimiter = "";
  EXPECT_EQ(settings_of(lines).layout.delimiter, ' ');
}

TEST(SteerFile, ConsecutiveDelimitersAreOneForAYesOnly) {
  SteerLines lines;
  for (const std::string_view yes : {"y", "Y", "yes", "Y "}) {
    lines.consecutive = yes;
    const ReadSteerFile read = read_text(lines.text());
    EXPECT_TRUE(read.settings.layout.merge_delimiters) << yes;
    EXPECT_EQ(read.console[0], " consecutive delimiters will be considered as one");
  }
  for (const std::string_view no : {"n", "j", "J", "", " y", "1", "true"}) {
    lines.consecutive = no;
    const ReadSteerFile read = read_text(lines.text());
    EXPECT_FALSE(read.settings.layout.merge_delimiters) << no;
    EXPECT_EQ(read.console[0], " consecutive delimiters indicate empty column");
  }
}

// ---- date layout -----------------------------------------------------------------------------------------------

struct DateFlags {
  bool has_delimiters, year_first, day_first;
  bool operator==(const DateFlags&) const = default;
};

DateFlags flags_of(std::string_view layout) {
  SteerLines lines;
  lines.date_layout = layout;
  const SteerSettings settings = settings_of(lines);
  return {settings.layout.dates.has_delimiters, settings.layout.dates.year_first, settings.layout.dates.day_first};
}

TEST(DateLayout, DayMonthYearWithoutDelimiters) {
  EXPECT_EQ(flags_of("ddmmjjjj"), (DateFlags{false, false, true}));
}

TEST(DateLayout, YearMonthDayWithDelimiters) {
  EXPECT_EQ(flags_of("jjjj-mm-dd"), (DateFlags{true, true, false}));
}

TEST(DateLayout, AllEightWays) {
  EXPECT_EQ(flags_of("mmddyyyy"), (DateFlags{false, false, false}));
  EXPECT_EQ(flags_of("ddmmyyyy"), (DateFlags{false, false, true}));
  EXPECT_EQ(flags_of("yyyymmdd"), (DateFlags{false, true, false}));
  EXPECT_EQ(flags_of("yyyyddmm"), (DateFlags{false, true, true}));
  EXPECT_EQ(flags_of("mm/dd/yyyy"), (DateFlags{true, false, false}));
  EXPECT_EQ(flags_of("dd-mm-jjjj"), (DateFlags{true, false, true}));
  EXPECT_EQ(flags_of("yyyy.mm.dd"), (DateFlags{true, true, false}));
  EXPECT_EQ(flags_of("jjjj dd mm"), (DateFlags{true, true, true}));
}

TEST(DateLayout, ShortForms) {
  EXPECT_EQ(flags_of("d-m-j"), (DateFlags{true, false, true}));
  EXPECT_EQ(flags_of("y-m-d"), (DateFlags{true, true, false}));
}

TEST(DateLayout, YearInTheMiddleStandsBeforeOrBehindTheMonth) {
  EXPECT_EQ(flags_of("dd-jjjj-mm"), (DateFlags{true, true, true}));
  EXPECT_EQ(flags_of("mm-jjjj-dd"), (DateFlags{true, false, false}));
}

TEST(DateLayout, AbsentLetterStandsBeforeAll) {
  EXPECT_EQ(flags_of("jjjj"), (DateFlags{false, false, false}));   // no month either: 0 is not less than 0
  EXPECT_EQ(flags_of("mmjjjj"), (DateFlags{false, false, true}));  // no day
  EXPECT_EQ(flags_of("ddmm"), (DateFlags{false, true, true}));     // no year
  EXPECT_EQ(flags_of("dd"), (DateFlags{false, false, false}));
  EXPECT_EQ(flags_of(""), (DateFlags{false, false, false}));
}

TEST(DateLayout, CapitalsAreDelimiters) {
  EXPECT_EQ(flags_of("DD-MM-JJJJ"), (DateFlags{true, false, false}));
  EXPECT_EQ(flags_of("ddmmJJJJ"), (DateFlags{true, true, true}));
}

TEST(DateLayout, TrailingBlanksAreNoDelimitersButOthersAre) {
  EXPECT_EQ(flags_of("ddmmjjjj  "), (DateFlags{false, false, true}));
  EXPECT_EQ(flags_of(" ddmmjjjj"), (DateFlags{true, false, true}));
}

TEST(DateLayout, OnlyTenCharactersCount) {
  EXPECT_EQ(flags_of("ddmmjjjjjj-"), (DateFlags{false, false, true}));
}

// ---- species, male letter, language ----------------------------------------------------------------------------

SteerSettings with_species(std::string_view species, std::string_view language) {
  SteerLines lines;
  lines.species = species;
  lines.language = language;
  return settings_of(lines);
}

TEST(SteerFileSpecies, EnglishWordInADutchRunKeepsItsEnglishNouns) {
  const SteerSettings settings = with_species("dog", "nl");
  EXPECT_EQ(settings.nouns.males, "dog");
  EXPECT_EQ(settings.nouns.females, "bitches");
}

TEST(SteerFileSpecies, DutchWordInAnEnglishRunPicksUpTheEnglishNouns) {
  const SteerSettings settings = with_species("hond", "en");
  EXPECT_EQ(settings.nouns.male, "dog");
  EXPECT_EQ(settings.nouns.females, "bitches");
}

TEST(SteerFileSpecies, DutchWordInADutchRun) {
  const SteerSettings settings = with_species("hond", "nl");
  EXPECT_EQ(settings.nouns.males, "reuen");
  EXPECT_EQ(settings.nouns.females, "teven");
}

TEST(SteerFileSpecies, WordInCapitalsGivesTheLastRow) {
  EXPECT_EQ(with_species("HOND", "nl").nouns.males, "fathers");
  EXPECT_EQ(with_species("Dog", "en").nouns.males, "fathers");
}

TEST(SteerFileSpecies, OverigInADutchRunHasTheMalePluralDogs) {
  const SteerSettings settings = with_species("overig", "nl");
  EXPECT_EQ(settings.nouns.males, "dogs");
  EXPECT_EQ(with_species("overig", "en").nouns.males, "fathers");
}

TEST(SteerFileSpecies, DogInAnyRunHasTheMalePluralDog) {
  for (const std::string_view language : {"en", "nl"}) {
    EXPECT_EQ(with_species("dog", language).nouns.males, "dog");
    EXPECT_EQ(with_species("dog", language).nouns.females, "bitches");
  }
}

TEST(SteerFileSpecies, UnknownWordInADutchRunGivesEnglishNouns) {
  for (const std::string_view word : {"geit", ""}) {
    const SteerSettings settings = with_species(word, "nl");
    EXPECT_EQ(settings.nouns.male, "father");
    EXPECT_EQ(settings.nouns.female, "mother");
    EXPECT_EQ(settings.nouns.young, "young");
  }
}

TEST(MaleLetter, HasItsOtherCaseAsPartner) {
  SteerLines lines;
  lines.male_letter = "r";
  EXPECT_EQ(settings_of(lines).layout.male_letters, (std::array<char, 2>{'r', 'R'}));
  lines.male_letter = "R";
  EXPECT_EQ(settings_of(lines).layout.male_letters, (std::array<char, 2>{'R', 'r'}));
  lines.male_letter = "1";
  EXPECT_EQ(settings_of(lines).layout.male_letters, (std::array<char, 2>{'1', '1'}));
  lines.male_letter = "";
  EXPECT_EQ(settings_of(lines).layout.male_letters, (std::array<char, 2>{' ', ' '}));
}

TEST(OtherCase, ChangesTheLettersAToZOnly) {
  EXPECT_EQ(other_case('A'), 'a');
  EXPECT_EQ(other_case('Z'), 'z');
  EXPECT_EQ(other_case('a'), 'A');
  EXPECT_EQ(other_case('z'), 'Z');
  for (const char byte : {'@', '[', '`', '{', '0', ' ', '\xEB', '\xCB', '\0'}) EXPECT_EQ(other_case(byte), byte);
}

TEST(SteerFileLanguage, LooksAtTwoCharactersAndOneCapital) {
  for (const std::string_view english : {"en", "En", "english", "English", "en "}) {
    EXPECT_TRUE(with_species("hond", english).english) << english;
  }
  for (const std::string_view dutch : {"nl", "EN", "eN", "", "e", " en", "ned", "dutch", "ENGLISH"}) {
    EXPECT_FALSE(with_species("hond", dutch).english) << dutch;
  }
}

// ---- columns ---------------------------------------------------------------------------------------------------

ReadSteerFile with_header_part(std::string_view header) {
  SteerLines lines;
  lines.header = header;
  lines.subpopulations = "1\nNoord";
  return read_text(lines.text());
}

/// The first codes as given, the others 0.
ColumnMap codes(std::initializer_list<std::int32_t> first) {
  ColumnMap map = {};
  std::copy(first.begin(), first.end(), map.begin());
  return map;
}

TEST(ColumnList, HeaderLeavesAllCodesZero) {
  for (const std::string_view yes : {"y", "Y", "yes"}) {
    const ReadSteerFile read = with_header_part(yes);
    EXPECT_EQ(read.settings.layout.column_codes, ColumnMap{}) << yes;
    EXPECT_EQ(read.settings.layout.subpopulations.names.entries.at(0), "Noord") << yes;
  }
}

TEST(ColumnList, AnythingButYesMeansFourMoreLines) {
  for (const std::string_view no : {"n", "N", "j", "", " y"}) {
    const ReadSteerFile read = with_header_part(std::string(no) + "\ncomment\n5\ncomment\n5 1 2 3 7 8");
    EXPECT_EQ(read.settings.layout.column_codes, codes({1, 2, 3, 7, 8})) << no;
    EXPECT_EQ(read.settings.layout.subpopulations.names.entries.at(0), "Noord") << no;
  }
}

TEST(ColumnList, CommentsAreSkippedWhateverTheySay) {
  const ReadSteerFile read = with_header_part("n\n99\n5\n7 7 7 7 7 7 7 7\n5 1 2 3 7 8");
  EXPECT_EQ(read.console[1], number(5) + "  columns in data file");
  EXPECT_EQ(read.settings.layout.column_codes, codes({1, 2, 3, 7, 8}));
}

TEST(ColumnList, NumbersAreSeparatedByBlanksCommasOrBoth) {
  EXPECT_EQ(with_header_part("n\n\n5\n\n5,1,2,3,7,8").settings.layout.column_codes, codes({1, 2, 3, 7, 8}));
  EXPECT_EQ(with_header_part("n\n\n5\n\n  5 ,  1,2   3 , 7,8  ").settings.layout.column_codes, codes({1, 2, 3, 7, 8}));
}

TEST(ColumnList, CountOfTheListItselfDecides) {
  const ReadSteerFile read = with_header_part("n\n\n9\n\n3 1 2 3 7 8");
  EXPECT_EQ(read.console[1], number(9) + "  columns in data file");
  EXPECT_EQ(read.console[2], number(1) + number(2) + number(3));
  EXPECT_EQ(read.settings.layout.column_codes, codes({1, 2, 3}));
}

TEST(ColumnList, MissingCodesStayZero) {
  const ReadSteerFile read = with_header_part("n\n\n5\n\n5 1 2");
  EXPECT_EQ(read.console[2], number(1) + number(2) + number(0) + number(0) + number(0));
  EXPECT_EQ(read.settings.layout.column_codes, codes({1, 2}));
}

TEST(ColumnList, At25TheListIsFull) {
  std::string list = "30";
  ColumnMap expected = {};
  for (std::int32_t code = 1; code <= 30; ++code) {
    list += " " + std::to_string(code);
    if (code <= 25) expected[static_cast<std::size_t>(code) - 1] = code;
  }
  const ReadSteerFile read = with_header_part("n\n\n30\n\n" + list);
  EXPECT_EQ(read.settings.layout.column_codes, expected);
  EXPECT_EQ(read.console[1], number(30) + "  columns in data file");
  EXPECT_EQ(read.console[5], number(19) + number(20) + number(21) + number(22) + number(23) + number(24));
  EXPECT_EQ(read.console[6], number(25));
  EXPECT_EQ(read.console[7], " number of subpopulations           1");
}

TEST(ColumnList, LargestCountAsksForAllCodes) {
  const ReadSteerFile read = with_header_part("n\n\n5\n\n2147483647 1 2 2147483647 2147483648 3");
  EXPECT_EQ(read.settings.layout.column_codes, codes({1, 2, 2147483647}));
}

TEST(ColumnList, WithoutACountIsEmpty) {
  for (const std::string_view list : {"", "none", "-3 1 2 3", "x 1 2", "3x 1 2 3", "2.5 1 2", "3- 1 2 3", "\t3 1 2 3",
                                      "2147483648 1 2 3", "-2147483649 1 2 3", "99999999999999999999 1 2 3"}) {
    const ReadSteerFile read = with_header_part("n\n\n5\n\n" + std::string(list));
    EXPECT_EQ(read.settings.layout.column_codes, ColumnMap{}) << list;
    EXPECT_EQ(read.console[2], "") << list;
    EXPECT_EQ(read.settings.layout.subpopulations.names.entries.at(0), "Noord") << list;
  }
}

TEST(ColumnList, CodesMayHaveASign) {
  EXPECT_EQ(with_header_part("n\n\n3\n\n+3 +1 -2 99").settings.layout.column_codes, codes({1, -2, 99}));
}

TEST(ColumnList, EndsAtATextThatIsNotWhollyANumber) {
  for (const std::string_view text : {"x", "3x", "2.5", "1-2", "3*7", "2;", "2\t", "+", "-", "--1", "/"}) {
    EXPECT_EQ(with_header_part("n\n\n4\n\n4 1 " + std::string(text) + " 7 8").settings.layout.column_codes, codes({1}))
        << text;
    EXPECT_EQ(with_header_part("n\n\n4\n\n4,1," + std::string(text) + ",7").settings.layout.column_codes, codes({1}))
        << text;
    EXPECT_EQ(with_header_part("n\n\n4\n\n4 1 2 7 " + std::string(text)).settings.layout.column_codes, codes({1, 2, 7}))
        << text;
  }
}

TEST(ColumnList, MayBeginWithSeparators) {
  EXPECT_EQ(with_header_part("n\n\n3\n\n, ,3,,1, 2,,,7").settings.layout.column_codes, codes({1, 2, 7}));
}

TEST(ColumnCount, IsTheNumberAtTheStartBehindBlanksOrCommas) {
  for (const std::string_view count : {"5", "  5", ",5", " , ,5", "5,7", "5 columns", "+5", "005", "5x", "5.5"}) {
    const ReadSteerFile read = with_header_part("n\n\n" + std::string(count) + "\n\n5 1 2 3 7 8");
    EXPECT_EQ(read.console[1], number(5) + "  columns in data file") << count;
    EXPECT_EQ(read.settings.layout.column_codes, codes({1, 2, 3, 7, 8})) << count;
  }
}

TEST(ColumnCount, IsZeroWhereNoNumberBeginsTheLine) {
  for (const std::string_view count : {"", ",", "none", "columns 5", "-5", ",x5", "99999999999"}) {
    const ReadSteerFile read = with_header_part("n\n\n" + std::string(count) + "\n\n5 1 2 3 7 8");
    EXPECT_EQ(read.console[1], number(0) + "  columns in data file") << count;
    EXPECT_EQ(read.settings.layout.column_codes, codes({1, 2, 3, 7, 8})) << count;
  }
}

// ---- counts and lists ------------------------------------------------------------------------------------------

TEST(CountLine, TakesTheNumberAtItsStart) {
  SteerLines lines;
  for (const std::string_view two : {"2", "  2", "+2", "2 subpopulations", "2,5", "2.7", "002", "2x"}) {
    lines.subpopulations = std::string(two) + "\nNoord\nZuid";
    const SteerSettings settings = settings_of(lines);
    EXPECT_EQ(settings.layout.subpopulations.count(), 2) << two;
    ASSERT_EQ(settings.layout.subpopulations.names.entries.size(), 2U) << two;
    EXPECT_EQ(settings.layout.subpopulations.names.entries[1], "Zuid") << two;
  }
}

TEST(CountLine, WithoutANumberOrNegativeIsZero) {
  SteerLines lines;
  for (const std::string_view none : {"", "none", "-2", "x2", "+", "-", "\t2", "- 2"}) {
    lines.subpopulations = none;
    lines.colours = none;
    const ReadSteerFile read = read_text(lines.text());
    EXPECT_EQ(read.settings.layout.subpopulations.count(), 0) << none;
    EXPECT_TRUE(read.settings.layout.subpopulations.names.entries.empty()) << none;
    EXPECT_EQ(read.settings.colour_names.size(), 2U) << none;
    EXPECT_TRUE(has_line(read.console, " number of subpopulations           0")) << none;
    EXPECT_TRUE(has_line(read.console, " number of colours           0")) << none;
  }
}

TEST(CountLine, WithoutANumberTakesTheNextLineAsTheNextCount) {
  SteerLines lines;
  lines.subpopulations = "none";
  lines.colours = "1\nzwart";
  const SteerSettings settings = settings_of(lines);
  EXPECT_EQ(settings.colour_names.size(), 3U);
  EXPECT_EQ(settings.colour_names.at(0), "zwart");
}

TEST(SteerFileLists, NoSubpopulationReadsNoNameLine) {
  const ReadSteerFile read = read_text(SteerLines{}.text());
  EXPECT_EQ(read.settings.layout.subpopulations.count(), 0);
  EXPECT_TRUE(read.settings.layout.subpopulations.names.entries.empty());
  const auto heading = std::find(read.console.begin(), read.console.end(), " subpopulations allowed");
  ASSERT_NE(heading, read.console.end());
  EXPECT_EQ(*(heading + 1), " colour/variety codes allowed ");
}

TEST(SteerFileLists, NoColourLeavesTheTwoFixedRows) {
  const SteerSettings settings = settings_of(SteerLines{});
  EXPECT_EQ(settings.colour_names.size(), 2U);
  ASSERT_EQ(settings.colour_names.size(), 2U);
  EXPECT_EQ(settings.colour_names[0].full(), padded("Onbekend", 40));
  EXPECT_EQ(settings.colour_names[1].full(), padded("niet erkend", 40));
}

TEST(SteerFileLists, TwoRowsFollowTheColoursInEitherLanguage) {
  SteerLines lines;
  lines.colours = "2\nzwart\nwit";
  for (const std::string_view language : {"en", "nl"}) {
    lines.language = language;
    const SteerSettings settings = settings_of(lines);
    EXPECT_EQ(settings.colour_names.size(), 4U);
    ASSERT_EQ(settings.colour_names.size(), 4U);
    EXPECT_EQ(settings.colour_names[0], "zwart");
    EXPECT_EQ(settings.colour_names[1], "wit");
    EXPECT_EQ(settings.colour_names[2], "Onbekend");
    EXPECT_EQ(settings.colour_names[3], "niet erkend");
  }
}

TEST(SteerFileLists, MissingNamesAreBlank) {
  SteerLines lines;
  lines.subpopulations = "1\nNoord";
  lines.colours = "3\nzwart";
  const SteerSettings settings = settings_of(lines);
  EXPECT_EQ(settings.colour_names.size(), 5U);
  ASSERT_EQ(settings.colour_names.size(), 5U);
  EXPECT_EQ(settings.colour_names[0], "zwart");
  EXPECT_TRUE(settings.colour_names[1].is_blank());
  EXPECT_TRUE(settings.colour_names[2].is_blank());
  EXPECT_EQ(settings.colour_names[3], "Onbekend");
}

TEST(SteerFileLists, LongestListsAreTaken) {
  SteerLines lines;
  lines.subpopulations = "5000";
  const SteerSettings settings = settings_of(lines);
  EXPECT_EQ(settings.layout.subpopulations.count(), 5000);
  EXPECT_EQ(settings.layout.subpopulations.names.entries.size(), 5000U);
  lines.subpopulations = "0";
  lines.colours = "100000";
  EXPECT_EQ(settings_of(lines).colour_names.size(), 100002U);
}

TEST(SteerFileLists, ListTooLongForAnyReportStopsTheRun) {
  SteerLines lines;
  lines.subpopulations = "5001";
  ReadSteerFile read = read_text(lines.text());
  EXPECT_TRUE(read.has_stopped);
  EXPECT_EQ(
      read.messages,
      "pedigreewatch.ini, line 10, column 1: \"5001\": the number of subpopulations was expected, at most 5000\n");
  lines.subpopulations = "0";
  lines.colours = "100001";
  EXPECT_TRUE(read_text(lines.text()).has_stopped);
  lines.colours = "99999999999999999999 colours";
  read = read_text(lines.text());
  EXPECT_TRUE(read.has_stopped);
  EXPECT_EQ(read.messages,
            "pedigreewatch.ini, line 11, column 1: \"99999999999999999999 colours\": "
            "the number of colours was expected, at most 100000\n");
}

// ---- the report's name -----------------------------------------------------------------------------------------

std::string report_name(std::string_view data_file_name) {
  return std::string(derive_report_file_name(FixedText<30>(data_file_name)).full());
}

TEST(ReportName, HasOutInPlaceOfTheLastThreeCharacters) {
  EXPECT_EQ(report_name("dogs.txt"), padded("dogs.out", 30));
  EXPECT_EQ(report_name("dogs.csv"), padded("dogs.out", 30));
  EXPECT_EQ(report_name("herd book.dat"), padded("herd book.out", 30));
}

TEST(ReportName, LosesThreeCharactersAlsoWithoutAnExtension) {
  EXPECT_EQ(report_name("pedigree"), padded("pedigout", 30));
  EXPECT_EQ(report_name("dogs.data"), padded("dogs.dout", 30));
  EXPECT_EQ(report_name("dogs.gz"), padded("dogsout", 30));
}

TEST(ReportName, OfAShortNameIsOut) {
  EXPECT_EQ(report_name("abc"), padded("out", 30));
  EXPECT_EQ(report_name("ab"), padded("out", 30));
  EXPECT_EQ(report_name("a"), padded("out", 30));
  EXPECT_EQ(report_name(""), padded("out", 30));
  EXPECT_EQ(report_name("abcd"), padded("aout", 30));
}

TEST(ReportName, OfThirtyCharacters) {
  const std::string stem(26, 'd');
  EXPECT_EQ(report_name(stem + ".txt"), stem + ".out");
}

TEST(ReportName, LosesLeadingBlanks) {
  EXPECT_EQ(report_name("  dogs.txt"), padded("dogs.out", 30));
  EXPECT_EQ(report_name("   abc"), padded("out", 30));
}

TEST(ReportName, FollowsTheDataFileOfTheSteerFile) {
  SteerLines lines;
  lines.data_file_name = "herd/cows.csv";
  const ReadSteerFile read = read_text(lines.text());
  EXPECT_EQ(read.settings.report_file_name.full(), padded("herd/cows.out", 30));
  EXPECT_TRUE(has_line(read.console, " and written to " + padded("herd/cows.out", 30)));
}

// ---- line ends, and a file that ends early ---------------------------------------------------------------------

TEST(SteerFileLines, CarriageReturnsAreNoText) {
  SteerLines lines;
  lines.subpopulations = "1\nNoord";
  const ReadSteerFile with = read_text(lines.text("\r\n"));
  const ReadSteerFile without = read_text(lines.text("\n"));
  EXPECT_EQ(with.console, without.console);
  EXPECT_EQ(with.settings.population_name.full(), padded("Village dogs", 40));
  EXPECT_EQ(with.settings.layout.date_layout.full(), "dd-mm-yyyy");
}

TEST(SteerFileLines, EmptyDelimiterLineWithACarriageReturnIsABlank) {
  SteerLines lines;
  lines.delimiter = "";
  EXPECT_EQ(read_text(lines.text("\r\n")).settings.layout.delimiter, ' ');
}

TEST(SteerFileLines, ByteOrderMarkIsSkipped) {
  EXPECT_EQ(read_text("\xEF\xBB\xBF" + SteerLines{}.text()).settings.population_name, "Village dogs");
}

TEST(SteerFileLines, LastLineNeedsNoEnd) {
  SteerLines lines;
  lines.colours = "1\nzwart";
  std::string text = lines.text();
  text.pop_back();
  EXPECT_EQ(read_text(text).settings.colour_names.at(0), "zwart");
}

TEST(SteerFileLines, WhatFollowsTheColoursIsNotRead) {
  EXPECT_EQ(read_text(SteerLines{}.text() + "more\nlines\n").console, read_text(SteerLines{}.text()).console);
}

TEST(SteerFileEndsEarly, EmptyFileLeavesBlanksAndZeros) {
  const ReadSteerFile read = read_text("");
  EXPECT_FALSE(read.has_stopped);
  EXPECT_TRUE(read.settings.population_name.is_blank());
  EXPECT_TRUE(read.settings.data_file_name.is_blank());
  EXPECT_EQ(read.settings.report_file_name.full(), padded("out", 30));
  EXPECT_EQ(read.settings.layout.delimiter, ' ');
  EXPECT_FALSE(read.settings.english);
  EXPECT_EQ(read.settings.nouns.male, "father");
  EXPECT_EQ(read.settings.layout.male_letters, (std::array<char, 2>{' ', ' '}));
  EXPECT_EQ(read.settings.layout.column_codes, ColumnMap{});
  EXPECT_EQ(read.settings.layout.subpopulations.count(), 0);
  EXPECT_EQ(read.settings.colour_names.size(), 2U);
  const Lines expected = {
      " consecutive delimiters indicate empty column",
      number(0) + "  kolommen in datafile",
      "",
      " number of subpopulations           0",
      " number of colours           0",
      " Kleuren te analyseren",
      " " + padded("Onbekend", 40),
      " " + padded("niet erkend", 40),
      " Gegevens voor " + padded("", 40) + " worden gelezen uit ",
      " " + padded("", 30),
      " en weggeschreven naar " + padded("out", 30),
      " toegestane subpopulaties ",
      " toegestane kleurcodes ",
      " " + padded("Onbekend", 40),
      " " + padded("niet erkend", 40),
  };
  EXPECT_EQ(read.console, expected);
}

TEST(SteerFileEndsEarly, AfterAnyLineKeepsWhatWasRead) {
  SteerLines lines;
  lines.subpopulations = "2\nNoord\nZuid";
  lines.colours = "1\nzwart";
  const std::string text = lines.text();
  for (std::size_t end = text.find('\n'); end != std::string::npos; end = text.find('\n', end + 1)) {
    const ReadSteerFile read = read_text(std::string_view(text).substr(0, end + 1));
    EXPECT_FALSE(read.has_stopped) << end;
    EXPECT_EQ(read.settings.population_name, "Village dogs") << end;
    EXPECT_EQ(read.settings.colour_names.size(), read.settings.layout.colours.names.entries.size() + 1) << end;
    EXPECT_EQ(read.console.back(), " " + padded("niet erkend", 40)) << end;
  }
}

TEST(SteerFileEndsEarly, WithinTheSubpopulationsLeavesBlankNames) {
  SteerLines lines;
  lines.subpopulations = "3\nNoord";
  const std::string text = lines.text();
  const ReadSteerFile read = read_text(text.substr(0, text.size() - 2));  // no line for the colours
  ASSERT_EQ(read.settings.layout.subpopulations.names.entries.size(), 3U);
  EXPECT_EQ(read.settings.layout.subpopulations.names.entries[0], "Noord");
  EXPECT_TRUE(read.settings.layout.subpopulations.names.entries[1].is_blank());
  EXPECT_TRUE(read.settings.layout.subpopulations.names.entries[2].is_blank());
  EXPECT_EQ(read.settings.colour_names.size(), 2U);
}

}  // namespace
}  // namespace pedigreewatch::test
