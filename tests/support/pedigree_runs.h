// Phases of the pedigree run on texts.
#pragma once

#include <string_view>

#include "control/steer_settings.h"
#include "core/run_streams.h"
#include "pedigree/population_store.h"
#include "support/lines.h"

namespace pedigreewatch::test {

/// Settings of a run on a file with semicolons, dates as in 31-12-2004 and "m" or "M" for males.
SteerSettings settings_in(bool english);

/// What became of a data file.
struct ReadRun {
  PopulationStore store;
  RunStreams streams;
  bool has_stopped = false;
};

/// Counts the lines of `data`, a file named "dogs.txt", allocates the store and reads the records.
ReadRun read_text(std::string_view data, const SteerSettings& settings);

/// Appends the missing parents, links and sorts. `streams` gets what the linkage and the sort print.
void link_and_sort(PopulationStore& store, RunStreams& streams);

}  // namespace pedigreewatch::test
