#include "control/run_ending.h"

#include <cerrno>
#include <new>
#include <stdexcept>
#include <string>

#include "control/report_file.h"

namespace pedigreewatch {
namespace {

/// Gives a report that tells something its name, and takes any other one away. `reason`: why it could not be written.
/// Yields how the run ended: what was printed last may fail here too.
RunEnding settle_report(RunEnding ending, RunStreams& streams) {
  const bool was_opened = !streams.report.name.empty();
  if (!was_opened) return ending;
  std::string reason;
  const bool has_kept_going = ending == RunEnding::complete || ending == RunEnding::stopped_on_input;
  const bool is_written = close_report(streams, reason);
  if (has_kept_going && is_written && name_report(ending == RunEnding::complete, streams, reason)) {
    if (ending == RunEnding::complete) remove_last_complete_report(streams);
    if (ending == RunEnding::stopped_on_input) leave_incomplete_report(streams);
    return ending;
  }
  if (ending == RunEnding::stopped_from_outside) reason = "the run was stopped from outside";
  if (ending == RunEnding::input_changed) reason = "an input file has changed while it was read";
  if (ending == RunEnding::out_of_memory) reason = error_text(ENOMEM);
  remove_incomplete_report(reason, streams);
  return has_kept_going ? RunEnding::report_not_written : ending;
}

}  // namespace

RunEnding run_to_its_end(void (*phases)(RunStreams&), RunStreams& streams) {
  try {
    phases(streams);
    return RunEnding::complete;
  } catch (const RunStopped&) {
    if (is_stop_requested(streams.console.stop_request)) return RunEnding::stopped_from_outside;
    if (streams.has_changed_input) return RunEnding::input_changed;
    return streams.report.error != 0 ? RunEnding::report_not_written : RunEnding::stopped_on_input;
  } catch (const std::bad_alloc&) {
    return RunEnding::out_of_memory;
  } catch (const std::length_error&) {  // more elements than any memory holds
    return RunEnding::out_of_memory;
  }
}

std::string_view last_words(const RunStreams& streams) {
  constexpr int most_lines = 12;
  if (!streams.messages.pending.empty()) return streams.messages.pending;
  const std::string_view text = streams.console.pending;
  std::size_t begin = text.size();
  for (int lines = 0; begin > 0; --begin) {
    if (text[begin - 1] == '\n' && ++lines > most_lines) break;
  }
  return text.substr(begin);
}

int finish_run(RunEnding ending, RunStreams& streams) {
  if (ending == RunEnding::out_of_memory) {
    append(streams.messages, "not enough memory for a population of this size\n");
  }
  flush(streams.console);
  ending = settle_report(ending, streams);
  if (streams.console.error != 0) {
    append(streams.messages, "the console could not be written: " + error_text(streams.console.error));
    end_line(streams.messages);
  }
  flush(streams.messages);
  return ending == RunEnding::complete && streams.console.error == 0 ? 0 : 1;
}

}  // namespace pedigreewatch
