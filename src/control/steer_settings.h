// What the steer file says about a run. The one record of this folder that the other folders read.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "control/species.h"
#include "core/fixed_text.h"

namespace pedigreewatch {

inline constexpr std::size_t column_limit = 25;  ///< columns of the data file that count

/// For each column of the data file its field code; 0 for a column that is skipped.
using ColumnMap = std::array<std::int32_t, column_limit>;

using SubpopulationName = FixedText<20>;
using ColourName = FixedText<40>;

struct SteerSettings {
  FixedText<40> population_name;
  FixedText<30> data_file_name;
  FixedText<30> report_file_name;  ///< the data file's name with "out" in place of its last three characters
  char delimiter = ' ';
  bool merge_delimiters = false;  ///< an empty column is left untouched instead of being stored as blank
  FixedText<10> date_layout;
  bool date_has_delimiters = false, date_year_first = false, date_day_first = false;
  std::int32_t species_index = 16;
  SpeciesNouns nouns;
  std::array<char, 2> male_letters = {' ', ' '};  ///< the male letter and its other-case partner
  bool english = false;
  ColumnMap column_codes = {};
  std::int32_t subpopulation_count = 0;
  std::vector<SubpopulationName> subpopulation_names;
  std::int32_t colour_count = 0;         ///< colours of the steer file plus two
  std::vector<ColourName> colour_names;  ///< the last two rows are "Onbekend" and "niet erkend"
};

}  // namespace pedigreewatch
