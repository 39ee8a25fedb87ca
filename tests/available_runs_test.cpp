// From an export that tells which animals have gone to the matings, lists and plans that take only the others.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/lines.h"
#include "support/prepared_run.h"
#include "support/program_run.h"
#include "support/steer_lines.h"

namespace pedigreewatch::test {
namespace {

/// Bram is dead, Wim castrated; Tess has been sold.
const std::string told_herd =
    "tag;sire;dam;sex;born;died;remarks\n"
    "rex;;;ram;13-01-2010;;\n"
    "saar;;;ewe;14-01-2010;;\n"
    "bram;rex;saar;ram;15-01-2013;16-02-2014;\n"
    "tess;rex;saar;ewe;15-01-2013;;sold to Smith\n"
    "wim;rex;saar;wether;15-01-2013;;\n"
    "sven;rex;saar;ram;15-01-2014;;\n"
    "puck;rex;saar;ewe;15-01-2014;;her dam died\n";

WholeRun prepare_told(const Files& files, std::vector<std::string> options = {}) {
  options.insert(options.end(), {"--species", "sheep"});
  return run_program_on(files, prepare_with(options, "herd.csv"));
}

WholeRun prepared_herd() {
  return prepare_told({{"herd.csv", told_herd}});
}

WholeRun run_tool_on(const Files& files, const std::vector<std::string>& arguments) {
  return run_program_on(files, tools_with(arguments));
}

TEST(AvailableRuns, TheListIsWrittenBesideTheData) {
  const WholeRun run = prepared_herd();
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_EQ(run.file("herd_available.txt"), "rex\nsaar\nsven\npuck\n");
  EXPECT_TRUE(has(run.console, "Gone          by \"died\" (column 6): animals with a date: 1\n"));
  EXPECT_TRUE(has(run.console,
                  "Gone          by \"remarks\" (column 7): \"sold to Smith\" (1)\n"
                  "              in \"remarks\" (column 7), not understood and taken as still there: "
                  "\"her dam died\" (1)\n"
                  "Gone          as parents, by their sex (castrated): \"wether\" (1)\n"))
      << run.console;
  EXPECT_TRUE(has(run.console, "Written: herd_available.txt: 4 of 7 animals are still there."));
}

TEST(AvailableRuns, TheListIsOneOfTheFilesThatAreAllWrittenOrNone) {
  const WholeRun refused = prepare_told({{"herd.csv", told_herd}, {"herd_available.txt", "rex\n"}});
  EXPECT_EQ(refused.exit_status, 1);
  EXPECT_TRUE(has(refused.messages, "herd_available.txt exists already."));
  EXPECT_EQ(refused.files.count("herd.txt"), 0U);
  const WholeRun forced = prepare_told({{"herd.csv", told_herd}, {"herd_available.txt", "rex\n"}}, {"--force"});
  EXPECT_EQ(forced.file("herd_available.txt"), "rex\nsaar\nsven\npuck\n");
}

TEST(AvailableRuns, AnExportThatTellsNothingLeavesAListThatStandsThere) {
  const std::string plain = "tag;sire;dam;sex;born\na;;;ram;13-01-2010\nb;;;ewe;14-01-2010\n";
  const WholeRun run = prepare_told({{"herd.csv", plain}, {"herd_available.txt", "a\n"}});
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_EQ(run.file("herd_available.txt"), "a\n");
  EXPECT_TRUE(has(run.console, "Left: herd_available.txt. No column"));
  EXPECT_EQ(prepare_told({{"herd.csv", plain}}).files.count("herd_available.txt"), 0U);
}

TEST(AvailableRuns, AnswersAreKeptForTheNextExport) {
  const WholeRun run = prepare_told({{"herd.csv", told_herd}}, {"--availability", "died,remarks", "--gone",
                                                                "her dam died", "--present", "sold to Smith"});
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_EQ(run.file("herd_available.txt"), "rex\nsaar\ntess\nsven\n");
  EXPECT_TRUE(
      has(run.file("herd.answers"), "\n--availability died;remarks\n--gone her dam died\n--present sold to Smith\n"))
      << run.file("herd.answers");
  const WholeRun again = run_program_on({{"herd.csv", told_herd}, {"herd.answers", run.file("herd.answers")}},
                                        prepare_with({"--force"}, "herd.csv"));
  EXPECT_EQ(again.file("herd_available.txt"), "rex\nsaar\ntess\nsven\n");
  EXPECT_EQ(again.file("herd.answers"), run.file("herd.answers"));
  // Next year nobody was sold to Smith.
  std::string later = told_herd;
  later.replace(later.find("sold to Smith"), 13, "");
  const WholeRun next = run_program_on({{"herd.csv", later}, {"herd.answers", run.file("herd.answers")}},
                                       prepare_with({"--force"}, "herd.csv"));
  EXPECT_TRUE(has(next.console, "--present sold to Smith")) << next.console;
  EXPECT_FALSE(has(next.file("herd.answers"), "--present"));
  EXPECT_EQ(prepare_told({{"herd.csv", told_herd}}, {"--availability", "none"}).file("herd_available.txt"),
            "rex\nsaar\nbram\ntess\nsven\npuck\n");
}

TEST(AvailableRuns, MatingsTakeOnlyThose) {
  const Files files = prepared_herd().files;
  const WholeRun run = run_tool_on(files, {"matings"});
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_TRUE(
      run.console.starts_with("herd_available.txt: 4 of 7 animals are still there; the others are left out where "
                              "no list names them (--all-animals: all)\n"
                              "females born 2010 to 2014: 2\nmales born 2010 to 2014: 2\n"))
      << run.console;
  EXPECT_FALSE(has(run.console, "is not told"));
  const WholeRun all = run_tool_on(files, {"matings", "--all-animals"});
  EXPECT_TRUE(all.console.starts_with("females born 2010 to 2014: 3\n")) << all.console;
  EXPECT_TRUE(has(all.console, "males born 2010 to 2014: 4\n"));
  EXPECT_FALSE(has(all.console, "is not told")) << "the list beside the data tells it";
  EXPECT_TRUE(
      has(all.console, "  at the births of the last ten years at least nine in ten dams were 3 to 4 years old"));
}

TEST(AvailableRuns, AnimalsOfAListAreTakenAllTheSame) {
  Files files = prepared_herd().files;
  files["rams.txt"] = "bram\nsven\n";
  const WholeRun run = run_tool_on(files, {"matings", "--males", "rams.txt"});
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_TRUE(has(run.console, "males of rams.txt: 2\n")) << run.console;
  EXPECT_EQ(
      run.messages,
      "rams.txt: 1 of its animals are no longer there by the list of available ones, such as bram; they are taken "
      "because you name them\n");
}

TEST(AvailableRuns, WithoutAListTheAgesOfParentsAreProposed) {
  Files files = prepared_herd().files;
  files.erase("herd_available.txt");
  const WholeRun run = run_tool_on(files, {"matings"});
  // Rex and Saar were 3 and 4 years old at the births of 2013 and 2014.
  EXPECT_TRUE(has(
      run.console,
      "females born 2010 to 2014: 3\n  who of them is dead or sold is not told; none is 3 to 4 years old, as at least nine in ten dams were at the births of the last ten years: all of these years are taken\nmales born 2010 to 2014: 4\n  who of them is dead or sold is not told; none is 3 to 4 years old, as at least nine in ten sires were at the births of the last ten years: all of these years are taken\n"))
      << run.console;
  const WholeRun aged = run_tool_on(files, {"matings", "--ages"});
  EXPECT_EQ(aged.exit_status, 1);  // none is 3 or 4 in 2015
  EXPECT_TRUE(has(aged.messages, "no females are of the ages")) << aged.messages;
  EXPECT_EQ(run_tool_on(files, {"matings", "--ages", "--years", "3"}).exit_status, 2);
}

TEST(AvailableRuns, ListsTakeOnlyThose) {
  const Files files = prepared_herd().files;
  const WholeRun run = run_tool_on(files, {"tables"});
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_TRUE(has(run.console, "herd_available.txt: 4 of 7 animals are still there"));
  const std::string table = run.file("herd_by_kinship.tsv");
  EXPECT_TRUE(has(table, "sven") && has(table, "puck")) << table;
  EXPECT_FALSE(has(table, "bram") || has(table, "tess") || has(table, "wim")) << table;
  EXPECT_TRUE(has(run_tool_on(files, {"tables", "--all-animals"}).file("herd_by_kinship.tsv"), "bram"));
  const std::string only = "Only animals that are still there are listed";
  EXPECT_TRUE(has(run_tool_on(files, {"page"}).file("herd.html"), only));
  EXPECT_FALSE(has(run_tool_on(files, {"page", "--all-animals"}).file("herd.html"), only));
}

TEST(AvailableRuns, SiresThatHaveGoneAreNotToBeUsedLess) {
  // Rex has all young of the five years.
  Files files = prepared_herd().files;
  const std::string use_less = "Use more sires, and these less", none = "is still there.";
  const std::string there = run_tool_on(files, {"page"}).file("herd.html");
  EXPECT_TRUE(has(there, use_less));
  EXPECT_FALSE(has(there, none));
  const std::string row = "\noverused_sire_1\trex\t", gone = "\noverused_sires_gone\t1\t";
  const std::string table = run_tool_on(files, {"tables"}).file("herd_standing.tsv");
  EXPECT_TRUE(has(table, row)) << table;
  EXPECT_FALSE(has(table, gone)) << table;
  files["herd_available.txt"] = "saar\nsven\npuck\n";
  const std::string page = run_tool_on(files, {"page"}).file("herd.html");
  EXPECT_FALSE(has(page, use_less));
  EXPECT_TRUE(has(page, "None of the sires with more than 5"));
  EXPECT_TRUE(has(page, none));
  const std::string told = run_tool_on(files, {"tables"}).file("herd_standing.tsv");
  EXPECT_FALSE(has(told, row)) << told;
  EXPECT_TRUE(has(told, gone)) << told;
  EXPECT_TRUE(has(run_tool_on(files, {"page", "--all-animals"}).file("herd.html"), use_less));
  EXPECT_EQ(run_tool_on(files, {"tables", "--all-animals"}).file("herd_standing.tsv"), table);
}

TEST(AvailableRuns, PlansTakeOnlyThose) {
  const Files files = prepared_herd().files;
  const WholeRun run = run_tool_on(files, {"plan", "--years", "2", "--matings", "1"});
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_TRUE(has(run.console, "males: 1, born 2013 to 2014\n")) << run.console;
  EXPECT_TRUE(has(run.console, "\n3 animals of these ages or years are left out because they are no longer there"))
      << run.console;
  const std::string table = run.file("herd_contributions.tsv");
  EXPECT_TRUE(has(table, "bram\t\tmale\t2013") || has(table, "bram")) << table;
  EXPECT_TRUE(has(table, "\tno longer there\n")) << table;
  const WholeRun all = run_tool_on(files, {"plan", "--years", "2", "--matings", "1", "--all-animals"});
  EXPECT_TRUE(has(all.console, "males: 3, born 2013 to 2014\n")) << all.console;
}

TEST(AvailableRuns, APlanByAgesSaysWhetherAnybodyToldWhoIsThere) {
  // Rex and Saar were 2 years old when C and D were born, and planned young are born in 2013.
  const std::string young =
      "tag;sire;dam;sex;born;died\nrex;;;ram;13-01-2010;\nsaar;;;ewe;14-01-2010;\nx;;;ram;13-01-2010;1-1-2011\n"
      "bo;;;ram;13-01-2011;\nea;;;ewe;13-01-2011;\nc;rex;saar;ram;15-01-2012;\nd;rex;saar;ewe;15-01-2012;\n";
  Files files = prepare_told({{"herd.csv", young}}).files;
  const std::vector<std::string> plan = {"plan", "--matings", "1"};
  const std::string ages =
      "males: 1, of 2 years (5 to 95 in 100 of the parents' ages at 2 births of the last ten years)";
  const WholeRun told = run_tool_on(files, plan);
  EXPECT_TRUE(has(told.console, ages + "\n")) << told.console << told.messages;
  const std::string not_looked_at = ages + "; whether they are alive and available is left out of account\n";
  const WholeRun all = run_tool_on(files, {"plan", "--matings", "1", "--all-animals"});
  EXPECT_TRUE(has(all.console, not_looked_at)) << all.console;
  EXPECT_TRUE(has(run_tool_on(files, {"matings", "--ages", "--all-animals"}).console, not_looked_at));
  files.erase("herd_available.txt");
  EXPECT_TRUE(has(run_tool_on(files, plan).console, not_looked_at)) << run_tool_on(files, plan).console;
}

TEST(AvailableRuns, AListOfAnotherExportIsTold) {
  Files files = prepared_herd().files;
  files["herd_available.txt"] = "sven\nnobody\npuck\n";
  const WholeRun run = run_tool_on(files, {"matings"});
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_TRUE(has(run.messages, "herd_available.txt: 1 of its identifications are of no animal")) << run.messages;
  files["herd_available.txt"] = "nobody\n";
  const WholeRun refused = run_tool_on(files, {"matings"});
  EXPECT_EQ(refused.exit_status, 1);
  EXPECT_TRUE(has(refused.messages, "no animal of the data file stands in this list")) << refused.messages;
  files["herd_available.txt"] = std::string("a\0b\n", 4);
  EXPECT_TRUE(has(run_tool_on(files, {"plan"}).messages, "cannot be read"));
}

}  // namespace
}  // namespace pedigreewatch::test
