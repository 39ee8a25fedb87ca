// Ages of the parents, generation intervals and pedigree completeness.
#pragma once

#include "reports/report_lines.h"
#include "statistics/monitor_tables.h"

namespace pedigreewatch {

/// How many fathers and mothers of each age the animals of each year had.
void write_age_tables(const ReportFrame& frame, const YearTable<std::int32_t>& sire_age_classes,
                      const YearTable<std::int32_t>& dam_age_classes);

/// Mean ages of the parents per year and over all. Yields the generation interval: the mean of both, in years.
float write_generation_interval(const ReportFrame& frame, const YearTable<float>& mean_sire_age,
                                const YearTable<float>& mean_dam_age, const OverallParentAges& overall);

/// Generation equivalents and completely known generations per year.
void write_completeness(const ReportFrame& frame, const YearTable<float>& equivalent_generations,
                        const YearTable<float>& complete_generation_shares);

}  // namespace pedigreewatch
