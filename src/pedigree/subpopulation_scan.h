// Counts births and the parents' descent per subpopulation, and checks the breed codes of all other animals.
#pragma once

#include <cstdint>

#include "control/steer_settings.h"
#include "core/run_streams.h"
#include "core/year_table.h"
#include "pedigree/population_store.h"
#include "pedigree/subpopulation_membership.h"

namespace pedigreewatch {

/// The parents of the animals of subpopulation k (row) that come from subpopulation j (column), both from 1.
struct SubpopulationOverlap {
  std::int32_t size = 0;
  std::vector<std::int32_t> counts;

  explicit SubpopulationOverlap(std::int32_t subpopulation_count)
      : size(subpopulation_count), counts(static_cast<std::size_t>(size) * static_cast<std::size_t>(size), 0) {}
  std::int32_t& at(std::int32_t k, std::int32_t j) { return counts[offset(k, j)]; }
  std::int32_t at(std::int32_t k, std::int32_t j) const { return counts[offset(k, j)]; }

 private:
  std::size_t offset(std::int32_t k, std::int32_t j) const {
    return static_cast<std::size_t>(k - 1) * static_cast<std::size_t>(size) + static_cast<std::size_t>(j - 1);
  }
};

/// Fills both tables. `year_table` has a column for each subpopulation; an animal without a birth year counts in the
/// overlap only. Animals of no subpopulation are expected to share one breed code; any other one is reported.
void scan_subpopulations(const PopulationStore& store, const SubpopulationMembership& membership,
                         YearTable<std::int32_t>& year_table, SubpopulationOverlap& overlap, TextOutput& console);

}  // namespace pedigreewatch
