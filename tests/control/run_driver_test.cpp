#include "control/run_driver.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "support/lines.h"
#include "support/program_run.h"
#include "support/steer_lines.h"
#include "support/streams.h"

namespace pedigreewatch::test {
namespace {

using Lines = std::vector<std::string>;

constexpr auto header_line = "id;sire;dam;sex;birthdate\n";
constexpr auto column_list = "n\nnumber of columns\n5\ncodes\n5 1 2 3 7 8";

// Three founders, two full sibs and a half sib, and four young of which all are inbred.
constexpr auto ten_dogs =
    "a1;0;0;m;01-01-2000\n"
    "a2;0;0;f;01-01-2000\n"
    "a3;0;0;f;01-01-2000\n"
    "a4;a1;a2;m;01-01-2002\n"
    "a5;a1;a2;f;01-01-2002\n"
    "a6;a1;a3;f;01-01-2002\n"
    "a7;a4;a6;m;01-07-2004\n"
    "a8;a4;a5;f;01-07-2004\n"
    "a9;a4;a5;m;01-07-2004\n"
    "a10;a1;a6;f;01-07-2004\n";

constexpr auto noord = "1\nNoord";
const SteerLines one_subpopulation = {.subpopulations = noord};

WholeRun run_on(const std::string& data, const SteerLines& steer = one_subpopulation) {
  return run_program_on(files_of(data, steer));
}

const Lines banner = {
    "           *********************************",
    "           *     Pedigree Watch Report     *",
    "           *********************************",
    "            ",
};

// ---- a small run, line by line ---------------------------------------------------------------------------------

TEST(SmallRun, ShowsItsConsoleLinesInTheOrderOfThePhases) {
  const Lines expected = {
      // the steer file
      " consecutive delimiters indicate empty column",
      " Data file contains header, content of columns will be determined by first line",
      " number of subpopulations           1",
      " number of colours           0",
      " Colours to be analysed in datafile",
      " " + padded("Onbekend", 40),
      " " + padded("niet erkend", 40),
      " Data for " + padded("Village dogs", 40) + " will be read from ",
      " " + padded("dogs.txt", 30),
      " and written to " + padded("dogs.out", 30),
      " subpopulations allowed",
      " " + padded("Noord", 20),
      " colour/variety codes allowed ",
      " " + padded("Onbekend", 40),
      " " + padded("niet erkend", 40),
      // the banner
      banner[0],
      banner[1],
      banner[2],
      banner[3],
      // the data file
      " total number records = " + number(11),
      "  Name found for column " + number(1) + " " + padded("id", 16),
      "  Name found for column " + number(2) + " " + padded("sire", 16),
      "  Name found for column " + number(3) + " " + padded("dam", 16),
      "  Name found for column " + number(4) + " " + padded("sex", 16),
      "  Name found for column " + number(5) + " " + padded("birthdate", 16),
      " Column number " + number(1) + "  is interpreted as id of animals",
      " Column number " + number(2) + "  is interpreted as id of the fathers of animals",
      " Column number " + number(3) + "  is interpreted as id of the mothers of animals",
      " Column number " + number(4) + "  is interpreted as sex of animals",
      " Column number " + number(5) + "  is interpreted as date of birth of animals",
      " all records read",
      " no fathers found that were not in database",
      " no mothers found that were not in database",
      // the sort: a1 to a6 have young
      " sweep" + number(1) + " number of animals without unsorted offspring" + number(4),
      " sweep" + number(1) + " number of animals with unsorted offspring" + number(6),
      "",
      " no. sorted" + number(0) + " last =" + number(10),
      " animals with a maximum of " + number(0),
      "  generations of offspring placed at end of pedigree",
      " pedigree sorted",
      " renumber pedigree",
      // a1 was four when a10 was born; the oldest dams were two and a half
      " oldest parents; " + number(4) + number(2),
      " monitor data per jaar",
      " year " + number(2000) + " determined ages parents, etc.",
      " year " + number(2001) + " determined ages parents, etc.",
      " year " + number(2002) + " determined ages parents, etc.",
      " year " + number(2003) + " determined ages parents, etc.",
      " year " + number(2004) + " determined ages parents, etc.",
      " compute contribution topsires for year" + number(2000),
      " compute contribution topsires for year" + number(2001),
      " compute contribution topsires for year" + number(2002),
      " compute contribution topsires for year" + number(2003),
      " compute contribution topsires for year" + number(2004),
      " compute kinships for year" + number(2000),
      " compute kinships for year" + number(2001),
      " compute kinships for year" + number(2002),
      " compute kinships for year" + number(2003),
      " compute kinships for year" + number(2004),
      // mean F, and mean relationship with oneself included, which is twice the kinship: 3/9, 5/9, 11/16
      "     F        f",
      "  0.0000  0.3333",
      "  0.0000  0.0000",
      "  0.0000  0.5556",
      "  0.0000  0.0000",
      "  0.2188  0.6875",
      " finished analysis for " + padded("Village dogs", 40),
  };
  const WholeRun run = run_on(header_line + std::string(ten_dogs));
  EXPECT_EQ(lines_of(run.console), expected);
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_EQ(run.messages, "");
}

TEST(SmallRun, WritesTheReportAndNothingElse) {
  const Files before = files_of(header_line + std::string(ten_dogs), one_subpopulation);
  const WholeRun run = run_program_on(before);
  EXPECT_EQ(run.files.size(), 3U);
  for (const auto& [name, bytes] : before) EXPECT_EQ(run.file(name), bytes) << name;
  const Lines report = lines_of(run.file("dogs.out"));
  ASSERT_GT(report.size(), 7U);
  EXPECT_EQ(report[0], "           ******************************************");
  EXPECT_EQ(report[1], "           *" + padded("Village dogs", 40) + "*");
  EXPECT_EQ(report[2], "           ******************************************");
  EXPECT_EQ(report[3], "            ");
  EXPECT_EQ(report[4], " Number of varieties: " + number(1));
  EXPECT_EQ(report[5], " no colours analysed");
  EXPECT_EQ(report[6], " no breeders analysed");
}

TEST(SmallRun, InDutch) {
  const WholeRun run = run_on(header_line + std::string(ten_dogs), {.language = "nl", .subpopulations = noord});
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_TRUE(has_line(run.console, " total number records = " + number(11)));  // English in either language
  EXPECT_TRUE(has_line(run.console, " alle records gelezen"));
  EXPECT_TRUE(has_line(run.console, " no fathers found that were not in database"));
  EXPECT_TRUE(has_line(run.console, " oudste ouders; " + number(4) + number(2)));
  EXPECT_TRUE(has_line(run.console, " monitor gegevens per jaar"));
  EXPECT_EQ(lines_of(run.console).back(), " klaar met analyseren van " + padded("Village dogs", 40));
}

TEST(SmallRun, IsTheSameEachTime) {
  const std::string data = header_line + std::string(ten_dogs);
  const WholeRun first = run_on(data), second = run_on(data);
  EXPECT_EQ(first.console, second.console);
  EXPECT_EQ(first.files, second.files);
}

TEST(SmallRun, OverwritesTheReportOfAnEarlierRun) {
  Files files = files_of(header_line + std::string(ten_dogs), one_subpopulation);
  const std::string fresh = run_program_on(files).file("dogs.out");
  files["dogs.out"] = std::string(1000000, 'x');
  EXPECT_EQ(run_program_on(files).file("dogs.out"), fresh);
}

// ---- counting the lines ----------------------------------------------------------------------------------------

/// The number of animals that reach the sort.
std::string animals_to_sort(std::int64_t count) {
  return " no. sorted" + number(0) + " last =" + number(count);
}

TEST(CountLines, LastLineWithoutAnEndCounts) {
  std::string data = header_line + std::string(ten_dogs);
  data.pop_back();
  const WholeRun run = run_on(data);
  EXPECT_TRUE(has_line(run.console, " total number records = " + number(11)));
  EXPECT_TRUE(has_line(run.console, animals_to_sort(10)));
}

TEST(CountLines, EmptyLastLineCounts) {
  const WholeRun run = run_on(header_line + std::string(ten_dogs) + "\n");
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_TRUE(has_line(run.console, " total number records = " + number(12)));
  EXPECT_TRUE(has_line(run.console, animals_to_sort(11)));
}

TEST(CountLines, FileWithoutHeaderLosesItsLastLine) {
  const WholeRun run = run_on(ten_dogs, {.header = column_list, .subpopulations = noord});
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_TRUE(has_line(run.console, " total number records = " + number(10)));
  EXPECT_TRUE(has_line(run.console, animals_to_sort(9)));
  EXPECT_FALSE(
      has_line(run.console, " sweep" + number(1) + " number of animals without unsorted offspring" + number(4)));
  // Without a10 its sire a1 was two at the birth of his last young.
  EXPECT_TRUE(has_line(run.console, " oldest parents; " + number(2) + number(2)));
}

TEST(CountLines, LastLineOfAFileWithoutHeaderIsNotEvenLookedAt) {
  const std::string bad_line = "a11;0;0;f;01-xx-2004\n";
  EXPECT_EQ(run_on(ten_dogs + bad_line, {.header = column_list, .subpopulations = noord}).exit_status, 0);
  EXPECT_EQ(run_on(ten_dogs + bad_line + "\n", {.header = column_list, .subpopulations = noord}).exit_status, 1);
}

TEST(CountLines, ShowsALineAfterEachThousand) {
  const Lines none;
  EXPECT_EQ(lines_starting(run_on(header_line + std::string(998, '\n')).console, " record nr. "), none);
  EXPECT_EQ(lines_starting(run_on(header_line + std::string(999, '\n')).console, " record nr. "),
            Lines{" record nr. " + number(1001) + " counted"});
  const WholeRun run = run_on(header_line + std::string(2500, '\n'));
  const Lines expected = {" record nr. " + number(1001) + " counted", " record nr. " + number(2001) + " counted"};
  EXPECT_EQ(lines_starting(run.console, " record nr. "), expected);
  EXPECT_TRUE(has_line(run.console, " total number records = " + number(2501)));
  EXPECT_EQ(run.exit_status, 0);
}

TEST(CountLines, MessagesAreEnglishInADutchRun) {
  const WholeRun run = run_on(header_line + std::string(1000, '\n'), {.language = "nl", .subpopulations = noord});
  EXPECT_TRUE(has_line(run.console, " record nr. " + number(1001) + " counted"));
  EXPECT_TRUE(has_line(run.console, " total number records = " + number(1001)));
}

// ---- stores without animals or years ---------------------------------------------------------------------------

TEST(EmptyStore, OneLineFileRunsThroughAllPhases) {
  const WholeRun run = run_on(header_line);
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_EQ(run.messages, "");
  EXPECT_TRUE(has_line(run.console, " total number records = " + number(1)));
  // The first year is the largest integer and the last one the smallest: two rows by wrapping.
  const Lines expected = {
      " no fathers found that were not in database",
      " no mothers found that were not in database",
      " sweep" + number(1) + " number of animals without unsorted offspring" + number(0),
      " sweep" + number(1) + " number of animals with unsorted offspring" + number(0),
      " no. sorted" + number(0) + " last =" + number(0),
      " animals with a maximum of " + number(0),
      "  generations of offspring placed at end of pedigree",
      " pedigree sorted",
      " renumber pedigree",
      " oldest parents; " + number(-5883516) + number(-5883516),
      " monitor data per jaar",
      " compute contribution topsires for year" + number(2147483647),
      " compute contribution topsires for year -2147483648",
      " compute kinships for year" + number(2147483647),
      " compute kinships for year -2147483648",
      "     F        f",
      "  0.0000  0.0000",
      "  0.0000  0.0000",
      " finished analysis for " + padded("Village dogs", 40),
  };
  EXPECT_EQ(lines_after(run.console, " all records read"), expected);
  EXPECT_FALSE(run.file("dogs.out").empty());
}

TEST(EmptyStore, OneLineFileWithColumnList) {
  const WholeRun run = run_on("a1;0;0;m;01-01-2000\n", {.header = column_list, .subpopulations = noord});
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_TRUE(has_line(run.console, animals_to_sort(0)));
  EXPECT_TRUE(has_line(run.console, " oldest parents; " + number(-5883516) + number(-5883516)));
}

// One line less than none: the count of animals is -1, and the store is empty.
TEST(EmptyStore, FileWithoutAnyLineAndAColumnList) {
  const WholeRun run = run_on("", {.header = column_list, .subpopulations = noord});
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_TRUE(has_line(run.console, " total number records = " + number(0)));
  EXPECT_TRUE(has_line(run.console, animals_to_sort(-1)));
}

TEST(EmptyStore, FileWithoutAnyLineHasNoHeaderToRead) {
  const WholeRun run = run_on("");
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(lines_of(run.console).back(), " total number records = " + number(0));
  EXPECT_TRUE(run.messages.starts_with("dogs.txt")) << run.messages;
  EXPECT_EQ(run.messages.find('\n'), run.messages.size() - 1);
}

// The count is given up without a message and 0 stands for it, less the one line of a header.
TEST(EmptyStore, FileOfMoreThanAHundredMillionLines) {
  const WholeRun run = run_on(header_line + std::string(100'000'000, '\n'));
  EXPECT_EQ(run.exit_status, 0);
  const Lines counted = lines_starting(run.console, " record nr. ");
  ASSERT_EQ(counted.size(), 99'999U);
  EXPECT_EQ(counted.back(), " record nr. " + number(99'999'001) + " counted");
  EXPECT_EQ(lines_starting(run.console, " total number records").size(), 0U);
  EXPECT_TRUE(has_line(run.console, " all records read"));
  EXPECT_TRUE(has_line(run.console, animals_to_sort(-1)));
  EXPECT_EQ(lines_of(run.console).back(), " finished analysis for " + padded("Village dogs", 40));
}

TEST(WithoutYears, AllBirthYearsZeroLeaveTheTablesEmpty) {
  const WholeRun run = run_on(header_line + std::string("a1;0;0;m;\na2;0;0;f;unknown\na3;a1;a2;m;\n"));
  EXPECT_EQ(run.exit_status, 0);
  const Lines expected = {
      " monitor data per jaar",
      "     F        f",
      " finished analysis for " + padded("Village dogs", 40),
  };
  EXPECT_EQ(lines_after(run.console, " oldest parents; " + number(0) + number(0)), expected);
}

TEST(BirthYearRange, BeginsWithTheSmallestYearOtherThanZero) {
  const WholeRun run = run_on(header_line + std::string("a1;0;0;m;\na2;0;0;f;01-01-1999\na3;a1;a2;m;01-01-2000\n"));
  const Lines expected = {
      " year " + number(1999) + " determined ages parents, etc.",
      " year " + number(2000) + " determined ages parents, etc.",
  };
  EXPECT_EQ(lines_starting(run.console, " year "), expected);
}

TEST(BirthYearRange, TooManyYearsAreTakenForAMistypedDate) {
  const WholeRun run = run_on(header_line + std::string("a1;0;0;m;01-01-1999\na2;0;0;f;01-01-1001999\n"));
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_TRUE(has_line(run.console, " all records read"));
  EXPECT_TRUE(run.messages.starts_with("dogs.txt: birth years from 1999 to 1001999 (animal \"a2\")")) << run.messages;
}

// ---- subpopulations --------------------------------------------------------------------------------------------

TEST(TypePass, DoesNotRunForOneSubpopulation) {
  const WholeRun run = run_on(header_line + std::string(ten_dogs), {.subpopulations = "1\nNoord"});
  EXPECT_TRUE(lines_starting(run.console, " monitor data per year for ").empty());
  EXPECT_TRUE(lines_starting(run.console, " No animals present").empty());
}

TEST(TypePass, DoesNotRunWithoutSubpopulations) {
  const WholeRun run = run_on(header_line + std::string(ten_dogs), {.subpopulations = "0"});
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_TRUE(lines_starting(run.console, " monitor data per year for ").empty());
}

TEST(TypePass, RunsOnceForEachOfTwoSubpopulationsInTheirOrder) {
  const WholeRun run = run_on(header_line + std::string(ten_dogs), {.subpopulations = "2\nZuid\nNoord"});
  const Lines expected = {
      " monitor data per year for " + padded("Zuid", 20),
      " No animals present with breed code " + padded("Zuid", 20),
      " monitor data per year for " + padded("Noord", 20),
      " No animals present with breed code " + padded("Noord", 20),
      " finished analysis for " + padded("Village dogs", 40),
  };
  EXPECT_EQ(lines_after(run.console, "  0.2188  0.6875"), expected);
}

// ---- missing files ---------------------------------------------------------------------------------------------

const Lines missing_steer_file_lines = {
    " ERROR cannot find steer file pedigreewatch.ini",
    " this file is essential for the running of the program",
    "            ***PROGRAM TERMINATED***",
    " End of program. Press RETURN to exit.",
    " __________________________________________________",
    " ERROR kan de sturingsfile pedigreewatch.ini niet vinden",
    " deze file is noodzakelijk om het programma te kunnen draaien",
    "            ***PROGRAMMA BEEINDIGD***",
    " Einde programma. Druk op Enter om uit het programma te gaan.",
};

Lines missing_data_file_lines(const std::string& name) {
  return {
      " ERROR cannot find the data file" + padded(name, 30),
      " this file is essential for running of the program",
      "            ***PROGRAM TERMINATED***",
      " End of program. Press RETURN to exit.",
      " __________________________________________________",
      " ERROR kan de datafile" + padded(name, 30) + " niet vinden",
      " deze file is noodzakelijk om het programma te kunnen draaien",
      "            ***PROGRAMMA BEEINDIGD***",
      " Einde programma. Druk op Enter om uit het programma te gaan.",
  };
}

TEST(MissingSteerFile, PrintsNineLinesAndStops) {
  const WholeRun run = run_program_on({{"dogs.txt", header_line}}, {.keyboard = "\n"});
  EXPECT_EQ(lines_of(run.console), missing_steer_file_lines);
  EXPECT_EQ(run.messages, "\"pedigreewatch.ini\": No such file or directory\n");
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.files.size(), 1U);
}

TEST(MissingSteerFile, FolderOfThatNameIsNone) {
  const WholeRun run = run_program_on({{"pedigreewatch.ini/", ""}}, {.keyboard = "\n"});
  EXPECT_EQ(lines_of(run.console), missing_steer_file_lines);
  EXPECT_EQ(run.exit_status, 1);
}

TEST(MissingSteerFile, OtherCaseOfItsNameIsNone) {
  const WholeRun run =
      run_program_on({{"PedigreeWatch.ini", one_subpopulation.text()}, {"dogs.txt", header_line}}, {.keyboard = "\n"});
  EXPECT_EQ(lines_of(run.console), missing_steer_file_lines);
}

TEST(MissingDataFile, PrintsNineLinesBehindTheBannerAndStops) {
  for (const std::string_view language : {"en", "nl"}) {
    const SteerLines steer = {.data_file_name = "cows.txt", .language = std::string(language), .subpopulations = noord};
    const WholeRun run = run_program_on({{"pedigreewatch.ini", steer.text()}}, {.keyboard = "\n"});
    EXPECT_EQ(lines_after(run.console, banner[3]), missing_data_file_lines("cows.txt")) << language;
    EXPECT_EQ(run.messages, "\"cows.txt\": No such file or directory\n");
    EXPECT_EQ(run.exit_status, 1);
    EXPECT_EQ(run.files.size(), 1U);  // no report
  }
}

TEST(MissingDataFile, BannerStandsBehindTheSteerFile) {
  const WholeRun run = run_program_on({{"pedigreewatch.ini", one_subpopulation.text()}}, {.keyboard = "\n"});
  const Lines lines = lines_of(run.console);
  ASSERT_EQ(lines.size(), 15U + 4U + 9U);
  EXPECT_EQ(Lines(lines.begin() + 15, lines.begin() + 19), banner);
}

TEST(MissingDataFile, FolderOfThatNameIsNone) {
  const WholeRun run =
      run_program_on({{"pedigreewatch.ini", one_subpopulation.text()}, {"dogs.txt/", ""}}, {.keyboard = "\n"});
  EXPECT_EQ(lines_after(run.console, banner[3]), missing_data_file_lines("dogs.txt"));
  EXPECT_EQ(run.messages, "\"dogs.txt\": Is a directory\n");
  EXPECT_EQ(run.exit_status, 1);
}

TEST(MissingDataFile, BlankNameIsNone) {
  const WholeRun run = run_program_on({{"pedigreewatch.ini", ""}}, {.keyboard = "\n"});  // a steer file without a line
  EXPECT_EQ(lines_after(run.console, banner[3]), missing_data_file_lines(""));
  EXPECT_EQ(run.exit_status, 1);
}

/// Whether the run ends within half a minute while its keyboard stays silent.
bool ends_by_itself(StartedRun& run) {
  for (int i = 0; i < 3000 && is_running(run); ++i) std::this_thread::sleep_for(std::chrono::milliseconds(10));
  return run.has_ended;
}

/// Whether the run shows all nine lines and then does nothing but wait.
bool waits_with_its_lines_shown(StartedRun& run, const std::string& last_line) {
  for (int i = 0; i < 3000; ++i) {
    if (console_so_far(run).ends_with(last_line + "\n")) break;
    if (!is_running(run)) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  std::this_thread::sleep_for(std::chrono::milliseconds(100));
  return console_so_far(run).ends_with(last_line + "\n") && is_running(run);
}

TEST(WaitAfterAMissingFile, SteerFileWaitsForOneLine) {
  const RunFolder folder({});
  StartedRun run = start_program_in(folder);
  EXPECT_TRUE(waits_with_its_lines_shown(run, missing_steer_file_lines.back()));
  type(run, "no line yet");
  std::this_thread::sleep_for(std::chrono::milliseconds(50));
  EXPECT_TRUE(is_running(run));
  type(run, "\n");
  EXPECT_TRUE(ends_by_itself(run));
  EXPECT_EQ(finish(run).exit_status, 1);
}

TEST(WaitAfterAMissingFile, DataFileWaitsForOneLine) {
  const RunFolder folder({{"pedigreewatch.ini", one_subpopulation.text()}});
  StartedRun run = start_program_in(folder);
  EXPECT_TRUE(waits_with_its_lines_shown(run, missing_steer_file_lines.back()));
  type(run, "\n");
  EXPECT_TRUE(ends_by_itself(run));
  EXPECT_EQ(finish(run).exit_status, 1);
}

TEST(WaitAfterAMissingFile, EndOfTheKeyboardEndsIt) {
  const RunFolder folder({});
  StartedRun run = start_program_in(folder);
  EXPECT_TRUE(waits_with_its_lines_shown(run, missing_steer_file_lines.back()));
  EXPECT_EQ(finish(run).exit_status, 1);
}

// ---- other stops: exit status 1 and no wait --------------------------------------------------------------------

WholeRun run_with_silent_keyboard(const Files& files) {
  const RunFolder folder(files);
  StartedRun run = start_program_in(folder);
  EXPECT_TRUE(ends_by_itself(run));
  return finish(run);
}

TEST(ExitStatus, IsZeroAtTheEndOfARunWithoutAWait) {
  EXPECT_EQ(run_with_silent_keyboard(files_of(header_line + std::string(ten_dogs), one_subpopulation)).exit_status, 0);
}

TEST(ExitStatus, IsOneAfterAMissingColumn) {
  const WholeRun run = run_with_silent_keyboard(files_of("id;sire;sex;birthdate\na1;0;m;01-01-2000\n"));
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.messages, "");
  EXPECT_EQ(lines_of(run.console).back(), " Please add a column with \"id_mother\" in header");
}

TEST(ExitStatus, IsOneAfterALoop) {
  const WholeRun run = run_with_silent_keyboard(files_of(header_line + std::string("a1;a1;0;m;01-01-2000\n")));
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.messages, "");
  EXPECT_EQ(lines_of(run.console).back(), " program will stop");
  EXPECT_EQ(lines_of(run.file("dogs.out")).back(), " program stopped");
}

TEST(ExitStatus, IsOneAfterAnUnreadableDate) {
  const WholeRun run =
      run_with_silent_keyboard(files_of(header_line + std::string("a1;0;0;m;01-01-2000\na2;0;0;m;31-o2-1998\n")));
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_TRUE(run.messages.starts_with("dogs.txt, line 3, field 5 (birthdate), character 10: ")) << run.messages;
  EXPECT_NE(run.messages.find("\"31-o2-1998\""), std::string::npos) << run.messages;
  EXPECT_FALSE(has_line(run.console, " all records read"));
  EXPECT_TRUE(has_line(run.console, " total number records = " + number(3)));  // what was printed before has arrived
}

// ---- the driver inside the test's own process ------------------------------------------------------------------

TEST(RunProgram, ReportsAFailingConsole) {
  RunStreams streams;
  streams.console.file = std::fopen("/dev/full", "wb");
  if (streams.console.file == nullptr) GTEST_SKIP() << "no device here that is always full";
  EXPECT_EQ(run_program(streams), 1);  // no steer file in the folder of the tests either
  EXPECT_EQ(streams.messages.pending, "\"pedigreewatch.ini\": " + error_text(ENOENT) +
                                          "\nthe console could not be written: " + error_text(ENOSPC) + "\n");
  close(streams.console);
}

}  // namespace
}  // namespace pedigreewatch::test
