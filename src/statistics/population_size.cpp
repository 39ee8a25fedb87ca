// Imports without native offspring are counted nowhere: they are no part of the population.

#include "statistics/population_size.h"

#include "core/integers.h"

namespace pedigreewatch {

ParentCounts parent_year_statistics(const PopulationStore& store, YearAnimals animals) {
  ParentCounts counts;
  for (const std::int32_t position : animals) {
    ParentCount<std::int32_t>& count = counts.of(store.sex[position]);
    const bool is_import = store.is_import[position] != 0;
    if (store.is_native_parent(position)) {
      ++(is_import ? count.imported_parents : count.native_parents);
    } else if (!is_import) {
      ++count.unused;
    }
  }
  return counts;
}

ReportTotals total_of_years(const YearRows<ParentCounts>& parent_counts) {
  ReportTotals totals;
  for (const ParentCounts& counts : parent_counts.records) {
    for (const Sex sex : {male, female}) {
      totals.of(sex).unused += counts.of(sex).unused;
      totals.of(sex).native_parents += counts.of(sex).native_parents;
      totals.of(sex).imported_parents += counts.of(sex).imported_parents;
    }
  }
  return totals;
}

BySex<float> shares_of_parents(const YearRows<ParentCounts>& parent_counts, std::int32_t year_count) {
  constexpr Row years_left_out = 4;
  ReportTotals sums;
  for (Row row = 1; row <= Row{year_count} - years_left_out; ++row) {
    const ParentCounts counts = parent_counts.of(row);
    for (const Sex sex : {male, female}) {
      sums.of(sex).unused += counts.of(sex).unused;
      sums.of(sex).native_parents += counts.of(sex).native_parents;
    }
  }
  const auto share_of = [&](Sex sex) {
    const std::int64_t parents = sums.of(sex).native_parents;
    return real(parents) * 100.0F / real(sums.of(sex).unused + parents);
  };
  return {share_of(male), share_of(female)};
}

}  // namespace pedigreewatch
