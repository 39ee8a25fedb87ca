// Everything comes from the steer file; only the day of the check does not.

#include "control/check_setup.h"

#include <utility>

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

CheckSettings make_check_settings(const SteerSettings& steer, std::vector<std::string> steer_lines,
                                  const CalendarDate& today) {
  CheckSettings settings;
  settings.layout = steer.layout;
  settings.steer_lines = std::move(steer_lines);
  settings.report_overwrites_data = steer.report_file_name == steer.data_file_name;
  settings.knows_species = names_species(settings.steer_lines, steer);
  settings.language = steer.english ? ToolLanguage::english : ToolLanguage::dutch;
  settings.limits = limits_of_species(steer.species_index);
  settings.today = today;
  return settings;
}

}  // namespace pedigreewatch
