// Everything that one block of the report shows: the same figures for the whole population and for each subpopulation,
// computed once and never changed afterwards.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

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
  std::int64_t without_birth_year = 0;  ///< animals of the store, all of them, that are in none of the totals
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

/// What a block is made from.
struct BlockSource {
  std::string_view name;
  std::span<const std::int32_t> positions;  ///< of the animals that the block is about, ascending
  MonitorTables tables;
  YearRows<InbreedingRow> inbreeding;
  RateSummary rates;  ///< per year; the block's own generation interval makes them rates per generation
};

/// Derives everything else from the source. Ages of the parents and offspring counts must be known.
Block make_block(const PopulationStore& store, BlockSource source);

}  // namespace pedigreewatch
