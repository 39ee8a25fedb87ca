// Whole runs of pedigreewatch-tools. Every folder of tests/golden_tools is one case: the tools run with its arguments
// on copies of its inputs, and what they say and write is compared byte for byte. docs/testing.md tells what a case
// holds and how it is renewed.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/case_folder.h"
#include "support/places.h"
#include "support/program_run.h"
#include "support/same_bytes.h"

namespace pedigreewatch::test {
namespace {

const std::filesystem::path golden_tools = golden_tools_folder();

class GoldenToolsCase : public testing::TestWithParam<std::string> {};

TEST_P(GoldenToolsCase, SaysAndWritesExactlyWhatIsExpected) {
  const CaseFolder golden_case = read_case(golden_tools / GetParam());
  ASSERT_FALSE(golden_case.about.empty()) << "every case says why it exists";
  ASSERT_FALSE(golden_case.arguments.empty());
  EXPECT_FALSE(golden_case.report.has_value()) << "a file is expected under its name, as expected.file.NAME";
  ProgramStart start = tools_with(golden_case.arguments);
  start.keyboard = golden_case.keyboard;
  const WholeRun run = run_program_on(golden_case.inputs, start);
  SCOPED_TRACE(golden_case.about);

  EXPECT_TRUE(same_bytes("console", golden_case.console.value_or(""), run.console));
  EXPECT_TRUE(same_bytes("messages", golden_case.messages, run.messages));
  EXPECT_EQ(run.exit_status, golden_case.exit_status) << "exit status";

  Files expected = golden_case.inputs;
  for (const auto& [name, bytes] : golden_case.written) expected[name] = bytes;
  for (const auto& [name, bytes] : expected) EXPECT_TRUE(same_bytes(name, bytes, run.file(name)));
  for (const auto& [name, bytes] : run.files) EXPECT_EQ(expected.count(name), 1U) << name << " was written";
}

INSTANTIATE_TEST_SUITE_P(WholeRun, GoldenToolsCase, testing::ValuesIn(case_names(golden_tools)),
                         [](const auto& golden_case) { return golden_case.param; });

}  // namespace
}  // namespace pedigreewatch::test
