// Answers are kept beside the written files, and used again for the next export with the same headings.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/lines.h"
#include "support/prepared_run.h"
#include "support/program_run.h"

namespace pedigreewatch::test {
namespace {

/// An export that needs a word for the males, and the species.
const std::string this_year =
    "tag;sire;dam;sex;born\n"
    "A;;;x1;13-01-2001\n"
    "B;;;x2;14-01-2001\n"
    "C;A;B;x1;15-01-2003\n";

/// The same headings a year later.
const std::string next_year = this_year + "D;A;B;x2;16-01-2004\n";

WholeRun prepared(const Files& files, const std::string& name, const std::vector<std::string>& options = {}) {
  return run_program_on(files, prepare_with(options, name));
}

WholeRun first_run() {
  return prepared({{"herd.csv", this_year}}, "herd.csv", {"--male", "x1", "--species", "sheep"});
}

TEST(KeptAnswers, StandBesideTheWrittenFiles) {
  const WholeRun run = first_run();
  ASSERT_EQ(run.exit_status, 0) << run.messages;
  const std::string answers = run.file("herd.answers");
  EXPECT_EQ(answers.substr(answers.find("headings:")),
            "headings: tag | sire | dam | sex | born\n--male x1\n--species sheep\n");
  EXPECT_TRUE(has(run.console, "Kept: herd.answers, your answers"));
}

TEST(KeptAnswers, AreUsedForTheNextExportWithTheSameHeadings) {
  const WholeRun run =
      prepared({{"herd.answers", first_run().file("herd.answers")}, {"later.csv", next_year}}, "later.csv");
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_TRUE(has(run.console, "Answers       of an earlier export are used again: "));
  EXPECT_TRUE(has(run.file("later.txt"), "D;f;16-01-2004;A;B"));
  EXPECT_EQ(run.file("later.answers"), run.file("herd.answers"));
}

TEST(KeptAnswers, TheLanguageIsAnswered) {
  const WholeRun run =
      prepared({{"herd.csv", this_year}}, "herd.csv", {"--male", "x1", "--species", "sheep", "--language", "nl"});
  ASSERT_EQ(run.exit_status, 0) << run.messages;
  const std::string answers = run.file("herd.answers");
  EXPECT_TRUE(has(answers, "--species sheep\n--language nl\n"));
  const Files files = {{"herd.answers", answers}, {"later.csv", next_year}};
  const WholeRun later = prepared(files, "later.csv");
  EXPECT_TRUE(has(later.console, "Geschreven: later.txt"));
  EXPECT_TRUE(has(later.file("later.txt"), "D;v;16-01-2004;A;B"));
  EXPECT_EQ(later.file("later.answers"), answers);
  const WholeRun english = prepared(files, "later.csv", {"--language", "en"});
  EXPECT_TRUE(has(english.console, "Written: later.txt"));
  EXPECT_TRUE(has(english.file("later.answers"), "--language en\n"));
}

TEST(KeptAnswers, AreNotUsedForOtherHeadings) {
  std::string other = next_year;
  other.replace(0, 3, "Tag");
  const WholeRun run =
      prepared({{"herd.answers", first_run().file("herd.answers")}, {"later.csv", other}}, "later.csv");
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_FALSE(has(run.console, "Answers "));
  const WholeRun wished = prepared({{"herd.answers", first_run().file("herd.answers")}, {"later.csv", other}},
                                   "later.csv", {"--answers", "herd.answers"});
  EXPECT_EQ(wished.exit_status, 0) << wished.messages;
}

TEST(KeptAnswers, ALineThatFitsNoMoreIsToldWithItsNumber) {
  const std::string answers = first_run().file("herd.answers") + "--male q\n--column name=Title\nnonsense\n";
  const WholeRun run = prepared({{"herd.answers", answers}, {"later.csv", next_year}}, "later.csv");
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  for (const char* const line : {"line 6 fits this export no more and was passed over: --male q",
                                 "line 7 fits this export no more and was passed over: --column name=Title",
                                 "line 8 fits this export no more and was passed over: nonsense"}) {
    EXPECT_TRUE(has(run.console, line));
  }
}

TEST(KeptAnswers, ThoseOfAnotherExportAreNotWrittenOver) {
  const Files files = {{"herd.answers", "headings: a | b\n--species dog\n"}, {"herd.csv", this_year}};
  const std::vector<std::string> options = {"--male", "x1", "--species", "sheep"};
  const WholeRun refused = prepared(files, "herd.csv", options);
  EXPECT_EQ(refused.exit_status, 1);
  EXPECT_TRUE(has(refused.messages, "herd.answers exists already"));
  std::vector<std::string> forced = options;
  forced.emplace_back("--force");
  EXPECT_EQ(prepared(files, "herd.csv", forced).exit_status, 0);
}

TEST(KeptAnswers, AFileThatIsNotThereIsRefused) {
  const WholeRun run = prepared({{"herd.csv", this_year}}, "herd.csv", {"--answers", "gone.answers"});
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_TRUE(has(run.messages, "gone.answers"));
}

TEST(PreparedExport, WithoutAnyTextIsToldSo) {
  for (const std::string& bytes : {std::string("\n"), std::string(3'000'000, ';'), std::string(";;;\n, ,\n")}) {
    const WholeRun run = prepared({{"herd.csv", bytes}}, "herd.csv");
    EXPECT_EQ(run.exit_status, 1);
    EXPECT_TRUE(has(run.messages, "there is nothing in it but blanks, line ends and delimiters"));
  }
  const WholeRun mark = prepared({{"herd.csv", "\xEF\xBB\xBF"}}, "herd.csv");
  EXPECT_EQ(mark.exit_status, 1);
  EXPECT_TRUE(has(mark.messages, "the file is empty"));
}

TEST(PreparedExport, AsksForParentsThatMayBeUnknown) {
  std::string text = "id;sire;dam;sex;born\n";
  for (int i = 10; i < 40; ++i) {
    text += "NL" + std::to_string(i) + ";" + (i < 20 ? "" : "Zukauf") + ";;" + (i % 2 == 0 ? "male" : "female") +
            ";13-01-2001\n";
  }
  const WholeRun asked = prepared({{"herd.csv", text}}, "herd.csv", {"--species", "dog"});
  EXPECT_EQ(asked.exit_status, 1);
  EXPECT_TRUE(has(asked.messages, "may stand for \"unknown\", with their young: \"Zukauf\" (20)"));
  const WholeRun unknown = prepared({{"herd.csv", text}}, "herd.csv", {"--species", "dog", "--unknown", "Zukauf"});
  EXPECT_EQ(unknown.exit_status, 0) << unknown.messages;
  EXPECT_FALSE(has(unknown.file("herd.txt"), "Zukauf"));
  const WholeRun known = prepared({{"herd.csv", text}}, "herd.csv", {"--species", "dog", "--known", "all"});
  EXPECT_EQ(known.exit_status, 0) << known.messages;
  EXPECT_TRUE(has(known.file("herd.txt"), "Zukauf"));
}

TEST(PreparedExport, AsksForParentsThatStandForTheLineAbove) {
  const std::string book = this_year + "D;idem;B;x1;16-01-2004\nE;idem;\"\"\"\";x1;16-01-2004\n";
  std::vector<std::string> options = {"--male", "x1", "--species", "sheep", "--known", "\""};
  const WholeRun run = prepared({{"herd.csv", book}}, "herd.csv", options);
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_TRUE(
      has(run.messages, "* These parents stand for those of a line above, with their young: \"idem\" (2). Which line"))
      << run.messages;
  EXPECT_FALSE(has(run.messages, "may stand for"));
  options.insert(options.end(), {"--unknown", "idem"});
  EXPECT_EQ(prepared({{"herd.csv", book}}, "herd.csv", options).exit_status, 0);
}

TEST(PreparedExport, AsksForParentsThatAreExchanged) {
  std::string text = "id;sire;dam;sex;born\n";
  for (int i = 10; i < 40; ++i) {
    const std::string male = i < 20 ? "" : "NL" + std::to_string(10 + 2 * (i % 5));
    const std::string female = i < 20 ? "" : "NL" + std::to_string(11 + 2 * (i % 5));
    text += "NL" + std::to_string(i) + ";" + female + ";" + male + ";" + (i % 2 == 0 ? "male" : "female") + ";13-01-" +
            (i < 20 ? "2001" : "2003") + "\n";
  }
  const WholeRun asked = prepared({{"herd.csv", text}}, "herd.csv", {"--species", "dog"});
  EXPECT_EQ(asked.exit_status, 1);
  EXPECT_TRUE(has(asked.messages,
                  "Of 5 parents in \"sire\" (column 2), taken as the id of the father, whose sex is "
                  "known, 5 are of the other sex."));
  const WholeRun answered =
      prepared({{"herd.csv", text}}, "herd.csv", {"--species", "dog", "--column", "sire=dam", "--column", "dam=sire"});
  EXPECT_EQ(answered.exit_status, 0) << answered.messages;
  EXPECT_TRUE(has(answered.file("herd.txt"), "NL20;m;13-01-2003;NL10;NL11\n"));
}

}  // namespace
}  // namespace pedigreewatch::test
