// Whole runs. Every folder of tests/golden is one case: its inputs are copied to a fresh folder, the program runs there
// as a user would run it, and what it leaves behind (console, report, exit status, messages) is compared byte for byte
// with the expectation kept beside the inputs. docs/testing.md tells what a case holds and how it is renewed.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "support/case_folder.h"
#include "support/program_run.h"

namespace pedigreewatch::test {
namespace {

/// Files that were not there before the run, or have other bytes than before.
Files written_by(const WholeRun& run, const Files& before) {
  Files written;
  for (const auto& [name, bytes] : run.files) {
    const auto old = before.find(name);
    if (old == before.end() || old->second != bytes) written[name] = bytes;
  }
  return written;
}

/// The lines of a text, each with its line feed; the last one may be without.
std::vector<std::string_view> whole_lines(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size() - 1) + 1;
    lines.push_back(text.substr(0, end));
    text.remove_prefix(end);
  }
  return lines;
}

/// A line with every byte visible: blanks at the end, tabs and accented letters matter.
std::string visible(std::string_view line) {
  std::string shown = "\"";
  for (const char letter : line) {
    const auto byte = static_cast<unsigned char>(letter);
    if (letter == '\n') {
      shown += "\\n";
    } else if (byte < 0x20 || byte > 0x7E) {
      char code[5];
      std::snprintf(code, sizeof code, "\\x%02X", static_cast<unsigned>(byte));
      shown += code;
    } else {
      shown += letter;
    }
  }
  return shown + "\"";
}

testing::AssertionResult same_bytes(const std::string& what, std::string_view expected, std::string_view got) {
  if (expected == got) return testing::AssertionSuccess();
  const auto expected_lines = whole_lines(expected);
  const auto got_lines = whole_lines(got);
  std::size_t line = 0;
  while (line < expected_lines.size() && line < got_lines.size() && expected_lines[line] == got_lines[line]) ++line;
  const auto shown = [line](const auto& lines) {
    return line < lines.size() ? visible(lines[line]) : std::string("(no such line)");
  };
  return testing::AssertionFailure() << what << ", line " << line + 1 << ":\n  expected " << shown(expected_lines)
                                     << "\n  got      " << shown(got_lines);
}

class GoldenCase : public testing::TestWithParam<std::string> {};

TEST_P(GoldenCase, PrintsExactlyWhatIsExpected) {
  const CaseFolder golden_case = read_case(GetParam());
  const WholeRun run = run_program_on(golden_case.inputs, {.keyboard = golden_case.keyboard});
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

INSTANTIATE_TEST_SUITE_P(WholeRun, GoldenCase, testing::ValuesIn(case_names()),
                         [](const auto& golden_case) { return golden_case.param; });

TEST(GoldenFolder, EveryCaseSaysWhyItExists) {
  const std::vector<std::string> names = case_names();
  ASSERT_FALSE(names.empty());
  for (const std::string& name : names) {
    EXPECT_FALSE(read_case(name).about.empty()) << name;
  }
}

}  // namespace
}  // namespace pedigreewatch::test
