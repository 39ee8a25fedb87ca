// Input that nobody has cleaned, and surroundings that do not play along. Every run has a defined outcome: a message
// that says what is wrong and exit status 1, or a complete report and exit status 0; never a crash, a hang, or a report
// that looks complete and is not.
#include <gtest/gtest.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <initializer_list>
#include <random>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "support/lines.h"
#include "support/program_run.h"
#include "support/sanitizers.h"
#include "support/steer_lines.h"

namespace pedigreewatch::test {
namespace {

// ---- Input files -----------------------------------------------------------------------------------------------

constexpr std::string_view header = "id;sire;dam;sex;birthdate\n";

/// A father, a mother and their two pups.
constexpr std::string_view family =
    "A1;;;m;01-02-2000\n"
    "B1;;;f;01-03-2000\n"
    "C1;A1;B1;m;01-04-2002\n"
    "D1;A1;B1;f;01-04-2002\n";

std::string with_header(std::string_view lines) {
  return std::string(header) + std::string(lines);
}

/// Bytes without any pattern, the same ones on every machine.
std::string noise(std::size_t length) {
  std::mt19937 generator(19370);  // the sequence is fixed by the language
  std::string bytes;
  for (std::size_t i = 0; i < length; ++i) bytes.push_back(static_cast<char>(generator() >> 24));
  return bytes;
}

std::string repeated(std::string_view piece, std::size_t count) {
  std::string text;
  text.reserve(piece.size() * count);
  for (std::size_t i = 0; i < count; ++i) text += piece;
  return text;
}

/// Animals without parents, all male and born on one day.
std::string unrelated_males(int count) {
  std::string lines;
  for (int i = 1; i <= count; ++i) lines += "N" + std::to_string(i) + ";;;m;01-01-2000\n";
  return lines;
}

// ---- Outcomes --------------------------------------------------------------------------------------------------

std::size_t count_of(std::string_view text, std::string_view piece) {
  std::size_t count = 0;
  for (std::size_t at = text.find(piece); at != std::string_view::npos; at = text.find(piece, at + 1)) ++count;
  return count;
}

/// A row of a table of counts: all fields 8 columns wide.
std::string row(std::initializer_list<std::int64_t> figures) {
  std::string line;
  for (const std::int64_t figure : figures) {
    const std::string digits = std::to_string(figure);
    line += std::string(8 - digits.size(), ' ') + digits;
  }
  return line;
}

/// The table of the population's size, from one rule to the next.
std::string size_table(const std::vector<std::string>& rows, std::initializer_list<std::int64_t> totals) {
  const std::string rule = " " + std::string(56, '_') + "\n";
  std::string table = rule;
  for (const std::string& each : rows) table += each + "\n";
  table += rule + "  total " + row(totals) + "\n" + rule;
  return table;
}

/// The last line of a report without subpopulations.
const std::string end_of_report = "\n " + std::string(73, '_') + "\n";

/// A run that reached its end: nothing to complain of, the last line on the console, a report with its last table.
testing::AssertionResult is_complete(const WholeRun& run) {
  if (run.exit_status != 0 || !run.messages.empty()) {
    return testing::AssertionFailure() << "exit status " << run.exit_status << ", messages:\n" << end_of(run.messages);
  }
  constexpr std::string_view last_line = "\n finished analysis for Village dogs                            \n";
  if (!run.console.ends_with(last_line)) {
    return testing::AssertionFailure() << "the console ends in\n" << end_of(run.console);
  }
  const std::string report = run.file("dogs.out");
  if (has(report, "\n      Summary population data\n") && report.ends_with(end_of_report)) {
    return testing::AssertionSuccess();
  }
  return testing::AssertionFailure() << "the report ends in\n" << end_of(report);
}

/// A run that the input layer ended, with exactly this message and a report without a single line.
void expect_stop(const WholeRun& run, std::string_view message) {
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.messages, message);
  EXPECT_FALSE(has(run.console, "finished analysis"));
  EXPECT_EQ(run.file("dogs.out"), "");
}

void expect_missing_steer_file(const WholeRun& run) {
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_TRUE(run.messages.starts_with("\"pedigreewatch.ini\": ")) << run.messages;
  EXPECT_EQ(run.console,
            " ERROR cannot find steer file pedigreewatch.ini\n"
            " this file is essential for the running of the program\n"
            "            ***PROGRAM TERMINATED***\n"
            " End of program. Press RETURN to exit.\n"
            " __________________________________________________\n"
            " ERROR kan de sturingsfile pedigreewatch.ini niet vinden\n"
            " deze file is noodzakelijk om het programma te kunnen draaien\n"
            "            ***PROGRAMMA BEEINDIGD***\n"
            " Einde programma. Druk op Enter om uit het programma te gaan.\n");
}

/// The data file's name is printed in its full 30 characters. There is no report.
void expect_missing_data_file(const WholeRun& run, std::string name) {
  name.resize(30, ' ');
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_TRUE(run.messages.starts_with("\"")) << "the name, and the system's reason: " << run.messages;
  EXPECT_TRUE(has_line(run.console, " ERROR cannot find the data file" + name));
  EXPECT_TRUE(run.console.ends_with(" Einde programma. Druk op Enter om uit het programma te gaan.\n"));
  for (const auto& [file, bytes] : run.files) EXPECT_FALSE(file.ends_with("out")) << file;
}

void expect_missing_ids(const WholeRun& run) {
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.messages, "");
  EXPECT_TRUE(
      run.console.ends_with("\n No column found with id number of animals\n"
                            " program will not run without id numbers of animals\n"
                            " Please add a column with \"id\" in header\n"))
      << end_of(run.console);
  EXPECT_EQ(run.file("dogs.out"), "");
}

/// Of the family: nothing but its four animals counts.
void expect_family(const WholeRun& run) {
  ASSERT_TRUE(is_complete(run));
  EXPECT_TRUE(has(run.file("dogs.out"), size_table({row({2000, 0, 1, 0, 1, 0, 2}), row({2001, 0, 0, 0, 0, 0, 0}),
                                                    row({2002, 1, 0, 1, 0, 2, 0})},
                                                   {1, 1, 1, 1, 2, 2})));
}

// ---- Files that are none ---------------------------------------------------------------------------------------

TEST(HostileFiles, EmptySteerFileNamesNoDataFile) {
  expect_missing_data_file(run_program_on({{"pedigreewatch.ini", ""}, {"dogs.txt", with_header(family)}}), "");
}

TEST(HostileFiles, SteerFileOfEmptyLinesNamesNoDataFile) {
  const WholeRun run =
      run_program_on({{"pedigreewatch.ini", repeated("\r\n", 5000)}, {"dogs.txt", with_header(family)}});
  expect_missing_data_file(run, "");
}

TEST(HostileFiles, EmptyDataFileIsRefused) {
  expect_stop(run_program_on(files_of("")),
              "dogs.txt: the file is empty: a line with the names of the columns was expected\n");
}

TEST(HostileFiles, EmptyDataFileWithAColumnListHasNoAnimals) {
  const SteerLines steer = {.header = "n\n\n5\n\n5 1 2 3 7 8"};
  const WholeRun run = run_program_on(files_of("", steer));
  ASSERT_TRUE(is_complete(run));
  EXPECT_TRUE(has_line(run.console, " total number records =            0"));
}

