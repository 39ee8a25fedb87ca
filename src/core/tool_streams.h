// The streams of one run of a tool: what it says, what stands in the way, and whether somebody wants it to end.
#pragma once

#include <csignal>

#include "core/progress_line.h"
#include "core/text_output.h"

namespace pedigreewatch {

struct ToolStreams {
  TextOutput console;     ///< what is found and done
  TextOutput messages;    ///< what stands in the way
  ProgressLine progress;  ///< is off the screen whenever something is printed
  /// Not 0 as soon as somebody wants the tool to end; null: nobody can.
  const volatile std::sig_atomic_t* stop_request = nullptr;
};

inline bool is_stop_requested(const ToolStreams& streams) {
  return streams.stop_request != nullptr && *streams.stop_request != 0;
}

}  // namespace pedigreewatch
