// The words by which packaging/windows/run.cmd finds messages, the report and the page in what the programs print are
// still what they print. Consoles are those of the golden cases, which other tests compare with the programs.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <regex>
#include <string>
#include <vector>

#include "support/case_folder.h"
#include "support/lines.h"
#include "support/places.h"
#include "support/program_run.h"

namespace pedigreewatch::test {
namespace {

/// The first two words of a line, and what stands behind them.
struct SplitLine {
  std::string first, second, rest;
};

SplitLine split_line(const std::string& line) {
  const auto word_from = [&](std::size_t& place) {
    const std::size_t begin = std::min(line.find_first_not_of(" \t\r", place), line.size());
    place = std::min(line.find_first_of(" \t\r", begin), line.size());
    return line.substr(begin, place - begin);
  };
  std::size_t place = 0;
  SplitLine split;
  split.first = word_from(place);
  split.second = word_from(place);
  split.rest = line.substr(std::min(line.find_first_not_of(" \t\r", place), line.size()));
  return split;
}

/// A line of run.cmd that asks for the first word of a line, or for both, and what it does then.
struct WordRule {
  bool takes_both = false;
  std::string words;
  std::vector<std::string> but_not;  ///< second words
  bool needs_mark = false;
  std::string action;

  bool begins(const SplitLine& line) const {
    return words == (takes_both ? line.first + " " + line.second : line.first);
  }
  bool fits(const SplitLine& line) const {
    return begins(line) && std::find(but_not.begin(), but_not.end(), line.second) == but_not.end();
  }
};

std::vector<WordRule> word_rules() {
  const std::regex whole(
      R"RE(  if "(%%a|%%a %%b)"=="([^"]+)"((?: if not "%%b"=="[^"]+")*)( if defined has_mark)? (.*))RE");
  const std::regex exception(R"RE("%%b"=="([^"]+)")RE");
  std::vector<WordRule> rules;
  for (std::string line : lines_of(bytes_of(source_folder() + "/packaging/windows/run.cmd"))) {
    while (line.ends_with('\r')) line.pop_back();
    std::smatch parts;
    if (!std::regex_match(line, parts, whole)) continue;
    WordRule& rule = rules.emplace_back();
    rule.takes_both = parts[1] == "%%a %%b";
    rule.words = parts[2];
    rule.needs_mark = parts[4].matched;
    rule.action = parts[5];
    const std::string exceptions = parts[3];
    for (std::sregex_iterator k(exceptions.begin(), exceptions.end(), exception), end; k != end; ++k) {
      rule.but_not.push_back((*k)[1]);
    }
  }
  return rules;
}

/// What run.cmd makes of a console.
struct ConsoleReading {
  std::string report;
  bool is_in_message = false;  ///< one has begun and not ended
  std::vector<std::string> shown;
};

ConsoleReading read_console(const std::string& console, const std::vector<WordRule>& rules) {
  ConsoleReading reading;
  bool has_mark = false;
  for (const std::string& line : lines_of(console)) {
    const SplitLine words = split_line(line);
    const auto does = [&](const std::string& action) {
      return std::any_of(rules.begin(), rules.end(), [&](const WordRule& rule) {
        return rule.action == action && rule.fits(words) && (has_mark || !rule.needs_mark);
      });
    };
    if (does(R"(set "report=%%c")")) reading.report = words.rest;
    if (does(R"(set "in_message=1")")) reading.is_in_message = true;
    if (reading.is_in_message) reading.shown.push_back(line);
    if (does(R"(set "in_message=")")) reading.is_in_message = false;
    if (does(R"(set "has_mark=1")")) has_mark = true;
    if (does("call :end_birth")) reading.is_in_message = has_mark = false;
  }
  return reading;
}

std::vector<CaseFolder> golden_cases() {
  std::vector<CaseFolder> cases;
  for (const std::string& name : case_names(golden_folder())) {
    cases.push_back(read_case(std::filesystem::path(golden_folder()) / name));
  }
  return cases;
}

TEST(RunCmd, ReadsWordsThatTheProgramStillPrints) {
  std::vector<SplitLine> lines;
  for (const CaseFolder& golden : golden_cases()) {
    for (const std::string& line : lines_of(golden.console.value_or(""))) lines.push_back(split_line(line));
  }
  const std::vector<WordRule> rules = word_rules();
  EXPECT_EQ(rules.size(), 19U) << "each line of run.cmd with a word is understood here";
  for (const WordRule& rule : rules) {
    EXPECT_TRUE(std::any_of(lines.begin(), lines.end(), [&](const SplitLine& line) { return rule.fits(line); }))
        << rule.words;
    for (const std::string& second : rule.but_not) {
      EXPECT_TRUE(std::any_of(lines.begin(), lines.end(),
                              [&](const SplitLine& line) { return rule.begins(line) && line.second == second; }))
          << rule.words << " " << second;
    }
  }
}

TEST(RunCmd, FindsTheReportAndTheEndOfEachMessage) {
  const std::vector<WordRule> rules = word_rules();
  for (const CaseFolder& golden : golden_cases()) {
    if (golden.exit_status != 0) continue;
    const ConsoleReading reading = read_console(golden.console.value_or(""), rules);
    EXPECT_FALSE(reading.report.empty()) << golden.about;
    EXPECT_FALSE(reading.is_in_message) << golden.about << reading.shown.back();
  }
}

TEST(RunCmd, NamesTheReportAndThePageThatWereWritten) {
  const std::vector<WordRule> rules = word_rules();
  for (const std::string name : {"columns_all_en", "columns_all_nl"}) {
    const Files inputs = read_case(std::filesystem::path(golden_folder()) / name).inputs;
    const WholeRun run = run_program_on(inputs);
    std::string report = split_line(read_console(run.console, rules).report).second;  // behind "to" or "naar"
    EXPECT_TRUE(run.files.contains(report)) << name << ": " << report;
    const WholeRun paged = run_program_on(inputs, tools_with({"page"}));
    const std::string last = lines_of(paged.console).back();
    EXPECT_TRUE(paged.files.contains(last.substr(0, last.find(':')))) << last;
  }
}

/// Both programs go by exit statuses that run.cmd knows: 1 for what has to be answered, which keeps the answers.
TEST(RunCmd, PrepareAsksWithOneAndRefusesArgumentsWithTwo) {
  const Files herd = {{"herd.csv", "id,sire,dam,sex,birthdate\na,,,x,2001-01-01\nb,,,y,2001-01-02\n"}};
  EXPECT_EQ(run_program_on(herd, tools_with({"prepare", "herd.csv"})).exit_status, 1);
  EXPECT_EQ(run_program_on(herd, tools_with({"prepare", "herd.csv", "--speces", "dog"})).exit_status, 2);
}

}  // namespace
}  // namespace pedigreewatch::test
