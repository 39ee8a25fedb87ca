// Phases of the pedigree run on texts.
#pragma once

#include <string_view>

#include "core/run_streams.h"
#include "pedigree/data_file_layout.h"
#include "pedigree/population_store.h"
#include "support/lines.h"

namespace pedigreewatch::test {

/// How a data file is read, and the language of what is said about it.
struct TestLayout : DataFileLayout {
  bool english = true;
};

/// The layout of a file with semicolons, dates as in 31-12-2004 and "m" or "M" for males.
TestLayout settings_in(bool english);

/// What became of a data file.
struct ReadRun {
  PopulationStore store;
  RunStreams streams;
  bool has_stopped = false;
};

/// Counts the lines of `data`, a file named "dogs.txt", and reads the records.
ReadRun read_text(std::string_view data, const TestLayout& settings);

/// Appends the missing parents, links and sorts. `streams` gets what the linkage and the sort print.
void link_and_sort(PopulationStore& store, RunStreams& streams);

}  // namespace pedigreewatch::test