TEST(HostileFiles, DataFileOfEmptyLinesHasNoIdColumn) {
  expect_missing_ids(run_program_on(files_of(repeated("\n", 100000))));
}

TEST(HostileFiles, FolderInPlaceOfTheSteerFile) {
  expect_missing_steer_file(run_program_on({{"pedigreewatch.ini/", ""}, {"dogs.txt", with_header(family)}}));
}

TEST(HostileFiles, FolderInPlaceOfTheDataFile) {
  expect_missing_data_file(run_program_on({{"pedigreewatch.ini", SteerLines().text()}, {"dogs.txt/", ""}}), "dogs.txt");
}

TEST(HostileFiles, FolderInPlaceOfTheReport) {
  Files files = files_of(with_header(family));
  files["dogs.out/"] = "";
  const RunFolder folder(files);
  const WholeRun run = run_program_in(folder);
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.messages, "dogs.out: Is a directory\n");
  EXPECT_TRUE(std::filesystem::is_empty(folder.path("dogs.out")));
}

TEST(HostileFiles, DataFileInAFolderThatIsNotThere) {
  const SteerLines steer = {.data_file_name = "no such folder/dogs.txt"};
  expect_missing_data_file(run_program_on(files_of(with_header(family), steer)), "no such folder/dogs.txt");
}

/// Opens like any file, and then refuses to be read.
constexpr const char* unreadable = "/proc/self/mem";

// What cannot be read of the steer file is blank, like what is missing at its end; the blank data file name then tells.
TEST(HostileFiles, SteerFileThatBreaksOffLeavesBlanks) {
  if (!std::filesystem::exists(unreadable)) GTEST_SKIP() << "no file here that cannot be read";
  const RunFolder folder({{"dogs.txt", with_header(family)}});
  std::filesystem::create_symlink(unreadable, folder.path("pedigreewatch.ini"));
  const WholeRun run = run_program_in(folder);
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.messages, "\"\": No such file or directory\n");
  EXPECT_TRUE(has(run.console, " ERROR cannot find the data file"));
}

TEST(HostileFiles, DataFileThatBreaksOffIsTold) {
  if (!std::filesystem::exists(unreadable)) GTEST_SKIP() << "no file here that cannot be read";
  const RunFolder folder({{"pedigreewatch.ini", SteerLines().text()}});
  std::filesystem::create_symlink(unreadable, folder.path("dogs.txt"));
  expect_stop(run_program_in(folder), "dogs.txt: Input/output error\n");
}

// ---- Rights ----------------------------------------------------------------------------------------------------

#define SKIP_WHERE_RIGHTS_DO_NOT_MATTER(folder)                                                  \
  if (!can_drop_rights(folder)) {                                                                \
    GTEST_SKIP() << "root may read and write everything, and its rights cannot be dropped here"; \
  }

TEST(HostileRights, SteerFileThatMayNotBeReadCountsAsMissing) {
  const RunFolder folder(files_of(with_header(family)));
  SKIP_WHERE_RIGHTS_DO_NOT_MATTER(folder);
  std::filesystem::permissions(folder.path("pedigreewatch.ini"), std::filesystem::perms::none);
  expect_missing_steer_file(run_program_in(folder, {.has_rights = false}));
}

TEST(HostileRights, DataFileThatMayNotBeReadCountsAsMissing) {
  const RunFolder folder(files_of(with_header(family)));
  SKIP_WHERE_RIGHTS_DO_NOT_MATTER(folder);
  std::filesystem::permissions(folder.path("dogs.txt"), std::filesystem::perms::none);
  expect_missing_data_file(run_program_in(folder, {.has_rights = false}), "dogs.txt");
}

TEST(HostileRights, FolderThatMayNotBeWrittenGetsNoReport) {
  const RunFolder folder(files_of(with_header(family)));
  SKIP_WHERE_RIGHTS_DO_NOT_MATTER(folder);
  constexpr auto read_only = std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec |
                             std::filesystem::perms::others_read | std::filesystem::perms::others_exec;
  std::filesystem::permissions(folder.path(), read_only);
  const WholeRun run = run_program_in(folder, {.has_rights = false});
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.messages, "dogs.out: Permission denied\n");
  EXPECT_EQ(run.files.count("dogs.out"), 0U);
}

TEST(HostileRights, OldReportThatMayNotBeWrittenStaysAsItWas) {
  Files files = files_of(with_header(family));
  files["dogs.out"] = "last year's report\n";
  const RunFolder folder(files);
  SKIP_WHERE_RIGHTS_DO_NOT_MATTER(folder);
  constexpr auto read_only = std::filesystem::perms::owner_read | std::filesystem::perms::others_read;
  std::filesystem::permissions(folder.path("dogs.out"), read_only);
  const WholeRun run = run_program_in(folder, {.has_rights = false});
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.messages, "dogs.out: Permission denied\n");
  EXPECT_EQ(run.file("dogs.out"), "last year's report\n");
}

TEST(HostileRights, FolderThatMayNotBeWrittenLeavesAnOldReportThatMay) {
  // The new one cannot be made beside it, and to overwrite it could lose it.
  Files files = files_of(with_header(family));
  files["dogs.out"] = "last year's report\n";
  const RunFolder folder(files);
  SKIP_WHERE_RIGHTS_DO_NOT_MATTER(folder);
  std::filesystem::permissions(folder.path("dogs.out"), std::filesystem::perms::all);
  constexpr auto read_only = std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec |
                             std::filesystem::perms::others_read | std::filesystem::perms::others_exec;
  std::filesystem::permissions(folder.path(), read_only);
  const WholeRun run = run_program_in(folder, {.has_rights = false});
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.messages, "dogs.out: Permission denied\n");
  EXPECT_EQ(run.file("dogs.out"), "last year's report\n");
}

// ---- Bytes -----------------------------------------------------------------------------------------------------

TEST(HostileBytes, NulBytesInTextsAreText) {
  const std::string nul(1, '\0');
  const SteerLines steer = {.population_name = "Village" + nul + "dogs"};
  const std::string data =
      with_header("A" + nul + "1;;;m;01-02-2000\nA" + nul + "2;A" + nul + "1;;f;01-02-2002\nA;;;m;01-02-2000\n");
  const WholeRun run = run_program_on(files_of(data, steer));
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_EQ(run.messages, "");
  EXPECT_TRUE(run.console.ends_with("\n finished analysis for Village" + nul + "dogs" + std::string(28, ' ') + "\n"));
  // "A" is another animal than "A", NUL, "1".
  EXPECT_TRUE(has_line(run.file("dogs.out"), " id-code: A" + nul + "1" + std::string(27, ' ')));
  EXPECT_TRUE(has_line(run.console, " no fathers found that were not in database"));
}

TEST(HostileBytes, NulByteInADateIsRefused) {
  const std::string nul(1, '\0');
  expect_stop(run_program_on(files_of(with_header("A1;;;m;01-0" + nul + "-2000\n"))),
              "dogs.txt, line 2, field 5 (birthdate), character 8: \"01-0.-2000\": a date of birth in the layout "
              "dd-mm-yyyy was expected\n");
}

