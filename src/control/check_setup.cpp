// Everything comes from the steer file; only the day of the check does not.

#include "control/check_setup.h"

#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

#include "core/line_reader.h"

namespace pedigreewatch {
namespace {

bool names_species(const std::vector<std::string>& lines, const SteerSettings& settings) {
  constexpr std::size_t species_line = 6;
  constexpr std::int32_t no_row = 16;
  if (lines.size() < species_line || settings.species_index != no_row) return true;
  const SpeciesWord word(lines[species_line - 1]);
  return word == SpeciesWord("other") || word == SpeciesWord("overig");
}

}  // namespace

std::vector<std::string> lines_of_steer_file(const std::string& name) {
  constexpr std::size_t most_lines = 200'000;
  std::vector<std::string> lines;
  LineReader reader;
  std::string_view line;
  if (!open_for_reading(reader, name)) return lines;
  while (lines.size() < most_lines && read_line(reader, line)) lines.emplace_back(line);
  return lines;
}

std::optional<ExportLines> export_lines_beside(const std::string& data_file, bool& is_outdated) {
  is_outdated = false;
  LineReader reader;
  if (!open_for_reading(reader, name_of_export_lines(data_file))) return std::nullopt;
  std::string text;
  std::string_view line;
  while (read_line(reader, line)) text.append(line).append("\n");
  std::optional<ExportLines> lines = read_export_lines(text);
  std::error_code ignored;
  const std::uintmax_t bytes = std::filesystem::file_size(data_file, ignored);
  is_outdated = !lines || ignored || bytes != static_cast<std::uintmax_t>(lines->data_bytes);
  if (is_outdated) return std::nullopt;
  return lines;
}

CheckSettings make_check_settings(const SteerSettings& steer, std::vector<std::string> steer_lines,
                                  const CalendarDate& today) {
  CheckSettings settings;
  settings.layout = steer.layout;
  settings.steer_lines = std::move(steer_lines);
  settings.report_overwrites_data = steer.report_file_name == steer.data_file_name;
  settings.knows_species = names_species(settings.steer_lines, steer);
  settings.language = language_of(steer);
  settings.limits = limits_of_species(steer.species_index);
  settings.today = today;
  return settings;
}

}  // namespace pedigreewatch
