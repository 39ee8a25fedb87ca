// The phases of a run in their order: its files are opened, everything is computed from them, the report is written.
// What is computed, and in which order, stands in population_analysis.cpp.

#include "control/run_driver.h"

#include <array>
#include <string>

#include "control/missing_file.h"
#include "control/population_analysis.h"
#include "control/report_file.h"
#include "control/run_ending.h"
#include "control/steer_file.h"
#include "control/subpopulation_blocks.h"
#include "core/line_reader.h"
#include "core/line_writer.h"
#include "core/wording.h"
#include "reports/report.h"

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
    stop_on_missing_file(streams, missing_data_file, settings.data_file_name.full(), data);
  }
  return data;
}

std::array<std::string, 2> input_files_of(const LineReader& data) {
  return {std::string(steer_file_name), data.name};
}

/// The phases.
void run_phases(RunStreams& streams) {
  const SteerSettings settings = read_steer_file(streams);
  print_banner(streams.console);
  LineReader data = open_data_file(settings, streams);
  open_report(std::string(settings.report_file_name.trimmed()), input_files_of(data), streams);

  AnalysedPopulation population = analyse_population(settings, data, streams);
  Analysis& analysis = population.analysis;
  const ReportFrame frame = report_frame_of(population, streams.report);
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
