#include "statistics/block.h"

#include <utility>

namespace pedigreewatch {

void describe_animals(const PopulationStore& store, std::span<const std::int32_t> positions, MonitorTables tables,
                      Block& block) {
  block.tables = std::move(tables);
  block.totals = total_of_years(block.tables.parent_counts);
  block.shares_of_parents = shares_of_parents(block.tables.parent_counts, store.birth_years.count);
  block.litter_means = means_of_years(block.tables.litters);
  block.all_litters = means_of_all_litters(block.tables.litters, block.totals);
  block.litter_sizes = litter_sizes_of(block.tables.litters);
  block.busiest = find_busiest_parents(store, positions);
  block.interval = overall_generation_interval(store, positions);
}

void describe_inbreeding(YearRows<InbreedingRow> rows, const RateSummary& rates, std::int32_t year_count,
                         Block& block) {
  block.inbreeding = std::move(rows);
  block.rates = rates_per_generation(rates, block.interval.generation_interval);
  block.periods = rates_per_period(block.inbreeding, year_count, block.interval.generation_interval);
}

}  // namespace pedigreewatch
