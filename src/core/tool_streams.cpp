#include "core/tool_streams.h"

#include <algorithm>
#include <system_error>

namespace pedigreewatch {

void say(TextOutput& output, std::string_view line) {
  append(output, line);
  end_line(output);
}

int end_tool(int status, ToolStreams& streams) {
  flush(streams.console);
  if (streams.console.error != 0) {
    say(streams.messages,
        "the console could not be written: " + std::generic_category().message(streams.console.error) +
            (status == 0 && streams.makes_files ? "; the files are complete" : ""));
  }
  flush(streams.messages);
  return streams.console.error == 0 ? status : std::max(status, streams.lost_console);
}

int refuse(ToolStreams& streams, const ToolRefusal& refusal) {
  erase_progress(streams.progress);
  flush(streams.console);
  say(streams.messages, refusal.text);
  return refusal.exit_status;
}

}  // namespace pedigreewatch
