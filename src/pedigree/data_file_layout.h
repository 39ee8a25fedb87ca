// How the lines of a data file are to be read, and which names are looked up on the way. The steer file fills it; it
// never changes afterwards.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "core/fixed_text.h"
#include "core/name_list.h"
#include "pedigree/birth_date.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

inline constexpr std::size_t column_limit = 25;  ///< columns of the data file that count

/// For each column of the data file its field code; 0 for a column that is skipped.
using ColumnMap = std::array<std::int32_t, column_limit>;

using Subpopulations = NameList<SubpopulationName{}.bytes.size()>;
using Colours = NameList<ColourName{}.bytes.size()>;

struct DataFileLayout {
  char delimiter = ' ';
  bool merge_delimiters = false;  ///< an empty column is left untouched instead of being stored as blank
  FixedText<10> date_layout;      ///< as the steer file writes it, for messages
  DateLayout dates;               ///< what it means
  std::array<char, 2> male_letters = {' ', ' '};  ///< the male letter and its other-case partner
  ColumnMap column_codes = {};                    ///< all 0: the first line of the file names its columns
  Subpopulations subpopulations;                  ///< the ones that are allowed
  Colours colours;                                ///< the ones that are counted; all others are taken together
};

}  // namespace pedigreewatch
