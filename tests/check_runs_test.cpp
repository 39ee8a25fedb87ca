// Whole runs of `pedigreewatch-tools check`: an office's export from prepare to a clean check, what check promises of
// the program's own runs, and files that are none.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "support/gazelle_export.h"
#include "support/lines.h"
#include "support/places.h"
#include "support/program_run.h"
#include "support/read_table.h"
#include "support/sanitizers.h"
#include "support/steer_lines.h"
#include "support/written_workbook.h"

namespace pedigreewatch::test {
namespace {

WholeRun run_tool_in(const RunFolder& folder, const std::vector<std::string>& arguments) {
  ProgramStart start;
  start.program = tools_path();
  start.arguments = arguments;
  return run_program_in(folder, start);
}

WholeRun check_in(const RunFolder& folder) {
  return run_tool_in(folder, {"check", "--today", "2026-06-30"});
}

WholeRun check_files(const Files& files) {
  const RunFolder folder(files);
  return check_in(folder);
}

void prepare_gazelles(const RunFolder& folder) {
  const WholeRun prepared = run_tool_in(folder, {"prepare", "zoo.csv", "--species", "other"});
  EXPECT_EQ(prepared.exit_status, 0) << prepared.messages;
}

TEST(CheckRun, NamesEveryFaultOfAnOfficeExportWithItsLine) {
  const GazelleExport exported = make_gazelle_export(true);
  ASSERT_EQ(exported.faults.size(), 7U);
  const RunFolder folder(Files{{"zoo.csv", exported.bytes}});
  prepare_gazelles(folder);
  const WholeRun run = check_in(folder);
  EXPECT_EQ(run.exit_status, 1);
  const std::vector<std::string> rows = lines_of(run.file("zoo_check.tsv"));
  for (const PlantedFault& fault : exported.faults) {
    const auto names_it = [&](const std::string& row) {
      return row.starts_with(std::to_string(fault.line) + "\t") && row.find("\t" + fault.code + "\t") < row.size() &&
             row.find(fault.text) < row.size();
    };
    EXPECT_TRUE(std::ranges::any_of(rows, names_it)) << fault.what << ", line " << fault.line;
    EXPECT_TRUE(has(run.console, "line " + std::to_string(fault.line) + ", ")) << fault.what;
  }
  // The blank behind the id in line 1255 is left out by prepare.
  EXPECT_FALSE(std::ranges::any_of(rows, [](const std::string& row) { return row.starts_with("1255\t"); }));
}

TEST(CheckRun, IsCleanWhenTheExportIsMended) {
  const RunFolder folder(Files{{"zoo.csv", make_gazelle_export(false).bytes}});
  prepare_gazelles(folder);
  const WholeRun run = check_in(folder);
  EXPECT_EQ(run.exit_status, 0) << run.console;
  EXPECT_FALSE(has(run.file("zoo_check.tsv"), "\tW\t"));
  EXPECT_EQ(run.messages, "");
}

/// 3500 sheep: 100 founders of 2000, then 170 young a year, one litter of a dam a year and always in April.
std::string sound_flock() {
  std::string text = "id;sex;birthdate;sire;dam\n";
  for (int i = 0; i < 3500; ++i) {
    const int year = i < 100 ? 2000 : 2001 + (i - 100) / 170;
    const int place = i < 100 ? i : (i - 100) % 170;
    std::string sire, dam;
    if (i >= 100) {
      const int first = year <= 2002 ? 0 : 100 + (year - 2003) * 170;  // of the young of two years before
      const int mates = year <= 2002 ? 100 : 170;
      dam = "S" + std::to_string(10000 + first + place / 2 * 2 % mates + 1);
      sire = "S" + std::to_string(10000 + first + place / 20 * 2 % mates);
    }
    const std::string date = "1" + std::to_string(place / 2 % 10) + "-04-" + std::to_string(year);
    text += "S" + std::to_string(10000 + i) + (i % 2 == 0 ? ";m;" : ";f;") + date + ";" + sire + ";" + dam + "\n";
  }
  return text;
}

SteerLines sheep() {
  SteerLines steer;
  steer.species = "sheep";
  return steer;
}

TEST(CheckRun, FindsNothingAboveALookInASoundFile) {
  const WholeRun run = check_files(files_of(sound_flock(), sheep()));
  EXPECT_EQ(run.exit_status, 0) << run.console;
  EXPECT_FALSE(has(run.file("dogs_check.tsv"), "\tW\t"));
  EXPECT_FALSE(has(run.file("dogs_check.tsv"), "\tS\t"));
}

/// Does to a text what hands and programs do.
std::string spoilt(std::string text, std::mt19937& random) {
  const std::vector<std::string> pieces = {";",     "\n", "0",    "a",        "\"",     " ",   "-",  "2091",
                                           "99999", "-5", "\xE9", "\xC2\xA0", "\t",     ",",   "NA", "31-31-31",
                                           "\r",    "id", "sex",  "S10001",   "S10000", "\x1A"};
  const int changes = static_cast<int>(random() % 6) + 1;
  for (int k = 0; k < changes; ++k) {
    const std::size_t place = random() % (text.size() + 1);
    if (random() % 2 == 0) text.erase(place, random() % 4);
    if (random() % 4 != 0) text.insert(place, pieces[random() % pieces.size()]);
  }
  return text;
}

TEST(CheckRun, AnnouncesEveryStopOfTheProgram) {
  std::mt19937 random(7);
  const std::string flock = sound_flock().substr(0, 700);
  for (int k = 0; k < cases(150, 45); ++k) {  // of each of the three kinds below at least once
    SteerLines steer = sheep();
    if (k % 5 == 1) steer.consecutive = "y";
    if (k % 7 == 1) steer.date_layout = "ddmmyyyy";
    if (k % 9 == 1) steer.header = "n\nx\n5\nx\n5 1 7 8 2 3";
    const Files files = files_of(spoilt(flock, random), steer);
    const WholeRun checked = check_files(files);
    const WholeRun run = run_program_on(files);
    const bool is_announced = has(checked.file("dogs_check.tsv"), "\tS\t");
    EXPECT_TRUE(run.exit_status == 0 || is_announced) << run.messages << "\n" << files.at("dogs.txt");
    EXPECT_LT(checked.exit_status, 2);
  }
}

TEST(CheckRun, ChangesNothingButItsTable) {
  const Files files = files_of("id;sex;birthdate;sire;dam\na;m;01-01-2000;;\n", sheep());
  const WholeRun run = check_files(files);
  Files expected = files;
  expected["dogs_check.tsv"] =
      "line\tcolumn\tid\tcode\tseverity\ttext\tlines\n"
      "2\t\ta\tisolated\tL\tNo parents and no young (1 animal)\t\n";
  EXPECT_EQ(run.files, expected);
  EXPECT_EQ(
      run.console,
      "dogs.txt: 1 animal checked\n\nWorth a look\n         1 isolated\n\nisolated (Worth a look)\n"
      "  dogs.txt, line 2, a: No parents and no young (1 animal)\n\nAll findings, with their lines: dogs_check.tsv\n");
}

TEST(CheckRun, AWorkbookHasTheSameFindings) {
  const Files files = files_of("id;sex;birthdate;sire;dam\n007;m;01-01-2000;;\nb;f;01-01-1999;007;\n", sheep());
  const WholeRun run = run_program_on(files, tools_with({"check", "--workbook"}));
  EXPECT_EQ(run.files.count("dogs_check.tsv"), 0U);
  EXPECT_TRUE(has(run.console, "All findings, with their lines: dogs_check.xlsx\n")) << run.console;
  const ReadTable sheet = sheet_of(run.file("dogs_check.xlsx"), "findings");
  EXPECT_EQ(sheet.names, (std::vector<std::string>{"line", "column", "id", "code", "severity", "text", "lines"}));
  ASSERT_EQ(sheet.rows.size(), 1U);
  EXPECT_EQ(sheet.rows[0], (std::vector<std::string>{"3", "", "b", "born-before-parent", "W",
                                                     "Born before its father \"007\" (line 2)", ""}));
}

TEST(CheckRun, ShowsOneKindInFull) {
  std::string data = "id;sex;birthdate;sire;dam;name\n";
  for (int k = 0; k < 60; ++k)
    data += "a" + std::to_string(k) + ";m;01-01-2000;;;" + std::string(50, 'n') + std::to_string(k) + "\n";
  const RunFolder folder(files_of(data, sheep()));
  const WholeRun all = check_in(folder), one = run_tool_in(folder, {"check", "--code", "name-cut"});
  EXPECT_TRUE(has(all.console, "  and 10 more: pedigreewatch-tools check --code name-cut, or dogs_check.tsv\n"));
  EXPECT_FALSE(has(all.console, "line 61, a59"));
  EXPECT_TRUE(has(one.console, "  dogs.txt, line 61, a59: The name "));
}

// A line end inside quotation marks, a blank line, a line that is cut, a sex and a date that nobody can read.
constexpr const char* kennel =
    "id;name;sex;born;sire;dam\n"
    "rex;\"Rex\nthe first\";m;01-02-2000;;\n"
    "\n"
    "saar;;f;01-02-2000;;\n"
    "bram;;boy;01-02-2002;rex;saar\n"
    "puck;;f;last spring;rex;saar\n"
    "tess;;f;01-02-2003;rex\n"
    "luna;;f;01-02-1999;rex;\n";

TEST(CheckRun, NamesTheLinesOfTheExportAndWhatStoodThere) {
  const RunFolder folder(Files{{"kennel.csv", kennel}});
  ASSERT_EQ(run_tool_in(folder, {"prepare", "kennel.csv", "--species", "dog", "--male", "m", "--female", "f", "--dates",
                                 "dd-mm-yyyy"})
                .exit_status,
            0);
  const WholeRun run = check_in(folder);
  EXPECT_TRUE(run.console.starts_with("kennel.txt: 6 animals checked; lines are those of kennel.csv\n")) << run.console;
  const std::string table = run.file("kennel_check.tsv");
  for (const std::string& row : std::vector<std::string>{
           "6\t3\tbram\tsex-text\tW\tSex \"boy\" counts as female (1 animal)\t\n",
           "7\t4\tpuck\tdate-text\tW\tDate \"last spring\" could not be read (1 animal); it is left out, as if it were "
           "unknown\t\n",
           "8\t\ttess\tcolumn-count\tW\t5 columns, the header has 6\t\n",
           "9\t\tluna\tborn-before-parent\tW\tBorn before its father \"rex\" (line 2)\t\n"}) {
    EXPECT_TRUE(has(table, row)) << table;
  }
  EXPECT_TRUE(has(run.console, "  kennel.csv, line 6, bram: Sex \"boy\"")) << run.console;
}

TEST(CheckRun, NamesItsOwnLinesOnceTheDataFileIsChanged) {
  const RunFolder folder(Files{{"kennel.csv", kennel}});
  run_tool_in(folder,
              {"prepare", "kennel.csv", "--species", "dog", "--male", "m", "--female", "f", "--dates", "dd-mm-yyyy"});
  std::ofstream(folder.path("kennel.txt"), std::ios::app) << "\n";
  const WholeRun run = check_in(folder);
  EXPECT_TRUE(
      run.console.starts_with("kennel.txt is not as prepare wrote it; lines are its own, not those of the "
                              "export\nkennel.txt: 7 animals checked\n"))
      << run.console;
  EXPECT_TRUE(has(run.console, "kennel.txt, line 7, luna: Born before"));
}

TEST(CheckRun, TakesOtherLimits) {
  const Files files = {{"pedigreewatch.ini", sheep().text()},
                       {"dogs.txt", "id;sex;birthdate;sire;dam\na;m;01-01-2000;;\nb;f;15-10-2000;a;\n"},
                       {"limits.txt", "# a hill breed\nyoungest_parent_days = 300  # days\n"},
                       {"wrong.txt", "youngest_parent_days = 300\nyoungest = 1\n"}};
  const RunFolder folder(files);
  EXPECT_EQ(check_in(folder).exit_status, 0);
  EXPECT_EQ(run_tool_in(folder, {"check", "--limits", "limits.txt"}).exit_status, 1);
  const WholeRun wrong = run_tool_in(folder, {"check", "--limits", "wrong.txt"});
  EXPECT_EQ(wrong.exit_status, 2);
  EXPECT_TRUE(has(wrong.messages, "wrong.txt, line 2: \"youngest = 1\": NAME = NUMBER was expected"));
}

TEST(CheckRun, SaysWhatCouldNotBeChecked) {
  const WholeRun no_steer = check_files({{"dogs.txt", ""}});
  EXPECT_EQ(no_steer.exit_status, 2);
  EXPECT_TRUE(has(no_steer.messages, "pedigreewatch.ini: the steer file is not in this folder"));
  const WholeRun no_data = check_files({{"pedigreewatch.ini", sheep().text()}});
  EXPECT_EQ(no_data.exit_status, 2);
  EXPECT_TRUE(has(no_data.messages, "\"dogs.txt\": the data file that line 2 of pedigreewatch.ini names"));
  const WholeRun folder_as_data = check_files({{"pedigreewatch.ini", sheep().text()}, {"dogs.txt/", ""}});
  EXPECT_EQ(folder_as_data.exit_status, 2);
  SteerLines too_many = sheep();
  too_many.subpopulations = "6000";
  const WholeRun refused = check_files(files_of("id\n", too_many));
  EXPECT_EQ(refused.exit_status, 2);
  EXPECT_TRUE(has(refused.messages, "line 10, column 1: \"6000\": the number of subpopulations was expected"));
}

TEST(CheckRun, RefusesArgumentsThatMakeNoSense) {
  const RunFolder folder(files_of("id\n", sheep()));
  for (const std::vector<std::string>& arguments :
       std::vector<std::vector<std::string>>{{"check", "--code", "no-such"},
                                             {"check", "--today", "31-01-2026"},
                                             {"check", "--today", "2021-02-29"},
                                             {"check", "dogs.txt"},
                                             {"check", "--x"},
                                             {"check", "--limits", "nowhere"}}) {
    const WholeRun run = run_tool_in(folder, arguments);
    EXPECT_EQ(run.exit_status, 2) << arguments.back();
    EXPECT_NE(run.messages, "") << arguments.back();
  }
}

/// Names of the codes that a run found.
bool finds(const std::string& data, const std::string& code) {
  const WholeRun run = check_files(files_of(data, sheep()));
  return run.exit_status == 1 && has(run.file("dogs_check.tsv"), "\t" + code + "\t");
}

TEST(HostileCheck, FilesThatAreNoPedigrees) {
  EXPECT_TRUE(finds("", "empty-file"));
  EXPECT_TRUE(finds("\xEF\xBB\xBF", "empty-file"));
  EXPECT_TRUE(finds("PK\x03\x04 and so on", "binary-file"));
  EXPECT_TRUE(finds("\n\n\n", "header-missing"));
  EXPECT_TRUE(finds(std::string(5000, '\0'), "header-missing") || finds(std::string(5000, '\0'), "utf-16"));
  std::string noise;
  for (int i = 0; i < 50000; ++i) noise.push_back(static_cast<char>(static_cast<unsigned char>(i * 131 % 251 + 1)));
  EXPECT_EQ(check_files(files_of(noise, sheep())).exit_status, 1);
}

TEST(HostileCheck, OneLineOfAHundredMegabytes) {
  const std::string header = "id;sex;birthdate;sire;dam\n";
  const std::string line = "a;m;01-01-2000;;;" + std::string(100'000'000, 'x');
  EXPECT_TRUE(finds(header + line + "\n", "line-cut"));
}

TEST(HostileCheck, ZerosAndControlCharactersReachNoTerminal) {
  using namespace std::string_literals;
  const WholeRun run = check_files(files_of("id;sex;birthdate;sire;dam\na\x1B[31m\0b;m;01-01-2000;;\n"s, sheep()));
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.console.find('\x1B'), std::string::npos);
  EXPECT_EQ(run.console.find('\0'), std::string::npos);
  EXPECT_EQ(run.file("dogs_check.tsv").find('\x1B'), std::string::npos);
}

TEST(HostileCheck, ALongLoopAndALongChain) {
  std::string data = "id;sex;birthdate;sire;dam\n";
  constexpr int count = 200'000;
  for (int k = 0; k < count; ++k) {
    data += "a" + std::to_string(k) + ";m;;a" + std::to_string((k * 7919LL + 1) % count) + ";\n";
  }
  EXPECT_TRUE(finds(data, "loop"));
}

TEST(HostileCheck, AWorkbookThatCannotBeWrittenIsSaid) {
  const RunFolder folder(files_of("id;sex;birthdate;sire;dam\na;m;01-01-2000;;\n", sheep()));
  ProgramStart start = tools_with({"check", "--workbook"});
  start.limits.file_bytes = 20;
  start.keeps_console = false;
  const WholeRun run = run_program_in(folder, start);
  EXPECT_EQ(run.exit_status, 2);
  EXPECT_EQ(run.files.size(), 2U);
}

TEST(HostileCheck, ATableThatCannotBeWrittenIsSaid) {
  const RunFolder folder(files_of("id;sex;birthdate;sire;dam\na;m;01-01-2000;;\n", sheep()));
  ProgramStart start;
  start.program = tools_path();
  start.arguments = {"check"};
  start.limits.file_bytes = 20;
  start.keeps_console = false;
  const WholeRun run = run_program_in(folder, start);
  EXPECT_EQ(run.exit_status, 2);
  EXPECT_EQ(run.files.count("dogs_check.tsv"), 0U);
}

TEST(CheckRun, NamesParentsWhoseNameIsThatOfAnotherAnimal) {
  std::string herd =
      "ID;Name;Sex;Born;Sire ID;Dam ID;Sire name;Dam name\nr1;Rex;ram;13-1-2000;;;;\nr2;Max;ram;14-1-2000;;;;\n";
  for (int k = 0; k < 24; ++k) {
    herd += "y" + std::to_string(k) + ";Young" + std::to_string(k) + ";ewe;" + std::to_string(k % 2 + 14) +
            "-1-2003;r1;;" + (k == 20 ? "Max" : "Rex") + ";\n";
  }
  const RunFolder folder(Files{{"herd.csv", herd}});
  EXPECT_EQ(run_tool_in(folder, {"prepare", "herd.csv"}).exit_status, 0);
  const WholeRun run = check_in(folder);
  EXPECT_TRUE(has(run.file("herd_check.tsv"), "\ty20\tparent-name\tW\tFather \"r1\" is named \"Max\" here"))
      << run.file("herd_check.tsv");
}

}  // namespace
}  // namespace pedigreewatch::test
