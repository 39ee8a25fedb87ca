// The phases of a run in their order. Every phase works on the one store of animals, which from the sort on has
// parents before their offspring; the tables it fills are owned here and handed on by reference.

#include "control/run_driver.h"

#include <array>
#include <numeric>
#include <optional>
#include <string>

#include "control/missing_file.h"
#include "control/report_file.h"
#include "control/report_size.h"
#include "control/run_ending.h"
#include "control/steer_file.h"
#include "core/line_reader.h"
#include "core/line_writer.h"
#include "core/wording.h"
#include "genetics/inbreeding.h"
#include "genetics/kinship.h"
#include "pedigree/parent_linkage.h"
#include "pedigree/record_reading.h"
#include "pedigree/year_groups.h"
#include "reports/report.h"
#include "statistics/completeness.h"
#include "statistics/missing_parents.h"
#include "statistics/monitor_pass.h"
#include "statistics/parent_ages.h"
#include "statistics/type_pass.h"

namespace pedigreewatch {
namespace {

constexpr MissingFileMessages missing_data_file = {
    .english_error = "ERROR cannot find the data file",
    .english_reason = "this file is essential for running of the program",
    .dutch_error = "ERROR kan de datafile",
    .dutch_error_end = " niet vinden",
    .dutch_reason = "deze file is noodzakelijk om het programma te kunnen draaien",
};
constexpr Wording finished = {"finished analysis for ", "klaar met analyseren van "};

void print_banner(TextOutput& console) {
  write_free_line(console, {"          *********************************"});
  write_free_line(console, {"          *     Pedigree Watch Report     *"});
  write_free_line(console, {"          *********************************"});
  write_free_line(console, {"           "});
}

LineReader open_data_file(const SteerSettings& settings, RunStreams& streams) {
  LineReader data;
  if (!open_for_reading(data, std::string(settings.data_file_name.trimmed()))) {
    stop_on_missing_file(streams, missing_data_file, settings.data_file_name.full());
  }
  return data;
}

std::array<std::string, 2> input_files_of(const LineReader& data) {
  return {std::string(steer_file_name), data.name};
}

/// Counts the lines of the data file and goes back to its start. Beyond a hundred million lines the count is given
/// up and 0 stands for it.
std::int32_t count_lines(LineReader& data, RunStreams& streams) {
  constexpr std::int32_t line_limit = 100'000'000;
  constexpr std::int32_t message_interval = 1000;
  std::int32_t counter = 1, since_message = 0;
  while (skip_line(data)) {
    if (++counter > line_limit) {
      rewind(data);
      return 0;
    }
    if (++since_message == message_interval) {
      write_free_line(streams.console, {"record nr. ", counter, "counted"});
      since_message = 0;
    }
  }
  if (data.error != 0) stop_on_file(streams, data.name, error_text(data.error));
  write_free_line(streams.console, {"total number records = ", counter - 1});
  rewind(data);
  if (data.error != 0) stop_on_file(streams, data.name, error_text(data.error));
  return counter - 1;
}

/// The store as the data file gives it. One line less than there are is read, whether there is a header or not.
PopulationStore read_population(LineReader& data, const SteerSettings& settings, RunStreams& streams) {
  PopulationStore store;
  begin_phase(streams.phase_times, "counting lines");
  const std::int32_t line_count = count_lines(data, streams);
  begin_phase(streams.phase_times, "reading records");
  allocate_records(store, line_count - 1);
  read_data_file(data, settings, store, streams);
  store.birth_years = birth_years_of(store.animals);
  return store;
}

std::vector<std::int32_t> all_positions(const PopulationStore& store) {
  std::vector<std::int32_t> positions(store.animals.size());
  std::iota(positions.begin(), positions.end(), 1);
  return positions;
}

/// Everything that is computed for the whole population, and read by the report.
struct Analysis {
  BreederList breeders;
  MonitorTables monitor;
  OverallParentAges overall_ages;
  BusiestParents busiest;
  WholePopulationTables whole;
  std::optional<SubpopulationMembership> membership;  ///< with more than one subpopulation only
};

void scan_subpopulation_tables(const PopulationStore& store, const SteerSettings& settings, Analysis& analysis,
                               RunStreams& streams) {
  if (settings.subpopulation_count <= 1) return;
  analysis.membership = find_membership(store, settings.subpopulation_names);
  analysis.whole.subpopulation_years = {store.birth_years.row_count(), settings.subpopulation_count};
  analysis.whole.overlap = SubpopulationOverlap(settings.subpopulation_count);
  scan_subpopulations(store, *analysis.membership, analysis.whole.subpopulation_years, analysis.whole.overlap,
                      streams.console);
}

void compute_statistics(PopulationStore& store, SteerSettings& settings, const YearGroups& years,
                        const std::string& data_file, Analysis& analysis, RunStreams& streams) {
  begin_phase(streams.phase_times, "yearly statistics");
  const OldestParents oldest = determine_parent_ages(store, streams.console);
  check_parent_ages(store, oldest, data_file, streams);
  determine_completeness(store);
  if (!store.has_colour) settings.colour_count = 1;
  analysis.monitor =
      make_monitor_tables(store.birth_years, oldest, settings.colour_count, analysis.breeders.top_breeder_count);
  summarise_completeness(store, years, analysis.monitor);
  monitor_population(store, settings, years, analysis.breeders, analysis.monitor, streams.console);
  analysis.whole.top_sires = compute_top_sires(store, years, streams.console);
  turn_days_into_years(analysis.monitor.mean_sire_age);
  turn_days_into_years(analysis.monitor.mean_dam_age);
  const std::vector<std::int32_t> everybody = all_positions(store);
  analysis.overall_ages = overall_parent_ages(store, everybody);
  analysis.busiest = find_busiest_parents(store, everybody);
}

/// F and kinship of each year as they stand before the rates halve the relationships. The lines carry no year.
void echo_inbreeding(const YearTable<float>& inbreeding, TextOutput& console) {
  write_free_line(console, {"    F        f"});
  for (std::int64_t row = 1; row <= inbreeding.row_count; ++row) {
    write_format_line(console, "2F8.4",
                      {inbreeding.value(row, mean_inbreeding), inbreeding.value(row, kinship_with_self)});
  }
}

void compute_genetics(PopulationStore& store, const SteerSettings& settings, const YearGroups& years,
                      Analysis& analysis, RunStreams& streams) {
  const std::int64_t rows = store.birth_years.row_count();
  WholePopulationTables& whole = analysis.whole;
  whole.inbreeding = {rows, inbreeding_columns};
  whole.kinship = {rows, kinship_column_count(settings.subpopulation_count)};
  begin_phase(streams.phase_times, "inbreeding");
  const AncestorPedigree ancestors = make_ancestor_pedigree(store);
  compute_inbreeding(store, ancestors, streams.console);
  begin_phase(streams.phase_times, "kinship per year");
  compute_kinship_by_year(store, ancestors, years, analysis.membership ? &*analysis.membership : nullptr,
                          whole.inbreeding, whole.kinship, streams.console);
  echo_inbreeding(whole.inbreeding, streams.console);
  whole.rates = compute_rates(store.birth_years.count, whole.inbreeding);
}

void report_subpopulations(const PopulationStore& store, const SteerSettings& settings, const Analysis& analysis,
                           RunStreams& streams) {
  if (!analysis.membership) return;
  const auto members = animals_by_group(*analysis.membership);
  for (std::int32_t s = 1; s <= settings.subpopulation_count; ++s) {
    const std::int32_t group = analysis.membership->group_of_name[static_cast<std::size_t>(s) - 1];
    run_type_pass(store, settings, analysis.breeders, s, members[static_cast<std::size_t>(group)],
                  analysis.whole.kinship, streams);
  }
}

/// The phases.
void run_phases(RunStreams& streams) {
  SteerSettings settings = read_steer_file(streams);
  print_banner(streams.console);
  LineReader data = open_data_file(settings, streams);
  open_report(std::string(settings.report_file_name.trimmed()), input_files_of(data), streams);
  PopulationStore store = read_population(data, settings, streams);
  check_year_span(store, data.name, streams);  // the birth years never change from here on
  Analysis analysis;
  begin_phase(streams.phase_times, "breeders");
  analysis.breeders = store.has_breeder ? list_breeders(store, streams.console) : no_breeders();
  {
    begin_phase(streams.phase_times, "missing parents");
    const IdIndex index = append_missing_parents(store, streams.console);  // `animal_count` is final
    begin_phase(streams.phase_times, "linking and sorting");
    link_parents(store, index, streams);  // parents stand before their offspring
  }
  begin_phase(streams.phase_times, "subpopulation scan");
  scan_subpopulation_tables(store, settings, analysis, streams);
  const YearGroups years = group_by_year(store);
  compute_statistics(store, settings, years, data.name, analysis, streams);
  compute_genetics(store, settings, years, analysis, streams);
  begin_phase(streams.phase_times, "report");
  write_report({streams.report, store.birth_years, settings.nouns}, store, settings, analysis.monitor,
               analysis.breeders, analysis.overall_ages, analysis.busiest, analysis.whole);
  analysis.monitor = {};
  begin_phase(streams.phase_times, "subpopulation blocks");
  report_subpopulations(store, settings, analysis, streams);
  write_free_line(streams.console, {finished, settings.population_name});
  begin_phase(streams.phase_times, "end");
}

}  // namespace

int run_program(RunStreams& streams) {
  return finish_run(run_to_its_end(run_phases, streams), streams);
}

}  // namespace pedigreewatch
