// `prepare` on files that are already in the program's form: the inputs of the golden cases are prepared with what
// their steer files say, and the program gives the report that the case expects.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "support/case_folder.h"
#include "support/lines.h"
#include "support/places.h"
#include "support/prepared_run.h"
#include "support/same_bytes.h"

namespace pedigreewatch::test {
namespace {

namespace fs = std::filesystem;

const fs::path golden = golden_folder();

// Cases in which a preparation is meant to change something, or to refuse.
const std::map<std::string, std::string> meant_to_differ = {
    {"column_colour_nl", "colours that the steer file does not list"},
    {"column_list_en", "the last animal, which the program never reads, gets its line"},
    {"crlf_and_bom_en", "UTF-8, which the report shows as bytes"},
    {"crlf_and_bom_nl", "UTF-8, which the report shows as bytes"},
    {"empty_store_en", "the last animal, which the program never reads, gets its line"},
    {"empty_store_nl", "the last animal, which the program never reads, gets its line"},
    {"header_only_en", "no animal"},
    {"header_only_nl", "no animal"},
    {"imports_all_pairs_en", "imports written 0"},
    {"imports_all_pairs_nl", "imports written 0"},
    {"parents_without_a_line_en", "parents written UNKNOWN"},
    {"parents_without_a_line_nl", "parents written UNKNOWN"},
    {"species_16_other", "no species of the list"},
    {"species_capitals_nl", "no species of the list"},
    {"species_dog_nl", "an English word in a Dutch run"},
    {"subpopulations_none_nl", "subpopulations that the steer file does not list"},
    {"texts_too_long_en", "ids that become equal"},
    {"texts_too_long_nl", "ids that become equal"},
    {"unknown_header_words_en", "headings that only prepare knows"},
    {"unknown_header_words_nl", "headings that only prepare knows"},
};

/// The lines of a steer file, with blank ones behind the end.
std::vector<std::string> steer_lines(const fs::path& folder) {
  std::vector<std::string> lines = lines_of(bytes_of(folder / "pedigreewatch.ini"));
  for (std::string& line : lines) {
    if (line.ends_with('\r')) line.pop_back();
  }
  lines.resize(lines.size() + 40);
  return lines;
}

std::string trimmed_to(const std::string& line, std::size_t width) {
  std::string text = line.substr(0, width);
  while (text.ends_with(' ')) text.pop_back();
  return text;
}

using Options = std::vector<std::string>;

/// Adds `option` with "name;name;" for the names behind the count in line `at`, and moves `at` behind them; adds
/// nothing where there are none.
void add_names(Options& options, const std::string& option, const std::vector<std::string>& lines, std::size_t& at,
               std::size_t width) {
  const std::size_t count = static_cast<std::size_t>(std::max(0, std::atoi(lines[at].c_str())));
  std::string names;
  for (std::size_t i = 1; i <= count; ++i) names += trimmed_to(lines[at + i], width) + ";";
  at += count + 1;
  if (!names.empty()) options.insert(options.end(), {option, names});
}

/// Adds the codes of line 13.
void add_columns(Options& options, const std::string& line) {
  static const std::vector<std::string> fields = {"",        "id",  "sire",      "dam",    "name",    "sirename",
                                                  "damname", "sex", "birthdate", "colour", "breeder", "subpopulation",
                                                  "import"};
  std::string spaced = line;
  std::replace(spaced.begin(), spaced.end(), ',', ' ');
  std::istringstream numbers(spaced);
  options.insert(options.end(), {"--header", "no"});
  std::size_t code = 0;
  numbers >> code;
  for (int column = 1; numbers >> code; ++column) {
    if (code == 0 || code >= fields.size()) continue;
    options.insert(options.end(), {"--column", fields[code] + "=" + std::to_string(column)});
  }
}

Options options_of(const std::vector<std::string>& lines) {
  const bool has_header = lines[8].starts_with('y') || lines[8].starts_with('Y');
  const bool is_english = lines[7].starts_with("en") || lines[7].starts_with("En");
  Options options = {"--encoding",  "1252",
                     "--name",      trimmed_to(lines[0], 40),
                     "--delimiter", lines[2].empty() ? " " : lines[2].substr(0, 1),
                     "--dates",     trimmed_to(lines[4], 10),
                     "--species",   trimmed_to(lines[5], 8),
                     "--male",      lines[6].substr(0, 1),
                     "--language",  is_english ? "en" : "nl"};
  std::size_t at = has_header ? 9 : 13;
  if (!has_header) add_columns(options, lines[12]);
  add_names(options, "--subpopulations", lines, at, 20);
  add_names(options, "--colours", lines, at, 40);
  return options;
}

/// The golden cases that end in a report and are not meant to differ.
std::vector<std::string> cases() {
  std::vector<std::string> names = case_names(golden);
  std::erase_if(names, [](const std::string& name) {
    return meant_to_differ.count(name) != 0 || !fs::exists(golden / name / "expected.report") ||
           fs::exists(golden / name / "expected.status") || !fs::exists(golden / name / "pedigreewatch.ini");
  });
  return names;
}

class PreparedCase : public testing::TestWithParam<std::string> {};

TEST_P(PreparedCase, GivesTheSameReport) {
  const fs::path folder = golden / GetParam();
  const std::vector<std::string> lines = steer_lines(folder);
  const WholeRun run = run_prepared("data.export", bytes_of(folder / trimmed_to(lines[1], 30)), options_of(lines));
  ASSERT_EQ(run.exit_status, 0) << run.messages;
  EXPECT_TRUE(same_bytes("report", bytes_of(folder / "expected.report"), run.file("data.out")));
}

INSTANTIATE_TEST_SUITE_P(WholeRun, PreparedCase, testing::ValuesIn(cases()),
                         [](const auto& golden_case) { return golden_case.param; });

}  // namespace
}  // namespace pedigreewatch::test
