// The streams of one run of a tool: what it says, what stands in the way, and whether somebody wants it to end.
#pragma once

#include <string>
#include <string_view>

#include "core/progress_line.h"
#include "core/stop_request.h"
#include "core/text_output.h"

namespace pedigreewatch {

struct ToolStreams {
  TextOutput console;     ///< what is found and done
  TextOutput messages;    ///< what stands in the way
  ProgressLine progress;  ///< is off the screen whenever something is printed
  StopRequest stop_request = nullptr;
  int lost_console = 1;     ///< the exit status, at least, when the console could not be written
  bool makes_files = true;  ///< otherwise what stands on the console is all there is: a help, a version, a trial
};

inline bool is_stop_requested(const ToolStreams& streams) {
  return is_stop_requested(streams.stop_request);
}

/// Exit statuses of the tools, but for those of `check`.
inline constexpr int stands_in_the_way = 1, wrong_arguments = 2;

/// Why a tool does not do what it was asked to.
struct ToolRefusal {
  std::string text;  ///< in words for its user: one line or several, without the last line end
  int exit_status = stands_in_the_way;
};

/// Prints a line.
void say(TextOutput& output, std::string_view line);

/// Everything said reaches its stream; what did not is told, and that the files are complete where any were made.
/// Yields the exit status: not below `lost_console` when the console could not be written.
int end_tool(int status, ToolStreams& streams);

/// Says the refusal, behind everything that the tool has shown. Yields the exit status.
int refuse(ToolStreams& streams, const ToolRefusal& refusal);

}  // namespace pedigreewatch
