// Whole runs of `pedigreewatch-tools tables`: files that cannot be written, data without dates or animals, hostile
// names, and arguments that make no sense.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/files.h"
#include "support/lines.h"
#include "support/program_run.h"
#include "support/read_table.h"
#include "support/steer_lines.h"
#include "support/written_workbook.h"

namespace pedigreewatch::test {
namespace {

const std::string header = "id;sex;birthdate;sire;dam\n";
const std::string family = header +
                           "S;m;01-01-2000;;\nD;f;02-01-2000;;\na;m;03-03-2002;S;D\nb;f;04-03-2002;S;D\n"
                           "c;f;05-05-2004;a;b\n";

WholeRun tables_on(const Files& files, std::vector<std::string> options = {}) {
  options.insert(options.begin(), "tables");
  return run_program_on(files, tools_with(options));
}

Files with(Files files, const std::string& name, const std::string& bytes) {
  files[name] = bytes;
  return files;
}

TEST(TablesRun, WritesItsTablesAndNothingElse) {
  const Files files = files_of(family);
  const WholeRun run = tables_on(files);
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_EQ(run.messages, "");
  std::vector<std::string> names;
  for (const auto& [name, bytes] : run.files) names.push_back(name);
  EXPECT_EQ(names, (std::vector<std::string>{"dogs.txt", "dogs_animals.tsv", "dogs_by_kinship.tsv", "dogs_cohorts.tsv",
                                             "dogs_diversity.tsv", "dogs_most_inbred.tsv", "dogs_standing.tsv",
                                             "dogs_used_sires.tsv", "dogs_years.tsv", "pedigreewatch.ini"}));
  EXPECT_TRUE(has_line(run.console, "dogs_animals.tsv: 5 animals"));
  EXPECT_TRUE(has_line(run.console, "dogs_years.tsv: 5 birth years"));
  EXPECT_EQ(run.file("dogs.txt"), family);
}

TEST(TablesRun, SaysHowOftenGenesWereDropped) {
  const WholeRun run = tables_on(files_of(family), {"--founders"});
  EXPECT_TRUE(has_line(run.console, "dogs_founders.tsv: 2 founders, 10000 times their genes were dropped"))
      << run.console;
}

TEST(TablesRun, IsRefusedWhereTheReportIs) {
  SteerLines steer;
  const auto with_names = [&](int count) {
    steer.subpopulations = std::to_string(count);
    for (int k = 1; k <= count; ++k) steer.subpopulations += "\nherd" + std::to_string(k);
    return files_of(family, steer);
  };
  const WholeRun run = tables_on(with_names(448));
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_TRUE(has(run.messages, "448 subpopulations in pedigreewatch.ini make 100128 pairs")) << run.messages;
  EXPECT_EQ(run.files.size(), 2U) << "nothing is written";
  EXPECT_EQ(tables_on(with_names(447)).exit_status, 0);
  EXPECT_EQ(run_program_on(with_names(448), tools_with({"page"})).exit_status, 1);
  EXPECT_EQ(run_program_on(with_names(448), tools_with({"matings"})).exit_status, 0)
      << "who shows no subpopulations needs none of their pairs";
}

// Two animals that are each other's parents: what the report says of them, and that it stops, stands before the
// refusal.
TEST(TablesRun, SaysInOneLanguageWhatStopsTheReport) {
  SteerLines steer;
  steer.language = "nl";
  const std::string loop = header + "a;m;01-01-2000;;b\nb;f;01-01-2000;a;\n";
  const WholeRun dutch = tables_on(files_of(loop, steer)), english = tables_on(files_of(loop));
  EXPECT_EQ(dutch.exit_status, 1);
  EXPECT_TRUE(has(dutch.messages, "programma wordt gestopt")) << dutch.messages;
  EXPECT_FALSE(has(dutch.messages, "program will stop"));
  EXPECT_TRUE(has(english.messages, "program will stop")) << english.messages;
}

TEST(TablesRun, AWorkbookHasTheSameTables) {
  const WholeRun run = tables_on(files_of(family), {"--workbook"});
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_EQ(run.files.size(), 3U);
  const std::string workbook = run.file("dogs_tables.xlsx");
  const WholeRun texts = tables_on(files_of(family));
  const std::vector<std::string> sheets = {"years",   "animals",    "diversity",   "standing",
                                           "cohorts", "by_kinship", "most_inbred", "used_sires"};
  EXPECT_EQ(sheets_of(workbook), sheets);
  for (const std::string& sheet : sheets) {
    SCOPED_TRACE(sheet);
    expect_same_cells(sheet_of(workbook, sheet), read_table(texts.file("dogs_" + sheet + ".tsv")));
  }
  EXPECT_TRUE(has_line(run.console, "dogs_tables.xlsx, sheet animals: 5 animals"));
}

/// Three years of four animals, and one born years after them, in line 14.
std::string herd_with_late_birth() {
  std::string data = header;
  for (int k = 0; k < 12; ++k) {
    const std::string first = std::to_string(k - 4 - k % 2), second = std::to_string(k - 3 - k % 2);
    data += std::to_string(k) + (k % 2 == 0 ? ";m" : ";f") + ";01-03-" + std::to_string(2000 + 2 * (k / 4)) + ";" +
            (k < 4 ? ";" : first + ";" + second) + "\n";
  }
  return data + "late;m;02-04-2200;8;9\n";
}

TEST(LateBirthRuns, AreNamedOnceByAllThatGoByTheLastYear) {
  SteerLines dutch;
  dutch.language = "nl";
  const std::string data = herd_with_late_birth(), english = "late (line 14, 02-04-2200): born after today",
                    of_year = "the last year of birth, 2200, the reference population",
                    in_dutch = "late (regel 14, 02-04-2200): geboren na vandaag";
  for (const std::string subcommand : {"tables", "plan", "forecast", "matings"}) {
    SCOPED_TRACE(subcommand);
    const WholeRun run = run_program_on(files_of(data), tools_with({subcommand}));
    EXPECT_TRUE(has(run.console, english));
    EXPECT_TRUE(has(run.console, of_year));
    EXPECT_EQ(run.console.find(english), run.console.rfind(english));
    EXPECT_TRUE(has(run_program_on(files_of(data, dutch), tools_with({subcommand})).console, in_dutch));
    const WholeRun without = run_program_on(files_of(data.substr(0, data.find("late"))), tools_with({subcommand}));
    EXPECT_EQ(without.console.find("born after today"), std::string::npos);
  }
}

TEST(TablesRun, IsEitherCommasOrAWorkbook) {
  const WholeRun run = tables_on(files_of(family), {"--workbook", "--csv"});
  EXPECT_EQ(run.exit_status, 2);
  EXPECT_EQ(run.files.size(), 2U);
  EXPECT_NE(run.messages.find("--csv and --workbook: only one of them can be given"), std::string::npos);
}

TEST(TablesRun, AWorkbookThatCannotBeWrittenLeavesNothing) {
  const RunFolder folder(files_of(family));
  ProgramStart start = tools_with({"tables", "--workbook"});
  start.limits.file_bytes = 1000;
  start.keeps_console = false;
  const WholeRun run = run_program_in(folder, start);
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.files.size(), 2U);
}

TEST(TablesRun, LeavesYearsWithoutAnimalsEmpty) {
  const ReadTable years = read_table(tables_on(files_of(family)).file("dogs_years.tsv"));
  ASSERT_EQ(years.rows.size(), 5U);
  // 2002: two full sibs of unrelated parents, both parents later; 2003: nobody.
  EXPECT_EQ(years.cell(2, "year"), "2002");
  EXPECT_EQ(years.cell(2, "parents"), "2");
  EXPECT_EQ(years.cell(2, "F_mean"), "0");
  EXPECT_EQ(years.cell(2, "kinship_with_self"), "0.375");  // (1/2 + 1/2 + 1/4 + 1/4) / 4
  EXPECT_EQ(years.cell(2, "kinship_without_self"), "0.25");
  EXPECT_EQ(years.cell(2, "kinship_of_parents"), "0.25");
  EXPECT_EQ(years.cell(2, "kinship_of_sires"), "");  // there is one only
  EXPECT_EQ(years.cell(2, "top_sire"), "S");
  EXPECT_EQ(years.cell(2, "top_sire_share_1"), "100");
  EXPECT_EQ(years.cell(2, "top_sire_share_2"), "");
  EXPECT_EQ(years.cell(3, "parents"), "0");
  EXPECT_EQ(years.cell(3, "F_mean"), "");
  EXPECT_EQ(years.cell(3, "age_of_parents"), "");
  EXPECT_EQ(years.cell(4, "F_mean"), "0.25");
  EXPECT_EQ(years.cell(4, "offspring_per_dam_mean"), "");
  EXPECT_EQ(years.cell(2, "offspring_per_dam_mean"), "1");
  EXPECT_EQ(years.cell(2, "offspring_per_dam_sd"), "");  // of one value
}

TEST(TablesRun, ShowsTheKinshipOfAllAnimalsWithTheReferencePopulation) {
  const WholeRun run = tables_on(files_of(family), {"--years", "2002-2002"});
  ASSERT_EQ(run.exit_status, 0) << run.messages;
  const ReadTable animals = read_table(run.file("dogs_animals.tsv"));
  ASSERT_EQ(animals.rows.size(), 5U);
  const std::vector<std::string> expected = {"0.25", "0.25", "0.375", "0.375", "0.375"};  // of sibs 1/2 and 1/4
  for (std::size_t row = 0; row < 5; ++row) EXPECT_EQ(animals.cell(row, "mean_kinship"), expected[row]) << row;
}

TEST(TablesRun, TakesAListOfAnimals) {
  const WholeRun run = tables_on(with(files_of(family), "list.txt", "c\r\n\r\nS\r\n"), {"--ids=list.txt"});
  ASSERT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_TRUE(has_line(run.console, "dogs_diversity.tsv: reference population of 2 animals"));
  const ReadTable animals = read_table(run.file("dogs_animals.tsv"));
  EXPECT_EQ(animals.cell(0, "mean_kinship"), "0.375");   // with itself 1/2, with its grandchild twice over 1/4
  EXPECT_EQ(animals.cell(4, "mean_kinship"), "0.4375");  // with itself (1 + 1/4) / 2
}

TEST(TablesRun, RefusesAListThatDoesNotFit) {
  const auto run_with = [](const std::string& list) {
    return tables_on(with(files_of(family), "list.txt", list), {"--ids", "list.txt"});
  };
  const WholeRun unknown = run_with("S\nnobody\n");
  EXPECT_EQ(unknown.exit_status, 1);
  EXPECT_EQ(unknown.messages, "list.txt, line 2: \"nobody\": no animal of dogs.txt has this identification\n");
  EXPECT_EQ(unknown.files.size(), 3U);
  std::string many;
  for (int k = 0; k < 12; ++k) many += "x" + std::to_string(k) + "\n";
  EXPECT_TRUE(has(run_with(many).messages, "and 2 more lines; one identification a line was expected"));
  EXPECT_TRUE(has(run_with("\n").messages, "list.txt: the file of --ids names no animal"));
  EXPECT_EQ(run_with("Zo\xEB\n").messages,
            "list.txt, line 1: \"Zo\xC3\xAB\": no animal of dogs.txt has this identification\n");
  EXPECT_TRUE(has(run_with(std::string("S\0\n\0", 4)).messages, "this file is neither (UTF-16?)\n"));
  const WholeRun missing = tables_on(files_of(family), {"--ids", "none.txt"});
  EXPECT_EQ(missing.exit_status, 1);
  EXPECT_TRUE(has(missing.messages, "none.txt: the file of --ids could not be opened"));
}

TEST(TablesRun, RefusesArgumentsThatMakeNoSense) {
  const auto message = [](const std::vector<std::string>& options) {
    const WholeRun run = tables_on(files_of(family), options);
    EXPECT_EQ(run.exit_status, 2);
    EXPECT_EQ(run.files.size(), 2U);
    return run.messages;
  };
  const std::string two_years = ": two years were expected, the earlier one first, such as 2001-2010\n";
  EXPECT_EQ(message({"--years", "2005"}),
            "pedigreewatch-tools tables: --years \"2005\"" + two_years + "Try: pedigreewatch-tools tables --help\n");
  for (const std::string years : {"2005-2001", "2005-", "-", "x", "2001-2005x", "99999999999-1", "0-5", ""}) {
    EXPECT_TRUE(has(message({"--years", years}), "\"" + years + "\"" + two_years)) << years;
  }
  EXPECT_TRUE(has(message({"--years", "2001-2002", "--ids", "x"}), "only one of them can be given"));
  EXPECT_TRUE(has(message({"--ids="}), "--ids \"\": the name of a file"));
  EXPECT_TRUE(has(message({"other.txt"}), "\"other.txt\": no file was expected"));
  EXPECT_TRUE(has(message({"--out", "x"}), "there is no such option"));
}

TEST(TablesRun, NamesControlCharactersOfTheDataInItsMessages) {
  const WholeRun run = tables_on(files_of("id;si\x1B[31mre;dam;sex;birthdate\nS;;;m;01-01-2001\n"));
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_TRUE(has(run.messages, "si<U+001B>[31mre")) << run.messages;
  EXPECT_FALSE(has(run.messages, "\x1B"));
}

TEST(TablesRun, SaysThatNobodyWasBornInTheYears) {
  const WholeRun run = tables_on(files_of(family), {"--years", "1980-1990"});
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.messages, "--years 1980-1990: no animal of dogs.txt was born in these years\n");
  EXPECT_EQ(run.files.size(), 2U);
}

