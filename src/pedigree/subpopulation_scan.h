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
  std::vector<std::int32_t> counts;

  SubpopulationOverlap() = default;
  explicit SubpopulationOverlap(std::int32_t subpopulation_count)
      : size(subpopulation_count), counts(static_cast<std::size_t>(size) * static_cast<std::size_t>(size), 0) {}
  std::int32_t& at(std::int32_t k, std::int32_t j) { return counts[offset(k, j)]; }
  std::int32_t at(std::int32_t k, std::int32_t j) const { return counts[offset(k, j)]; }

 private:
  std::size_t offset(std::int32_t k, std::int32_t j) const {
    return static_cast<std::size_t>(std::int64_t{k - 1} * size + j - 1);
  }
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