TEST(HostileBytes, NulByteInAFileNameNamesNoFile) {
  // Not "dogs", though the system would take what stands before the NUL for the name, and no report that replaces it.
  const std::string nul(1, '\0');
  const SteerLines steer = {.data_file_name = "dogs" + nul + ".txt"};
  const std::string bytes = with_header(family);
  const WholeRun run = run_program_on({{"pedigreewatch.ini", steer.text()}, {"dogs", bytes}});
  expect_missing_data_file(run, "dogs" + nul + ".txt");
  EXPECT_EQ(run.file("dogs"), bytes);
  EXPECT_EQ(run.files.size(), 2U);
}

/// In two bytes for each character, as some editors save it.
std::string in_utf16(std::string_view text) {
  std::string bytes = "\xFF\xFE";
  for (const char letter : text) bytes += {letter, '\0'};
  return bytes;
}

TEST(HostileBytes, SteerFileInUtf16NamesNoDataFile) {
  const WholeRun run = run_program_on({{"pedigreewatch.ini", in_utf16(SteerLines().text())}, {"dogs.txt", ""}});
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_TRUE(has(run.console, "\n ERROR cannot find the data file"));
  EXPECT_EQ(run.files.size(), 2U);
}

TEST(HostileBytes, DataFileInUtf16HasNoIdColumn) {
  expect_missing_ids(run_program_on(files_of(in_utf16(with_header(family)))));
}

TEST(HostileBytes, BinarySteerFileNamesNoDataFile) {
  const WholeRun run = run_program_on({{"pedigreewatch.ini", noise(1 << 16)}, {"dogs.txt", with_header(family)}});
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_TRUE(has(run.console + run.messages, "ERROR cannot find the data file") ||
              run.messages.starts_with("pedigreewatch.ini, line "))
      << end_of(run.messages);
  EXPECT_EQ(run.files.size(), 2U);
}

TEST(HostileBytes, BinaryDataFileHasNoIdColumn) {
  expect_missing_ids(run_program_on(files_of(noise(1 << 20))));
}

TEST(HostileBytes, BinaryDateIsShownWithoutControlCharacters) {
  expect_stop(run_program_on(files_of(with_header("A1;;;m;\x1B[2J\x07"
                                                  "9\x7F\n"))),
              "dogs.txt, line 2, field 5 (birthdate), character 8: \".[2J.9.\": a date of birth in the layout "
              "dd-mm-yyyy was expected\n");
}

TEST(HostileBytes, EveryByteMayStandInAnId) {
  // All but the line feed and the delimiter; at both ends of the id stands a letter, so that none is trimmed.
  std::string lines;
  for (int byte = 0; byte < 256; ++byte) {
    if (byte == '\n' || byte == ';') continue;
    const std::string id = std::string("<") + static_cast<char>(byte) + ">";
    lines += id + ";;;m;01-01-2000\n" + "child of " + id + ";" + id + ";;f;01-01-2002\n";
  }
  const WholeRun run = run_program_on(files_of(with_header(lines)));
  ASSERT_TRUE(is_complete(run));
  EXPECT_TRUE(has_line(run.console, " no fathers found that were not in database"));
  EXPECT_TRUE(has(run.file("dogs.out"), size_table({row({2000, 0, 254, 0, 0, 0, 254}), row({2001, 0, 0, 0, 0, 0, 0}),
                                                    row({2002, 0, 0, 254, 0, 254, 0})},
                                                   {0, 254, 254, 0, 254, 254})));
}

// ---- Long lines ------------------------------------------------------------------------------------------------

constexpr std::size_t megabyte = std::size_t{1} << 20;

TEST(HostileLines, LinesOfMegabytesCountWithTheirFirstCharacters) {
  const std::string tail = ";" + std::string(5 * megabyte, 'x');
  const WholeRun run = run_program_on(files_of(with_header("A1;;;m;01-02-2000" + tail +
                                                           "\nB1;;;f;01-03-2000\n"
                                                           "C1;A1;B1;m;01-04-2002" +
                                                           tail + "\nD1;A1;B1;f;01-04-2002" + tail)));
  expect_family(run);
}

TEST(HostileLines, IdOfMegabytesIsCutWithAWarning) {
  const WholeRun run =
      run_program_on(files_of(with_header(std::string(3 * megabyte, 'a') + ";;;m;01-02-2000\nB;;;f;\n")));
  ASSERT_TRUE(is_complete(run));
  EXPECT_TRUE(has(run.console,
                  "\n Warning: length of id_number of animal            1  larger than 20\n"
                  " characters after position 30 are ignored\n"));
  // The columns behind it are out of reach: no sex, and no date of birth. There is not one birth year.
  EXPECT_TRUE(
      has(run.file("dogs.out"), "\n total number of animals in pedigree            2  of which            2\n"));
}

TEST(HostileLines, SteerFileLinesOfMegabytesCountWithTheirFirstCharacters) {
  const std::string tail(2 * megabyte, ' ');
  const SteerLines steer = {.population_name = "Village dogs" + tail + "x",
                            .date_layout = "dd-mm-yyyy" + tail + "x",
                            .subpopulations = "0 subpopulations" + tail,
                            .colours = "0" + tail};
  Files files = files_of(with_header(family), steer);
  files["pedigreewatch.ini"].pop_back();  // the last line is without an end
  expect_family(run_program_on(files));
}

TEST(HostileLines, AMillionColumnsCountWithTheFirstOnes) {
  const std::string further = repeated(";", 1'000'000);
  const WholeRun run =
      run_program_on(files_of("id;sire;dam;sex;birthdate" + repeated(";breeder", 1'000'000) + "\nA1;;;m;01-02-2000" +
                              further + "\nB1;;;f;01-03-2000" + further + "\nC1;A1;B1;m;01-04-2002" + further +
                              "\nD1;A1;B1;f;01-04-2002" + further + "\n"));
  expect_family(run);
  EXPECT_TRUE(has_line(run.console, "  Name found for column           25 breeder         "));
  EXPECT_FALSE(has(run.console, "column           26"));
}

TEST(HostileLines, ColumnsBehindAMillionOthersAreNotFound) {
  expect_missing_ids(run_program_on(files_of(repeated("colour;", 1'000'000) + "id;sire;dam;sex;birthdate\n")));
}

// ---- Counts ----------------------------------------------------------------------------------------------------

void expect_refused_count(const SteerLines& steer, std::string_view message) {
  const WholeRun run = run_program_on(files_of(with_header(family), steer));
  EXPECT_EQ(run.exit_status, 1) << message;
  EXPECT_EQ(run.messages, message);
  EXPECT_EQ(run.files.size(), 2U) << "no report is begun";
}

TEST(HostileCounts, SubpopulationsBeyondAnyHerdbookAreRefused) {
  constexpr std::string_view expected = "the number of subpopulations was expected, at most 5000\n";
  for (const std::string count : {"2147483647", "99999999999", "2147483648", "18446744073709551617", "5001"}) {
    expect_refused_count({.subpopulations = count},
                         "pedigreewatch.ini, line 10, column 1: \"" + count + "\": " + std::string(expected));
  }
}

TEST(HostileCounts, ColoursBeyondAnyHerdbookAreRefused) {
  constexpr std::string_view expected = "the number of colours was expected, at most 100000\n";
  for (const std::string count : {"2147483647", "99999999999", "2147483646", "100001"}) {
    expect_refused_count({.subpopulations = "1\nNorth", .colours = count},
                         "pedigreewatch.ini, line 12, column 1: \"" + count + "\": " + std::string(expected));
  }
}

