// What the steer file says about a run. Nothing changes it once it has been read.
#pragma once

#include <cstdint>
#include <vector>

#include "core/fixed_text.h"
#include "pedigree/data_file_layout.h"
#include "reports/species_nouns.h"
#include "text/phrases.h"

namespace pedigreewatch {

struct SteerSettings {
  FixedText<40> population_name;
  FixedText<30> data_file_name;
  FixedText<30> report_file_name;   ///< the data file's name with "out" in place of its last three characters
  DataFileLayout layout;            ///< of the data file, with the names that are looked up in it
  std::int32_t species_index = 16;  ///< row of the species words, 1 to 16
  SpeciesNouns nouns;
  bool english = false;
  std::vector<ColourName> colour_names;  ///< those of the layout, of which "Onbekend" is the last, and "niet erkend"
};

/// The language of the report, in which the companions speak too.
inline ToolLanguage language_of(const SteerSettings& settings) {
  return settings.english ? ToolLanguage::english : ToolLanguage::dutch;
}

}  // namespace pedigreewatch
