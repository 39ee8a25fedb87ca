// Everything that one block of the report shows: the same figures for the whole population and for each subpopulation,
// computed once and never changed afterwards.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "genetics/rates.h"
#include "genetics/top_sires.h"
#include "genetics/yearly_inbreeding.h"
#include "pedigree/subpopulation_scan.h"
#include "statistics/generation_interval.h"
#include "statistics/monitor_tables.h"
#include "statistics/offspring.h"
#include "statistics/population_summary.h"

namespace pedigreewatch {

struct Block {
  std::string name;  ///< of the population or subpopulation, with its trailing blanks
  MonitorTables tables;
  ReportTotals totals;
  BySex<float> shares_of_parents;
  YearRows<LitterMeans> litter_means;
  LitterMeans all_litters;
  YearTable<std::int32_t> litter_sizes;
  BusiestParents busiest;
  GenerationInterval interval;
  YearRows<InbreedingRow> inbreeding;
  GenerationRates rates;
  PeriodRates periods;
};

/// What only the block of the whole population shows.
struct WholeExtras {
  SubpopulationScan subpopulations;  ///< with more than one subpopulation
  YearRows<TopSireRow> top_sires;
  YearTable<float> kinship;  ///< within and between subpopulations
  PopulationSummary summary;
};

/// Fills the block, but for its name and inbreeding, from the yearly tables and the animals at `positions`.
void describe_animals(const PopulationStore& store, std::span<const std::int32_t> positions, MonitorTables tables,
                      Block& block);

/// Adds F and f of each year and the rates that follow from them. The interval must be there already.
void describe_inbreeding(YearRows<InbreedingRow> rows, const RateSummary& rates, std::int32_t year_count, Block& block);

}  // namespace pedigreewatch
