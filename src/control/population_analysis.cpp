#include "control/population_analysis.h"

#include <array>
#include <functional>
#include <string_view>
#include <utility>

#include "control/report_bytes.h"
#include "control/report_size.h"
#include "genetics/ancestor_pedigree.h"
#include "genetics/inbreeding.h"
#include "pedigree/line_count.h"
#include "pedigree/parent_linkage.h"
#include "pedigree/record_reading.h"
#include "statistics/missing_parents.h"
#include "statistics/monitor_pass.h"
#include "statistics/type_pass.h"

namespace pedigreewatch {
namespace {

/// The store as the data file gives it.
PopulationStore read_store(LineReader& data, const SteerSettings& settings, RunStreams& streams) {
  begin_phase(streams.phase_times, "counting lines");
  const std::int32_t line_count = count_lines(data, streams);
  begin_phase(streams.phase_times, "reading records");
  PopulationStore store = read_population(data, line_count, settings.layout, streams);
  stop_if_changed(data, streams);
  check_year_span(store, data.name, streams);
  return store;
}

void complete_pedigree(PopulationStore& store, RunStreams& streams) {
  begin_phase(streams.phase_times, "missing parents");
  append_missing_parents(store, streams.console);  // `animal_count` is final
  begin_phase(streams.phase_times, "linking and sorting");
  link_parents(store, streams);  // parents stand before their offspring
}

/// Groups the animals by year and, with more than one subpopulation, scans those.
Analysis begin_analysis(const PopulationStore& store, const SteerSettings& settings, RunStreams& streams) {
  const Subpopulations& subpopulations = settings.layout.subpopulations;
  Analysis analysis;
  if (streams.shows_subpopulations && subpopulations.count() > 1) {
    analysis.extras.subpopulations = scan_subpopulations(store, subpopulations, streams.console);
  }
  analysis.years = group_by_year(store);
  return analysis;
}

/// Stops the run before it makes a report that nobody can read. `oldest`: 0 as long as the ages are not known.
void check_size(const AnalysedPopulation& population, const OldestParents& oldest, std::string_view data_file,
                RunStreams& streams) {
  const DataFileLayout& layout = population.settings.layout;
  if (!streams.shows_subpopulations) return;
  const ReportShape shape = shape_of_report(population.store, layout, population.breeders);
  if (!is_too_large(most_report_bytes(shape, oldest))) return;
  check_report_bytes(count_report_bytes(population.store, layout, population.breeders, oldest), shape, data_file,
                     streams);
}

/// Fills the parents' ages. Dates that would make an endless report stop the run with a message that names `data_file`.
OldestParents determine_ages(AnalysedPopulation& population, std::string_view data_file, RunStreams& streams) {
  const OldestParents oldest = determine_parent_ages(population.store, streams.console);
  check_parent_ages(population.store, oldest, data_file, streams);
  check_size(population, oldest, data_file, streams);
  return oldest;
}

/// Fills the completeness of every animal and everything that is counted; yields the yearly tables, which become part
/// of the block.
MonitorTables compute_statistics(AnalysedPopulation& population, const OldestParents& oldest, TextOutput& console) {
  PopulationStore& store = population.store;
  Analysis& analysis = population.analysis;
  determine_completeness(store);
  MonitorTables tables = monitor_population(store, analysis.years, population.settings.layout.colours,
                                            population.breeders, oldest, console);
  WholeExtras& extras = analysis.extras;
  extras.top_sires = compute_top_sires(store, analysis.years, console);
  extras.summary = summarise_population(store.birth_years, tables, extras.top_sires);
  return tables;
}

/// Fills F of every animal; yields kinship per year.
YearlyInbreeding compute_genetics(AnalysedPopulation& population, bool shows_subpopulations, TextOutput& console,
                                  PhaseTimes* phase_times) {
  PopulationStore& store = population.store;
  begin_phase(phase_times, "inbreeding");
  const AncestorPedigree ancestors = make_ancestor_pedigree(store);
  compute_inbreeding(store, ancestors, console);
  begin_phase(phase_times, "kinship per year");
  const Subpopulations none;
  const Subpopulations& compared = shows_subpopulations ? population.settings.layout.subpopulations : none;
  YearlyInbreeding inbreeding = compute_kinship_by_year(store, ancestors, population.analysis.years, compared, console);
  echo_inbreeding(inbreeding.whole, console);
  return inbreeding;
}

/// Fills the statistics, F and the block. Statistics and genetics need nothing of each other: they are computed at once
/// where the run has tasks done side by side, and what the genetics say is shown behind what the statistics say.
void complete_analysis(AnalysedPopulation& population, std::string_view data_file, RunStreams& streams) {
  const OldestParents oldest = determine_ages(population, data_file, streams);
  const bool is_side_by_side = streams.do_tasks != nullptr;
  TextOutput beside;
  beside.is_english = streams.console.is_english;
  beside.stop_request = streams.console.stop_request;
  MonitorTables tables;
  YearlyInbreeding inbreeding;
  const std::array<std::function<void()>, 2> steps = {
      [&] { tables = compute_statistics(population, oldest, streams.console); },
      [&] {
        inbreeding =
            compute_genetics(population, streams.shows_subpopulations, is_side_by_side ? beside : streams.console,
                             is_side_by_side ? nullptr : streams.phase_times);
      }};
  if (is_side_by_side) {
    streams.do_tasks(steps);
  } else {
    for (const std::function<void()>& step : steps) step();
  }
  append(streams.console, beside.pending);
  const PopulationStore& store = population.store;
  Analysis& analysis = population.analysis;
  const RateSummary rates = compute_rates(inbreeding.whole, store.birth_years.count);
  analysis.whole = make_block(store, {population.settings.population_name.full(), all_positions(store),
                                      std::move(tables), std::move(inbreeding.whole), rates});
  analysis.extras.kinship = std::move(inbreeding.by_subpopulation);
}

}  // namespace

ReportFrame report_frame_of(const AnalysedPopulation& population, TextOutput& report) {
  const SteerSettings& settings = population.settings;
  return {report,
          population.store,
          settings.nouns,
          settings.layout.subpopulations.names.entries,
          settings.colour_names,
          population.breeders};
}

AnalysedPopulation analyse_population(SteerSettings settings, LineReader& data, RunStreams& streams) {
  AnalysedPopulation population;
  population.settings = std::move(settings);
  population.data_state = data.state;
  PopulationStore& store = population.store;
  store = read_store(data, population.settings, streams);  // the birth years never change from here on
  begin_phase(streams.phase_times, "breeders");
  population.breeders = store.has_breeder ? list_breeders(store, streams.console) : no_breeders();
  complete_pedigree(store, streams);
  check_size(population, {}, data.name, streams);
  begin_phase(streams.phase_times, "subpopulation scan");
  population.analysis = begin_analysis(store, population.settings, streams);
  begin_phase(streams.phase_times, "yearly statistics");
  complete_analysis(population, data.name, streams);
  return population;
}

std::vector<Block> analyse_subpopulations(const AnalysedPopulation& population, TextOutput& console) {
  std::vector<Block> blocks;
  const DataFileLayout& layout = population.settings.layout;
  const Subpopulations& subpopulations = layout.subpopulations;
  if (subpopulations.count() <= 1) return blocks;
  const auto members = animals_by_subpopulation(population.store, subpopulations);
  for (std::int32_t s = 1; s <= subpopulations.count(); ++s) {
    const BreedType type = {s, subpopulations.names.at(s), members[subpopulations.first_numbers.at(s)]};
    auto block = run_type_pass(population.store, type, layout.colours, population.breeders,
                               population.analysis.extras.kinship, console);
    if (block) blocks.push_back(std::move(*block));
  }
  return blocks;
}

}  // namespace pedigreewatch
