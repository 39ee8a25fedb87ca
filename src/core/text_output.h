// A stream of output bytes: the console, the report, or the messages of the input and output layer. Bytes are
// collected in a buffer and go to the file in large pieces, or line by line where somebody is watching.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>

#include "core/stop_request.h"

namespace pedigreewatch {

/// Ends the run: thrown by `stop_run`, by `flush` when a stream fails without which the run is worth nothing, and by
/// `end_line` when the user stops the program. Caught in one place alone, where the run ends.
struct RunStopped {};

struct TextOutput {
  std::FILE* file = nullptr;           ///< null: the bytes stay in `pending` (tests read them there)
  std::string name;                    ///< of the file, for messages
  std::string pending;                 ///< bytes not yet handed to the file
  bool is_english = true;              ///< which text of a Wording is written
  bool shows_each_line = false;        ///< a terminal: the lines are the progress sign, so each one is shown at once
  bool is_terminal = false;            ///< control characters of the data are shown as "?", which it would act on
  int error = 0;                       ///< errno of the first write that failed, 0 while all is well
  bool is_essential = false;           ///< the report: a run whose report cannot be written stops at once
  StopRequest stop_request = nullptr;  ///< the console's: whether somebody wants the run to end
};

/// Adds `bytes` to the output.
void append(TextOutput& output, std::string_view bytes);

/// Ends the line at hand with one line feed. Stops the run behind it when that is requested.
void end_line(TextOutput& output);

/// Hands everything collected so far to the file. A failure is kept in `error`, and stops the run
/// when the stream is essential; what could not be written is dropped.
void flush(TextOutput& output);

/// Flushes and closes the file, if there is one. Afterwards `error` tells whether everything arrived.
void close(TextOutput& output);

}  // namespace pedigreewatch
