// The phases of a run in their order. Every phase works on the one store of animals, which from the sort on has
// parents before their offspring; the figures of the report are computed once and handed on by reference.

#include "control/run_driver.h"

#include <array>
#include <string>
#include <utility>

#include "control/missing_file.h"
#include "control/population_analysis.h"
#include "control/report_file.h"
#include "control/report_size.h"
#include "control/run_ending.h"
#include "control/steer_file.h"
#include "control/subpopulation_blocks.h"
#include "core/line_reader.h"
#include "core/line_writer.h"
#include "core/wording.h"
#include "pedigree/line_count.h"
#include "pedigree/parent_linkage.h"
#include "pedigree/record_reading.h"
#include "reports/report.h"
#include "statistics/missing_parents.h"

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

/// The store as the data file gives it.
PopulationStore read_store(LineReader& data, const SteerSettings& settings, RunStreams& streams) {
  begin_phase(streams.phase_times, "counting lines");
  const std::int32_t line_count = count_lines(data, streams);
  begin_phase(streams.phase_times, "reading records");
  PopulationStore store = read_population(data, line_count, settings.layout, streams);
  check_year_span(store, data.name, streams);
  return store;
}

void complete_pedigree(PopulationStore& store, RunStreams& streams) {
  begin_phase(streams.phase_times, "missing parents");
  append_missing_parents(store, streams.console);  // `animal_count` is final
  begin_phase(streams.phase_times, "linking and sorting");
  link_parents(store, streams);  // parents stand before their offspring
}

/// The phases.
void run_phases(RunStreams& streams) {
  const SteerSettings settings = read_steer_file(streams);
  print_banner(streams.console);
  LineReader data = open_data_file(settings, streams);
  open_report(std::string(settings.report_file_name.trimmed()), input_files_of(data), streams);

  PopulationStore store = read_store(data, settings, streams);  // the birth years never change from here on
  begin_phase(streams.phase_times, "breeders");
  const BreederList breeders = store.has_breeder ? list_breeders(store, streams.console) : no_breeders();
  complete_pedigree(store, streams);
  begin_phase(streams.phase_times, "subpopulation scan");
  Analysis analysis = begin_analysis(store, settings, streams.console);
  begin_phase(streams.phase_times, "yearly statistics");
  MonitorTables tables = compute_statistics(store, settings, breeders, data.name, analysis, streams);
  compute_genetics(store, settings, std::move(tables), analysis, streams);  // the block is complete

  const ReportFrame frame = {streams.report,        store,
                             settings.nouns,        settings.layout.subpopulations.names.entries,
                             settings.colour_names, breeders};
  begin_phase(streams.phase_times, "report");
  write_report(frame, analysis.whole, analysis.extras);
  analysis.whole = {};
  begin_phase(streams.phase_times, "subpopulation blocks");
  report_subpopulations(frame, settings.layout, analysis.extras.kinship, streams.console);
  write_free_line(streams.console, {finished, settings.population_name});
  begin_phase(streams.phase_times, "end");
}

}  // namespace

int run_program(RunStreams& streams) {
  return finish_run(run_to_its_end(run_phases, streams), streams);
}

}  // namespace pedigreewatch
