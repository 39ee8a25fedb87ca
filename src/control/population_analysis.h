// Everything that is computed for the whole population.
#pragma once

#include <string_view>

#include "control/steer_settings.h"
#include "core/run_streams.h"
#include "pedigree/population_store.h"
#include "pedigree/year_groups.h"
#include "statistics/block.h"
#include "statistics/breeder_list.h"

namespace pedigreewatch {

struct Analysis {
  YearGroups years;  ///< the animals of each year, in the final order of the store
  Block whole;
  WholeExtras extras;
};

/// Groups the animals by year and, with more than one subpopulation, scans those.
Analysis begin_analysis(const PopulationStore& store, const SteerSettings& settings, TextOutput& console);

/// Fills the parents' ages and the completeness of every animal, and everything that is counted; yields the yearly
/// tables, which become part of the block. Dates that would make an endless report stop the run with a message that
/// names `data_file`.
MonitorTables compute_statistics(PopulationStore& store, const SteerSettings& settings, const BreederList& breeders,
                                 std::string_view data_file, Analysis& analysis, RunStreams& streams);

/// Fills F of every animal and kinship per year, and makes the block from the tables and the rates.
void compute_genetics(PopulationStore& store, const SteerSettings& settings, MonitorTables tables, Analysis& analysis,
                      RunStreams& streams);

}  // namespace pedigreewatch
