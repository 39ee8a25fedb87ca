// What a check is told: how the data file is to be read, and what is believed.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "checks/calendar.h"
#include "checks/check_limits.h"
#include "intake/export_lines.h"
#include "pedigree/data_file_layout.h"
#include "text/phrases.h"

namespace pedigreewatch {

/// How much is looked at.
enum class CheckScope : std::uint8_t {
  everything,
  rates,  ///< all that stops the run or falsifies inbreeding or the effective size; of the rest what costs nothing
  years,  ///< whether the birth years are believed; of the rest what costs nothing
};

struct CheckSettings {
  DataFileLayout layout;                 ///< as the steer file gives it
  std::vector<std::string> steer_lines;  ///< the steer file itself, for what is said about its lines
  bool report_overwrites_data = false;   ///< the report would get the data file's name
  bool knows_species = true;             ///< the steer file's word for the species is one of the table
  ToolLanguage language = ToolLanguage::english;
  CheckLimits limits;
  CheckScope scope = CheckScope::everything;
  CalendarDate today;
  std::int32_t threads = 1;                 ///< what is found does not depend on it
  std::optional<ExportLines> export_lines;  ///< of the export that the data file was made of, where that is known
};

}  // namespace pedigreewatch
