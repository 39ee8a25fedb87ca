// The number of lines of the data file, which is known before the first of them is read.
#pragma once

#include <cstdint>

#include "core/line_reader.h"
#include "core/run_streams.h"

namespace pedigreewatch {

/// Counts the lines of the data file and goes back to its start. From a hundred million lines on the count is given up,
/// and 0 stands for it. A file that cannot be read to its end stops the run.
std::int32_t count_lines(LineReader& data, RunStreams& streams);

}  // namespace pedigreewatch
