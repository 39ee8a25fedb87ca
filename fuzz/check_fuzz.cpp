// Any steer file and data file: a whole check in memory, and all that is said of it. The input is the steer file, a
// line of four hyphens, and the data file. Every finding must stand in a line of the file or in none, and its row of
// the table must have six columns and nothing that a terminal would act on.

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "checks/check.h"
#include "checks/check_report.h"
#include "control/steer_file.h"

namespace {

using namespace pedigreewatch;

void require(bool holds) {
  if (!holds) std::abort();
}

/// Yields false when the steer file stops every run.
bool read_settings(std::string_view text, CheckSettings& settings) {
  LineReader reader;
  reader.text = text;
  RunStreams silent;
  try {
    const SteerSettings steer = read_steer_lines(reader, silent);
    settings.layout = steer.layout;
    settings.language = steer.english ? ToolLanguage::english : ToolLanguage::dutch;
    settings.limits = limits_of_species(steer.species_index);
  } catch (const RunStopped&) {
    return false;
  }
  settings.today = {2026, 6, 30};
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    settings.steer_lines.emplace_back(text.substr(begin, end - begin));
    begin = end + 1;
  }
  return true;
}

void check_row(std::string_view row) {
  require(std::count(row.begin(), row.end(), '\t') == 6);
  const auto is_control = [](char byte) { return static_cast<unsigned char>(byte) < 0x20 && byte != '\t'; };
  require(std::none_of(row.begin(), row.end(), is_control));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const std::string_view input(reinterpret_cast<const char*>(bytes), size);
  constexpr std::string_view divider = "----\n";
  const std::size_t end = std::min(input.find(divider), input.size());
  CheckSettings settings;
  if (!read_settings(input.substr(0, end), settings)) return 0;
  LineReader data;
  data.name = "herd.txt";
  data.text = input.substr(std::min(end + divider.size(), input.size()));
  ProgressLine unwatched;
  CheckResult result = check_data(data, settings, unwatched);
  const auto lines = std::count(data.text.begin(), data.text.end(), '\n') + 1;
  for (const Finding& finding : result.findings.list) {
    require(finding.line >= 0 && finding.line <= lines && finding.other_line >= 0 && finding.other_line <= lines);
    check_row(table_row(finding, result, settings.language));
  }
  TextOutput console;
  show_findings(result, {"herd.txt", "herd_check.tsv", settings.language, {}}, console);
  require(!console.pending.empty());
  return 0;
}
