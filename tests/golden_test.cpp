// Whole runs. Every folder of tests/golden is one case: its inputs are copied to a fresh folder, the program runs there
// as a user would run it, and what it leaves behind (console, report, exit status, messages) is compared byte for byte
// with the expectation kept beside the inputs. docs/testing.md tells what a case holds and how it is renewed.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "support/files.h"

#ifndef _WIN32
#include <sys/wait.h>
#endif

namespace pedigreewatch::test {
namespace {

namespace fs = std::filesystem;

/// What a case's folder holds besides the inputs of the run.
bool is_input(const std::string& name) {
  return name != "about" && name != "stdin" && !name.starts_with("expected.");
}

std::vector<std::string> case_names() {
  std::vector<std::string> names;
  for (const fs::directory_entry& entry : fs::directory_iterator(GOLDEN_FOLDER)) {
    if (entry.is_directory()) names.push_back(entry.path().filename().string());
  }
  std::ranges::sort(names);
  return names;
}

/// A folder of its own for one run, removed at the end.
class RunFolder {
 public:
  RunFolder() {
    // Tests run side by side, also those of two builds.
    std::random_device random;
    path_ = fs::temp_directory_path() / ("pedigreewatch-golden-" + std::to_string(random()) + std::to_string(random()));
    fs::create_directories(inputs());
  }
  RunFolder(const RunFolder&) = delete;
  RunFolder& operator=(const RunFolder&) = delete;
  ~RunFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }

  fs::path inputs() const { return path_ / "run"; }
  fs::path keyboard() const { return path_ / "stdin"; }
  fs::path console() const { return path_ / "console"; }
  fs::path messages() const { return path_ / "messages"; }

 private:
  fs::path path_;
};

struct Outcome {
  int exit_status = -1;
  std::string console;
  std::string messages;
  Files written;  ///< files that were not there before, or have other bytes than before
};

int exit_status_of(int system_result) {
#ifdef _WIN32
  return system_result;
#else
  return WIFEXITED(system_result) ? WEXITSTATUS(system_result) : 128 + WTERMSIG(system_result);
#endif
}

Outcome run_case(const fs::path& golden_case) {
  const RunFolder folder;
  Files before;
  for (const auto& [name, bytes] : files_in(golden_case)) {
    if (!is_input(name)) continue;
    before[name] = bytes;
    fs::copy_file(golden_case / name, folder.inputs() / name);
  }
  std::ofstream(folder.keyboard(), std::ios::binary) << bytes_if_present(golden_case / "stdin").value_or("");

  const std::string command = "cd \"" + folder.inputs().string() + "\" && \"" PROGRAM_PATH "\" <\"" +
                              folder.keyboard().string() + "\" >\"" + folder.console().string() + "\" 2>\"" +
                              folder.messages().string() + "\"";
  Outcome outcome;
  outcome.exit_status = exit_status_of(std::system(command.c_str()));
  outcome.console = bytes_of(folder.console());
  outcome.messages = bytes_of(folder.messages());
  for (const auto& [name, bytes] : files_in(folder.inputs())) {
    const auto old = before.find(name);
    if (old == before.end() || old->second != bytes) outcome.written[name] = bytes;
  }
  return outcome;
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
  const fs::path golden_case = fs::path(GOLDEN_FOLDER) / GetParam();
  const Outcome outcome = run_case(golden_case);
  SCOPED_TRACE(bytes_of(golden_case / "about"));

  const auto console = bytes_if_present(golden_case / "expected.console");
  ASSERT_TRUE(console.has_value()) << "expected.console is missing";
  EXPECT_TRUE(same_bytes("console", *console, outcome.console));

  const auto report = bytes_if_present(golden_case / "expected.report");
  EXPECT_EQ(outcome.written.size(), report.has_value() ? 1U : 0U) << "files written by the run";
  if (report.has_value() && !outcome.written.empty()) {
    const auto& [name, bytes] = *outcome.written.begin();
    EXPECT_TRUE(same_bytes(name, *report, bytes));
  }

  const auto status = bytes_if_present(golden_case / "expected.status");
  EXPECT_EQ(outcome.exit_status, std::stoi(status.value_or("0"))) << "exit status";

  const auto messages = bytes_if_present(golden_case / "expected.messages");
  EXPECT_TRUE(same_bytes("messages", messages.value_or(""), outcome.messages));
}

INSTANTIATE_TEST_SUITE_P(WholeRun, GoldenCase, testing::ValuesIn(case_names()),
                         [](const auto& golden_case) { return golden_case.param; });

TEST(GoldenFolder, EveryCaseSaysWhyItExists) {
  const std::vector<std::string> names = case_names();
  ASSERT_FALSE(names.empty());
  for (const std::string& name : names) {
    EXPECT_FALSE(bytes_of(fs::path(GOLDEN_FOLDER) / name / "about").empty()) << name;
  }
}

}  // namespace
}  // namespace pedigreewatch::test
