#include "control/run_ending.h"

#include <cerrno>
#include <new>
#include <stdexcept>
#include <string>

#include "control/report_file.h"

namespace pedigreewatch {
namespace {

/// Why the report is not complete.
std::string reason_of(RunEnding ending, const TextOutput& report) {
  if (ending == RunEnding::stopped_from_outside) return "the run was stopped from outside";
  return error_text(ending == RunEnding::out_of_memory ? ENOMEM : report.error);
}

/// Closes the report. What was printed last may fail here too, and that is then how the run ended.
RunEnding close_report(RunEnding ending, TextOutput& report) {
  close(report);
  const bool has_kept_going = ending == RunEnding::complete || ending == RunEnding::stopped_on_input;
  return has_kept_going && report.error != 0 ? RunEnding::report_not_written : ending;
}

/// A run that bad data stopped leaves its report, which is empty or says what is wrong with the data.
void settle_report(RunEnding ending, RunStreams& streams) {
  const bool was_opened = !streams.report.name.empty();
  if (!was_opened) return;
  if (ending == RunEnding::complete) return remove_last_complete_report(streams);
  if (ending == RunEnding::stopped_on_input) return leave_incomplete_report(streams);
  remove_incomplete_report(reason_of(ending, streams.report), streams);
}

}  // namespace

RunEnding run_to_its_end(void (*phases)(RunStreams&), RunStreams& streams) {
  try {
    phases(streams);
    return RunEnding::complete;
  } catch (const RunStopped&) {
    if (is_stop_requested(streams.console.stop_request)) return RunEnding::stopped_from_outside;
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
  ending = close_report(ending, streams.report);
  settle_report(ending, streams);
  if (streams.console.error != 0) {
    append(streams.messages, "the console could not be written: " + error_text(streams.console.error));
    end_line(streams.messages);
  }
  flush(streams.messages);
  return ending == RunEnding::complete && streams.console.error == 0 ? 0 : 1;
}

}  // namespace pedigreewatch
