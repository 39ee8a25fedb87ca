// Turns what an office program exports into a data file and a steer file.
#pragma once

#include <csignal>

#include "core/progress_line.h"
#include "core/text_output.h"
#include "intake/prepare_options.h"

namespace pedigreewatch {

struct ToolStreams {
  TextOutput console;     ///< what is found and done
  TextOutput messages;    ///< what stands in the way
  ProgressLine progress;  ///< is off the screen whenever something is printed
  /// Not 0 as soon as somebody wants the tool to end; null: nobody can.
  const volatile std::sig_atomic_t* stop_request = nullptr;
};

/// Reads the export, says what it recognises, and writes NAME.txt and pedigreewatch.ini. Yields the exit status: 0 when
/// all was written (or would have been, in a dry run), 1 when a question stays open or something cannot be read or
/// written; nothing is written then.
int prepare(const PrepareOptions& options, ToolStreams& streams);

}  // namespace pedigreewatch