TEST(HostileCounts, NegativeCountsAreNone) {
  struct Counts {
    std::string subpopulations, colours;
  };
  for (const auto& [subpopulations, colours] :
       {Counts{"-1", "-1"}, Counts{"-2147483648", "-99999999999"}, Counts{"-", "+"}, Counts{"none", ""}}) {
    const SteerLines steer = {.subpopulations = subpopulations, .colours = colours};
    const WholeRun run = run_program_on(files_of(with_header(family), steer));
    expect_family(run);
    EXPECT_TRUE(has_line(run.console, " number of subpopulations           0"));
    EXPECT_TRUE(has_line(run.console, " number of colours           0"));
  }
}

TEST(HostileCounts, AnyNumberOfColumnsKeepsTwentyFiveCodes) {
  for (const std::string count : {"26", "2147483647"}) {
    const SteerLines steer = {.header = "n\ncomment\n" + count + "\ncomment\n" + count + " 1 2 3 7 8"};
    const WholeRun run = run_program_on(files_of(std::string(family) + "\n", steer));
    expect_family(run);
    // 80 columns hold 6 numbers of 12: five lines, the last with the one that is left.
    EXPECT_TRUE(
        has(run.console, "\n           1           2           3           7           8           0\n" +
                             repeated("           0           0           0           0           0           0\n", 3) +
                             "           0\n number of subpopulations"));
  }
}

TEST(HostileCounts, NumberOfColumnsBeyondThirtyTwoBitsIsNone) {
  // Without codes the first line of the data file is read as a header after all.
  for (const std::string count : {"2147483648", "99999999999", "-99999999999"}) {
    const SteerLines steer = {.header = "n\ncomment\n" + count + "\ncomment\n" + count + " 5 4 3 2 1"};
    const WholeRun run = run_program_on(files_of(with_header(family), steer));
    expect_family(run);
    EXPECT_TRUE(has(run.console, "\n           0  columns in data file\n\n number of subpopulations")) << count;
  }
}

TEST(HostileCounts, NegativeNumberOfColumnsIsNoColumnList) {
  const SteerLines steer = {.header = "n\ncomment\n-1\ncomment\n-1 1 2 3 7 8"};
  const WholeRun run = run_program_on(files_of(with_header(family), steer));
  expect_family(run);
  EXPECT_TRUE(has(run.console, "\n           0  columns in data file\n\n number of subpopulations"));
}

TEST(HostileCounts, ColumnCodesThatAreNoneSkipTheirColumns) {
  const SteerLines steer = {.header = "n\n\n8\n\n8 1 2 3 7 8 2147483647 -2147483648 99999999999"};
  const WholeRun run = run_program_on(files_of(std::string(family) + "\n", steer));
  expect_family(run);
  EXPECT_TRUE(has(run.console,
                  "\n           1           2           3           7           8  2147483647\n"
                  " -2147483648           0\n number of subpopulations"));
}

TEST(HostileCounts, AsManyBlankSubpopulationsAsTheReportHoldsEnd) {
  Files files = files_of(with_header(family), {.subpopulations = "447", .colours = ""});
  files["pedigreewatch.ini"].pop_back();  // the steer file ends with the count
  const WholeRun run = run_program_on(files);
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_EQ(run.messages, "");
  EXPECT_TRUE(run.console.ends_with("\n finished analysis for Village dogs                            \n"));
  // All animals belong to the blank name; each of the 447 has its block.
  EXPECT_EQ(count_of(run.file("dogs.out"), "\n           *                    *\n"), 447U);
  EXPECT_TRUE(run.file("dogs.out").ends_with("_\n"));
}

TEST(HostileCounts, FiveThousandBlankColoursEnd) {
  const std::string data =
      "id;sire;dam;sex;birthdate;colour\nA1;;;m;01-02-2000;white\nB1;A1;;f;01-02-2001;\nC1;A1;B1;m;01-03-2002;\n";
  const WholeRun run = run_program_on(files_of(data, {.colours = "5000\nwhite"}));
  ASSERT_TRUE(is_complete(run));
  EXPECT_TRUE(has_line(run.file("dogs.out"), " number of colours:         5000"));
}

// ---- Dates -----------------------------------------------------------------------------------------------------

TEST(HostileDates, YearOfNineDigitsInAllAnimalsShowsAsterisks) {
  const WholeRun run = run_program_on(files_of(with_header("A1;;;m;01-01-123456789\n")));
  ASSERT_TRUE(is_complete(run));
  EXPECT_TRUE(has(run.file("dogs.out"), size_table({"********" + row({1, 0, 0, 0, 1, 0})}, {1, 0, 0, 0, 1, 0})));
}

TEST(HostileDates, YearOfNineDigitsAmongOthersIsRefused) {
  expect_stop(
      run_program_on(files_of(with_header("A1;;;m;01-01-2005\nB1;;;m;01-01-123456789\n"))),
      "dogs.txt: birth years from 2005 to 123456789 (animal \"B1\"): at most 100000 years from the first to the "
      "last were expected\n");
}

TEST(HostileDates, LargestYearOfAllIsAYear) {
  const WholeRun run = run_program_on(files_of(with_header("A1;;;m;01-01-2147483647\nB1;A1;;m;31-12-2147483647\n")));
  ASSERT_TRUE(is_complete(run));
  EXPECT_TRUE(has(run.file("dogs.out"), size_table({"********" + row({1, 1, 0, 0, 1, 1})}, {1, 1, 0, 0, 1, 1})));
}

TEST(HostileDates, YearBeyondThirtyTwoBitsIsRefused) {
  for (const std::string year : {"2147483648", "99999999999", "99999999999999999999999999"}) {
    expect_stop(run_program_on(files_of(with_header("A1;;;m;01-01-" + year + "\n"))),
                "dogs.txt, line 2, field 5 (birthdate), character 8: \"01-01-" + year +
                    "\": a date of birth in the layout dd-mm-yyyy was expected\n");
  }
}

TEST(HostileDates, NegativeYearsAreYears) {
  const WholeRun run = run_program_on(
      files_of(with_header("A1;;;m;0101-005\nB1;;;f;0101-005\nC1;A1;B1;m;0101-003\n"), {.date_layout = "ddmmyyyy"}));
  ASSERT_TRUE(is_complete(run));
  EXPECT_TRUE(has(run.file("dogs.out"),
                  size_table({row({-5, 0, 1, 0, 1, 0, 2}), row({-4, 0, 0, 0, 0, 0, 0}), row({-3, 1, 0, 0, 0, 1, 0})},
                             {1, 1, 0, 1, 1, 2})));
}

TEST(HostileDates, DayFarBelowZeroIsADay) {
  const SteerLines steer = {.date_layout = "mm-dd-yyyy"};
  for (const std::string day : {"-999999999", "-2147483648"}) {
    const WholeRun run = run_program_on(files_of(with_header("A1;;;m;01-" + day + "-2000\n"), steer));
    ASSERT_TRUE(is_complete(run)) << day;
    EXPECT_TRUE(has(run.file("dogs.out"), size_table({row({2000, 1, 0, 0, 0, 1, 0})}, {1, 0, 0, 0, 1, 0})));
  }
}

