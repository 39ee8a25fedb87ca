#include "support/pedigree_runs.h"

#include "core/line_reader.h"
#include "pedigree/parent_linkage.h"
#include "pedigree/record_reading.h"
#include "statistics/missing_parents.h"
#include "support/streams.h"

namespace pedigreewatch::test {

TestLayout settings_in(bool english) {
  TestLayout settings;
  settings.delimiter = ';';
  settings.date_layout.assign("dd-mm-jjjj");
  settings.dates = {.has_delimiters = true, .day_first = true};
  settings.male_letters = {'m', 'M'};
  settings.english = english;
  return settings;
}

ReadRun read_text(std::string_view data, const TestLayout& settings) {
  ReadRun run;
  run.streams = streams_in(settings.english);
  LineReader reader;
  reader.name = "dogs.txt";
  reader.text = data;
  const auto record_count = static_cast<std::int32_t>(lines_of(data).size()) - 1;
  run.has_stopped = stops([&] { read_data_file(reader, record_count, settings, run.store, run.streams); });
  return run;
}

void link_and_sort(PopulationStore& store, RunStreams& streams) {
  TextOutput missing_parents;
  append_missing_parents(store, missing_parents);
  link_parents(store, streams);
}

}  // namespace pedigreewatch::test
