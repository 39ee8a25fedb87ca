// How far single males dominate a birth year.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "core/text_output.h"
#include "core/year_table.h"
#include "pedigree/population_store.h"
#include "pedigree/year_groups.h"

namespace pedigreewatch {

inline constexpr std::size_t top_sire_columns = 10;

/// The sires of one birth year.
struct TopSireRow {
  std::int32_t sire_count = 0;                      ///< distinct known fathers of the year's animals
  std::int32_t top_sire = 0;                        ///< position of the father with the most offspring, 0 without one
  std::array<float, top_sire_columns> shares = {};  ///< of the most used fathers, in percent
};

/// Counts the fathers of each birth year. Shares are shares of the animals with a known father. Of fathers with the
/// same number of offspring the one that stands last in the store comes first.
YearRows<TopSireRow> compute_top_sires(const PopulationStore& store, const YearGroups& years, TextOutput& console);

}  // namespace pedigreewatch