TEST(TablesRun, HasHeadersAloneForAFileWithoutAnimals) {
  const WholeRun run = tables_on(files_of(header));
  ASSERT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_EQ(lines_of(run.file("dogs_years.tsv")).size(), 1U);
  EXPECT_EQ(lines_of(run.file("dogs_animals.tsv")).size(), 1U);
  EXPECT_TRUE(has(run.console, "the reference population is empty"));
}

TEST(TablesRun, HasNoYearsWithoutDatesButAllAnimals) {
  const WholeRun run = tables_on(files_of(header + "S;m;;;\na;f;;S;\n"));
  ASSERT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_EQ(lines_of(run.file("dogs_years.tsv")).size(), 1U);
  EXPECT_EQ(lines_of(run.file("dogs_animals.tsv"))[2], "a\tS\t\tfemale\t\t0\t0.5\t0\t1\t0\t0\t\t\t0\t\t0\t0\t0\t0");
}

TEST(TablesRun, WritesCommasWhenAsked) {
  const WholeRun run = tables_on(files_of(header + "a,\"b;m;01-02-2003;;\n"), {"--csv"});
  ASSERT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_EQ(lines_of(run.file("dogs_animals.csv"))[1], "\"a,\"\"b\",,,male,2003-02-01,0,0,0,0,0,0,,,0,,0,0,0,0");
  EXPECT_TRUE(run.file("dogs_years.csv").starts_with("year,males_unused,sires,"));
  EXPECT_EQ(run.files.count("dogs_years.tsv"), 0U);
}