TEST(HostileDates, BirthOnADayFarBelowZeroIsBeforeTheParents) {
  const std::string data = "A1;;;m;01-01-2000\nB1;;;f;01-01-2000\nC1;A1;B1;m;01--999999999-2002\n";
  const WholeRun run = run_program_on(files_of(with_header(data), {.date_layout = "mm-dd-yyyy"}));
  ASSERT_TRUE(is_complete(run));
  EXPECT_TRUE(has_line(run.console, " oldest parents;            0           0"));
}

TEST(HostileDates, ParentsOfMillionsOfYearsAreRefused) {
  // 406 birth years and a father of (999999999 + 730 - 365 * 395 ...) / 365 years: more figures than a disk holds.
  const std::string data = "A1;;;m;01--999999999-2000\nB1;;;f;01-01-1600\nC1;A1;B1;m;01-01-2005\n";
  expect_stop(run_program_on(files_of(with_header(data), {.date_layout = "mm-dd-yyyy"})),
              "dogs.txt: fathers up to 2739731 and mothers up to 405 years old (the oldest parent \"A1\" was born on "
              "-999999999-1-2000, line 2, its young \"C1\" on 1-1-2005, line 4): the tables of parents' ages would "
              "have more than 20000000 figures\n");
}

TEST(HostileDates, MistypedYearOfAnAnimalWithParentsIsRefusedWithBothDates) {
  // Of the two animals with the id X1 the first one is the mother. In years of 365 days she is 18002 and some months
  // old, the father 20 days less than 18005; there are 18016 birth years. Y1 has younger parents.
  const std::string data =
      "A1;;;m;31-12-2000\nX1;;;f;05-06-2003\nX1;;;f;05-06-1990\nC1;A1;X1;m;11-12-20005\nZ1;;;f;01-01-1999\n"
      "Y1;A1;Z1;f;01-02-2005\n";
  expect_stop(run_program_on(files_of(with_header(data))),
              "dogs.txt: fathers up to 18004 and mothers up to 18002 years old (the oldest parent \"A1\" was born on "
              "31-12-2000, line 2, its young \"C1\" on 11-12-20005, line 5) and 18016 birth years (in the first one "
              "\"X1\" was born on 5-6-1990, line 4, in the last one \"C1\" on 11-12-20005, line 5): the tables of "
              "parents' ages would have more than 20000000 figures\n");
}

TEST(HostileDates, MistypedYearOfAnAnimalWithoutFamilyIsNamedBesideTheOldestParents) {
  // 88311 birth years, because of X1, and a father of 300 years. Y1 alone is a row of its own, and no mistake.
  const std::string data = "S1;;;m;01-01-1700\nY1;S1;;f;02-01-2000\nX1;;;m;04-05-90010\n";
  expect_stop(run_program_on(files_of(with_header(data))),
              "dogs.txt: fathers up to 300 and mothers up to 0 years old (the oldest parent \"S1\" was born on "
              "1-1-1700, line 2, its young \"Y1\" on 2-1-2000, line 3) and 88311 birth years (in the first one \"S1\" "
              "was born on 1-1-1700, line 2, in the last one \"X1\" on 4-5-90010, line 4): the tables of parents' "
              "ages would have more than 20000000 figures\n");
}

TEST(HostileDates, MistypedYearOfAMotherIsRefusedWithBothDates) {
  // A column list: the lines of the file are counted from its first animal.
  const SteerLines steer = {.header = "n\n\n5\n\n5 1 2 3 7 8"};
  const WholeRun run =
      run_program_on(files_of("A1;;;m;31-12-12001\nC1;A1;B1;m;11-12-22003\nB1;;;f;05-06-2003\n\n", steer));
  expect_stop(run,
              "dogs.txt: fathers up to 10001 and mothers up to 20000 years old (the oldest parent \"B1\" was born on "
              "5-6-2003, line 3, its young \"C1\" on 11-12-22003, line 2) and 20001 birth years (in the first one "
              "\"B1\" was born on 5-6-2003, line 3, in the last one \"C1\" on 11-12-22003, line 2): the tables of "
              "parents' ages would have more than 20000000 figures\n");
}

TEST(HostileDates, MistypedYearHasARowForEachYearBetween) {
  const WholeRun run = run_program_on(files_of(with_header(std::string(family) + "E1;;;m;01-04-20005\n")));
  ASSERT_TRUE(is_complete(run));
  const std::string report = run.file("dogs.out");
  EXPECT_TRUE(has_line(report, row({2000, 0, 1, 0, 1, 0, 2})));
  EXPECT_TRUE(has_line(report, row({20004, 0, 0, 0, 0, 0, 0})));
  EXPECT_TRUE(has_line(report, row({20005, 1, 0, 0, 0, 1, 0})));
}

// ---- Ids and pedigrees -----------------------------------------------------------------------------------------

TEST(HostilePedigrees, IdsThatDifferOnlyInTrailingBlanksAreOneAnimal) {
  const std::string blanks(100, ' ');
  const WholeRun run =
      run_program_on(files_of(with_header("A1;;;m;01-01-2000\n"
                                          "A1   ;;;m;01-01-1999\n"  // the first one has the offspring
                                          "B1" +
                                          blanks +
                                          ";;;f;01-01-2000\n"
                                          "C1;A1 " +
                                          blanks + ";B1;m;01-01-2001\n")));
  ASSERT_TRUE(is_complete(run));
  EXPECT_TRUE(has_line(run.console, " no fathers found that were not in database"));
  EXPECT_TRUE(has_line(run.console, " no mothers found that were not in database"));
  EXPECT_FALSE(has(run.console, "Warning"));
  EXPECT_TRUE(has(run.file("dogs.out"), size_table({row({1999, 1, 0, 0, 0, 1, 0}), row({2000, 0, 1, 0, 1, 0, 2}),
                                                    row({2001, 1, 0, 0, 0, 1, 0})},
                                                   {2, 1, 0, 1, 2, 2})));
}

TEST(HostilePedigrees, LoopOfTenThousandAnimalsIsReportedInFull) {
  constexpr int size = 10000;
  std::string lines;
  for (int i = 1; i <= size; ++i) {
    lines += "N" + std::to_string(i) + ";N" + std::to_string(i % size + 1) + ";;m;01-01-2000\n";
  }
  const WholeRun run = run_program_on(files_of(with_header(lines)));
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.messages, "");
  EXPECT_TRUE(run.console.ends_with("\n program will stop\n"));
  const std::string report = run.file("dogs.out");
  EXPECT_TRUE(
      report.starts_with(" probably a loop in the pedigree\n Animals of which the pedigree cannot be sorted:\n"));
  EXPECT_EQ(count_of(report, "\n animal no."), std::size_t{size});
  EXPECT_EQ(count_of(report, "\n         with father "), std::size_t{size});
  EXPECT_TRUE(has(report, "\n animal no.        9999 herdbook number N9999                         \n"));
  EXPECT_TRUE(report.ends_with("\n program stopped\n"));
}

constexpr int generations = 5000;

/// Brother and sister mated for 5,000 generations, one each year from 1001 on.
std::vector<std::string> litters_of_full_sibs() {
  std::vector<std::string> litters;
  for (int g = 1; g <= generations; ++g) {
    const std::string own = std::to_string(g), before = std::to_string(g - 1);
    const std::string parents = g == 1 ? ";;;" : ";M" + before + ";F" + before + ";";
    const std::string born = ";01-01-" + std::to_string(1000 + g) + "\n";
    litters.push_back("M" + own + parents + "m" + born + "F" + own + parents + "f" + born);
  }
  return litters;
}

