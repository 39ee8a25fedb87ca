// Whole runs on books of litters, which hold several animals a line.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/lines.h"
#include "support/prepared_run.h"
#include "support/program_run.h"

namespace pedigreewatch::test {
namespace {

/// The first litter has two lambs, the second one none that lived, the third three, with a parent of the first.
const std::string book =
    "Litter;Ram;Ewe;Lambed;Tag 1;Sex 1;Tag 2;Sex 2;Tag 3;Sex 3\n"
    "1;s1;d1;25-03-2001;A;ram;B;ewe;;\n"
    "2;s1;d2;26-03-2001;-;;;;;\n"
    "\n"
    "3;A;d1;27-03-2003;C;ram;D;ewe;E;ewe\n";

WholeRun prepare(const std::vector<std::string>& options, const std::string& bytes = book, Files files = {}) {
  std::vector<std::string> all = {"prepare", "--column", "sire=Ram", "--column", "dam=Ewe"};
  all.insert(all.end(), options.begin(), options.end());
  all.emplace_back("book.csv");
  files["book.csv"] = bytes;
  return run_program_on(files, tools_with(all));
}

TEST(Litters, EachYoungGetsALineOfItsOwn) {
  const WholeRun run = prepare({"--young", "Tag 1,Tag 2,9"});
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_EQ(run.file("book.txt"),
            "id;sex;birthdate;sire;dam\n"
            "A;m;25-03-2001;s1;d1\nB;f;25-03-2001;s1;d1\n"
            "C;m;27-03-2003;A;d1\nD;f;27-03-2003;A;d1\nE;f;27-03-2003;A;d1\n");
  EXPECT_TRUE(has(run.console,
                  "Young         several a line, in \"Tag 1\" (column 5), \"Tag 2\" (column 7), \"Tag 3\" (column 9): "
                  "2 lines hold 5 animals, and each gets a line of its own\n"))
      << run.console;
  EXPECT_TRUE(has(run.console, "lines that are no animals were left out: 1: line 3 \"2 s1 d2 26-03-2001\""))
      << run.console;
}

/// Sixty calves, born in tens; the first of each ten has a twin, which bears a calf in the next ten.
std::string book_of_twins(const std::string& below_the_header) {
  std::string text = "Ear tag;Sire;Dam;Sex;Born;Twin\n" + below_the_header;
  for (int i = 0; i < 60; ++i) {
    const std::string year = std::to_string(2000 + i / 10);
    const std::string twin = i % 10 == 0 ? "NL" + std::to_string(900 + i) : "";
    const std::string dam = i % 10 == 5 ? "NL" + std::to_string(900 + i / 10 * 10 - 10) : "NL101";
    text += "NL" + std::to_string(100 + i) + ";" + (i < 10 ? "" : "NL100") + ";" + (i < 10 ? "" : dam) + ";" +
            (i % 2 == 0 ? "bull" : "cow") + ";17-05-" + year + ";" + twin + "\n";
  }
  return text;
}

TEST(Litters, RareTwinsAreSeenBelowALineOfUnitsToo) {
  const auto written = [](const std::string& below_the_header) {
    const WholeRun run = run_program_on({{"calves.csv", book_of_twins(below_the_header)}},
                                        tools_with({"prepare", "--species", "cattle", "calves.csv"}));
    EXPECT_EQ(run.exit_status, 0) << run.messages;
    return run.file("calves.txt");
  };
  const std::string sound = written("");
  EXPECT_TRUE(has(sound, "\nNL950;")) << "a twin";
  EXPECT_EQ(written("(no.);(no.);(no.);(m/f);(dd-mm-yyyy);(no.)\n"), sound);
  EXPECT_EQ(written("1;2;3;4;5;6\n"), sound);
}

TEST(Litters, YoungWithoutASexOfTheirOwnGetItFromTheirYoung) {
  const std::string calves =
      "Calf;Sire;Dam;Sex;Born;Twin\n"
      "A;;;m;25-03-2001;B\n"
      "C;;;m;25-03-2001;D\n"
      "E;A;B;f;26-03-2004;F\n";
  const WholeRun run = run_program_on(
      {{"calves.csv", calves}}, tools_with({"prepare", "--species", "cattle", "--young", "Calf,Twin", "calves.csv"}));
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_EQ(run.file("calves.txt"),
            "id;sex;birthdate;sire;dam\n"
            "A;m;25-03-2001;;\nB;f;25-03-2001;;\nC;m;25-03-2001;;\nD;;25-03-2001;;\n"
            "E;f;26-03-2004;A;B\nF;;26-03-2004;A;B\n");
  EXPECT_TRUE(
      has(run.console, "fathers, so male: 0; mothers, so female: 1; both, so unknown: 0; neither, so unknown: 2"))
      << run.console;
}

TEST(Prepare, AnExportWithoutSexesRuns) {
  const std::string herd = "ID;Sire;Dam;Born\nA;;;25-03-2001\nB;;;25-03-2001\nC;A;B;26-03-2004\n";
  const WholeRun asked =
      run_program_on({{"herd.csv", herd}}, tools_with({"prepare", "--species", "sheep", "herd.csv"}));
  EXPECT_EQ(asked.exit_status, 1);
  EXPECT_TRUE(has(asked.messages, "--column sex=none; fathers then become male")) << asked.messages;
  const std::vector<std::string> options = {"--species", "sheep", "--column", "sex=none"};
  const WholeRun run = run_prepared("herd.csv", herd, options);
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_EQ(run.file("herd.txt"), "id;sex;birthdate;sire;dam\nA;m;25-03-2001;;\nB;f;25-03-2001;;\nC;;26-03-2004;A;B\n");
  const WholeRun without_id = run_program_on(
      {{"herd.csv", herd}},
      tools_with({"prepare", "--species", "sheep", "--column", "sex=none", "--column", "birthdate=none", "herd.csv"}));
  EXPECT_EQ(without_id.exit_status, 1);
  EXPECT_TRUE(has(without_id.messages, "No column was recognised for the date of birth")) << without_id.messages;
}

TEST(Litters, TheLinesOfTheExportAreKept) {
  const std::string lines = prepare({"--young", "Tag 1,Tag 2,Tag 3"}).file("book.lines");
  EXPECT_TRUE(has(lines, "line\t3\t2\nline\t4\t5\nline\t5\t5\nline\t6\t5\n")) << lines;
}

TEST(Litters, AnswersNameTheColumns) {
  const WholeRun run = prepare({"--young", "5,7,9"});
  EXPECT_TRUE(has(run.file("book.answers"), "--young Tag 1;Tag 2;Tag 3\n")) << run.file("book.answers");
  const WholeRun again = run_program_on({{"book.csv", book}, {"book.answers", run.file("book.answers")}},
                                        tools_with({"prepare", "book.csv"}));
  EXPECT_EQ(again.exit_status, 0) << again.messages;
  EXPECT_EQ(again.file("book.txt"), run.file("book.txt"));
}

TEST(Litters, AnAnswerAboutColumnsThatAreGoneIsToldWithItsLine) {
  const WholeRun run = prepare({"--answers", "old.answers"}, book,
                               {{"old.answers", "headings: x\n--young Tag 1;Tag 8\n--species sheep\n"}});
  EXPECT_TRUE(has(run.console, "line 2 fits this export no more and was passed over: --young Tag 1;Tag 8"))
      << run.console;
}

TEST(Litters, ACorrectionFindsTheYoungOfALine) {
  const WholeRun run = prepare({"--young", "5,7,9", "--corrections", "list.tsv"}, book,
                               {{"list.tsv", "id\tfield\twas\tbecomes\nD\tsex\tewe\tram\nE\tleave out\t\t\n"}});
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_TRUE(has(run.file("book.txt"), "C;m;27-03-2003;A;d1\nD;m;27-03-2003;A;d1\n")) << run.file("book.txt");
  EXPECT_FALSE(has(run.file("book.txt"), "E;")) << run.file("book.txt");
}

TEST(Litters, ColumnsThatAreNotThereAreAsked) {
  const WholeRun run = prepare({"--young", "Tag 1,Tag 12"});
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_TRUE(
      has(run.messages, "--young \"Tag 12\": there is no column of that heading or number (there are 10 columns)."))
      << run.messages;
  EXPECT_EQ(prepare({"--young", "all"}).exit_status, 2);
}

/// Twelve litters of two lambs, whose parents are bought: nothing tells but the headings.
std::string book_of_strangers() {
  std::string bytes = "Ram;Ewe;Born;Lamb 1;Sex 1;Lamb 2;Sex 2\n";
  for (int k = 10; k < 22; ++k) {
    const std::string number = std::to_string(k);
    bytes += "s7" + number + ";d8" + number + ";25-03-2001;a" + number + ";ram;b" + number + ";ewe\n";
  }
  return bytes;
}

TEST(Litters, AreAskedAboutWhereOnlyTheHeadingsTell) {
  const WholeRun run = prepare({}, book_of_strangers());
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_TRUE(has(run.messages,
                  "* It looks as if a line holds several animals, such as the young of a litter, in \"Lamb 1\" "
                  "(column 4), \"Lamb 2\" (column 6). If so, each gets a line of its own: --young 4,6. If a "
                  "line is one animal: --young none.\n"))
      << run.messages;
  EXPECT_FALSE(has(run.messages, "No column was recognised"));
  const WholeRun none =
      prepare({"--young", "none", "--column", "id=Lamb 1", "--column", "sex=Sex 1"}, book_of_strangers());
  EXPECT_EQ(none.exit_status, 0) << none.messages;
  EXPECT_TRUE(has(none.file("book.txt"), "a10;")) << none.file("book.txt");
  EXPECT_FALSE(has(none.file("book.txt"), "b10")) << none.file("book.txt");
}

}  // namespace
}  // namespace pedigreewatch::test
