// The reports that stand beside the example populations are what the program writes today.

#include <gtest/gtest.h>

#include <string>

#include "support/files.h"
#include "support/places.h"
#include "support/program_run.h"

namespace pedigreewatch::test {
namespace {

void expect_current_report(const std::string& folder, const std::string& population) {
  const std::string path = source_folder() + "/examples/" + folder + "/";
  const WholeRun run = run_program_on({{"pedigreewatch.ini", bytes_of(path + "pedigreewatch.ini")},
                                       {population + ".txt", bytes_of(path + population + ".txt")}});
  EXPECT_EQ(run.exit_status, 0);
  EXPECT_EQ(run.messages, "");
  EXPECT_TRUE(run.file(population + ".out") == bytes_of(path + population + ".out"))
      << "renew examples/" << folder << "/" << population << ".out and read what has changed";
}

TEST(Examples, EnglishReportIsCurrent) {
  expect_current_report("moorland-en", "moorland");
}

TEST(Examples, DutchReportIsCurrent) {
  expect_current_report("heide-nl", "heide");
}

}  // namespace
}  // namespace pedigreewatch::test
