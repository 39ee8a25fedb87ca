// What happens when one of the two input files cannot be opened: nine lines in both languages, a wait for one line
// on the keyboard, and the end of the run.
#pragma once

#include <string_view>

#include "core/line_reader.h"
#include "core/line_writer.h"
#include "core/run_streams.h"

namespace pedigreewatch {

/// The texts that differ between the two files. A name in the middle of a message is left out for the steer file,
/// whose name stands in the text.
struct MissingFileMessages {
  std::string_view english_error, english_reason;
  std::string_view dutch_error, dutch_error_end, dutch_reason;
};

/// Prints the messages, and on standard error the system's reason why `file` could not be opened, waits and stops the
/// run. `name` is printed in its full width behind both error texts.
[[noreturn]] void stop_on_missing_file(RunStreams& streams, const MissingFileMessages& messages, std::string_view name,
                                       const LineReader& file);

}  // namespace pedigreewatch
