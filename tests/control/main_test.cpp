// The program's own part: its arguments. The rest of it is what every whole run goes through.

#include <gtest/gtest.h>

#include <string>

#include "support/places.h"
#include "support/program_run.h"

namespace pedigreewatch::test {
namespace {

const Files herd = {{"pedigreewatch.ini", "Herd\nherd.txt\n"}, {"herd.txt", "id;sire;dam;sex;birth\n\n"}};

TEST(Arguments, VersionIsTheOneOfThePackages) {
  const WholeRun run = run_program_on(herd, {.arguments = {"--version"}});
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_EQ(run.console, "pedigreewatch " + program_version() + "\n");
  EXPECT_EQ(run.messages, "");
  EXPECT_EQ(run.files.count("herd.out"), 0U);
}

TEST(Arguments, HelpStartsNoRun) {
  for (const std::string argument : {"--help", "-h"}) {
    const WholeRun run = run_program_on(herd, {.arguments = {argument}});
    EXPECT_EQ(run.exit_status, 0);
    EXPECT_TRUE(run.console.starts_with("usage: pedigreewatch\n")) << run.console;
    EXPECT_EQ(run.messages, "");
    EXPECT_EQ(run.files.count("herd.out"), 0U);
  }
}

TEST(Arguments, AnyOtherOneIsRefused) {
  const WholeRun run = run_program_on(herd, {.arguments = {"herd.txt"}});
  EXPECT_EQ(run.exit_status, 1);
  EXPECT_EQ(run.console, "");
  EXPECT_TRUE(run.messages.starts_with("pedigreewatch: \"herd.txt\": no argument was expected\nusage: pedigreewatch\n"))
      << run.messages;
  EXPECT_EQ(run.files.count("herd.out"), 0U);
}

TEST(Arguments, ClosedConsoleShowsInTheExitStatus) {
  EXPECT_EQ(run_program_on(herd, shell_script("\"$PROGRAM\" --version >/dev/full")).exit_status, 1);
}

}  // namespace
}  // namespace pedigreewatch::test
