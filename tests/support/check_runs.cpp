#include "support/check_runs.h"

#include <algorithm>

#include "checks/check_report.h"
#include "control/steer_file.h"
#include "support/lines.h"

namespace pedigreewatch::test {

SteerLines sheep_steer(bool english) {
  SteerLines steer;
  steer.species = "sheep";
  steer.language = english ? "en" : "nl";
  return steer;
}

CheckSettings check_settings(const SteerLines& steer) {
  const std::string text = steer.text();
  LineReader reader;
  reader.text = text;
  RunStreams silent;
  const SteerSettings read = read_steer_lines(reader, silent);
  CheckSettings settings;
  settings.layout = read.layout;
  settings.steer_lines = lines_of(text);
  settings.report_overwrites_data = read.report_file_name == read.data_file_name;
  settings.knows_species = steer.species == "sheep" || steer.species == "cattle";
  settings.language = read.english ? ToolLanguage::english : ToolLanguage::dutch;
  settings.limits = limits_of_species(read.species_index);
  settings.today = {2026, 6, 30};
  return settings;
}

CheckResult checked(std::string_view data, const CheckSettings& settings) {
  LineReader reader;
  reader.name = "dogs.txt";
  reader.text = data;
  ProgressLine unwatched;
  return check_data(reader, settings, unwatched);
}

CheckResult checked_sheep(std::string_view data) {
  return checked(data, check_settings(sheep_steer()));
}

std::int64_t count_of(const CheckResult& result, FindingCode code) {
  return std::ranges::count(result.findings.list, code, &Finding::code);
}

std::vector<std::string> rows_of(const CheckResult& result, ToolLanguage language) {
  std::vector<Finding> list = result.findings.list;
  std::ranges::stable_sort(list, [](const Finding& a, const Finding& b) { return a.line < b.line; });
  std::vector<std::string> rows;
  for (const Finding& finding : list) {
    rows.push_back(table_row(finding, result, language));
    std::ranges::replace(rows.back(), '\t', '|');
    if (rows.back().ends_with('|')) rows.back().pop_back();
  }
  return rows;
}

std::vector<std::string> serious_rows_of(const CheckResult& result, ToolLanguage language) {
  std::vector<std::string> rows = rows_of(result, language);
  std::erase_if(rows, [](const std::string& row) { return row.find("|L|") != std::string::npos; });
  return rows;
}

}  // namespace pedigreewatch::test