/// The console's lines of mean F and mean relationship (with themselves too) for the first generations of full sibs.
/// F(g) = (1 + 2 F(g-1) + F(g-2)) / 4, and the relationship of full sibs is twice the F of their offspring.
std::string inbreeding_of_full_sibs(int count) {
  std::string lines;
  double f = 0.0, f_offspring = 0.0;
  for (int g = 1; g <= count; ++g) {
    char line[32];
    std::snprintf(line, sizeof line, "%8.4f%8.4f\n", f, (1.0 + f + 2.0 * f_offspring) / 2.0);
    lines += line;
    const double f_next = (1.0 + 2.0 * f_offspring + f) / 4.0;
    f = f_offspring;
    f_offspring = f_next;
  }
  return lines;
}

/// Rounding grows over thousands of generations, but not into the third decimal.
testing::AssertionResult ends_homozygous(const WholeRun& run) {
  const std::size_t end = run.console.rfind("\n finished analysis");
  const std::string_view last = std::string_view(run.console).substr(0, end).substr(end - 16);
  if (last.starts_with("  1.0000  2.000") || last.starts_with("  1.0000  1.999")) return testing::AssertionSuccess();
  return testing::AssertionFailure() << last;
}

TEST(HostilePedigrees, FiveThousandGenerationsAreSortedInOneSweep) {
  std::string lines;
  for (const std::string& litter : litters_of_full_sibs()) lines += litter;
  const WholeRun run = run_program_on(files_of(with_header(lines)));
  ASSERT_TRUE(is_complete(run));
  EXPECT_TRUE(has_line(run.console, " pedigree sorted"));
  EXPECT_FALSE(has(run.console, "sweep           2"));
  EXPECT_TRUE(has(run.console, "\n     F        f\n" + inbreeding_of_full_sibs(40)));
  EXPECT_TRUE(ends_homozygous(run));
  EXPECT_TRUE(has_line(run.file("dogs.out"), row({6000, 1, 0, 1, 0, 2, 0})));
}

TEST(HostilePedigrees, FiveThousandGenerationsInReverseStopAtTheLastSweep) {
  std::string lines;
  for (const std::string& litter : litters_of_full_sibs()) lines.insert(0, litter);
  const WholeRun run = run_program_on(files_of(with_header(lines)));
  ASSERT_TRUE(is_complete(run));
  // A sweep places one generation. The 4,000 earliest ones stay in their order, children before parents, and count as
  // unrelated: the breeding of full sibs begins with the first generation behind them.
  EXPECT_TRUE(has(run.console, "\n sweep        1000 number of animals"));
  EXPECT_FALSE(has(run.console, "\n sweep        1001 number of animals"));
  EXPECT_FALSE(has(run.console, "pedigree sorted"));
  EXPECT_TRUE(has(run.console, "\n     F        f\n" + repeated("  0.0000  0.5000\n", generations - 1001) +
                                   inbreeding_of_full_sibs(40)));
  EXPECT_TRUE(ends_homozygous(run));
  EXPECT_TRUE(has_line(run.file("dogs.out"), row({6000, 1, 0, 1, 0, 2, 0})));
}

TEST(HostilePedigrees, TwoHundredThousandAnimalsBornInOneYear) {
  constexpr int size = 200000;
  std::string data =
      "id;sire;dam;sex;birthdate;subpopulation\n"
      "SN;;;m;01-01-2000;North\nDN;;;f;01-01-2000;North\nSS;;;m;01-01-2000;South\nDS;;;f;01-01-2000;South\n";
  for (int i = 0; i < size; ++i) {
    const bool north = i % 2 == 0;
    data += "N" + std::to_string(i) + (north ? ";SN;DN;" : ";SS;DS;") + (i % 4 < 2 ? "m" : "f") + ";01-01-2001;" +
            (north ? "North\n" : "South\n");
  }
  const WholeRun run = run_program_on(files_of(data, {.subpopulations = "2\nNorth\nSouth"}));
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_EQ(run.messages, "");
  EXPECT_TRUE(run.console.ends_with("\n finished analysis for Village dogs                            \n"));
  // Two pairs of unrelated founders; then half of all pairs are full sibs.
  EXPECT_TRUE(has(run.console, "\n     F        f\n  0.0000  0.2500\n  0.0000  0.2500\n"));
  const std::string report = run.file("dogs.out");
  EXPECT_TRUE(has(report, size_table({row({2000, 0, 2, 0, 2, 0, 4}), row({2001, 100000, 0, 100000, 0, 200000, 0})},
                                     {100000, 2, 100000, 2, 200000, 4})));
  const std::string block = size_table({row({2000, 0, 1, 0, 1, 0, 2}), row({2001, 50000, 0, 50000, 0, 100000, 0})},
                                       {50000, 1, 50000, 1, 100000, 2});
  EXPECT_EQ(count_of(report, block), 2U) << "one for each subpopulation";
}

// ---- Stopped from outside --------------------------------------------------------------------------------------

/// Animals that are all born before their father: some megabytes of lines on the console, so that a run whose console
/// is not read stands still in the middle.
Files files_with_much_to_say() {
  std::string lines = "A1;;;m;01-04-2010\n";
  for (int n = 1; n <= 5000; ++n) lines += "B" + std::to_string(n) + ";A1;;f;01-04-2000\n";
  return files_of(with_header(lines));
}

/// Starts the program, reads some of its console, sends it a signal and reads the rest.
std::string stopped_in_the_middle(const std::string& signal) {
  return "mkfifo console; \"$PROGRAM\" >console & program=$!; exec 3<console; head -c 9000 <&3 >/dev/null; kill -" +
         signal + " $program; cat <&3 >/dev/null; rm console; wait $program";
}

TEST(HostileSignal, StoppedRunSaysSoAndTakesItsReportAway) {
  for (const std::string signal : {"TERM", "HUP"}) {
    const WholeRun run = run_program_on(files_with_much_to_say(), shell_script(stopped_in_the_middle(signal)));
    EXPECT_EQ(run.files.size(), 2U) << "the input files alone";
    EXPECT_EQ(run.exit_status, 1) << signal;
    EXPECT_EQ(run.messages, "dogs.out: the report could not be written: the run was stopped from outside\n") << signal;
    EXPECT_EQ(run.files.count("dogs.out"), 0U) << signal;
  }
}

TEST(HostileSignal, StoppedRunLeavesTheLastCompleteReport) {
  Files files = files_with_much_to_say();
  files["dogs.out"] = "last year's report\n";
  const WholeRun run = run_program_on(files, shell_script(stopped_in_the_middle("TERM")));
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(
      run.messages,
      "dogs.out: the report could not be written: the run was stopped from outside; the last complete report still "
      "stands there\n");
  EXPECT_EQ(run.file("dogs.out"), "last year's report\n");
  EXPECT_EQ(run.files.size(), 3U);
}

