// The end of a run, whichever way it came about: everything printed reaches its stream, what did not arrive is told,
// and no incomplete report is left that looks complete.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/run_streams.h"

namespace pedigreewatch {

enum class RunEnding : std::uint8_t {
  complete,
  stopped_on_input,      ///< a file is missing or holds what no report can be made of; a message has said so
  report_not_written,    ///< the report's error tells why
  stopped_from_outside,  ///< by the user or the system
  out_of_memory,
  input_changed,  ///< somebody wrote an input file meanwhile; a message has said so
};

/// Goes through the phases and yields how they ended.
RunEnding run_to_its_end(void (*phases)(RunStreams&), RunStreams& streams);

/// What a run said last that was stopped: its messages or, without any, the last lines of its console, where those of a
/// loop or of a missing column stand.
std::string_view last_words(const RunStreams& streams);

/// Flushes and closes everything and settles what becomes of the report. Yields the exit status.
int finish_run(RunEnding ending, RunStreams& streams);

}  // namespace pedigreewatch