TEST(TablesRun, KeepsHostileNamesInTheirCells) {
  const Files files = files_of(header +
                               "=cmd|'x'!A1;m;01-02-2003;;\na\tb;f;01-02-2003;;\nZo\xEB;f;01-02-2004;=cmd|'x'!A1;a\tb\n"
                               "-5;f;01-02-2004;;\n");
  for (const bool is_plain : {false, true}) {
    const WholeRun run = tables_on(files, is_plain ? std::vector<std::string>{"--plain"} : std::vector<std::string>{});
    ASSERT_EQ(run.exit_status, 0) << run.messages;
    const ReadTable animals = read_table(run.file("dogs_animals.tsv"));
    ASSERT_EQ(animals.rows.size(), 4U);
    EXPECT_EQ(animals.cell(0, "id"), is_plain ? "=cmd|'x'!A1" : "'=cmd|'x'!A1");
    EXPECT_EQ(animals.cell(1, "id"), "a<U+0009>b");
    EXPECT_EQ(animals.cell(2, "id"), "Zo\xC3\xAB");
    EXPECT_EQ(animals.cell(2, "sire"), is_plain ? "=cmd|'x'!A1" : "'=cmd|'x'!A1");
    EXPECT_EQ(animals.cell(2, "dam"), "a<U+0009>b");
    EXPECT_EQ(animals.cell(3, "id"), "-5");
  }
  const WholeRun commas = tables_on(files_of(header + "=a,b;m;01-02-2003;;\n"), {"--csv"});
  EXPECT_TRUE(lines_of(commas.file("dogs_animals.csv"))[1].starts_with("\"'=a,b\",")) << "within the quotation marks";
}

