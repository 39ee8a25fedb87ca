// Whole runs of `pedigreewatch-tools matings`: what is written, what is refused, and what it has in common with a run
// of the program.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/program_run.h"
#include "support/sanitizers.h"
#include "support/steer_lines.h"

namespace pedigreewatch::test {
namespace {

// Bram and Tess are full sibs, Puck is their half sib; the last ten years begin in 2005. Their parents were 12 and 13.
const std::string village =
    "id;sex;birthdate;sire;dam\n"
    "rex;m;01-01-2001;;\n"
    "saar;f;01-01-2001;;\n"
    "mies;f;01-01-2001;;\n"
    "bram;m;01-01-2013;rex;saar\n"
    "tess;f;01-01-2013;rex;saar\n"
    "puck;f;01-01-2014;rex;mies\n";

bool has(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

SteerLines in_dutch() {
  SteerLines steer;
  steer.language = "nl";
  return steer;
}

WholeRun run_matings_on(const Files& files, std::vector<std::string> options = {}) {
  options.insert(options.begin(), "matings");
  return run_program_on(files, tools_with(options));
}

/// A run on the village with further files.
WholeRun matings(std::vector<std::string> options = {}, const Files& more = {}, const SteerLines& steer = {}) {
  Files files = files_of(village, steer);
  files.insert(more.begin(), more.end());
  return run_matings_on(files, std::move(options));
}

constexpr std::string_view nothing_more = "\t\t\t\t\t\t\t\t\t\t\t\t";  // cells of four ancestors

TEST(MatingsRun, WritesThePairsOfTheLastYearsTheLowestFFirst) {
  const WholeRun run = matings();
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_EQ(run.messages, "");
  EXPECT_EQ(
      run.console,
      "females born 2005 to 2014: 2\n  who of them is dead or sold is not told; none is 12 to 13 years old, as at least nine in ten dams were at the births of the last ten years: all of these years are taken\n"
      "males born 2005 to 2014: 1\n  who of them is dead or sold is not told; none is 12 to 13 years old, as at least nine in ten sires were at the births of the last ten years: all of these years are taken\n"
      "lowest F of the offspring: 12.50 %, puck x bram\n"
      "highest F of the offspring: 25.00 %, tess x bram\n"
      "F beyond 6.25 % (as of first cousins): 2 of 2 pairs\n"
      "females whose every mating is beyond that: 2 of 2; look for other males for them\n"
      "pairs with a male of whom fewer than three generations are known: 2; they stand last, and a low F says little "
      "there\n"
      "pairs written to dogs_matings.tsv: 2\n");
  const std::string table = run.file("dogs_matings.tsv");
  const std::string rows = table.substr(table.find('\n') + 1);
  // With Bram, Tess and Puck: Puck (0.125 + 0.125 + 0.5) / 3, Bram (0.5 + 0.25 + 0.125) / 3, Tess likewise.
  EXPECT_EQ(
      rows,
      "puck\tbram\t0.125\t0.125\t0.25\t0.291666667\trex\t0.125\t100.00" + std::string(nothing_more) +
          "\t1\t0\t1\t1\t1\t1\ntess\tbram\t0.25\t0.25\t0.291666667\t0.291666667\tsaar\t0.125\t50.00\trex\t0.125\t50.00" +
          std::string(nothing_more).substr(3) + "\t1\t0\t1\t1\t1\t1\n");
}

/// Rex and Saar were three years old; so are Wim and Mies when the next young are born.
const std::string young_village =
    "id;sex;birthdate;sire;dam\nrex;m;01-01-2010;;\nsaar;f;01-01-2010;;\nwim;m;01-01-2011;;\nmies;f;01-01-2011;;\n"
    "bram;m;01-01-2013;rex;saar\ntess;f;01-01-2013;rex;saar\n";

TEST(MatingsRun, WhereNobodySaysWhoIsThereTheAgesOfParentsAreProposed) {
  const WholeRun run = run_matings_on(files_of(young_village));
  EXPECT_TRUE(run.console.starts_with(
      "females: 1, of 3 years (5 to 95 in 100 of the parents' ages at 2 births of the last ten years); whether they "
      "are alive and available is left out of account\n  --years N takes those born in the last N years instead\n"
      "males: 1, of 3 years (5 to 95 in 100 of the parents' ages at 2 births of the last ten years); whether they "
      "are alive and available is left out of account\n  --years N takes those born in the last N years instead\n"))
      << run.console << run.messages;
  EXPECT_TRUE(has(run.file("dogs_matings.tsv"), "\nmies\twim\t"));
  const WholeRun of_years = run_matings_on(files_of(young_village), {"--years", "4"});
  EXPECT_TRUE(of_years.console.starts_with(
      "females born 2010 to 2013: 3\n  who of them is dead or sold is not told; at the births of the last ten years at "
      "least nine in ten dams were 3 years old: --ages keeps to those ages\n"))
      << of_years.console;
  EXPECT_TRUE(
      run_matings_on(files_of(young_village), {"--all-animals"}).console.starts_with("females born 2010 to 2013: 3\n"));
  const WholeRun dutch = run_matings_on(files_of(young_village, in_dutch()));
  EXPECT_TRUE(has(dutch.console, "\n  --years N neemt in plaats daarvan de dieren geboren in de laatste N jaar\n"))
      << dutch.console;
}

TEST(MatingsRun, FIsWhatARunShowsOfTheOffspring) {
  const WholeRun run = run_program_on(files_of(village + "pup;m;01-01-2016;bram;puck\n"));
  EXPECT_TRUE(has(run.file("dogs.out"), "2016  0.1250  ")) << run.file("dogs.out");
}

TEST(MatingsRun, SpeaksTheLanguageOfTheSteerFile) {
  const WholeRun run = matings({"--years", "2"}, {}, in_dutch());
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_EQ(
      run.console,
      "vrouwelijke dieren geboren 2013 tot en met 2014: 2\n  wie dood of verkocht is, is niet bekend; bij de geboorten van de laatste tien jaar waren minstens negen van de tien moeders 12 tot en met 13 jaar oud: --ages houdt zich daaraan\n"
      "mannelijke dieren geboren 2013 tot en met 2014: 1\n  wie dood of verkocht is, is niet bekend; bij de geboorten van de laatste tien jaar waren minstens negen van de tien vaders 12 tot en met 13 jaar oud: --ages houdt zich daaraan\n"
      "laagste F van de nakomelingen: 12,50 %, puck x bram\n"
      "hoogste F van de nakomelingen: 25,00 %, tess x bram\n"
      "F boven 6,25 % (zoals van neef en nicht): 2 van 2 paren\n"
      "vrouwelijke dieren bij wie elke paring daarboven ligt: 2 van 2; zoek voor hen andere mannetjes\n"
      "paren met een mannetje van wie minder dan drie generaties bekend zijn: 2; ze staan achteraan, en een lage F zegt "
      "daar weinig\n"
      "paren geschreven in dogs_matings.tsv: 2\n");
}

TEST(MatingsRun, TakesTheAnimalsOfListsWithAnyLineEndsAndAByteOrderMark) {
  const Files lists = {{"f.txt",
                        "\xEF\xBB\xBF"
                        "tess\r\n\r\n  mies\t\r\n"},
                       {"m.txt", "rex\nbram"}};
  const WholeRun run = matings({"--females", "f.txt", "--males=m.txt", "--best", "1"}, lists);
  EXPECT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_TRUE(has(run.console, "females of f.txt: 2\nmales of m.txt: 2\n")) << run.console;
  const std::string table = run.file("dogs_matings.tsv");
  EXPECT_TRUE(has(table, "\ntess\trex\t0.25\t")) << "Rex has the lower mean kinship";
  EXPECT_TRUE(has(table, "\nmies\trex\t0\t"));
  EXPECT_FALSE(has(table, "\tbram\t"));
}

TEST(MatingsRun, KeepsPairsUpToTheLimit) {
  for (const std::string limit : {"0.125", "12.5%", "0.2"}) {
    const WholeRun run = matings({"--limit", limit});
    EXPECT_EQ(run.exit_status, 0);
    EXPECT_TRUE(has(run.console, "2 of 2 pairs\n")) << run.console;
    EXPECT_TRUE(run.console.ends_with("there\npairs written to dogs_matings.tsv: 1\n")) << run.console;
  }
  const WholeRun none = matings({"--limit", "0"});
  EXPECT_EQ(none.exit_status, 0);
  EXPECT_TRUE(has(none.console, "pairs written to dogs_matings.tsv: 0\n"));
  EXPECT_TRUE(none.file("dogs_matings.tsv").ends_with("\tbeyond_limit\n"));
}

TEST(MatingsRun, WarnsOfPairsBeyondTheLimitOfTheBoardAndKeepsThem) {
  for (const std::string limit : {"0.2", "20%"}) {
    const WholeRun run = matings({"--most-f", limit});
    EXPECT_EQ(run.exit_status, 0);
    EXPECT_TRUE(has(run.console,
                    "F beyond 20.00 % (the limit of --most-f): 1 of 2 pairs\n"
                    "females whose every mating is beyond that: 1 of 2; look for other males for them\n"))
        << run.console;
    EXPECT_TRUE(has(run.console, "pairs written to dogs_matings.tsv: 2\n"));
  }
  EXPECT_FALSE(has(matings({"--most-f", "25%"}).console, "females whose every"));
  const WholeRun refused = matings({"--most-f", "6.25"});
  EXPECT_EQ(refused.exit_status, 2);
  EXPECT_TRUE(has(refused.messages, "--most-f \"6.25\": an F such as 0.0625 or 6.25% was expected"))
      << refused.messages;
}

TEST(MatingsRun, WritesCommasWhenAsked) {
  const WholeRun run = matings({"--csv"});
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_EQ(run.files.count("dogs_matings.tsv"), 0U);
  EXPECT_TRUE(has(run.file("dogs_matings.csv"), "\npuck,bram,0.125,0.125,"));
}

TEST(MatingsRun, LeavesOutWhatCannotBeUsedAndSaysSo) {
  const WholeRun run = matings({"--females", "f.txt"}, {{"f.txt", "tess\nbram\nnobody\ntess\n"}});
  EXPECT_EQ(run.exit_status, 1) << "somebody was left out";
  EXPECT_EQ(run.messages,
            "f.txt, line 2: \"bram\": a female was expected, this animal is male; left out\n"
            "f.txt, line 3: \"nobody\": no animal has this identification; left out\n"
            "f.txt, line 4: \"tess\": stands in line 1 already; taken once\n");
  EXPECT_TRUE(has(run.file("dogs_matings.tsv"), "\ntess\tbram\t"));
  const WholeRun dutch = matings({"--males", "m.txt"}, {{"m.txt", "bram\ntess\nniemand\nbram\n"}}, in_dutch());
  EXPECT_EQ(dutch.exit_status, 1);
  EXPECT_EQ(dutch.messages,
            "m.txt, regel 2: \"tess\": een mannelijk dier werd verwacht, dit is vrouwelijk; weggelaten\n"
            "m.txt, regel 3: \"niemand\": geen dier heeft deze identificatie; weggelaten\n"
            "m.txt, regel 4: \"bram\": staat al in regel 1; eenmaal meegenomen\n");
}

// Boris is the sire of Pien; of Fay and Gijs nothing tells the sex.
const std::string untold = village +
                           "boris;;01-01-2012;;\n"
                           "pien;f;01-01-2014;boris;mies\n"
                           "fay;?;01-01-2014;rex;mies\n"
                           "gijs;;01-01-2014;rex;saar\n";

TEST(MatingsRun, NobodyOfUntoldSexIsTakenForAFemale) {
  const WholeRun run = run_matings_on(files_of(untold), {"--years", "10"});
  EXPECT_TRUE(has(run.console, "females born 2005 to 2014: 3\n")) << run.console;
  EXPECT_TRUE(has(run.console, "males born 2005 to 2014: 2\n")) << run.console;
  EXPECT_TRUE(
      has(run.console,
          "\n  left out: 2 animals of these ages or years whose sex neither their lines nor young of them tell; name "
          "them in a list of males or females to look for their mates\n"))
      << run.console;
  const std::string table = run.file("dogs_matings.tsv");
  EXPECT_TRUE(has(table, "\ttess\tboris\t") || has(table, "\ntess\tboris\t"));
  EXPECT_FALSE(has(table, "fay"));
  EXPECT_FALSE(has(table, "gijs"));
}

TEST(MatingsRun, WhoNamesAnAnimalOfUntoldSexTellsIt) {
  Files files = files_of(untold);
  files["m.txt"] = "fay\nboris\n";
  const WholeRun named = run_matings_on(files, {"--males", "m.txt", "--years", "10"});
  EXPECT_EQ(named.messages, "");
  EXPECT_TRUE(has(named.console, "\n  left out: 1 animal of these ages or years whose sex neither its line nor"))
      << named.console;
  EXPECT_TRUE(has(named.file("dogs_matings.tsv"), "\ttess\tfay\t") ||
              has(named.file("dogs_matings.tsv"), "\ntess\tfay\t"));
  files["f.txt"] = "tess\nfay\n";
  const WholeRun both = run_matings_on(files, {"--males", "m.txt", "--females", "f.txt"});
  EXPECT_EQ(both.exit_status, 1);
  EXPECT_TRUE(has(both.messages, "fay: stands in the lists of both sexes, and the data file does not tell its sex"))
      << both.messages;
  files["f.txt"] = "tess\nboris\n";
  const WholeRun sire = run_matings_on(files, {"--males", "m.txt", "--females", "f.txt"});
  EXPECT_TRUE(has(sire.messages, "f.txt, line 2: \"boris\": a female was expected, this animal is male; left out"))
      << sire.messages;
}

TEST(MatingsRun, ARepeatedAnimalAloneIsNoFailure) {
  EXPECT_EQ(matings({"--females", "f.txt"}, {{"f.txt", "tess\ntess\n"}}).exit_status, 0);
}

TEST(MatingsRun, SaysTheFirstOfManyFaults) {
  std::string ids = "tess\n";
  for (int k = 0; k < 25; ++k) ids += "x" + std::to_string(k) + "\n";
  const WholeRun run = matings({"--females", "f.txt"}, {{"f.txt", ids}});
  EXPECT_TRUE(has(run.messages, "\"x19\""));
  EXPECT_FALSE(has(run.messages, "\"x20\""));
  EXPECT_TRUE(has(run.messages, "f.txt: and 5 more of this kind\n"));
}

struct Refusal {
  std::vector<std::string> options;
  std::string list, message;
};

TEST(MatingsRun, RefusesListsThatNobodyCanBeTakenFrom) {
  for (const Refusal& refusal : std::vector<Refusal>{
           {{"--females", "none.txt"},
            "",
            "\"none.txt\": the file of --females could not be opened: No such file or directory\n"},
           {{"--males", "folder"}, "", "\"folder\": the file of --males could not be opened: Is a directory\n"},
           {{"--females", "l.txt"}, "", "l.txt: no identification stands in this file\n"},
           {{"--females", "l.txt"}, "\r\n \r\n", "l.txt: no identification stands in this file\n"},
           {{"--females", "l.txt"}, "rex\n", "left out\nl.txt: none of its animals can be used\n"},
           {{"--males", "l.txt"}, std::string(600, 'x'), "no animal has this identification; left out\n"},
           {{"--males", "l.txt"}, std::string("\xFF\xFEr\0e\0x\0", 8), "this file is neither (UTF-16?)\n"}}) {
    const WholeRun run = matings(refusal.options, {{"l.txt", refusal.list}, {"folder/", ""}});
    EXPECT_EQ(run.exit_status, 1) << refusal.message;
    EXPECT_TRUE(has(run.messages, refusal.message)) << run.messages;
    EXPECT_EQ(run.files.count("dogs_matings.tsv"), 0U);
  }
}

TEST(MatingsRun, SaysWhyThereIsNobodyByYears) {
  const WholeRun no_males = matings({"--years", "1"});
  EXPECT_EQ(no_males.exit_status, 1);
  EXPECT_EQ(no_males.messages, "no males were born in 2014; give more --years, or name the males with --males FILE\n");
  const WholeRun no_years = run_matings_on(files_of("id;sex;birthdate;sire;dam\na;m;;;\nb;f;;;\n"));
  EXPECT_EQ(no_years.exit_status, 1);
  EXPECT_EQ(no_years.messages, "no animal has a year of birth; name the females with --females FILE\n");
  const WholeRun dutch = matings({"--years", "1"}, {}, in_dutch());
  EXPECT_EQ(dutch.messages,
            "er zijn geen mannelijke dieren geboren in 2014; geef meer --years, of noem de mannelijke "
            "dieren met --males BESTAND\n");
}

TEST(MatingsRun, YearsBeforeTheFirstOneAreNotLookedFor) {
  EXPECT_TRUE(has(matings({"--years", "2147483647"}).console, "females born 2001 to 2014: 4\n"));
}

TEST(MatingsRun, RefusesArgumentsThatMakeNoSense) {
  for (const Refusal& refusal : std::vector<Refusal>{
           {{"dogs.txt"}, "", "\"dogs.txt\": an option was expected\n"},
           {{"--years", "0"}, "", "--years \"0\": a number from 1 on was expected\n"},
           {{"--best", "many"}, "", "--best \"many\": a number from 1 on was expected\n"},
           {{"--best", "99999999999"}, "", "--best \"99999999999\": a number from 1 on was expected\n"},
           {{"--limit", "6.25"}, "", "--limit \"6.25\": an F such as 0.0625 or 6.25% was expected\n"},
           {{"--limit", "nan"}, "", "--limit \"nan\": an F such as"},
           {{"--limit", "."}, "", "--limit \".\": an F such as"},
           {{"--limit", "0.1.2"}, "", "--limit \"0.1.2\": an F such as"},
           {{"--females", ""}, "", "--females \"\": the name of a file was expected\n"},
           {{"--females", "a", "--males", "b", "--years", "3"}, "", "--years has no meaning when all animals"},
           {{"--colour", "red"}, "", "--colour: there is no such option\n"}}) {
    const WholeRun run = matings(refusal.options);
    EXPECT_EQ(run.exit_status, 2) << refusal.message;
    EXPECT_TRUE(has(run.messages, "pedigreewatch-tools matings: " + refusal.message)) << run.messages;
    EXPECT_TRUE(has(run.messages, "Try: pedigreewatch-tools matings --help\n"));
  }
}

TEST(MatingsRun, SaysWhatStandsInTheWay) {
  const WholeRun no_steer = run_matings_on({{"dogs.txt", ""}});
  EXPECT_EQ(no_steer.exit_status, 1);
  EXPECT_TRUE(has(no_steer.messages, "pedigreewatch.ini: the steer file is not in this folder"));
  const WholeRun loop = run_matings_on(files_of("id;sex;birthdate;sire;dam\na;m;;b;\nb;m;;a;\n"));
  EXPECT_EQ(loop.exit_status, 1);
  EXPECT_TRUE(has(loop.messages, "`pedigreewatch-tools check` names everything"));
  const WholeRun not_written = matings({}, {{"dogs_matings.tsv/", ""}});
  EXPECT_EQ(not_written.exit_status, 1);
  EXPECT_TRUE(has(not_written.messages, "dogs_matings.tsv: ")) << not_written.messages;
  EXPECT_TRUE(has(not_written.messages, "; the table was not written\n")) << not_written.messages;
}

TEST(MatingsRun, ReplacesNoFileThatItReads) {
  Files files = files_of(village);
  files["dogs_matings.tsv"] = "tess\npuck\n";
  const WholeRun females = run_matings_on(files, {"--females", "dogs_matings.tsv"});
  EXPECT_EQ(females.exit_status, 1);
  EXPECT_EQ(females.messages,
            "dogs_matings.tsv: a table of this name would replace a file that this run reads; the table was not "
            "written\n");
  EXPECT_EQ(females.files, files);
  files["dogs_matings.csv"] = "bram\n";
  EXPECT_EQ(run_matings_on(files, {"--csv", "--males", "./dogs_matings.csv"}).files, files);
  EXPECT_EQ(run_matings_on(files, {"--males", "dogs_matings.csv"}).exit_status, 0);
}

/// So many animals of each sex without parents.
std::string founders(int females, int males) {
  std::string data = "id;sex;birthdate;sire;dam\n";
  for (int k = 0; k < females; ++k) data += "f" + std::to_string(k) + ";f;01-01-2014;;\n";
  for (int k = 0; k < males; ++k) data += "m" + std::to_string(k) + ";m;01-01-2014;;\n";
  return data;
}

TEST(HostileMatings, TooManyPairsAreRefusedWithWhatToDo) {
  const WholeRun pairs = run_matings_on(files_of(founders(10001, 1000)));
  EXPECT_EQ(pairs.exit_status, 1);
  EXPECT_EQ(pairs.messages,
            "10001 females with 1000 males are 10001000 pairs, and at most 10000000 are worked out; name fewer animals "
            "with --females and --males, or give fewer --years\n");
}

TEST(HostileMatings, TooManyLinesAreRefusedAndFewerAreTaken) {
  const Files files = files_of(founders(1001, 1000));
  const WholeRun rows = run_matings_on(files);
  EXPECT_EQ(rows.exit_status, 1);
  EXPECT_EQ(
      rows.messages,
      "the table would have 1001000 lines, and at most 1000000 are written; give --best K, or a lower --limit F\n");
  EXPECT_EQ(run_matings_on(files, {"--limit", "0.1"}).messages, rows.messages) << "all F are 0";
  EXPECT_EQ(run_matings_on(files, {"--best", "1"}).exit_status, 0);
}

TEST(HostileMatings, ATableThatBreaksOffIsTakenAway) {
  const RunFolder folder(files_of(village));
  ProgramStart start = tools_with({"matings"});
  start.limits.file_bytes = 300;
  start.keeps_console = false;
  const WholeRun run = run_program_in(folder, start);
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.files.size(), 2U) << "the steer file and the data file";
}

TEST(HostileMatings, AMillionLinesAreWritten) {
  const int of_a_sex = cases(1000, 300);
  const WholeRun rows = run_matings_on(files_of(founders(of_a_sex, of_a_sex)));
  EXPECT_EQ(rows.exit_status, 0) << rows.messages;
}

}  // namespace
}  // namespace pedigreewatch::test
