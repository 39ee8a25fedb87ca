// What follows from the yearly tables of the block is derived here, in one place for both kinds of block; the writers
// only print.

#include "statistics/block.h"

#include <utility>

namespace pedigreewatch {
namespace {

/// All animals of the store less those that are counted. So the animals of other subpopulations are among them in the
/// block of a subpopulation, and so are imports without native offspring, which no table counts.
std::int64_t animals_outside(const ReportTotals& totals, const PopulationStore& store) {
  std::int64_t outside = store.animal_count;
  for (const Sex sex : {male, female}) {
    outside -= totals.of(sex).unused + totals.of(sex).native_parents + totals.of(sex).imported_parents;
  }
  return outside;
}

}  // namespace

Block make_block(const PopulationStore& store, BlockSource source) {
  const std::int32_t year_count = store.birth_years.count;
  Block block;
  block.name = source.name;
  block.tables = std::move(source.tables);
  block.totals = total_of_years(block.tables.parent_counts);
  block.without_birth_year = animals_outside(block.totals, store);
  block.shares_of_parents = shares_of_parents(block.tables.parent_counts, year_count);
  block.litter_means = means_of_years(block.tables.litters);
  block.all_litters = means_of_all_litters(block.tables.litters, block.totals);
  block.litter_sizes = litter_sizes_of(block.tables.litters);
  block.busiest = find_busiest_parents(store, source.positions);
  block.interval = overall_generation_interval(store, source.positions);
  block.inbreeding = std::move(source.inbreeding);
  block.rates = rates_per_generation(source.rates, block.interval.generation_interval);
  block.periods = rates_per_period(block.inbreeding, year_count, block.interval.generation_interval);
  return block;
}

}  // namespace pedigreewatch
