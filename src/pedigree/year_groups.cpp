// A counting sort by year, which keeps the order of the store within a year.

#include "pedigree/year_groups.h"

#include <numeric>

namespace pedigreewatch {

YearGroups group_by_year(const PopulationStore& store, std::span<const std::int32_t> positions) {
  YearGroups groups;
  const std::int32_t row_count = store.birth_years.row_count();
  ByNumber<std::int32_t> next(row_count);
  const auto row_of = [&](std::int32_t position) { return store.birth_years.row_of(store.birth_year[position]); };
  for (const std::int32_t position : positions) ++next[row_of(position)];
  next[0] = 0;  // animals without a year are in no group
  std::partial_sum(next.values.begin(), next.values.end(), next.values.begin());
  groups.end = next;
  NumberedList<std::int32_t> animals;
  animals.entries.resize(static_cast<std::size_t>(next[row_count]));
  for (const std::int32_t position : positions) {
    if (const std::int32_t row = row_of(position); row > 0) animals.at(++next[row - 1]) = position;
  }
  groups.animals = std::move(animals.entries);
  return groups;
}

YearGroups group_by_year(const PopulationStore& store) {
  return group_by_year(store, all_positions(store));
}

}  // namespace pedigreewatch
