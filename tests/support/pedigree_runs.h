// Phases of the pedigree run on texts, and the pieces that printed lines are made of.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "control/steer_settings.h"
#include "core/run_streams.h"
#include "pedigree/population_store.h"

namespace pedigreewatch::test {

/// An integer as a free-form line shows it: right-justified in 12 columns.
std::string number(std::int64_t value);

/// `text` filled up with blanks to `width`.
std::string padded(std::string_view text, std::size_t width);

/// The bytes of `lines`, each ended by one line feed.
std::string joined(const std::vector<std::string>& lines);

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