TEST(TablesRun, GivesEveryColourAColumnOfItsOwn) {
  SteerLines steer;
  steer.colours = "4\nRed\nred\nroux cr\xE8me\n???";
  const WholeRun run = tables_on(
      files_of("id;sex;birthdate;sire;dam;colour\na;m;01-02-2003;;;Red\nb;m;01-02-2003;;;roux cr\xE8me\n", steer));
  ASSERT_EQ(run.exit_status, 0) << run.messages;
  const ReadTable years = read_table(run.file("dogs_years.tsv"));
  EXPECT_EQ(years.cell(0, "colour_red"), "1");
  EXPECT_EQ(years.cell(0, "colour_red_2"), "0");
  EXPECT_EQ(years.cell(0, "colour_roux_creme"), "1");
  EXPECT_EQ(years.cell(0, "colour_4"), "0");
}

TEST(TablesRun, CountsTheParentsOfASubpopulationAsTheDescentOfTheReport) {
  SteerLines steer;
  steer.subpopulations = "3\nHill\nDale\nMoor";
  const WholeRun run =
      tables_on(files_of("id;sex;birthdate;sire;dam;subpopulation\nS;m;01-02-2003;;;Hill\n"
                         "D;f;01-02-2003;;;Dale\nE;f;01-02-2003;;;\na;m;01-02-2004;S;D;Hill\n"
                         "b;m;01-02-2004;S;E;Hill\n",
                         steer));
  ASSERT_EQ(run.exit_status, 0) << run.messages;
  const ReadTable table = read_table(run.file("dogs_subpopulations.tsv"));
  ASSERT_EQ(table.rows.size(), 4U);  // two years of Hill and of Dale; nobody is of Moor
  EXPECT_EQ(table.cell(1, "subpopulation"), "Hill");
  EXPECT_EQ(table.cell(1, "year"), "2004");
  EXPECT_EQ(table.cell(1, "parents_from_hill"), "1");  // a mating counts when both parents belong to one
  EXPECT_EQ(table.cell(1, "parents_from_dale"), "1");
  EXPECT_EQ(table.cell(1, "parents_from_moor"), "0");
  EXPECT_EQ(table.cell(3, "subpopulation"), "Dale");
}