TEST(HostileSignal, KilledRunLeavesTheLastCompleteReport) {
  Files files = files_with_much_to_say();
  files["dogs.out"] = "last year's report\n";
  const RunFolder folder(files);
  const WholeRun killed = run_program_in(folder, shell_script(stopped_in_the_middle("KILL")));
  EXPECT_EQ(killed.exit_status, 128 + 9);
  EXPECT_EQ(killed.file("dogs.out"), "last year's report\n");
  EXPECT_EQ(killed.files.count("dogs.out.pedigreewatch-new"), 1U);
  const WholeRun next = run_program_in(folder);
  EXPECT_EQ(next.exit_status, 0);
  EXPECT_EQ(next.file("dogs.out"), run_program_on(files_with_much_to_say()).file("dogs.out"));
  EXPECT_EQ(next.files.size(), 3U) << "what the killed run left is gone";
}

TEST(HostileSignal, SecondRunInOneFolderLeavesTheReportOfTheFirst) {
  Files files = files_with_much_to_say();
  files["dogs.out"] = "last year's report\n";
  const WholeRun run = run_program_on(
      files, shell_script("mkfifo one two; \"$PROGRAM\" >one & first=$!; exec 3<one; head -c 9000 <&3 >/dev/null; "
                          "\"$PROGRAM\" >two & second=$!; exec 4<two; head -c 9000 <&4 >/dev/null; "
                          "cat <&3 >/dev/null; wait $first || exit 99; kill -TERM $second; cat <&4 >/dev/null; "
                          "rm one two; wait $second"));
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(
      run.messages,
      "dogs.out: the report could not be written: the run was stopped from outside; the last complete report still "
      "stands there\n");
  EXPECT_EQ(run.file("dogs.out"), run_program_on(files_with_much_to_say()).file("dogs.out"));
  EXPECT_EQ(run.files.size(), 3U);
}

TEST(HostileSignal, IgnoredSignalsStayIgnored) {
  const RunFolder folder(files_with_much_to_say());
  const WholeRun run = run_program_in(folder, shell_script("trap '' HUP; " + stopped_in_the_middle("HUP")));
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_EQ(run.messages, "");
  EXPECT_EQ(run.file("dogs.out"), run_program_on(files_with_much_to_say()).file("dogs.out"));
}

TEST(HostileSignal, BeforeThereIsAReportASignalJustEndsTheProgram) {
  Files files = files_of(with_header(family));
  files.erase("dogs.txt");
  files["dogs.out"] = "last year's report\n";
  const WholeRun run = run_program_on(
      files,
      shell_script(
          "mkfifo keys; \"$PROGRAM\" <keys >console.txt & program=$!; exec 3>keys; "
          "until grep -q 'cannot find the data file' console.txt; do sleep 0.05; done; kill $program; wait $program"));
  EXPECT_EQ(run.exit_status, 128 + 15);
  EXPECT_EQ(run.file("dogs.out"), "last year's report\n");
}

// ---- Disks, consoles, keyboards, memory ------------------------------------------------------------------------

/// A report of about a megabyte: it goes to the disk in several pieces, long before the run's end.
std::string data_for_a_large_report() {
  return with_header(std::string(family) + "E1;;;m;01-04-5000\n");
}

/// The report is a link to a disk that is full.
WholeRun run_on_full_disk(const std::string& data) {
  const RunFolder folder(files_of(data));
  std::filesystem::create_symlink("/dev/full", folder.path("dogs.out"));
  const WholeRun run = run_program_in(folder);
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.messages,
            "dogs.out: the report could not be written: No space left on device; what there is of it is not "
            "complete\n");
  EXPECT_TRUE(std::filesystem::is_symlink(folder.path("dogs.out"))) << "only a file of its own is taken away";
  return run;
}

TEST(HostileDisk, FullDiskIsToldOfAReportThatFitsTheBuffer) {
  EXPECT_TRUE(has(run_on_full_disk(with_header(family)).console, "\n finished analysis"));
}

TEST(HostileDisk, FullDiskEndsARunWithALargeReport) {
  EXPECT_FALSE(has(run_on_full_disk(data_for_a_large_report()).console, "\n finished analysis"));
}

/// A run that may write no more than so many bytes into a file. The console goes where that does not count.
WholeRun run_with_room_for(std::uint64_t bytes, const RunFolder& folder) {
  return run_program_in(folder, {.limits = {.file_bytes = bytes}, .keeps_console = false});
}

TEST(HostileDisk, ReportCutByALimitIsTakenAway) {
  for (const std::uint64_t limit : {512U, 1024U, 32768U, 65536U}) {
    const RunFolder folder(files_of(data_for_a_large_report()));
    const WholeRun run = run_with_room_for(limit, folder);
    EXPECT_EQ(run.exit_status, 1) << limit;
    EXPECT_EQ(run.messages, "dogs.out: the report could not be written: File too large\n") << limit;
    EXPECT_EQ(run.files.count("dogs.out"), 0U) << limit;
  }
}

TEST(HostileDisk, NoRoomAtAllLeavesNoReport) {
  const WholeRun run = run_with_room_for(0, RunFolder(files_of(with_header(family))));
  EXPECT_EQ(run.exit_status, 1);  // there is no room for a message either
  EXPECT_EQ(run.files.count("dogs.out"), 0U);
}

TEST(HostileDisk, SmallReportCutByALimitIsTakenAway) {
  const RunFolder folder(files_of(with_header(family)));
  const WholeRun run = run_with_room_for(512, folder);
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.messages, "dogs.out: the report could not be written: File too large\n");
  EXPECT_EQ(run.files.count("dogs.out"), 0U);
}

TEST(HostileDisk, OfALinkedReportTheFileIsTakenAway) {
  const RunFolder folder(files_of(with_header(family)));
  std::filesystem::create_symlink("archive.out", folder.path("dogs.out"));
  const WholeRun run = run_with_room_for(512, folder);
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.messages, "dogs.out: the report could not be written: File too large\n");
  EXPECT_FALSE(std::filesystem::exists(folder.path("archive.out")));
}

TEST(HostileDisk, OldReportIsKeptWhenTheNewOneHasNoRoom) {
  Files files = files_of(with_header(family));
  files["dogs.out"] = "last year's report\n";
  const RunFolder folder(files);
  for (int attempt = 1; attempt <= 2; ++attempt) {
    const WholeRun run = run_with_room_for(512, folder);
    EXPECT_EQ(run.exit_status, 1);
    EXPECT_EQ(
        run.messages,
        "dogs.out: the report could not be written: File too large; the last complete report still stands there\n");
    EXPECT_EQ(run.file("dogs.out"), "last year's report\n");
    EXPECT_EQ(run.files.size(), 3U);
  }
}

TEST(HostileDisk, WhatALinkedReportHeldIsKept) {
  Files files = files_of(with_header(family));
  files["archive.out"] = "last year's report\n";
  const RunFolder folder(files);
  std::filesystem::create_symlink("archive.out", folder.path("dogs.out"));
  const WholeRun run = run_with_room_for(512, folder);
  EXPECT_EQ(run.messages,
            "dogs.out: the report could not be written: File too large; the last complete report still stands there\n");
  EXPECT_EQ(run.file("archive.out"), "last year's report\n");
  EXPECT_TRUE(std::filesystem::is_symlink(folder.path("dogs.out")));
}

TEST(HostileDisk, ReportOnADeviceIsWrittenThere) {
  const RunFolder folder(files_of(with_header(family)));
  std::filesystem::create_symlink("/dev/null", folder.path("dogs.out"));
  const WholeRun run = run_program_in(folder);
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_EQ(run.messages, "");
  EXPECT_TRUE(std::filesystem::is_symlink(folder.path("dogs.out")));
}

