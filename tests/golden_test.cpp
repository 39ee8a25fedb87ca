// Whole runs. Every folder of tests/golden is one case: its inputs are copied to a fresh folder, the program runs there
// as a user would run it, and what it leaves behind (console, report, exit status, messages) is compared byte for byte
// with the expectation kept beside the inputs. docs/testing.md tells what a case holds and how it is renewed.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/case_folder.h"
#include "support/places.h"
#include "support/program_run.h"
#include "support/same_bytes.h"

namespace pedigreewatch::test {
namespace {

const std::filesystem::path golden = golden_folder();

/// Files that were not there before the run, or have other bytes than before.
Files written_by(const WholeRun& run, const Files& before) {
  Files written;
  for (const auto& [name, bytes] : run.files) {
    const auto old = before.find(name);
    if (old == before.end() || old->second != bytes) written[name] = bytes;
  }
  return written;
}

class GoldenCase : public testing::TestWithParam<std::string> {};

TEST_P(GoldenCase, PrintsExactlyWhatIsExpected) {
  const CaseFolder golden_case = read_case(golden / GetParam());
  const WholeRun run =
      run_program_on(golden_case.inputs, {.arguments = golden_case.arguments, .keyboard = golden_case.keyboard});
  const Files written = written_by(run, golden_case.inputs);
  SCOPED_TRACE(golden_case.about);

  ASSERT_TRUE(golden_case.console.has_value()) << "expected.console is missing";
  EXPECT_TRUE(same_bytes("console", *golden_case.console, run.console));

  EXPECT_EQ(written.size(), golden_case.report.has_value() ? 1U : 0U) << "files written by the run";
  if (golden_case.report.has_value() && !written.empty()) {
    const auto& [name, bytes] = *written.begin();
    EXPECT_TRUE(same_bytes(name, *golden_case.report, bytes));
  }

  EXPECT_EQ(run.exit_status, golden_case.exit_status) << "exit status";
  EXPECT_TRUE(same_bytes("messages", golden_case.messages, run.messages));
}

INSTANTIATE_TEST_SUITE_P(WholeRun, GoldenCase, testing::ValuesIn(case_names(golden)),
                         [](const auto& golden_case) { return golden_case.param; });

TEST(GoldenFolder, EveryCaseSaysWhyItExists) {
  const std::vector<std::string> names = case_names(golden);
  ASSERT_FALSE(names.empty());
  for (const std::string& name : names) {
    EXPECT_FALSE(read_case(golden / name).about.empty()) << name;
  }
}

}  // namespace
}  // namespace pedigreewatch::test
