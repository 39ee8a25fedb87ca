#include "statistics/monitor_tables.h"

#include <algorithm>

namespace pedigreewatch {

MonitorTables make_monitor_tables(const BirthYears& years, const OldestParents& oldest, std::int32_t colour_count,
                                  std::int32_t top_breeder_count) {
  const std::int64_t rows = years.row_count();
  MonitorTables tables;
  tables.equivalent_generations = {rows, 1};
  tables.complete_generation_shares = {rows, completeness_columns};
  tables.sire_age_classes = {rows, std::max(oldest.sire, 0)};
  tables.dam_age_classes = {rows, std::max(oldest.dam, 0)};
  tables.parent_counts = {rows, parent_count_columns};
  tables.parent_offspring = {rows, parent_offspring_columns};
  tables.import_pairs = {rows, import_pair_columns};
  tables.litters = {rows, litter_columns};
  tables.mean_sire_age = {rows, 1};
  tables.mean_dam_age = {rows, 1};
  tables.colour_counts = {rows, colour_count};
  tables.top_breeders = {rows, 2 * std::int64_t{top_breeder_count} + 2};
  return tables;
}

}  // namespace pedigreewatch