TEST(HostileDisk, ReportInAPipeIsReadFromIt) {
  const RunFolder folder(files_of(with_header(family)));
  const WholeRun run = run_program_in(
      folder, shell_script("mkfifo dogs.out; cat dogs.out >read.txt & \"$PROGRAM\" && wait && rm dogs.out"));
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_EQ(run.messages, "");
  EXPECT_TRUE(run.file("read.txt").ends_with(end_of_report));
}

/// The report of the family, from a run in which nothing went wrong.
std::string report_of_family() {
  return run_program_on(files_of(with_header(family))).file("dogs.out");
}

void expect_lost_console(const WholeRun& run, std::string_view reason) {
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.messages, "the console could not be written: " + std::string(reason) + "\n");
  EXPECT_EQ(run.file("dogs.out"), report_of_family()) << "the report is finished all the same";
}

TEST(HostileConsole, ClosedStandardOutputIsTold) {
  expect_lost_console(run_program_on(files_of(with_header(family)), shell_script("\"$PROGRAM\" >&-")),
                      "Bad file descriptor");
}

TEST(HostileConsole, FullDiskBehindStandardOutputIsTold) {
  expect_lost_console(run_program_on(files_of(with_header(family)), shell_script("\"$PROGRAM\" >/dev/full")),
                      "No space left on device");
}

TEST(HostileConsole, BrokenPipeIsTold) {
  // The program starts when nobody reads any more.
  const WholeRun run = run_program_on(
      files_of(with_header(family)),
      shell_script("{ while test ! -e reader_is_gone; do sleep 0.01; done; \"$PROGRAM\"; echo $? >status; } |\n"
                   "{ exec <&-; touch reader_is_gone; }\n"
                   "exit \"$(cat status)\""));
  expect_lost_console(run, "Broken pipe");
}

TEST(HostileConsole, ReaderOfTheFirstLineDoesNotEndTheRun) {
  // Two lines of warning for each animal: far more than a pipe holds.
  std::string lines;
  for (int i = 0; i < 5000; ++i) lines += std::to_string(100000 + i) + std::string(30, 'x') + ";;;m;01-01-2000\n";
  const RunFolder folder(files_of(with_header(lines)));
  const WholeRun run = run_program_in(folder, shell_script("{ \"$PROGRAM\"; echo $? >status; } | head -n 1"));
  EXPECT_EQ(run.console, " consecutive delimiters indicate empty column\n");
  EXPECT_EQ(run.file("status"), "1\n");
  EXPECT_EQ(run.messages, "the console could not be written: Broken pipe\n");
  EXPECT_TRUE(has(run.file("dogs.out"), size_table({row({2000, 5000, 0, 0, 0, 5000, 0})}, {5000, 0, 0, 0, 5000, 0})));
  EXPECT_TRUE(run.file("dogs.out").ends_with(end_of_report));
}

TEST(HostileConsole, ClosedStreamsDoNotGiveTheirPlaceToTheReport) {
  // A file that is opened gets the lowest free number: a closed standard output must not become the report's.
  const std::string expected = report_of_family();
  const auto run_with = [](const std::string& closed) {
    return run_program_on(files_of(with_header(family)), shell_script("\"$PROGRAM\" " + closed));
  };
  for (const std::string closed : {"<&- >&-", ">&- 2>&-", "<&- >&- 2>&-"}) {
    const WholeRun run = run_with(closed);
    EXPECT_EQ(run.exit_status, 1) << closed;
    EXPECT_EQ(run.file("dogs.out"), expected) << closed;
  }
  const WholeRun with_console = run_with("<&- 2>&-");
  EXPECT_EQ(with_console.exit_status, 0);
  EXPECT_EQ(with_console.file("dogs.out"), expected);
}

TEST(HostileConsole, MessagesWithoutAStandardErrorDoNotReachTheReport) {
  const WholeRun run =
      run_program_on(files_of(with_header("A1;;;m;01-o2-2000\n")), shell_script("\"$PROGRAM\" >&- 2>&-"));
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.file("dogs.out"), "");
}

TEST(HostileKeyboard, ClosedStandardInputDoesNotWait) {
  expect_missing_steer_file(run_program_on({}, shell_script("\"$PROGRAM\" <&-")));
}

TEST(HostileKeyboard, StandardInputThatCannotBeReadDoesNotWait) {
  expect_missing_steer_file(run_program_on({}, shell_script("\"$PROGRAM\" </")));  // a folder
}

TEST(HostileKeyboard, ClosingStandardInputEndsTheWait) {
  const RunFolder folder({});
  StartedRun run = start_program_in(folder);
  type(run, "no return yet");
  for (int i = 0; i < 1000 && !console_so_far(run).ends_with("te gaan.\n"); ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  std::this_thread::sleep_for(std::chrono::milliseconds(50));
  EXPECT_TRUE(is_running(run)) << "it waits for the end of the line";
  expect_missing_steer_file(finish(run));
}

/// A run with an address space of so many kilobytes.
WholeRun run_in_memory_of(std::uint64_t kilobytes, const RunFolder& folder) {
  return run_program_in(folder, {.limits = {.memory_bytes = kilobytes * 1024}, .keeps_console = false});
}

constexpr std::string_view memory_messages =
    "not enough memory for a population of this size\n"
    "dogs.out: the report could not be written: Cannot allocate memory\n";

TEST(HostileMemory, ExhaustedMemoryIsTold) {
  if (has_address_sanitizer) GTEST_SKIP() << "the address sanitizer needs more room than such a limit leaves";
  const WholeRun run = run_in_memory_of(20000, RunFolder(files_of(with_header(unrelated_males(300000)))));
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.messages, memory_messages);
  EXPECT_EQ(run.files.count("dogs.out"), 0U);
}

TEST(HostileMemory, EveryLimitEndsInAMessageOrAReport) {
  if (has_address_sanitizer) GTEST_SKIP() << "the address sanitizer needs more room than such a limit leaves";
  // Memory runs out in another phase at each of these limits; with the last ones there is enough.
  std::string lines;
  for (int i = 1; i <= 80000; ++i) {
    const std::string parents = i <= 10 ? ";;" : ";N" + std::to_string(i / 2) + ";N" + std::to_string(i / 3);
    lines += "N" + std::to_string(i) + parents + (i % 2 == 0 ? ";m" : ";f") + ";01-01-" +
             std::to_string(2000 + i / 4000) + "\n";
  }
  const RunFolder folder(files_of(with_header(lines)));
  int stopped = 0, finished = 0;
  for (std::uint64_t limit = 13000; limit <= 36000; limit += 1000) {
    const WholeRun run = run_in_memory_of(limit, folder);
    if (run.exit_status == 0) {
      ++finished;
      EXPECT_EQ(run.messages, "") << limit;
      EXPECT_TRUE(run.file("dogs.out").ends_with(end_of_report)) << limit;
    } else {
      ++stopped;
      EXPECT_EQ(run.exit_status, 1) << limit;
      EXPECT_TRUE(run.messages.starts_with("not enough memory for a population of this size\n")) << run.messages;
      EXPECT_EQ(run.files.count("dogs.out"), 0U) << limit;
    }
  }
  EXPECT_GT(stopped, 3);
  EXPECT_GT(finished, 3);
}

}  // namespace
}  // namespace pedigreewatch::test
