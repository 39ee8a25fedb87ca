// Whole runs of `pedigreewatch-tools prepare --corrections`.
#include <gtest/gtest.h>

#include <string>

#include "support/program_run.h"

namespace pedigreewatch::test {
namespace {

const std::string herd =
    "Ear;Sire;Dam;Sex;Born\nA;;;m;25-05-2000\nB;;;f;25-05-2000\nC;A;B;m;25-05-1890\nD;A;B;f;25-05-2003\n";

WholeRun prepare_with(const std::string& list, const std::string& language = "en") {
  return run_program_on({{"herd.csv", herd}, {"list.tsv", list}},
                        tools_with({"prepare", "--column", "id=Ear", "--species", "sheep", "--language", language,
                                    "--corrections", "list.tsv", "herd.csv"}));
}

bool has(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST(PrepareCorrections, AreAppliedAndTold) {
  const WholeRun run = prepare_with(
      "id\tfield\twas\tbecomes\twhy\twhen\nC\tbirthdate\t25-05-1890\t25-05-2002\ttyping error\t2026-11-22\n"
      "D\tsire\tX\tA\t\t\nD\tdam\tQ\tC\t\t\nE\tdam\tQ\tC\t\t\nD\tcolour\tred\tgrey\t\t\n");
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_EQ(run.file("herd.txt"),
            "id;sex;birthdate;sire;dam\nA;m;25-05-2000;;\nB;f;25-05-2000;;\nC;m;25-05-2002;A;B\nD;f;25-05-2003;A;B\n");
  EXPECT_TRUE(has(run.console,
                  "Corrections applied: 1; already mended in the export: 1; not applied because something else stands "
                  "there now, the animal or column is not there, or another animal has the id: 3.\n"
                  "  \"D\", sire: \"A\" is already mended in your office program (line 5)\n"
                  "  \"D\", dam: was \"Q\", differs now: \"B\" (line 5); not corrected\n"
                  "  \"E\", dam: the export has no line of this animal; not corrected\n"
                  "  \"D\", colour: the export has no column for this; not corrected\n"))
      << run.console;
  EXPECT_EQ(run.file("herd.csv"), herd) << "the export stays as it is";
}

TEST(PrepareCorrections, AreToldByAllThatIsMadeOfTheData) {
  const std::string list = "C\tbirthdate\t25-05-1890\t25-05-2002\nD\tsex\tf\tm\n";
  Files files = prepare_with(list).files;
  EXPECT_TRUE(files["pedigreewatch.ini"].ends_with(
      "\n0\n0\ncorrections=2 bytes=" + std::to_string(files["herd.txt"].size()) + "\n"));
  const std::string told = "Corrections that these results contain and the export does not: 2.";
  const WholeRun page = run_program_on(files, tools_with({"page"}));
  EXPECT_TRUE(page.console.starts_with(told + "\n")) << page.console;
  EXPECT_TRUE(has(page.file("herd.html"), "<main>\n<p><strong>" + told + "</strong></p>\n"));
  const WholeRun card = run_program_on(files, tools_with({"animal", "D"}));
  EXPECT_TRUE(has(card.file("herd_D.html"), "<p><strong>" + told + "</strong></p>"));
  const WholeRun tables = run_program_on(files, tools_with({"tables"}));
  EXPECT_TRUE(has(tables.file("herd_years.tsv"), "\tcorrections_in_data\n"));
  EXPECT_TRUE(has(tables.file("herd_standing.tsv"), "\t2\n"));
  const WholeRun matings = run_program_on(files, tools_with({"matings"}));
  EXPECT_TRUE(has(matings.file("herd_matings.tsv"), "\tbeyond_limit\tcorrections_in_data\n"));
  EXPECT_TRUE(matings.file("herd_matings.tsv").ends_with("\t2\n"));
  EXPECT_EQ(run_program_on(files).exit_status, 0) << "the report does not mind the line";
  files["herd.txt"] += "E;m;25-05-2004;;\n";
  EXPECT_FALSE(has(run_program_on(files, tools_with({"page"})).console, "Corrections"))
      << "the data were changed since";
}

TEST(PrepareCorrections, TheirLineIsNoNameThatTheCheckMisses) {
  Files files = prepare_with("C\tbirthdate\t25-05-1890\t25-05-2002\nD\tsex\tf\tm\n").files;
  EXPECT_FALSE(has(run_program_on(files, tools_with({"check"})).file("herd_check.tsv"), "steer-rest"));
  std::string& steer = files["pedigreewatch.ini"];
  steer.insert(steer.find("corrections="), "black\n");
  EXPECT_TRUE(
      has(run_program_on(files, tools_with({"check"})).file("herd_check.tsv"), ", line 12: \"black\" is not read"))
      << "a list that has really slipped";
  steer.replace(steer.find("black"), std::string::npos, "corrections=2 bytes=7\nblack\n");
  EXPECT_TRUE(
      has(run_program_on(files, tools_with({"check"})).file("herd_check.tsv"), "\"corrections=2 bytes=7\" is not read"))
      << "it is not the last one";
}

TEST(PrepareCorrections, NoAnimalGetsTheIdOfAnother) {
  const std::string list = "C\tid\tC\tB\nD\tid\tD\tE\n";
  const WholeRun run = prepare_with(list);
  EXPECT_EQ(run.file("herd.txt"),
            "id;sex;birthdate;sire;dam\nA;m;25-05-2000;;\nB;f;25-05-2000;;\nC;m;25-05-1890;A;B\nE;f;25-05-2003;A;B\n");
  EXPECT_TRUE(has(run.console, "Corrections applied: 1; already mended in the export: 0;")) << run.console;
  EXPECT_TRUE(has(run.console,
                  "has the id: 1.\n  \"C\": its id cannot become \"B\", which is that of another animal (line 3); not "
                  "corrected\n"));
  const WholeRun named = run_program_on(
      {{"herd.csv",
        "Id;Name;Sire;Dam;Sex;Born\nA;;;;m;25-05-2000\nB;Bel;;;f;25-05-2000\n"
        "C;;A;B;m;25-05-2002\n"},
       {"list.tsv", list}},
      tools_with({"prepare", "--species", "sheep", "--language", "nl", "--corrections", "list.tsv", "herd.csv"}));
  EXPECT_TRUE(has(named.console,
                  "  \"C\": het id kan geen \"B\" worden, want dat is van een ander dier, \"Bel\" (regel 3); niet "
                  "gecorrigeerd\n"))
      << named.console << named.messages;
}

TEST(PrepareCorrections, SpeakDutch) {
  const WholeRun run = prepare_with("C\tbirthdate\t25-05-1890\t25-05-2002\nD\tdam\tQ\tC\n", "nl");
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_TRUE(has(run.console, "Toegepaste correcties: 1; al hersteld in de export: 0; niet toegepast")) << run.console;
  EXPECT_TRUE(has(run.console, "  \"D\", dam: was \"Q\", is nu anders: \"B\" (regel 5); niet gecorrigeerd\n"));
}

TEST(PrepareCorrections, AListInAnotherEncodingIsRead) {
  const std::string wide = "C\tname\tx\ty\n";
  std::string utf_16 = "\xFF\xFE";
  for (const char letter : wide) utf_16 += {letter, '\0'};
  const WholeRun run = prepare_with(utf_16);
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_TRUE(has(run.console, "\"C\", name: the export has no column for this")) << run.console << run.messages;
}

TEST(PrepareCorrections, AListThatHoldsNoneIsTold) {
  for (const char* const list : {"", "id\tfield\twas\tbecomes\twhy\twhen\n"}) {
    const WholeRun run = prepare_with(list);
    EXPECT_EQ(run.exit_status, 0);
    EXPECT_EQ(run.messages, "list.tsv: this list holds no corrections\n");
    EXPECT_EQ(prepare_with(list, "nl").messages, "list.tsv: in deze lijst staan geen correcties\n");
  }
  EXPECT_EQ(prepare_with("D\tsex\tf\tm\n").messages, "");
}

TEST(PrepareCorrections, WhatCannotBeReadStopsEverything) {
  const WholeRun run = prepare_with("C\tweight\t1\t2\nC birthdate\n");
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(
      run.messages,
      "list.tsv, line 1: \"weight\" is no field; expected was id, name, sire, dam, sex, birthdate, colour, breeder, "
      "subpopulation, import, \"leave out\" or \"same as\"\n"
      "list.tsv, line 2: \"C birthdate\": expected were id, field, was and becomes with tabs between them\n");
  EXPECT_EQ(run.files.count("herd.txt"), 0U);
  const WholeRun missing = run_program_on(
      {{"herd.csv", herd}}, tools_with({"prepare", "--language", "nl", "--corrections", "none.tsv", "herd.csv"}));
  EXPECT_EQ(missing.exit_status, 1);
  EXPECT_TRUE(has(missing.messages, "none.tsv: de lijst met correcties kon niet gelezen worden: ")) << missing.messages;
}

}  // namespace
}  // namespace pedigreewatch::test
