#include "pedigree/record_reading.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "pedigree/header_words.h"
#include "support/pedigree_runs.h"
#include "support/store_builder.h"
#include "support/streams.h"

namespace pedigreewatch::test {
namespace {

constexpr std::string_view short_header = "id;sire;dam;sex;dob\n";

/// The record of one stored field, and what was printed.
struct StoredField {
  AnimalRecord record;
  RunStreams streams;
  bool has_stopped = false;
};

StoredField store_one(std::string_view field, FieldCode code, const TestLayout& settings) {
  StoredField result{.record = {}, .streams = streams_in(settings.english)};
  LineRecord line{.name = {}, .sire_id = {}, .dam_id = {}};
  result.has_stopped = stops([&] {
    store_field(field, static_cast<std::int32_t>(code), settings, {"dogs.txt", 813, 5, 812}, line, result.streams);
  });
  result.record = record_of(line);
  return result;
}

StoredField store_one(std::string_view field, FieldCode code) {
  return store_one(field, code, settings_in(true));
}

/// Stores the columns of `line` in a new record.
AnimalRecord cut_line(std::string_view line, const std::vector<std::int32_t>& columns, const TestLayout& settings) {
  LineRecord record{.id = "untouched", .name = "untouched", .colour = "untouched"};
  RunStreams streams;
  store_line(line, columns, settings, {"dogs.txt", 2, 0, 1}, record, streams);
  EXPECT_EQ(streams.console.pending, "");
  return record_of(record);
}

/// The console behind the lines that announce the columns.
std::string console_of_records(const ReadRun& run) {
  const std::string& console = run.streams.console.pending;
  const std::string_view last_announcement = console.find(" Column number ") != std::string::npos
                                                 ? " is interpreted as date of birth of animals\n"
                                                 : " wordt beschouwd als geboortedatum van de dieren\n";
  const std::size_t found = console.find(last_announcement);
  EXPECT_NE(found, std::string::npos);
  return console.substr(found + last_announcement.size());
}

// ---- single fields -----------------------------------------------------------------------------------------------

TEST(StoreField, TextsLoseTrailingBlanksAndKeepLeadingOnes) {
  EXPECT_EQ(store_one("  Rex   ", id_column).record.id.full(), padded("  Rex", 30));
  EXPECT_EQ(store_one("  Rex   ", sire_column).record.sire_id.full(), padded("  Rex", 30));
  EXPECT_EQ(store_one("  Rex   ", dam_column).record.dam_id.full(), padded("  Rex", 30));
  EXPECT_EQ(store_one("  Rex   ", name_column).record.name.full(), padded("  Rex", 50));
  EXPECT_EQ(store_one("  red   ", colour_column).record.colour.full(), padded("  red", 40));
  EXPECT_EQ(store_one("  Smit  ", breeder_column).record.breeder.full(), padded("  Smit", 20));
}

TEST(StoreField, EmptyTextStandsAsBlanks) {
  EXPECT_TRUE(store_one("", id_column).record.id.is_blank());
  EXPECT_TRUE(store_one("     ", id_column).record.id.is_blank());
  EXPECT_TRUE(store_one("     ", name_column).record.name.is_blank());
  EXPECT_TRUE(store_one("     ", colour_column).record.colour.is_blank());
  EXPECT_TRUE(store_one("     ", breeder_column).record.breeder.is_blank());
  EXPECT_TRUE(store_one("     ", subpopulation_column).record.subpopulation.is_blank());
}

TEST(StoreField, EmptyOrUnknownParentIsZero) {
  for (const std::string_view field : {"", "     ", "unknown", "Unknown", "unknown  ", "0", "0   "}) {
    EXPECT_EQ(store_one(field, sire_column).record.sire_id.full(), padded("0", 30)) << field;
    EXPECT_EQ(store_one(field, dam_column).record.dam_id.full(), padded("0", 30)) << field;
  }
}

TEST(StoreField, OtherWordsForAParentAreIdentifications) {
  for (const std::string_view field : {"UNKNOWN", "00", " 0", " unknown", "unknown.", "onbekend"}) {
    EXPECT_EQ(store_one(field, sire_column).record.sire_id.trimmed(), field);
    EXPECT_EQ(store_one(field, dam_column).record.dam_id.trimmed(), field);
  }
}

TEST(StoreField, UnknownIsAnIdentificationForAnAnimal) {
  EXPECT_EQ(store_one("unknown", id_column).record.id, "unknown");
  EXPECT_EQ(store_one("0", id_column).record.id, "0");
}

TEST(StoreField, SexIsTheFirstCharacter) {
  for (const std::string_view field : {"m", "M", "male", "Male", "mevrouw"}) {
    EXPECT_EQ(store_one(field, sex_column).record.sex, male) << field;
  }
  for (const std::string_view field : {"", "     ", " m", " Male", "f", "V", "1", "x"}) {
    LineRecord record{.sex = male};
    RunStreams streams;
    store_field(field, sex_column, settings_in(true), {}, record, streams);
    EXPECT_EQ(record.sex, female) << field;
  }
}

TEST(StoreField, SexIsNotToldByTextsThatNobodyTakesForAFemale) {
  const auto is_told = [](std::string_view field) {
    LineRecord record;
    RunStreams streams;
    store_field(field, sex_column, settings_in(true), {}, record, streams);
    return record.is_sex_told;
  };
  for (const std::string_view field : {"m", "Male  ", "f", "V", "1", "x", "unknowns"})
    EXPECT_TRUE(is_told(field)) << field;
  for (const std::string_view field : {"", "   ", " m", "?", "-", "?f", "unknown", "Unknown  "}) {
    EXPECT_FALSE(is_told(field)) << field;
  }
  EXPECT_FALSE(LineRecord().is_sex_told);  // a line that ends before it
}

TEST(StoreField, BlankAsMaleLetterMakesNoMales) {
  TestLayout settings = settings_in(true);
  settings.male_letters = {' ', ' '};
  EXPECT_EQ(store_one(" m", sex_column, settings).record.sex, female);
  EXPECT_EQ(store_one("", sex_column, settings).record.sex, female);
}

TEST(StoreField, AnyTextMarksAnImport) {
  for (const std::string_view field : {"0", "no", "x", "   x", "\t", "                   x"}) {
    const StoredField stored = store_one(field, import_column);
    EXPECT_TRUE(stored.record.is_import) << field;
  }
}

TEST(StoreField, OnlyTheFirst20CharactersMarkAnImport) {
  LineRecord record;
  RunStreams streams;
  for (const std::string_view field : {"", "     ", "                    x"}) {
    record.is_import = true;
    store_field(field, import_column, settings_in(true), {}, record, streams);
    EXPECT_FALSE(record.is_import) << field;
  }
}

TEST(StoreField, DateGoesIntoItsThreeFields) {
  const AnimalRecord record = store_one("25-4-1998", birthdate_column).record;
  EXPECT_EQ(record.birth_day, 25);
  EXPECT_EQ(record.birth_month, 4);
  EXPECT_EQ(record.birth_year, 1998);
}

TEST(StoreField, DateLayoutOfTheSettingsDecides) {
  for (const bool has_delimiters : {false, true}) {
    for (const bool year_first : {false, true}) {
      for (const bool day_first : {false, true}) {
        TestLayout settings = settings_in(true);
        settings.dates = {has_delimiters, year_first, day_first};
        const std::string between = has_delimiters ? "/" : "";
        const std::string day_and_month = day_first ? "25" + between + "04" : "04" + between + "25";
        const std::string field = year_first ? "1998" + between + day_and_month : day_and_month + between + "1998";
        const AnimalRecord record = store_one(field, birthdate_column, settings).record;
        EXPECT_EQ(record.birth_day, 25) << field;
        EXPECT_EQ(record.birth_month, 4) << field;
        EXPECT_EQ(record.birth_year, 1998) << field;
      }
    }
  }
}

TEST(StoreField, DateThatIsNoNumberStopsTheRun) {
  const StoredField stored = store_one("31-o2-1998   ", birthdate_column);
  EXPECT_TRUE(stored.has_stopped);
  EXPECT_EQ(stored.streams.messages.pending,
            "dogs.txt, line 813, column 5: \"31-o2-1998\": a date of birth in the layout dd-mm-jjjj was expected\n");
  EXPECT_EQ(stored.streams.console.pending, "");
  EXPECT_EQ(stored.streams.report.pending, "");
}

TEST(StoreField, DateMessageIsTheSameInADutchRun) {
  const StoredField stored = store_one("\?\?-\?\?-2004", birthdate_column, settings_in(false));
  EXPECT_TRUE(stored.has_stopped);
  EXPECT_EQ(
      stored.streams.messages.pending,
      "dogs.txt, line 813, column 5: \"\?\?-\?\?-2004\": a date of birth in the layout dd-mm-jjjj was expected\n");
}

TEST(StoreField, ParentNamesAndOtherCodesDoNothing) {
  for (const std::int32_t code : {0, 5, 6, 13, -1, 99}) {
    const StoredField stored = store_one("a text that is longer than each and every field of an animal's record",
                                         static_cast<FieldCode>(code));
    EXPECT_TRUE(stored.record.id.is_blank());
    EXPECT_TRUE(stored.record.name.is_blank());
    EXPECT_TRUE(stored.record.sire_id.is_blank());
    EXPECT_TRUE(stored.record.dam_id.is_blank());
    EXPECT_EQ(stored.streams.console.pending, "");
  }
}

// ---- texts that are too long -------------------------------------------------------------------------------------

struct LengthCase {
  FieldCode code;
  std::size_t limit;
  std::string english, dutch;
};

const std::vector<LengthCase> length_cases = {
    {id_column, 30,
     " Warning: length of id_number of animal          812  larger than 20\n"
     " characters after position 30 are ignored\n",
     " Waarschuwing: lengte van id_nummer van dier          812  is langer dan 20\n"
     " tekens na positie 30 worden genegeerd\n"},
    {sire_column, 30,
     " Warning: length of id of father          812  larger than 30\n"
     " characters after position 30 are ignored\n",
     " Waarschuwing: lengte van id_nummer van vader          812  is langer dan 30\n"
     " tekens na positie 30 worden genegeerd\n"},
    {dam_column, 30,
     " Warning: length of id of mother          812  larger than 30\n"
     " characters after position 30 are ignored\n",
     " Waarschuwing: lengte van id_nummer van moeder          812  is langer dan 30\n"
     " tekens na positie 30 worden genegeerd\n"},
    {name_column, 50,
     " Warning: length of name of animal          812  larger than 50\n"
     " characters after position 50 are ignored\n",
     " Waarschuwing: lengte van naam van dier          812  is langer dan 50\n"
     " tekens na positie 50 worden genegeerd\n"},
    {colour_column, 40,
     " Warning: length of colour of animal          812  larger than 40\n"
     " characters after position 40 are ignored\n",
     " Waarschuwing: lengte van kleur van dier          812  is langer dan 40\n"
     " tekens na positie 40 worden genegeerd\n"},
    {breeder_column, 20,
     " Warning: length of breeders name of animal          812  larger than 20\n"
     " characters after position 20 are ignored\n",
     " Waarschuwing: lengte van fokker van dier          812  is langer dan 20\n"
     " tekens na positie 20 worden genegeerd\n"},
    // The Dutch line is full: what follows the number goes to the next one.
    {subpopulation_column, 20,
     " Warning: length of subpopulation/variety of animal          812  larger than 20\n"
     " characters after position 20 are ignored\n",
     " Waarschuwing: lengte van subpopulatie/var\xEB"
     "teit van dier          812\n"
     "  is langer dan 20\n"
     " tekens na positie 20 worden genegeerd\n"},
};

std::string_view text_of_field(const AnimalRecord& record, FieldCode code) {
  switch (code) {
    case id_column: return record.id.full();
    case sire_column: return record.sire_id.full();
    case dam_column: return record.dam_id.full();
    case name_column: return record.name.full();
    case colour_column: return record.colour.full();
    case breeder_column: return record.breeder.full();
    default: return record.subpopulation.full();
  }
}

TestLayout settings_with_subpopulation(std::string_view name, bool english) {
  TestLayout settings = settings_in(english);
  settings.subpopulations.add(SubpopulationName(name));
  return settings;
}

TEST(StoreField, TooLongTextIsCutWithAWarningInBothLanguages) {
  for (const LengthCase& length_case : length_cases) {
    for (const bool english : {true, false}) {
      const std::string kept = "  " + std::string(length_case.limit - 3, 'a') + "z";
      const TestLayout settings = settings_with_subpopulation(kept, english);
      const StoredField stored = store_one(kept + "y", length_case.code, settings);
      EXPECT_EQ(text_of_field(stored.record, length_case.code), kept);
      EXPECT_EQ(stored.streams.console.pending, english ? length_case.english : length_case.dutch);
      EXPECT_EQ(stored.streams.report.pending, "");
      EXPECT_EQ(stored.streams.messages.pending, "");
    }
  }
}

TEST(StoreField, TextOfExactlyTheFieldsWidthIsNotTooLong) {
  for (const LengthCase& length_case : length_cases) {
    const std::string text(length_case.limit, 'a');
    const StoredField stored = store_one(text + "    ", length_case.code, settings_with_subpopulation(text, true));
    EXPECT_EQ(text_of_field(stored.record, length_case.code), text);
    EXPECT_EQ(stored.streams.console.pending, "");
  }
}

// ---- subpopulations ----------------------------------------------------------------------------------------------

TEST(StoreField, SubpopulationOnTheListOrBlankIsAccepted) {
  TestLayout settings = settings_with_subpopulation("rough", true);
  settings.subpopulations.add(SubpopulationName("smooth"));
  for (const std::string_view field : {"rough", "smooth   ", "", "     "}) {
    const StoredField stored = store_one(field, subpopulation_column, settings);
    EXPECT_EQ(stored.streams.console.pending, "") << field;
    EXPECT_EQ(stored.streams.report.pending, "") << field;
  }
}

StoredField store_unknown_subpopulation(bool english) {
  StoredField stored{.record = {}, .streams = streams_in(english)};
  LineRecord line{.id = "NL-1", .name = "Rex"};
  store_field("Rough", subpopulation_column, settings_with_subpopulation("rough", english), {"dogs.txt", 2, 30, 1},
              line, stored.streams);
  stored.record = record_of(line);
  return stored;
}

TEST(StoreField, SubpopulationThatIsNotOnTheListIsReportedAndStays) {
  const StoredField stored = store_unknown_subpopulation(true);
  EXPECT_EQ(stored.record.subpopulation, "Rough");
  const std::string expected = " ERROR: \n animal: " + padded("Rex", 50) + " no.: \n " + padded("NL-1", 30) +
                               "\n of unknown subpopulation: " + padded("Rough", 20) + "\n";
  EXPECT_EQ(stored.streams.console.pending, expected);
  EXPECT_EQ(stored.streams.report.pending, expected);
}

TEST(StoreField, DutchReportHasAnotherWordThanTheConsole) {
  const StoredField stored = store_unknown_subpopulation(false);
  const std::string animal = " ERROR: \n dier: " + padded("Rex", 50) + " nr: \n " + padded("NL-1", 30) + "\n";
  EXPECT_EQ(stored.streams.console.pending, animal + " Van een onbekende subpopulatie: " + padded("Rough", 20) + "\n");
  EXPECT_EQ(stored.streams.report.pending, animal + " Van een andere subpopulatie: " + padded("Rough", 20) + "\n");
}

TEST(StoreField, TooLongSubpopulationIsWarnedOfBeforeItIsLookedUp) {
  const StoredField stored =
      store_one("abcdefghijklmnopqrstuvwxyz", subpopulation_column, settings_with_subpopulation("rough", true));
  EXPECT_EQ(stored.streams.console.pending,
            " Warning: length of subpopulation/variety of animal          812  larger than 20\n"
            " characters after position 20 are ignored\n"
            " ERROR: \n"
            " animal: " +
                padded("", 50) + " no.: \n " + padded("", 30) +
                "\n"
                " of unknown subpopulation: abcdefghijklmnopqrst\n");
}

TEST(StoreField, EverySubpopulationIsUnknownWithoutAList) {
  EXPECT_EQ(store_one("rough", subpopulation_column).streams.report.pending.substr(0, 9), " ERROR: \n");
}

TEST(ReadDataFile, ErrorLinesShowTheColumnsReadSoFar) {
  const ReadRun run = read_text("name;herd;id;sire;dam;sex;dob\nRex;rough;NL-1;0;0;m;1-1-2000\n", settings_in(true));
  EXPECT_EQ(run.streams.report.pending, " ERROR: \n animal: " + padded("Rex", 50) + " no.: \n " + padded("", 30) +
                                            "\n of unknown subpopulation: " + padded("rough", 20) + "\n");
}

TEST(ReadDataFile, ErrorLinesShowADashForAFileWithoutNames) {
  const ReadRun run = read_text("id;herd;sire;dam;sex;dob\nNL-1;rough;0;0;m;1-1-2000\n", settings_in(true));
  EXPECT_EQ(run.streams.report.pending, " ERROR: \n animal: " + padded("- ", 50) + " no.: \n " + padded("NL-1", 30) +
                                            "\n of unknown subpopulation: " + padded("rough", 20) + "\n");
}

// ---- cutting of lines --------------------------------------------------------------------------------------------

TEST(StoreLine, CutsAtTheDelimiter) {
  const AnimalRecord record =
      cut_line("NL-1;skipped;Rex;red", {id_column, 0, name_column, colour_column}, settings_in(true));
  EXPECT_EQ(record.id, "NL-1");
  EXPECT_EQ(record.name, "Rex");
  EXPECT_EQ(record.colour, "red");
}

TEST(StoreLine, LooksAtNothingBehindTheLastColumnThatCounts) {
  const AnimalRecord record = cut_line("NL-1;Rex;red", {id_column, name_column}, settings_in(true));
  EXPECT_EQ(record.name, "Rex");
  EXPECT_EQ(record.colour, "untouched");
}

TEST(StoreLine, EmptyFieldIsStoredAsBlank) {
  const AnimalRecord record = cut_line("NL-1;;red", {id_column, name_column, colour_column}, settings_in(true));
  EXPECT_TRUE(record.name.is_blank());
  EXPECT_EQ(record.colour, "red");
}

TEST(StoreLine, EmptyFieldIsLeftUntouchedWhenDelimitersAreMerged) {
  TestLayout settings = settings_in(true);
  settings.merge_delimiters = true;
  const std::vector<std::int32_t> columns = {id_column, name_column, colour_column};
  const AnimalRecord record = cut_line("NL-1;;red", columns, settings);
  EXPECT_EQ(record.name, "untouched");
  EXPECT_EQ(record.colour, "red");  // the columns keep their numbers
  EXPECT_EQ(cut_line(";Rex;red", columns, settings).id, "untouched");
  EXPECT_EQ(cut_line(";Rex;red", columns, settings).name, "Rex");
  EXPECT_TRUE(cut_line("NL-1; ;red", columns, settings).name.is_blank());
}

TEST(StoreLine, ColumnsThatTheLineDoesNotHaveAreStoredAsBlank) {
  for (const bool merge : {false, true}) {
    TestLayout settings = settings_in(true);
    settings.merge_delimiters = merge;
    const std::vector<std::int32_t> columns = {id_column, name_column, colour_column};
    for (const std::string_view line : {"NL-1", "NL-1;", "NL-1;  "}) {
      const AnimalRecord record = cut_line(line, columns, settings);
      EXPECT_EQ(record.id, "NL-1") << line;
      EXPECT_TRUE(record.name.is_blank()) << line;
      EXPECT_TRUE(record.colour.is_blank()) << line;
    }
    EXPECT_TRUE(cut_line("", columns, settings).id.is_blank());
  }
}

TEST(StoreLine, FindsTheDelimiterAtEveryPlaceAndAmongBytesThatAreNearlyIt) {
  TestLayout settings = settings_in(true);
  for (const int delimiter : {0x00, 0x01, 0x09, 0x3B, 0x7F, 0x80, 0xFF}) {
    settings.delimiter = static_cast<char>(delimiter);
    for (const int difference : {0x01, 0x80, 0x81}) {
      const char other = static_cast<char>(delimiter ^ difference);
      if (other == ' ') continue;
      for (std::size_t length = 1; length <= 30; ++length) {
        const std::string first(length, other), second(31 - length, other);
        const std::string line = first + settings.delimiter + second;
        const AnimalRecord record = cut_line(line, {id_column, name_column}, settings);
        ASSERT_EQ(record.id.trimmed(), first) << delimiter << " " << length;
        ASSERT_EQ(record.name.trimmed(), second) << delimiter << " " << length;
      }
    }
  }
}

TEST(StoreLine, LaterColumnWithTheSameCodeWins) {
  EXPECT_EQ(cut_line("first;second", {id_column, id_column}, settings_in(true)).id, "second");
}

TEST(StoreLine, FieldThatReachesColumn600IsKeptUpToThere) {
  const std::string line = std::string(595, 'x') + ";abcd";
  EXPECT_EQ(line.size(), 600U);
  EXPECT_EQ(cut_line(line, {0, id_column}, settings_in(true)).id, "abcd");
  // The delimiter in column 600 itself: the next column lies behind the end, whether delimiters are merged or not.
  for (const bool merge : {false, true}) {
    TestLayout settings = settings_in(true);
    settings.merge_delimiters = merge;
    EXPECT_TRUE(cut_line(std::string(599, 'x') + ";", {0, id_column}, settings).id.is_blank());
  }
}

TEST(StoreLine, BlankAsDelimiterStoresEmptyColumnsBehindTheLine) {
  TestLayout settings = settings_in(true);
  settings.delimiter = ' ';
  const std::vector<std::int32_t> columns = {id_column, name_column, colour_column};
  EXPECT_EQ(cut_line("NL-1 Rex red", columns, settings).colour, "red");
  EXPECT_TRUE(cut_line("NL-1  red", columns, settings).name.is_blank());
  EXPECT_TRUE(cut_line("NL-1 Rex", columns, settings).colour.is_blank());
}

TEST(StoreLine, BlankAsMergedDelimiterLeavesColumnsBehindTheLineUntouched) {
  TestLayout settings = settings_in(true);
  settings.delimiter = ' ';
  settings.merge_delimiters = true;
  const std::vector<std::int32_t> columns = {id_column, name_column, colour_column};
  const AnimalRecord record = cut_line("NL-1  red", columns, settings);
  EXPECT_EQ(record.name, "untouched");
  EXPECT_EQ(record.colour, "red");
  // Behind the line each blank is a delimiter where a column would begin.
  EXPECT_EQ(cut_line("NL-1 Rex", columns, settings).colour, "untouched");
}

TEST(ReadDataFile, TextBehindColumn600IsNotSeen) {
  const std::string filler(597, 'x');
  const ReadRun run = read_text("x;id;sire;dam;sex;dob\n" + filler + ";NL-1;0;0;m;1-1-2000\n", settings_in(true));
  EXPECT_EQ(run.store.at(1).id, "NL");
  EXPECT_EQ(run.store.at(1).sire_id, "0");
  EXPECT_EQ(run.store.at(1).sex, female);
  EXPECT_EQ(run.store.at(1).birth_year, 0);
}

// ---- whole files -------------------------------------------------------------------------------------------------

TEST(ReadDataFile, SubpopulationsAndColoursGetTheirNumbers) {
  TestLayout settings = settings_with_subpopulation("rough", true);
  for (const char* const name : {"smooth", "rough", ""}) settings.subpopulations.add(SubpopulationName(name));
  for (const char* const name : {"red", "black", "red"}) settings.colours.add(ColourName(name));
  const PopulationStore store = read_text(
                                    "id;sire;dam;sex;dob;herd;Kleur\n"
                                    "a;0;0;m;;smooth;black\n"
                                    "b;0;0;m;;rough;red   \n"
                                    "c;0;0;m;;  ;Red\n"
                                    "d;0;0;m;;wire;\n",
                                    settings)
                                    .store;
  EXPECT_EQ(store.subpopulation_no(1), 2);
  EXPECT_EQ(store.subpopulation_no(2), 1);  // its first number
  EXPECT_EQ(store.subpopulation_no(3), 4);
  EXPECT_EQ(store.subpopulation_no(4), 0);
  EXPECT_EQ(store.at(4).subpopulation, "wire");
  EXPECT_EQ(store.colour_no.values, (std::vector<std::int32_t>{0, 2, 1, 0, 0}));
}

TEST(ReadDataFile, StoresEveryColumnOfEveryLine) {
  TestLayout settings = settings_with_subpopulation("rough", true);
  settings.subpopulations.add(SubpopulationName("smooth"));
  settings.colours.add(ColourName("red"));
  const ReadRun run = read_text(
      "Import;Herd;Fokker;Kleur;DoB;Sexe;naam moeder;naam vader;Naam;Moeder;Vader;Dier\n"
      "yes;rough;Smit;red;25-4-1998;m;Saar;Rex;Puck;NL-2;NL-1;NL-3\n"
      ";;;;;;;;;;;NL-4\n",
      settings);
  ASSERT_EQ(run.store.size(), 2U);
  const AnimalRecord& puck = run.store.at(1);
  EXPECT_TRUE(puck.is_import);
  EXPECT_EQ(puck.subpopulation, "rough");
  EXPECT_EQ(puck.breeder, "Smit");
  EXPECT_EQ(run.store.colour_no[1], 1);
  EXPECT_EQ(puck.birth_day, 25);
  EXPECT_EQ(puck.birth_month, 4);
  EXPECT_EQ(puck.birth_year, 1998);
  EXPECT_EQ(puck.sex, male);
  EXPECT_EQ(puck.name, "Puck");
  EXPECT_EQ(puck.dam_id, "NL-2");
  EXPECT_EQ(puck.sire_id, "NL-1");
  EXPECT_EQ(puck.id, "NL-3");
  const AnimalRecord& other = run.store.at(2);
  EXPECT_FALSE(other.is_import);
  EXPECT_TRUE(other.subpopulation.is_blank());
  EXPECT_TRUE(other.breeder.is_blank());
  EXPECT_EQ(run.store.colour_no[2], 0);
  EXPECT_TRUE(other.name.is_blank());
  EXPECT_EQ(other.birth_year, 0);
  EXPECT_EQ(other.birth_month, 1);
  EXPECT_EQ(other.birth_day, 1);
  EXPECT_EQ(other.sex, female);
  EXPECT_EQ(other.sire_id, "0");
  EXPECT_EQ(other.dam_id, "0");
  EXPECT_EQ(other.id, "NL-4");
}

TEST(ReadDataFile, AnimalWithoutKnownParentsHasZeroForBoth) {
  const ReadRun run = read_text(std::string(short_header) + "a;0;0;m;1-1-2000\nb;;;f;1-1-2000\n", settings_in(true));
  for (const AnimalRecord& animal : records_of(run.store)) {
    EXPECT_EQ(animal.sire_id.full(), padded("0", 30));
    EXPECT_EQ(animal.dam_id.full(), padded("0", 30));
    EXPECT_EQ(animal.sire_no, 0);
    EXPECT_EQ(animal.dam_no, 0);
  }
}

TEST(ReadDataFile, BlankLineIsAnAnimalWithoutIdentification) {
  for (const std::string_view line : {"\n", "        \n"}) {
    const ReadRun run = read_text(std::string(short_header) + std::string(line), settings_in(true));
    ASSERT_EQ(run.store.size(), 1U);
    EXPECT_TRUE(run.store.at(1).id.is_blank());
    EXPECT_EQ(run.store.at(1).sire_id, "0");
    EXPECT_EQ(run.store.at(1).dam_id, "0");
    EXPECT_EQ(run.store.at(1).sex, female);
    EXPECT_EQ(run.store.at(1).birth_year, 0);
    EXPECT_EQ(run.store.at(1).birth_month, 1);
    EXPECT_EQ(run.store.at(1).birth_day, 1);
  }
}

TEST(ReadDataFile, FieldsLeftUntouchedHaveFixedValues) {
  TestLayout settings = settings_in(true);
  settings.merge_delimiters = true;
  const ReadRun run = read_text(std::string(short_header) + ";;;;1-1-2000\n", settings);
  EXPECT_TRUE(run.store.at(1).id.is_blank());
  EXPECT_EQ(run.store.at(1).sire_id, "0");
  EXPECT_EQ(run.store.at(1).dam_id, "0");
  EXPECT_EQ(run.store.at(1).sex, female);
  EXPECT_EQ(run.store.at(1).birth_year, 2000);
}

TEST(ReadDataFile, HeaderWithoutAnimalsIsReadAtOnce) {
  const ReadRun english = read_text(short_header, settings_in(true));
  EXPECT_EQ(english.store.animal_count, 0);
  EXPECT_EQ(console_of_records(english), " all records read\n");
  EXPECT_EQ(console_of_records(read_text("id;sire;dam;sex;dob\n", settings_in(false))), " alle records gelezen\n");
}

TEST(ReadDataFile, LastLineIsNeverReadWhenTheSteerFileGivesTheColumns) {
  TestLayout settings = settings_in(true);
  settings.column_codes = {id_column, sire_column, dam_column, sex_column, birthdate_column};
  const ReadRun run = read_text("a;0;0;m;1-1-2000\nb;0;0;m;1-1-2001\nc;0;0;m;1-1-2002\n", settings);
  ASSERT_EQ(run.store.animal_count, 2);
  EXPECT_EQ(run.store.at(1).id, "a");
  EXPECT_EQ(run.store.at(2).id, "b");
  EXPECT_EQ(console_of_records(run), " all records read\n");
}

TEST(ReadDataFile, FileThatEndsEarlyLeavesTheOtherRecordsAsTheyWere) {
  for (const bool english : {true, false}) {
    ReadRun run{.store = {}, .streams = streams_in(english)};
    LineReader reader;
    reader.text = "id;sire;dam;sex;dob\na;0;0;m;1-1-2000\nb;a;0;f;1-1-2001\n";
    read_data_file(reader, 4, settings_in(english), run.store, run.streams);
    EXPECT_EQ(console_of_records(run), english ? " endrecord at animal =            3\n all records read\n"
                                               : " eindrecord bij dier =            3\n alle records gelezen\n");
    EXPECT_EQ(run.store.animal_count, 4);
    EXPECT_EQ(run.store.at(2).id, "b");
    EXPECT_TRUE(run.store.at(3).id.is_blank());
    EXPECT_EQ(run.store.at(3).name.full(), padded("- ", 50));
    EXPECT_EQ(run.store.at(3).sire_id, "0");
    EXPECT_EQ(run.store.at(4).birth_month, 1);
  }
}

TEST(ReadDataFile, BadDateIsReportedWithItsPlace) {
  const ReadRun run =
      read_text("name;id;sire;dam;sex;dob\nRex;a;0;0;m;1-1-2000\nBas;b;0;0;m;1-x-2000;rest\n", settings_in(true));
  EXPECT_TRUE(run.has_stopped);
  EXPECT_EQ(run.streams.messages.pending,
            "dogs.txt, line 3, field 6 (dob), character 13: \"1-x-2000\": a date of birth in the layout dd-mm-jjjj was "
            "expected\n");
  EXPECT_EQ(console_of_records(run), "");
}

TEST(ReadDataFile, BadDateIsReportedWithTheHeadingAsItStands) {
  const ReadRun blanks = read_text("id;sire; colour ;dam;sex;  dob \nb;0;;0;m;1-x-2000\n", settings_in(true));
  EXPECT_EQ(blanks.streams.messages.pending,
            "dogs.txt, line 2, field 6 (dob), character 10: \"1-x-2000\": a date of birth in the layout dd-mm-jjjj was "
            "expected\n");
  TestLayout merged = settings_in(true);
  merged.merge_delimiters = true;
  EXPECT_EQ(read_text("id;sire;dam;sex;dob\nb;;;m;1-x-2000\n", merged).streams.messages.pending,
            "dogs.txt, line 2, field 5 (dob), character 7: \"1-x-2000\": a date of birth in the layout dd-mm-jjjj was "
            "expected\n");
}

TEST(ReadDataFile, BadDateIsReportedWithTheSixteenCharactersOfTheHeadingThatCount) {
  const std::string header = "id;sire;dam;sex; dob             \xC3\xA9t\xC3\xA9;name\n";
  EXPECT_EQ(read_text(header + "b;0;0;m;1-x-2000\n", settings_in(true)).streams.messages.pending,
            "dogs.txt, line 2, field 5 (dob), character 9: \"1-x-2000\": a date of birth in the layout dd-mm-jjjj was "
            "expected\n");
}

TEST(ReadDataFile, BadDateHasNoHeadingWhenTheSteerFileGivesTheColumns) {
  TestLayout settings = settings_in(true);
  settings.column_codes = {id_column, sire_column, dam_column, unused_column, sex_column, birthdate_column};
  EXPECT_EQ(read_text("a;0;0;;m;1-1-2000\nb;0;0;;m;1-x-2000\n\n", settings).streams.messages.pending,
            "dogs.txt, line 2, field 6, character 10: \"1-x-2000\": a date of birth in the layout dd-mm-jjjj was "
            "expected\n");
}

TEST(ReadDataFile, RecordsKnowTheirLine) {
  const ReadRun headed = read_text("id;sire;dam;sex;dob\na;0;0;m;\n\nc;0;0;m;\n", settings_in(true));
  ASSERT_EQ(headed.store.animal_count, 3);
  EXPECT_EQ(headed.store.at(1).line, 2);
  EXPECT_EQ(headed.store.at(3).line, 4);
  TestLayout settings = settings_in(true);
  settings.column_codes = {id_column, sire_column, dam_column, sex_column, birthdate_column};
  EXPECT_EQ(read_text("a;0;0;m;\nb;0;0;m;\n\n", settings).store.at(2).line, 2);
}

TEST(ReadDataFile, UnknownWordAsDateIsAnUnknownDate) {
  const ReadRun run = read_text(std::string(short_header) + "a;0;0;m;unknown\n", settings_in(true));
  EXPECT_FALSE(run.has_stopped);
  EXPECT_EQ(run.store.at(1).birth_year, 0);
  EXPECT_EQ(run.store.at(1).birth_month, 1);
  EXPECT_EQ(run.store.at(1).birth_day, 1);
}

TEST(ReadDataFile, CarriageReturnAtTheEndOfALineIsNoText) {
  const ReadRun run = read_text("id;sire;dam;sex;dob;name\r\na;0;0;m;1-1-2000;Rex\r\n", settings_in(true));
  EXPECT_EQ(run.store.at(1).name.full(), padded("Rex", 50));
}

// ---- the record dump ---------------------------------------------------------------------------------------------

/// A file of `count` animals a1, a2, ... born on day 1.
std::string file_of(std::int32_t count) {
  std::string data(short_header);
  for (std::int32_t r = 1; r <= count; ++r) data += "a" + std::to_string(r) + ";0;0;m;1-1-2000\n";
  return data;
}

/// The numbers of the records that were dumped.
std::vector<std::int32_t> dumped_records(std::int32_t count) {
  const ReadRun run = read_text(file_of(count), settings_in(true));
  std::vector<std::int32_t> records;
  for (const std::string& line : lines_of(run.streams.console)) {
    if (line.starts_with(" record no. ")) records.push_back(std::stoi(line.substr(12)));
  }
  return records;
}

TEST(RecordDump, FollowsTheUnevenRhythmOfInterval100) {
  EXPECT_EQ(dumped_records(98), (std::vector<std::int32_t>{}));
  EXPECT_EQ(dumped_records(99), (std::vector<std::int32_t>{99}));
  EXPECT_EQ(dumped_records(199), (std::vector<std::int32_t>{99}));
  EXPECT_EQ(dumped_records(200), (std::vector<std::int32_t>{99, 200}));
  EXPECT_EQ(dumped_records(402), (std::vector<std::int32_t>{99, 200, 301, 402}));
}

TEST(RecordDump, IntervalGrowsWithThePopulation) {
  EXPECT_EQ(dumped_records(4000).size(), 39U);  // the last one is 99 + 38 * 101 = 3937
  EXPECT_EQ(dumped_records(4000).back(), 3937);
  EXPECT_EQ(dumped_records(4001), (std::vector<std::int32_t>{499, 1000, 1501, 2002, 2503, 3004, 3505}));
  EXPECT_EQ(dumped_records(10000).front(), 499);
  EXPECT_EQ(dumped_records(10001).front(), 999);
  EXPECT_EQ(dumped_records(10001).at(1), 2000);
  EXPECT_EQ(dumped_records(25000).front(), 999);
  EXPECT_EQ(dumped_records(25001), (std::vector<std::int32_t>{4999, 10000, 15001, 20002}));
}

constexpr std::string_view full_header = "id;name;sire;dam;dob;sex;colour;breeder;herd;Import\n";

std::string console_of_dump(std::string_view line_99, bool english) {
  std::string data(full_header);
  for (std::int32_t r = 1; r <= 98; ++r) data += "a\n";
  data += line_99;
  std::string console = read_text(data, settings_with_subpopulation("rough", english)).streams.console.pending;
  return console.substr(console.find(english ? " record no. " : " record nr. "));
}

TEST(RecordDump, ShowsEveryFieldThatHasAColumnInEnglish) {
  EXPECT_EQ(console_of_dump("NL-99;Rex;NL-1;NL-2;25-4-1998;m;red;Smit;rough;yes\n", true),
            " record no.           99 read\n"
            " id            = " +
                padded("NL-99", 30) +
                "\n"
                " name          = " +
                padded("Rex", 50) +
                "\n"
                " sire          = " +
                padded("NL-1", 30) +
                "\n"
                " dam           = " +
                padded("NL-2", 30) +
                "\n"
                " birthdate     =           25 -           4 -        1998\n"
                " sex           =            1\n"
                " colour        = " +
                padded("red", 40) +
                "\n"
                " breeder       = " +
                padded("Smit", 20) +
                "\n"
                " subpopulation = " +
                padded("rough", 20) +
                "\n"
                " Import =  T\n"
                " all records read\n");
}

TEST(RecordDump, OnlyTheFirstLineHasADutchForm) {
  EXPECT_EQ(console_of_dump("NL-99;Rex;;;;f;red;Smit;;\n", false),
            " record nr.           99 gelezen\n"
            " id            = " +
                padded("NL-99", 30) +
                "\n"
                " name          = " +
                padded("Rex", 50) +
                "\n"
                " sire          = " +
                padded("0", 30) +
                "\n"
                " dam           = " +
                padded("0", 30) +
                "\n"
                " birthdate     =            1 -           1 -           0\n"
                " sex           =            2\n"
                " colour        = " +
                padded("red", 40) +
                "\n"
                " breeder       = " +
                padded("Smit", 20) +
                "\n"
                " subpopulation = " +
                padded("", 20) +
                "\n"
                " Import =  F\n"
                " alle records gelezen\n");
}

TEST(RecordDump, LeavesOutFieldsWithoutAColumn) {
  const ReadRun run = read_text(file_of(99), settings_in(true));
  EXPECT_EQ(console_of_records(run),
            " record no.           99 read\n"
            " id            = " +
                padded("a99", 30) +
                "\n"
                " sire          = " +
                padded("0", 30) +
                "\n"
                " dam           = " +
                padded("0", 30) +
                "\n"
                " birthdate     =            1 -           1 -        2000\n"
                " sex           =            1\n"
                " all records read\n");
}

}  // namespace
}  // namespace pedigreewatch::test
