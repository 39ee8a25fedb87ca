#include "checks/check_report.h"

#include <gtest/gtest.h>

#include <string>

#include "support/check_runs.h"
#include "support/lines.h"

namespace pedigreewatch::test {
namespace {

/// What the console shows of so many animals without parents and young.
std::string shown_of(int count) {
  std::string data = "id;sex;birthdate;sire;dam\n";
  for (int k = 0; k < count; ++k) data += "a" + std::to_string(k) + ";m;05-06-2000;;\n";
  CheckResult result = checked_sheep(data);
  TextOutput console;
  CheckReport report;
  report.data_file = "dogs.txt";
  show_findings(result, report, console);
  return console.pending;
}

TEST(ShowFindings, FiftyOfAKindAreAllShown) {
  EXPECT_TRUE(has(shown_of(50), "line 51, a49"));
  EXPECT_FALSE(has(shown_of(50), " more: "));
  EXPECT_FALSE(has(shown_of(51), "line 52, a50"));
  EXPECT_TRUE(has(shown_of(51), "  and 1 more: "));
}

}  // namespace
}  // namespace pedigreewatch::test
