// Arguments: what the options of `prepare` accept and refuse, help, and subcommands.
#include "tools/command_line.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "tools/prepare_command.h"
#include "tools/subcommands.h"

namespace pedigreewatch::test {
namespace {

using Arguments = std::vector<std::string_view>;

struct ReadOptions {
  PrepareOptions options;
  std::string problem;
};

ReadOptions read(const Arguments& arguments) {
  ReadOptions result;
  result.problem = read_prepare_options(arguments, result.options);
  return result;
}

TEST(PrepareOptionsOnTheCommandLine, AreAllUnderstood) {
  const ReadOptions result = read({"--delimiter",
                                   "tab",
                                   "--encoding=utf-16",
                                   "--dates",
                                   "mm/dd/yyyy",
                                   "--male",
                                   "r",
                                   "--unknown",
                                   "stray",
                                   "--unknown=none known",
                                   "--column",
                                   "id=Reg. no",
                                   "--column",
                                   "sire=7",
                                   "--header",
                                   "no",
                                   "--species",
                                   "dog",
                                   "--language",
                                   "nl",
                                   "--name",
                                   "Stabij",
                                   "--subpopulations",
                                   "A;B, C",
                                   "--colours",
                                   "none",
                                   "--out",
                                   "dir",
                                   "--force",
                                   "--dry-run",
                                   "export.csv"});
  EXPECT_EQ(result.problem, "");
  const PrepareOptions& options = result.options;
  EXPECT_EQ(options.export_name, "export.csv");
  EXPECT_EQ(options.delimiter, '\t');
  EXPECT_EQ(options.encoding, Encoding::utf_16_le);
  EXPECT_EQ(options.dates, DateOrder::month_day_year);
  EXPECT_EQ(options.male, std::vector<std::string>{"r"});
  EXPECT_EQ(options.unknown, (std::vector<std::string>{"stray", "none known"}));
  ASSERT_EQ(options.columns.size(), 2U);
  EXPECT_EQ(options.columns[0].code, id_column);
  EXPECT_EQ(options.columns[0].column, "Reg. no");
  EXPECT_EQ(options.has_header, false);
  EXPECT_EQ(options.language, ToolLanguage::dutch);
  EXPECT_EQ(options.subpopulations.names, (std::vector<std::string>{"A", "B, C"}));
  EXPECT_TRUE(options.colours.leaves_out);
  EXPECT_EQ(options.folder, "dir");
  EXPECT_TRUE(options.may_overwrite);
  EXPECT_TRUE(options.is_dry_run);
}

TEST(PrepareOptionsOnTheCommandLine, ThatMakeNoSenseAreRefused) {
  EXPECT_EQ(read({}).problem, "the name of the export was expected");
  EXPECT_EQ(read({"a", "b"}).problem, "\"b\": one export was expected");
  EXPECT_EQ(read({"--colour", "x", "a"}).problem, "--colour: there is no such option");
  EXPECT_EQ(read({"a", "--out"}).problem, "--out needs a value");
  EXPECT_EQ(read({"--force=yes", "a"}).problem, "--force takes no value");
  EXPECT_EQ(read({"--name", "x", "--name", "y", "a"}).problem, "--name is given twice");
  EXPECT_EQ(
      read({"--dates", "ymm", "a"}).problem,
      "--dates \"ymm\": a layout of the letters d, m and y such as dd-mm-yyyy, or serial-1900, serial-1904, was expected");
  EXPECT_EQ(read({"--column", "id", "a"}).problem,
            "--column \"id\": FIELD=COLUMN, such as id=\"Reg. no\" or sire=7, was expected");
  EXPECT_EQ(read({"--column", "weight=3", "a"}).problem.substr(0, 20), "--column \"weight=3\":");
  EXPECT_EQ(read({"--language", "de", "a"}).problem, "--language \"de\": en or nl was expected");
  EXPECT_EQ(read({"--header", "perhaps", "a"}).problem, "--header \"perhaps\": yes or no was expected");
}

TEST(PrepareOptionsOnTheCommandLine, AtLeastNeedsANumber) {
  EXPECT_EQ(read({"--subpopulations", "at-least-1", "a"}).options.subpopulations.least_animals, 1);
  for (const std::string_view value :
       {"at-least-0", "at-least-2O", "at-least-", "at-least--5", "at least 50", "at-least50"}) {
    EXPECT_EQ(read({"--subpopulations", value, "a"}).problem,
              "--subpopulations \"" + std::string(value) +
                  "\": at-least-N with a whole number N from 1 on, such as at-least-50, was expected");
  }
  // A divider makes it a list of names, as of a herd that is called so.
  EXPECT_EQ(read({"--subpopulations", "at-least-x;", "a"}).options.subpopulations.names,
            std::vector<std::string>{"at-least-x"});
}

TEST(PrepareOptionsOnTheCommandLine, ANameThatBeginsWithAHyphenStandsBehindTwo) {
  EXPECT_EQ(read({"--force", "--", "-x.csv"}).options.export_name, "-x.csv");
}

struct ToolRun {
  int status = 0;
  std::string console, messages;
};

ToolRun run(const Arguments& arguments) {
  ToolStreams streams;
  const int status = run_tools(arguments, "1.2.3", streams);
  return {status, streams.console.pending, streams.messages.pending};
}

TEST(RunTools, TellsVersionAndHelp) {
  EXPECT_EQ(run({"--version"}).console, "pedigreewatch-tools 1.2.3\n");
  for (const Arguments& arguments : {Arguments{"help"}, Arguments{"--help"}, Arguments{"-h"}}) {
    EXPECT_EQ(run(arguments).status, 0);
    EXPECT_TRUE(run(arguments).console.starts_with("usage: pedigreewatch-tools SUBCOMMAND"));
  }
  for (const Arguments& arguments :
       {Arguments{"help", "prepare"}, Arguments{"prepare", "--help"}, Arguments{"prepare", "--force", "x.csv", "-h"}}) {
    EXPECT_EQ(run(arguments).status, 0);
    EXPECT_EQ(run(arguments).console, prepare_help());
  }
}

TEST(HelpLines, StandInTwoColumnsHoweverLongANameIs) {
  EXPECT_EQ(help_lines({}), "");
  const std::vector<HelpLine> lines = {{"plan", "who with whom"}, {"registrations", "a name of 13"}, {"", "nothing"}};
  EXPECT_EQ(help_lines(lines),
            "  plan          who with whom\n"
            "  registrations a name of 13\n"
            "                nothing\n");
}

TEST(RunTools, RefusesWhatItDoesNotKnow) {
  EXPECT_EQ(run({}).status, 2);
  const ToolRun unknown = run({"prune"});
  EXPECT_EQ(unknown.status, 2);
  EXPECT_TRUE(unknown.messages.starts_with("pedigreewatch-tools: \"prune\": there is no such subcommand\nusage: "));
  for (const Arguments& arguments : {Arguments{"help", "prune"}, Arguments{"--help", "prune"}}) {
    EXPECT_EQ(run(arguments).status, 2);
    EXPECT_EQ(run(arguments).console, "");
    EXPECT_EQ(run(arguments).messages, unknown.messages);
  }
  const ToolRun wrong = run({"prepare", "--nonsense"});
  EXPECT_EQ(wrong.status, 2);
  EXPECT_EQ(wrong.messages,
            "pedigreewatch-tools prepare: --nonsense: there is no such option\n"
            "Try: pedigreewatch-tools prepare --help\n");
}

TEST(PrepareHelp, HasNoLineThatIsTooLong) {
  std::string_view help = prepare_help();
  while (!help.empty()) {
    EXPECT_LE(help.find('\n'), 120U) << help.substr(0, help.find('\n'));
    help.remove_prefix(help.find('\n') + 1);
  }
}

}  // namespace
}  // namespace pedigreewatch::test
