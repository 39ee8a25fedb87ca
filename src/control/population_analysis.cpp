#include "control/population_analysis.h"

#include <utility>

#include "control/report_size.h"
#include "genetics/ancestor_pedigree.h"
#include "genetics/inbreeding.h"
#include "statistics/monitor_pass.h"

namespace pedigreewatch {

Analysis begin_analysis(const PopulationStore& store, const SteerSettings& settings, TextOutput& console) {
  const Subpopulations& subpopulations = settings.layout.subpopulations;
  Analysis analysis;
  if (subpopulations.count() > 1) {
    analysis.extras.subpopulations = scan_subpopulations(store, subpopulations, console);
  }
  analysis.years = group_by_year(store);
  return analysis;
}

MonitorTables compute_statistics(PopulationStore& store, const SteerSettings& settings, const BreederList& breeders,
                                 std::string_view data_file, Analysis& analysis, RunStreams& streams) {
  const OldestParents oldest = determine_parent_ages(store, streams.console);
  check_parent_ages(store, oldest, data_file, streams);
  determine_completeness(store);
  MonitorTables tables =
      monitor_population(store, analysis.years, settings.layout.colours, breeders, oldest, streams.console);
  WholeExtras& extras = analysis.extras;
  extras.top_sires = compute_top_sires(store, analysis.years, streams.console);
  extras.summary = summarise_population(store.birth_years, tables, extras.top_sires);
  return tables;
}

void compute_genetics(PopulationStore& store, const SteerSettings& settings, MonitorTables tables, Analysis& analysis,
                      RunStreams& streams) {
  begin_phase(streams.phase_times, "inbreeding");
  const AncestorPedigree ancestors = make_ancestor_pedigree(store);
  compute_inbreeding(store, ancestors, streams.console);
  begin_phase(streams.phase_times, "kinship per year");
  YearlyInbreeding inbreeding =
      compute_kinship_by_year(store, ancestors, analysis.years, settings.layout.subpopulations, streams.console);
  echo_inbreeding(inbreeding.whole, streams.console);
  const RateSummary rates = compute_rates(inbreeding.whole, store.birth_years.count);
  analysis.whole = make_block(store, {settings.population_name.full(), all_positions(store), std::move(tables),
                                      std::move(inbreeding.whole), rates});
  analysis.extras.kinship = std::move(inbreeding.by_subpopulation);
}

}  // namespace pedigreewatch
