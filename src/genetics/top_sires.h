// How far single males dominate a birth year.
#pragma once

#include <cstdint>
#include <vector>

#include "core/text_output.h"
#include "core/year_table.h"
#include "pedigree/population_store.h"
#include "pedigree/year_groups.h"

namespace pedigreewatch {

inline constexpr std::int32_t top_sire_columns = 10;

struct TopSires {
  YearTable<std::int32_t> sire_count;  ///< 1 column: distinct known fathers of the year's animals
  YearTable<std::int32_t> top_sire;    ///< 1 column: position of the father with the most offspring, 0 without one
  YearTable<float> shares;  ///< 10 columns: shares of the most used fathers, from 0 to 1, in percent once reported
};

/// Counts the fathers of each birth year. Shares are shares of the animals with a known father. Of fathers with the
/// same number of offspring the one that stands last in the store comes first.
TopSires compute_top_sires(const PopulationStore& store, const YearGroups& years, TextOutput& console);

}  // namespace pedigreewatch
