// Whole runs of `pedigreewatch-tools plan`: what is written, and what is refused with nothing written.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/pedigrees.h"
#include "support/program_run.h"
#include "support/read_table.h"
#include "support/steer_lines.h"
#include "support/written_workbook.h"

namespace pedigreewatch::test {
namespace {

// Ad and Fie share their father Za; Bo, Cor and Eva are full sibs. The one litter of 2014 is Zo's.
const std::string herd =
    "id;sex;birthdate;sire;dam\n"
    "pa;m;01-01-2010;;\n"
    "ma;f;01-01-2010;;\n"
    "za;m;01-01-2010;;\n"
    "zo;f;01-01-2010;;\n"
    "ad;m;01-01-2012;za;zo\n"
    "bo;m;01-01-2013;pa;ma\n"
    "cor;m;01-01-2013;pa;ma\n"
    "eva;f;01-01-2013;pa;ma\n"
    "fie;f;01-01-2013;za;\n"
    "gijs;m;01-01-2014;pa;zo\n";

bool has(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

WholeRun plan(std::vector<std::string> options, const Files& more = {}, const SteerLines& steer = {}) {
  Files files = files_of(herd, steer);
  files.insert(more.begin(), more.end());
  options.insert(options.begin(), "plan");
  return run_program_on(files, tools_with(options));
}

SteerLines in_dutch() {
  SteerLines steer;
  steer.language = "nl";
  return steer;
}

const Files lists = {{"m.txt", "ad\nbo\n"}, {"f.txt", "eva\nfie\n"}};

std::vector<std::string> with_lists(std::vector<std::string> options) {
  const std::vector<std::string> named = {"--males", "m.txt", "--females", "f.txt", "--matings", "2"};
  options.insert(options.begin(), named.begin(), named.end());
  return options;
}

Files and_file(const std::string& name, const std::string& content) {
  Files files = lists;
  files[name] = content;
  return files;
}

void expect_nothing_written(const WholeRun& run) {
  EXPECT_EQ(run.exit_status, 1);
  for (const std::string name : {"dogs_plan.tsv", "dogs_contributions.tsv", "dogs_plan.html"}) {
    EXPECT_EQ(run.files.count(name), 0U) << name;
  }
  EXPECT_TRUE(has(run.messages, "nothing was written")) << run.messages;
}

TEST(PlanRun, WritesPairsContributionsAndAPage) {
  const WholeRun run = plan(with_lists({}), lists);
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_EQ(run.messages, "");
  EXPECT_EQ(
      run.file("dogs_plan.tsv"),
      "female\tmale\tmatings\tF\tkinship\tfemale_name\tmale_name\twished\tancestor_1\tancestor_1_name\tcontribution_1\n"
      "eva\tad\t1\t0\t0\t\t\t\t\t\t\n"
      "fie\tbo\t1\t0\t0\t\t\t\t\t\t\n");
  const std::string contributions = run.file("dogs_contributions.tsv");
  // All alike, Ad: (1/2 + 0 + 0 + 1/8) / 4; Eva: (0 + 1/4 + 1/2 + 0) / 4.
  EXPECT_TRUE(has(contributions, "\nad\t\tmale\t2012\t0.15625\t")) << contributions;
  EXPECT_TRUE(has(contributions, "\neva\t\tfemale\t2013\t0.1875\t")) << contributions;
  EXPECT_TRUE(has(run.file("dogs_plan.html"), "<h1>Breeding plan: ")) << "a page";
  EXPECT_TRUE(has(run.console, "males: 2, of the list\nfemales: 2, of the list\nmatings: 2\n")) << run.console;
  EXPECT_TRUE(has(run.console, "whole numbers: mean kinship 0.17187500")) << run.console;
  EXPECT_TRUE(has(run.console, "pairs: mean F 0.00000000")) << run.console;
}

TEST(PlanRun, AWorkbookHasBothTablesAndTheComparison) {
  const WholeRun run = plan(with_lists({"--workbook"}), lists);
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_EQ(run.files.count("dogs_plan.tsv") + run.files.count("dogs_contributions.tsv"), 0U);
  const std::string workbook = run.file("dogs_plan.xlsx");
  EXPECT_EQ(sheets_of(workbook), (std::vector<std::string>{"plan", "contributions", "comparison"}));
  const WholeRun texts = plan(with_lists({}), lists);
  expect_same_cells(sheet_of(workbook, "plan"), read_table(texts.file("dogs_plan.tsv")));
  expect_same_cells(sheet_of(workbook, "contributions"), read_table(texts.file("dogs_contributions.tsv")));
  const ReadTable ways = sheet_of(workbook, "comparison");
  ASSERT_EQ(ways.rows.size(), 5U);
  EXPECT_EQ(ways.cell(4, "way"), "plan");
  EXPECT_EQ(ways.cell(4, "mean_kinship"), "0.171875");  // (4 x 1/2 + 2 x (1/8 + 1/4)) / 16
  EXPECT_EQ(ways.cell(4, "mean_F"), "0");
  EXPECT_EQ(ways.cell(4, "males"), "2");
  EXPECT_EQ(ways.cell(4, "top_male_share"), "0.5");
}

TEST(PlanRun, SpeaksTheLanguageOfTheSteerFile) {
  const WholeRun run = plan(with_lists({}), lists, in_dutch());
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_TRUE(has(run.console, "mannelijke dieren: 2, uit de lijst\n")) << run.console;
  EXPECT_TRUE(has(run.file("dogs_plan.html"), "<html lang=\"nl\">"));
  EXPECT_TRUE(has(run.file("dogs_plan.html"), "Fokplan: "));
}

TEST(PlanRun, TakesAnimalsOfTheAgesOfParentsAndTellsWho) {
  // Sires were 2 and 3 years old (Ad at 2; the litter of 2013 at 3 three times, Fie at 3, Gijs at 4): births of dams
  // too.
  const WholeRun run = plan({"--matings", "1"});
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_TRUE(has(run.console, "males: 3, of 2 to 4 years (5 to 95 in 100 of the parents' ages at 6 births"))
      << run.console;
  const std::string contributions = run.file("dogs_contributions.tsv");
  EXPECT_TRUE(has(contributions, "\npa\t\tmale\t2010\t\t\t\t0\ttoo old\n")) << contributions;
  EXPECT_TRUE(has(contributions, "\ngijs\t\tmale\t2014\t\t\t\t0\ttoo young\n")) << contributions;
}

TEST(PlanRun, CountsTheLittersOfTheLastFullYear) {
  const WholeRun run = plan({"--years", "3"});
  EXPECT_TRUE(has(run.console, "matings: 1, the litters of 2014\n")) << run.console;
  EXPECT_TRUE(has(run.console, "males: 4, born 2012 to 2014\n")) << run.console;
}

TEST(PlanRun, LeavesOutWhoStandsInTheListOfTheDesk) {
  const std::string list = "id\twhy\twhen\nad\tsold\t2026-11-22\nnobody\tdead\t2026-11-22\n\"fie\"\t\t\n";
  const WholeRun run =
      plan({"--years", "3", "--matings", "1", "--exclude", "dogs_left_out.tsv"}, {{"dogs_left_out.tsv", list}});
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_TRUE(has(run.file("dogs_contributions.tsv"), "\nad\t\tmale\t2012\t\t\t\t0\texcluded\n"));
  EXPECT_TRUE(has(run.file("dogs_contributions.tsv"), "\nfie\t\tfemale\t2013\t\t\t\t0\texcluded\n"));
  EXPECT_TRUE(has(run.messages,
                  "dogs_left_out.tsv: animals that this data file does not have, and that are left out "
                  "anyway: 1\n"))
      << run.messages;
}

TEST(PlanRun, LeavesOutWhoShallNotBeTaken) {
  const WholeRun run =
      plan({"--years", "3", "--matings", "1", "--exclude", "x.txt", "--known-parents"}, {{"x.txt", "ad\nfie\n"}});
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  const std::string contributions = run.file("dogs_contributions.tsv");
  EXPECT_TRUE(has(contributions, "\nad\t\tmale\t2012\t\t\t\t0\texcluded\n")) << contributions;
  const WholeRun known = plan({"--years", "3", "--matings", "1", "--known-parents"});
  EXPECT_TRUE(has(known.file("dogs_contributions.tsv"), "\nfie\t\tfemale\t2013\t\t\t\t0\tfew known ancestors\n"));
  const WholeRun deep = plan({"--years", "3", "--matings", "1", "--least-generations", "0.6"});
  EXPECT_TRUE(has(deep.file("dogs_contributions.tsv"), "\nfie\t\tfemale\t2013\t\t\t\t0\tfew known ancestors\n"));
  const WholeRun half = plan({"--years", "3", "--matings", "1", "--least-generations", "0.5"});
  EXPECT_FALSE(has(half.file("dogs_contributions.tsv"), "few known ancestors"));
}

TEST(PlanRun, KeepsToNumbersForbiddenAndWishedPairs) {
  WholeRun run = plan(with_lists({"--forbidden", "p.txt"}), and_file("p.txt", "ad;eva\n"));
  EXPECT_TRUE(has(run.file("dogs_plan.tsv"), "\neva\tbo\t1\t0.25\t0.25\t\t\t\tma\t\t0.125\n"))
      << run.file("dogs_plan.tsv");
  run = plan(with_lists({"--wished", "p.txt", "--most-f", "10%"}), and_file("p.txt",
                                                                            "\xEF\xBB\xBF"
                                                                            "fie\tad\r\n"));
  EXPECT_TRUE(
      has(run.messages,
          "the pairs cannot be made: 1 female should have 1 mating, and all the males that may go with them, 0;"))
      << run.messages;
  run = plan(with_lists({"--wished", "p.txt", "--most-f", "25%"}), and_file("p.txt", "fie, ad\n"));
  EXPECT_TRUE(has(run.file("dogs_plan.tsv"), "\nfie\tad\t1\t0.125\t0.125\t\t\tyes\tza\t\t0.125\n"));
  // Without the wish it would be 0: Eva and Bo are left for each other.
  EXPECT_TRUE(
      has(run.console,
          "pairs: mean F 0.18750000; with these numbers and the pairs wished for, and without the pairs that may "
          "not be, no other pairs have a lower one"))
      << run.console;
  run = plan(with_lists({"--numbers", "n.txt"}), and_file("n.txt", "id number\nbo 2\n"));
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_TRUE(has(run.file("dogs_plan.tsv"), "\neva\tbo\t1\t"));
  EXPECT_TRUE(has(run.file("dogs_plan.tsv"), "\nfie\tbo\t1\t"));
}

TEST(PlanRun, LooksForTheHighestValues) {
  const WholeRun run = plan(with_lists({"--values", "v.txt", "--rate", "20"}),
                            and_file("v.txt", "id;value\nad;100,5\nbo;90\neva;80\nza;3\n"));
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_EQ(run.messages, "v.txt: values of animals that are no candidates are not used: 1\n");
  EXPECT_TRUE(has(run.console, "highest mean breeding value within the limits")) << run.console;
  EXPECT_TRUE(has(run.console, "inbreeding a generation, % | mean kinship, % | mean breeding value\n"));
}

TEST(PlanRun, RefusesBadListsWithFileAndLine) {
  const struct {
    std::string option, content, message;
  } cases[] = {
      {"--males", "bo\nnobody\n", "x.txt, line 2: \"nobody\": no animal has this identification"},
      {"--males", "bo\neva\n", "x.txt, line 2: \"eva\": a male was expected, this animal is female"},
      {"--females", "\nbo\n", "x.txt, line 2: \"bo\": a female was expected, this animal is male"},
      {"--females", "\n \n", "x.txt: nothing stands in this file"},
      {"--exclude", "nobody\n", "x.txt, line 1: \"nobody\": no animal has this identification"},
      {"--numbers", "bo\n", "x.txt, line 1: \"bo\": a second field was expected"},
      {"--numbers", "bo 1\nad many\n", "x.txt, line 2: \"ad\": a number of matings such as 3 or 2-5 was expected"},
      {"--numbers", "pa 1\n", "x.txt, line 1: \"pa\": this animal is none of the candidates"},
      {"--values", "bo 1\nad high\n", "x.txt, line 2: \"ad\": a breeding value, which is a number, was expected"},
      {"--values", "pa 1\n", "x.txt: none of its animals is a candidate: there is no breeding value to plan with"},
      {"--values", "bo 1\nad nan\n", "x.txt, line 2: \"ad\": a breeding value, which is a number, was expected"},
      {"--forbidden", "eva nobody\n", "x.txt, line 1: \"nobody\": no animal has this identification"},
      {"--forbidden", "eva fie\n", "x.txt, line 1: \"eva\": a female and a male were expected"},
      {"--wished", "eva bo\nfie pa\n", "x.txt, line 2: \"pa\": this animal is none of the candidates"},
      {"--wished", "eva bo\neva ad\n", "x.txt, line 2: \"eva\": wished for more often than its number"},
      {"--males", std::string("b\0o\n", 4), "x.txt: a text in UTF-8 or Windows-1252 was expected"},
  };
  for (const auto& entry : cases) {
    SCOPED_TRACE(entry.option + " " + entry.content);
    const WholeRun run = plan(with_lists({entry.option, "x.txt"}), and_file("x.txt", entry.content));
    if (run.exit_status == 2) {  // lists of candidates are given once
      Files files = lists;
      files[entry.option == "--males" ? "m.txt" : "f.txt"] = entry.content;
      const WholeRun other = plan(with_lists({}), files);
      expect_nothing_written(other);
      EXPECT_TRUE(has(other.messages, entry.message.substr(1))) << other.messages;
      continue;
    }
    expect_nothing_written(run);
    EXPECT_TRUE(has(run.messages, entry.message)) << run.messages;
  }
  const WholeRun missing = plan(with_lists({"--values", "none.txt"}), lists);
  expect_nothing_written(missing);
  EXPECT_TRUE(has(missing.messages, "\"none.txt\": the file of --values could not be opened"));
}

TEST(PlanRun, RefusesAPairThatIsWishedAndForbidden) {
  Files files = and_file("w.txt", "eva bo\n");
  files["x.txt"] = "bo eva\n";
  const WholeRun run = plan(with_lists({"--wished", "w.txt", "--forbidden", "x.txt"}), files);
  expect_nothing_written(run);
  EXPECT_TRUE(has(run.messages, "w.txt, line 1: \"bo\": this pair is forbidden too")) << run.messages;
}

TEST(PlanRun, RefusesNumbersThatCannotBe) {
  std::vector<std::string> options = {"--males", "m.txt", "--females", "f.txt", "--matings", "3"};
  const WholeRun run = plan(options, lists);
  expect_nothing_written(run);
  EXPECT_TRUE(has(run.messages,
                  "there is no room for 3 matings: with 2 females there is room for 2 in all; give fewer --matings, or "
                  "raise --most-per-female"))
      << run.messages;
  const WholeRun fixed = plan(with_lists({"--numbers", "n.txt"}), and_file("n.txt", "bo 3\n"));
  expect_nothing_written(fixed);
  EXPECT_TRUE(has(fixed.messages, "there is no room in 2 matings: what must be used of 2 males takes 3 already;"))
      << fixed.messages;
}

TEST(PlanRun, NamesFemalesWithoutAMale) {
  const Files files = {{"m.txt", "bo\ncor\n"}, {"f.txt", "eva\nfie\n"}};
  const WholeRun run = plan(with_lists({"--most-f", "0.2"}), files);
  expect_nothing_written(run);
  EXPECT_TRUE(has(
      run.messages,
      "the pairs cannot be made: 1 female should have 1 mating, and all the males that may go with them, 0; raise "
      "--most-f, forbid fewer pairs, or give more candidates. The females:\n  eva\nno male at all may go with: eva\n"))
      << run.messages;
}

// Bo and Eva are full sibs: (1/2 + 1/4 + 1/4 + 1/2) / 4 whatever is done.
TEST(PlanRun, TellsTheRateThatWouldBeEnough) {
  const Files files = {{"m.txt", "bo\n"}, {"f.txt", "eva\n"}, {"v.txt", "bo 1\neva 2\n"}};
  const std::vector<std::string> options = {"--males",   "m.txt", "--females", "f.txt",
                                            "--matings", "1",     "--values",  "v.txt"};
  const WholeRun run = plan(options, files);
  expect_nothing_written(run);
  const std::string advice = "the lowest is 0.375000; give a higher --rate (from ";
  const std::size_t place = run.messages.find(advice);
  ASSERT_NE(place, std::string::npos) << run.messages;
  std::vector<std::string> enough = options;
  enough.push_back("--rate");
  enough.push_back(run.messages.substr(place + advice.size(), run.messages.find(')', place) - place - advice.size()));
  EXPECT_EQ(plan(enough, files).exit_status, 0);
}

TEST(PlanRun, RefusesWrongArguments) {
  const std::vector<std::vector<std::string>> all = {{"--matings", "0"},
                                                     {"--matings", "1000001"},
                                                     {"--most-f", "1.5"},
                                                     {"--rate", "0.5"},
                                                     {"--rate", "x", "--values", "v"},
                                                     {"--least-generations", "-1"},
                                                     {"--most-per-male", "2", "--least-per-male", "3"},
                                                     {"--contributions-only", "--most-f", "0.1"},
                                                     {"--years", "3", "--males", "m", "--females", "f"},
                                                     {"herd.txt"}};
  for (const std::vector<std::string>& options : all) {
    const WholeRun run = plan(options);
    EXPECT_EQ(run.exit_status, 2) << options.front();
    EXPECT_TRUE(has(run.messages, "pedigreewatch-tools plan: ")) << run.messages;
  }
}

TEST(PlanRun, OfContributionsAloneWritesNoPairs) {
  const WholeRun run = plan(with_lists({"--contributions-only"}), lists);
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_EQ(run.files.count("dogs_plan.tsv"), 0U);
  EXPECT_EQ(run.files.count("dogs_contributions.tsv"), 1U);
}

// The example that docs/plan.md works out by hand.
TEST(PlanRun, YieldsTheExampleOfTheManual) {
  Files files = files_of(
      "id;sex;birthdate;sire;dam\npa;m;01-01-2010;;\nma;f;01-01-2010;;\nad;m;01-01-2012;;\nbo;m;01-01-2012;pa;ma\n"
      "cor;m;01-01-2012;pa;ma\neva;f;01-01-2012;pa;ma\nfie;f;01-01-2012;;\n",
      {});
  files["m.txt"] = "ad\nbo\ncor\n";
  files["f.txt"] = "eva\nfie\n";
  const WholeRun run = run_program_on(files, tools_with({"plan", "--males", "m.txt", "--females", "f.txt", "--matings",
                                                         "4", "--most-per-female", "4"}));
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_TRUE(has(run.console, "least mean kinship within the limits: 0.14423077 (")) << run.console;
  EXPECT_TRUE(has(run.console, "whole numbers: mean kinship 0.14843750, 2.917 % above the best shares")) << run.console;
  EXPECT_TRUE(has(run.console, "pairs: mean F 0.00000000")) << run.console;
  EXPECT_TRUE(has(run.console, "all candidates alike                          15.972")) << run.console;
  EXPECT_TRUE(has(run.console, "pairs at random           14.844        85.156          6.25")) << run.console;
  const std::string pairs = run.file("dogs_plan.tsv");
  EXPECT_TRUE(has(pairs, "\neva\tad\t2\t0\t")) << pairs;
}

// Ko has no line of its own sex and no young, Lo none but is a sire, Mo counts as female by a word.
const std::string herd_without_sexes = herd +
                                       "ko;;01-01-2013;za;zo\n"
                                       "lo;?;01-01-2013;pa;zo\n"
                                       "mo;ewe;01-01-2013;pa;zo\n"
                                       "nel;f;01-01-2014;lo;zo\n";

WholeRun plan_without_sexes(std::vector<std::string> options, const Files& more = {}) {
  Files files = files_of(herd_without_sexes);
  files.insert(more.begin(), more.end());
  options.insert(options.begin(), "plan");
  return run_program_on(files, tools_with(options));
}

TEST(PlanRun, AnimalsOfUnknownSexAreToldAndLeftOut) {
  const WholeRun run = plan_without_sexes({"--years", "2", "--matings", "2"});
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_TRUE(has(run.console, "left out: 1 animal of these ages or years whose sex")) << run.console;
  const std::string contributions = run.file("dogs_contributions.tsv");
  EXPECT_TRUE(has(contributions, "\nko\t\t\t2013\t\t\t\t0\tsex unknown\n")) << contributions;
  EXPECT_TRUE(has(contributions, "\nlo\t\tmale\t2013\t")) << contributions;
  EXPECT_TRUE(has(contributions, "\nmo\t\tfemale\t2013\t")) << contributions;
}

TEST(PlanRun, AListTellsTheSexOfAnAnimalThatHasNone) {
  const Files named = {{"m.txt", "ad\nko\n"}, {"f.txt", "eva\nfie\n"}, {"p.txt", "ko eva\n"}};
  const std::vector<std::string> options = {"--males",   "m.txt", "--females", "f.txt",
                                            "--matings", "2",     "--wished",  "p.txt"};
  const WholeRun run = plan_without_sexes(options, named);
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_TRUE(has(run.file("dogs_plan.tsv"), "\neva\tko\t1\t")) << run.file("dogs_plan.tsv");
  Files both = named;
  both["f.txt"] = "eva\nfie\nko\n";
  const WholeRun refused = plan_without_sexes(options, both);
  expect_nothing_written(refused);
  EXPECT_TRUE(has(refused.messages, "f.txt, line 3: \"ko\": stands in the lists of both sexes")) << refused.messages;
  Files unnamed = named;
  unnamed["m.txt"] = "ad\nbo\n";
  const WholeRun unknown = plan_without_sexes(options, unnamed);
  expect_nothing_written(unknown);
  EXPECT_TRUE(has(unknown.messages, "p.txt, line 1: \"ko\": the data file does not tell the sex")) << unknown.messages;
}

// Ad 1.5 and Bo 2.5 have one mating each: their mean, and that of the females, which is 3.
TEST(PlanRun, ReadsADecimalCommaBehindABlank) {
  const WholeRun run = plan(with_lists({"--values", "v.txt", "--rate", "100"}),
                            and_file("v.txt", "ad 1,5\nbo\t2,5\neva,3.0\nfie;3,0\n"));
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_TRUE(has(run.console, "mean breeding value within the limits at a kinship of at most 1.00000000: 2.7500"))
      << run.console;
}

TEST(PlanRun, ReadsIdentificationsWithBlanks) {
  const std::string spaced =
      "id;sex;birthdate;sire;dam\nNL 1;m;01-01-2010;;\nNL 2;m;01-01-2010;;\nNL 3;f;01-01-2010;;\n"
      "NL 4;m;01-01-2013;NL 1;NL 3\n";
  Files files = files_of(spaced, {});
  files["m.txt"] = "NL 1\nNL 2\n";
  files["f.txt"] = "NL 3\n";
  files["n.txt"] = "NL 1 0\nNL 2 1-2\n";
  const WholeRun run = run_program_on(
      files, tools_with({"plan", "--males", "m.txt", "--females", "f.txt", "--matings", "1", "--numbers", "n.txt"}));
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_TRUE(has(run.file("dogs_plan.tsv"), "\nNL 3\tNL 2\t1\t")) << run.file("dogs_plan.tsv");
}

// Three unrelated males have best shares of 4/3 matings each; with two at least only two of them are used.
TEST(PlanRun, SaysThatWholeNumbersLeaveAMaleOut) {
  std::string three = "id;sex;birthdate;sire;dam\n";
  for (const std::string id : {"a", "b", "c"}) three += id + ";m;01-01-2010;;\n";
  for (const std::string id : {"d", "e", "f", "g"}) three += id + ";f;01-01-2010;;\n";
  three += "h;f;01-01-2013;a;d\n";
  Files files = files_of(three, {});
  files["m.txt"] = "a\nb\nc\n";
  files["f.txt"] = "d\ne\nf\ng\n";
  const WholeRun run = run_program_on(
      files, tools_with({"plan", "--males", "m.txt", "--females", "f.txt", "--matings", "4", "--least-per-male", "2"}));
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_TRUE(has(run.file("dogs_contributions.tsv"), "\t0\tleft out by whole numbers\n"))
      << run.file("dogs_contributions.tsv");
}

TEST(PlanRun, RefusesTwoValuesOfOneAnimal) {
  for (const std::string option : {"--values", "--numbers"}) {
    const WholeRun run = plan(with_lists({option, "x.txt"}), and_file("x.txt", "ad 1\nbo 1\nad 2\n"));
    expect_nothing_written(run);
    EXPECT_TRUE(has(run.messages, "x.txt, line 3: \"ad\": another value stands on line 1; take one of them out"))
        << run.messages;
    const WholeRun same = plan(with_lists({option, "x.txt"}), and_file("x.txt", "ad 1\nbo 1\nad 1\n"));
    EXPECT_EQ(same.exit_status, 0);
    EXPECT_TRUE(has(same.messages, "x.txt, line 3: \"ad\": stands in the list already; taken once")) << same.messages;
  }
}

TEST(PlanRun, AFirstLineIsAHeadingOnlyWithoutDigitsAndIsTold) {
  const WholeRun run = plan(with_lists({"--numbers", "x.txt"}), and_file("x.txt", "animal;number\nbo;2\n"));
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_TRUE(has(run.console, "x.txt, line 1: taken for the names of the columns: \"animal number\"\n"))
      << run.console;
  for (const std::string first : {"NL-1;high", "adje;1x", "adje"}) {
    const WholeRun refused = plan(with_lists({"--values", "x.txt"}), and_file("x.txt", first + "\nbo;2\n"));
    expect_nothing_written(refused);
    EXPECT_TRUE(has(refused.messages, "x.txt, line 1: ")) << refused.messages;
  }
}

TEST(PlanRun, APairWishedForTwiceIsTakenOnce) {
  const WholeRun run = plan(with_lists({"--wished", "x.txt"}), and_file("x.txt", "eva bo\nbo eva\n"));
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_EQ(run.messages, "x.txt, line 2: \"eva\": this pair stands in the list already; taken once\n");
  EXPECT_TRUE(has(run.file("dogs_plan.tsv"), "\neva\tbo\t1\t0.25\t")) << run.file("dogs_plan.tsv");
}

TEST(PlanRun, NoFileOfAnEarlierPlanStaysBeside) {
  Files files = lists;
  files["dogs_plan.tsv"] = "of last year\n";
  files["dogs_plan.xlsx"] = "of last year\n";
  const WholeRun run = plan(with_lists({"--contributions-only"}), files);
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_EQ(run.files.count("dogs_plan.tsv") + run.files.count("dogs_plan.xlsx"), 0U);
  EXPECT_TRUE(has(run.console, "removed: dogs_plan.tsv, of an earlier plan\n")) << run.console;
  files["dogs_contributions.tsv"] = "of last year\n";
  const WholeRun workbook = plan(with_lists({"--workbook"}), files);
  EXPECT_EQ(workbook.files.count("dogs_plan.tsv") + workbook.files.count("dogs_contributions.tsv"), 0U);
  EXPECT_NE(workbook.file("dogs_plan.xlsx"), "of last year\n");
  // Where no plan is made everything stays.
  const WholeRun refused = plan(with_lists({"--contributions-only", "--values", "none.txt"}), files);
  EXPECT_EQ(refused.exit_status, 1);
  EXPECT_EQ(refused.file("dogs_plan.tsv"), "of last year\n");
}

TEST(PlanRun, TellsThatALeastForMalesIsTheReason) {
  const WholeRun run = plan(with_lists({"--least-per-male", "5"}), lists);
  expect_nothing_written(run);
  EXPECT_TRUE(has(run.messages,
                  "2 matings cannot be divided over 2 males such that each that is used gets as many as "
                  "--least-per-male says, and no more than --most-per-male; lower --least-per-male"))
      << run.messages;
}

TEST(PlanRun, SaysThatANumberWasGivenAsNothing) {
  const WholeRun run = plan(with_lists({"--numbers", "x.txt"}), and_file("x.txt", "ad 0\n"));
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  const std::string contributions = run.file("dogs_contributions.tsv");
  EXPECT_TRUE(has(contributions, "\t0\tits number is given as 0\n")) << contributions;
}

TEST(PlanRun, SpeaksDutchOfOneAnimal) {
  const Files files = {{"m.txt", "bo\n"}, {"f.txt", "eva\n"}};
  const std::vector<std::string> options = {"--males", "m.txt", "--females", "f.txt", "--matings", "1"};
  std::vector<std::string> limited = options;
  limited.insert(limited.end(), {"--most-f", "0.2"});
  const WholeRun run = plan(limited, files, in_dutch());
  EXPECT_TRUE(has(run.messages, "de behoefte van 1 moeder is 1 paring, die van alle vaders die met hen mogen 0;"))
      << run.messages;
  const WholeRun made = plan(options, files, in_dutch());
  EXPECT_TRUE(has(made.console, "E\xC3\xA9n vader heeft 100,0 % van de paringen: het plan steunt op hem."))
      << made.console;
  EXPECT_TRUE(has(made.console, "gemiddelde F 0,25000000;")) << made.console;
}

TEST(PlanRun, DoesNotReplaceAFileThatItReads) {
  Files files = lists;
  files["dogs_plan.tsv"] = "ad\nbo\n";
  const WholeRun run = plan({"--males", "dogs_plan.tsv", "--females", "f.txt", "--matings", "2"}, files);
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.file("dogs_plan.tsv"), "ad\nbo\n");
  EXPECT_EQ(run.files.count("dogs_contributions.tsv"), 0U);
}

// Lists of any bytes end in a message or a plan, and in nothing written or all.
TEST(HostilePlanLists, EndInAMessageOrAPlan) {
  RandomNumbers random{23};
  const std::vector<std::string> pieces = {
      "ad", "bo",  "eva",         "fie",   "\n",  "\n",   "\t",           ";",  ",",  " ",  "-",
      "1",  "2-3", "99999999999", "1e400", "nan", "\xFF", "\xEF\xBB\xBF", "\r", "\"", "-0", std::string(700, 'x')};
  for (int trial = 0; trial < 60; ++trial) {
    std::string text;
    for (int k = random.below(30); k >= 0; --k) {
      text += pieces[static_cast<std::size_t>(random.below(static_cast<std::int32_t>(pieces.size())))];
    }
    const std::vector<std::string> options = {"--exclude", "--numbers", "--values", "--forbidden", "--wished"};
    const WholeRun run =
        plan(with_lists({options[static_cast<std::size_t>(trial) % options.size()], "x.txt"}), and_file("x.txt", text));
    SCOPED_TRACE(text);
    ASSERT_TRUE(run.exit_status == 0 || run.exit_status == 1);
    EXPECT_EQ(run.files.count("dogs_plan.tsv"), run.exit_status == 0 ? 1U : 0U);
    EXPECT_EQ(run.messages.empty() && run.exit_status == 1, false);
  }
}

}  // namespace
}  // namespace pedigreewatch::test
