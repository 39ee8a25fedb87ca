// The table that opens each block: animals and parents per year of birth.
#pragma once

#include <array>
#include <cstdint>

#include "core/year_table.h"
#include "reports/report_lines.h"
#include "statistics/monitor_tables.h"

namespace pedigreewatch {

/// The sums of the six columns over all years, after the parents have been taken out of the animals.
using ReportTotals = std::array<std::int64_t, parent_count_columns>;

/// Writes the table and yields its totals. Takes the parents out of the counts of animals, for good: the parent
/// counts then hold the animals that did not become parents. `animal_count` is that of the whole store.
ReportTotals write_population_size(const ReportFrame& frame, bool has_import, std::int32_t animal_count,
                                   YearTable<std::int32_t>& parent_counts);

}  // namespace pedigreewatch
