#include "pedigree/year_groups.h"

#include <numeric>

namespace pedigreewatch {

YearGroups group_by_year(const PopulationStore& store, std::span<const std::int32_t> positions) {
  YearGroups groups;
  groups.start.assign(static_cast<std::size_t>(store.birth_years.row_count()) + 1, 0);
  const auto row_of = [&](std::int32_t position) {
    return static_cast<std::size_t>(store.birth_years.row_of(store.at(position).birth_year));
  };
  for (const std::int32_t position : positions) {
    if (const std::size_t row = row_of(position); row > 0) ++groups.start[row];
  }
  std::partial_sum(groups.start.begin(), groups.start.end(), groups.start.begin());
  groups.animals.resize(static_cast<std::size_t>(groups.start.back()));
  // Each row's start walks to the next row's start while the row is filled; then all starts move one row back.
  for (const std::int32_t position : positions) {
    const std::size_t row = row_of(position);
    if (row == 0) continue;
    groups.animals[static_cast<std::size_t>(groups.start[row - 1]++)] = position;
  }
  for (std::size_t row = groups.start.size() - 1; row > 0; --row) groups.start[row] = groups.start[row - 1];
  groups.start[0] = 0;
  return groups;
}

YearGroups group_by_year(const PopulationStore& store) {
  std::vector<std::int32_t> all(store.animals.size());
  std::iota(all.begin(), all.end(), 1);
  return group_by_year(store, all);
}

}  // namespace pedigreewatch