// In columns all three names are noord_1. Those of 2004 are half sibs of the first two, whose relationship is 0.25.
TEST(TablesRun, NamesOfSubpopulationsThatAreAlikeStandForOneEachInAllColumns) {
  SteerLines steer;
  steer.subpopulations = "3\nnoord_1\nNoord 1\nNoord-1";
  std::string data =
      "id;sex;birthdate;sire;dam;subpopulation\nR;m;01-02-2001;;;\nS;f;01-02-2001;;;\nT;f;01-02-2001;;;\n";
  for (const std::string k : {"1", "2"}) {
    data +=
        "a" + k + ";f;01-02-2004;R;S;noord_1\nb" + k + ";f;01-02-2004;R;T;Noord 1\nc" + k + ";f;01-02-2004;;;Noord-1\n";
  }
  const WholeRun run = tables_on(files_of(data, steer));
  ASSERT_EQ(run.exit_status, 0) << run.messages;
  const ReadTable table = read_table(run.file("dogs_years.tsv"));
  const std::size_t last = table.rows.size() - 1;
  EXPECT_EQ(table.cell(last, "year"), "2004");
  EXPECT_EQ(table.cell(last, "relationship_noord_1__noord_1_2"), "0.25");
  EXPECT_EQ(table.cell(last, "relationship_noord_1__noord_1_3"), "0");
  EXPECT_EQ(table.cell(last, "relationship_noord_1_2__noord_1_3"), "0");
  EXPECT_EQ(table.cell(last, "kinship_noord_1_2"), "0.25");  // full sibs
  EXPECT_EQ(table.cell(last, "kinship_noord_1_3"), "0");
  EXPECT_EQ(table.cell(last, "born_noord_1_3"), "2");
}

TEST(TablesRun, ReplacesOlderTables) {
  const Files files = with(files_of(family), "dogs_years.tsv", "old");
  const WholeRun run = tables_on(files);
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_TRUE(run.file("dogs_years.tsv").starts_with("year\t"));
  EXPECT_EQ(run.files.size(), 10U);
}

TEST(TablesRun, WritesAllTablesOrNone) {
  const Files files = with(files_of(family), "dogs_years.tsv", "old");
  const RunFolder folder(with(files, "dogs_diversity.tsv/", ""));
  const WholeRun run = run_program_in(folder, tools_with({"tables"}));
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_TRUE(has(run.messages,
                  "dogs_diversity.tsv: there is something of this name that is no file; no table was "
                  "written\n"));
  EXPECT_EQ(run.files, files);
}

TEST(TablesRun, LeavesNothingBehindWhenTheDiskIsFull) {
  const Files files = files_of(family);
  ProgramStart start = tools_with({"tables"});
  start.limits.file_bytes = 300;
  const WholeRun run = run_program_on(files, start);
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_TRUE(has(run.messages, "no table was written"));
  EXPECT_EQ(run.files, files);
}

TEST(TablesRun, ReplacesNoFileThatItReads) {
  const Files files = with(files_of(family), "dogs_animals.tsv", "S\n");
  const WholeRun run = tables_on(files, {"--ids", "dogs_animals.tsv"});
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_TRUE(has(run.messages, "dogs_animals.tsv: a table of this name would replace a file that this run reads"));
  EXPECT_EQ(run.files, files);
}

}  // namespace
}  // namespace pedigreewatch::test
