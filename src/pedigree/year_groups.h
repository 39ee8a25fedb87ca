// The animals of each birth year, found once and used by every pass that works year by year.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "core/by_number.h"
#include "core/year_table.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

/// The animals of one year: positions in the store, ascending.
using YearAnimals = std::span<const std::int32_t>;

struct YearGroups {
  ByNumber<std::int32_t> end;         ///< by row: where its animals end in `animals`, and those of the next row begin
  std::vector<std::int32_t> animals;  ///< positions, year by year, ascending within a year

  /// The animals born in the year of `row` (counted from 1), in store order.
  YearAnimals of_row(Row row) const {
    if (row < 1 || row > end.last()) return {};
    const std::int32_t number = static_cast<std::int32_t>(row), begin = end[number - 1];
    return YearAnimals(animals).subspan(static_cast<std::size_t>(begin), static_cast<std::size_t>(end[number] - begin));
  }
};

/// Groups the animals at `positions` (ascending) by their year of birth. A year outside the population's years has
/// no group; year 0 has one only where it lies between two known years.
YearGroups group_by_year(const PopulationStore& store, std::span<const std::int32_t> positions);

/// Groups all animals of the store.
YearGroups group_by_year(const PopulationStore& store);

}  // namespace pedigreewatch
