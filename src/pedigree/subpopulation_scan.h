// Counts births and the parents' descent per subpopulation, and checks the breed codes of all other animals.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "core/text_output.h"
#include "core/year_table.h"
#include "pedigree/data_file_layout.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

/// The parents of the animals of subpopulation k (row) that come from subpopulation j (column), both from 1.
struct SubpopulationOverlap {
  std::int32_t size = 0;
  YearTable<std::int32_t> counts;  ///< a row for each subpopulation; those without animals take no memory

  SubpopulationOverlap() = default;
  explicit SubpopulationOverlap(std::int32_t subpopulation_count)
      : size(subpopulation_count), counts(subpopulation_count, subpopulation_count) {}
  std::int32_t& at(std::int32_t k, std::int32_t j) { return counts.at(k, j); }
  std::int32_t at(std::int32_t k, std::int32_t j) const { return counts.value(k, j); }
};

struct SubpopulationScan {
  YearTable<std::int32_t> births;  ///< a column for each subpopulation; an animal without a birth year is not in it
  SubpopulationOverlap overlap;    ///< counts that animal too
};

/// Counts both. Animals of no subpopulation are expected to share one breed code; any other one is reported.
SubpopulationScan scan_subpopulations(const PopulationStore& store, const Subpopulations& subpopulations,
                                      TextOutput& console);

/// The positions of each subpopulation's animals, ascending, by the number of the subpopulation. A name that stands in
/// the list again has none of its own.
ByNumber<std::vector<std::int32_t>> animals_by_subpopulation(const PopulationStore& store,
                                                             const Subpopulations& subpopulations);

}  // namespace pedigreewatch
