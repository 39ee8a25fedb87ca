#include "checks/check_report.h"

#include <gtest/gtest.h>

#include <string>

#include "support/check_runs.h"
#include "support/lines.h"

namespace pedigreewatch::test {
namespace {

/// What the console shows of so many animals with too long names.
std::string shown_of(int count) {
  std::string data = "id;sex;birthdate;sire;dam;name\n";
  for (int k = 0; k < count; ++k)
    data += "a" + std::to_string(k) + ";m;05-06-2000;;;" + std::string(50, 'n') + std::to_string(k) + "\n";
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

/// 40 animals of which every third has no date.
CheckResult undated_animals() {
  std::string data = "id;sex;birthdate;sire;dam\n";
  for (int k = 0; k < 40; ++k) data += "a" + std::to_string(k) + (k % 3 == 0 ? ";m;;;\n" : ";m;05-06-2000;;\n");
  return checked_sheep(data);
}

TEST(ShowFindings, OneCauseNamesItsFirstLinesAndAllWhenItIsAskedFor) {
  CheckResult result = undated_animals();
  TextOutput console;
  CheckReport report;
  report.data_file = "dogs.txt";
  show_findings(result, report, console);
  EXPECT_TRUE(has(console.pending,
                  "  dogs.txt, line 2: No date of birth (14 animals); absent from all tables by year: "
                  "lines 2, 5, 8, 11, 14, 17, 20, 23, 26, 29, 32, 35 and 2 more\n"))
      << console.pending;
  TextOutput whole;
  report.wanted = FindingCode::date_unknown;
  show_findings(result, report, whole);
  EXPECT_TRUE(has(whole.pending, ", 32, 35, 38, 41\n")) << whole.pending;
}

TEST(ShowFindings, NamesTheExportWhoseLinesItGives) {
  CheckResult result = undated_animals();
  TextOutput console;
  CheckReport report;
  report.data_file = "dogs.txt";
  report.export_name = "kennel.csv";
  show_findings(result, report, console);
  EXPECT_TRUE(console.pending.starts_with("dogs.txt: 40 animals checked; lines are those of kennel.csv\n"));
  EXPECT_TRUE(has(console.pending, "\n  kennel.csv, line 2: No date of birth"));
}

}  // namespace
}  // namespace pedigreewatch::test
