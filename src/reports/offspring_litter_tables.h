// Parents and litters per year, litter sizes, and offspring per parent with the busiest male and female.
#pragma once

#include "pedigree/population_store.h"
#include "reports/population_size_table.h"
#include "reports/report_lines.h"
#include "statistics/monitor_tables.h"

namespace pedigreewatch {

/// Litters, fathers and young per year. The total line takes its young and fathers from the population-size table.
void write_parents_and_litters(const ReportFrame& frame, const YearTable<std::int32_t>& litters,
                               const ReportTotals& totals);

/// How many litters of each size there were in each year.
void write_litter_sizes(const ReportFrame& frame, const YearTable<std::int32_t>& litters);

/// Offspring per parent by the parents' year of birth, then the male and the female with the most offspring.
void write_offspring(const ReportFrame& frame, const YearTable<float>& parent_offspring,
                     const AnimalRecord& busiest_sire, const AnimalRecord& busiest_dam);

}  // namespace pedigreewatch
