#include "core/tool_streams.h"

namespace pedigreewatch {

void say(TextOutput& output, std::string_view line) {
  append(output, line);
  end_line(output);
}

int refuse(ToolStreams& streams, const ToolRefusal& refusal) {
  erase_progress(streams.progress);
  flush(streams.console);
  say(streams.messages, refusal.text);
  return refusal.exit_status;
}

}  // namespace pedigreewatch
