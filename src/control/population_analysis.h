// Everything that is computed for a population, from its data file to the last figure, with nothing written: the
// report, the page, the tables and the matings are made from the same values.
#pragma once

#include <vector>

#include "control/steer_settings.h"
#include "core/line_reader.h"
#include "core/run_streams.h"
#include "pedigree/population_store.h"
#include "pedigree/year_groups.h"
#include "reports/report_lines.h"
#include "statistics/block.h"
#include "statistics/breeder_list.h"

namespace pedigreewatch {

/// Everything that is computed for the whole population.
struct Analysis {
  YearGroups years;  ///< the animals of each year, in the final order of the store
  Block whole;
  WholeExtras extras;
};

struct AnalysedPopulation {
  SteerSettings settings;
  FileState data_state = {};  ///< of the data file when it was opened
  /// Of the export, that the data contain, for who shows results; the analysis leaves 0. See `corrections_in_data`.
  std::int64_t corrections = 0;
  PopulationStore store;  ///< parents before their offspring, with F, ages and completeness of every animal
  BreederList breeders;
  Analysis analysis;
};

/// What a writer of the report needs of the population, which must outlive the frame.
ReportFrame report_frame_of(const AnalysedPopulation& population, TextOutput& report);

/// Reads the data file and computes everything. Progress goes to the console; data that no report can be made of stop
/// the run with a message, a loop in the pedigree also with its animals on the console and in the report.
AnalysedPopulation analyse_population(SteerSettings settings, LineReader& data, RunStreams& streams);

/// The blocks of the subpopulations that have animals, in the order of the steer file; none with fewer than two names.
std::vector<Block> analyse_subpopulations(const AnalysedPopulation& population, TextOutput& console);

}  // namespace pedigreewatch
