// The ReportFile: which tables it holds, and in which order.
#pragma once

#include "control/steer_settings.h"
#include "genetics/rates.h"
#include "genetics/top_sires.h"
#include "pedigree/population_store.h"
#include "pedigree/subpopulation_scan.h"
#include "reports/report_lines.h"
#include "statistics/breeder_list.h"
#include "statistics/monitor_tables.h"

namespace pedigreewatch {

/// What the block of the whole population shows besides the tables that a subpopulation's block has too.
struct WholePopulationTables {
  YearTable<float> inbreeding;
  RateSummary rates;
  YearTable<float> kinship;
  YearTable<std::int32_t> subpopulation_years;
  SubpopulationOverlap overlap{0};
  TopSires top_sires;
};

/// Writes the block of the whole population. Some writers change their table, for later readers of the same block:
/// the parent counts lose the parents, and the shares of the top sires become percentages.
void write_report(const ReportFrame& frame, const PopulationStore& store, const SteerSettings& settings,
                  MonitorTables& monitor, const BreederList& breeders, const OverallParentAges& overall_ages,
                  const BusiestParents& busiest, WholePopulationTables& whole);

/// Writes the block of one subpopulation from its own tables. The first six columns of `trend` stand where the whole
/// population has its inbreeding table.
void write_type_report(const ReportFrame& frame, const PopulationStore& store, const SteerSettings& settings,
                       const SubpopulationName& name, MonitorTables& monitor, const BreederList& breeders,
                       const OverallParentAges& overall_ages, const BusiestParents& busiest,
                       const YearTable<float>& trend, const RateSummary& rates);

}  // namespace pedigreewatch
