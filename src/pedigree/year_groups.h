// The animals of each birth year, found once and used by every pass that works year by year.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "pedigree/population_store.h"

namespace pedigreewatch {

struct YearGroups {
  std::vector<std::int32_t> start;    ///< by row: where its animals begin in `animals`; one more for the end
  std::vector<std::int32_t> animals;  ///< positions, year by year, ascending within a year

  /// The animals born in the year of `row` (counted from 1), in store order.
  std::span<const std::int32_t> of_row(std::int64_t row) const {
    if (row < 1 || static_cast<std::size_t>(row) >= start.size()) return {};
    const auto from = static_cast<std::size_t>(start[static_cast<std::size_t>(row) - 1]);
    const auto to = static_cast<std::size_t>(start[static_cast<std::size_t>(row)]);
    return std::span<const std::int32_t>(animals).subspan(from, to - from);
  }
};

/// Groups the animals at `positions` (ascending) by their year of birth. A year outside the population's years has
/// no group; year 0 has one only where it lies between two known years.
YearGroups group_by_year(const PopulationStore& store, std::span<const std::int32_t> positions);

/// Groups all animals of the store.
YearGroups group_by_year(const PopulationStore& store);

}  // namespace pedigreewatch
