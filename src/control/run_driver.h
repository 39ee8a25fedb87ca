// A whole run: one straight sequence of phases, from the steer file to the finished report.
#pragma once

#include "core/run_streams.h"

namespace pedigreewatch {

/// Runs in the working directory. Yields the exit status: 0 when the run reached its end and everything it wrote
/// arrived, 1 otherwise. Whatever has been printed before an early end reaches its stream.
int run_program(RunStreams& streams);

}  // namespace pedigreewatch
