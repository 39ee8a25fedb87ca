// The streams of one run, and the one door by which a run ends early.
#pragma once

#include <cstdint>
#include <cstdio>
#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "core/new_files.h"
#include "core/phase_times.h"
#include "core/text_output.h"

namespace pedigreewatch {

struct RunStreams {
  TextOutput console;             ///< standard output: progress and messages
  TextOutput report;              ///< the ReportFile
  TextOutput messages;            ///< standard error: what the input and output layer has to say
  std::FILE* keyboard = nullptr;  ///< standard input, for the one wait after a missing file; null: no wait
  /// Called before the report is begun: from then on a run that is stopped has something to take away.
  void (*before_report_is_begun)() = nullptr;
  NewFile report_file;                ///< the report until it has its name; not begun: it is written where it goes
  std::string last_complete_report;   ///< name of the file that keeps the one of an earlier run; empty: none is kept
  bool shows_subpopulations = true;   ///< otherwise they may be as many as they are, and nothing is computed of them
  bool has_changed_input = false;     ///< an input file changed while it was read: nothing comes of the run
  PhaseTimes* phase_times = nullptr;  ///< for benchmarks; null: nobody measures
  /// Does these at once; null: one is done after the other. Phases are not measured then.
  void (*do_tasks)(std::span<const std::function<void()>> tasks) = nullptr;
};

/// Ends the run with exit status 1. Everything printed so far reaches its stream.
[[noreturn]] void stop_run();

/// Waits for one line on the keyboard, or for its end, after everything printed has been shown.
void wait_for_return(RunStreams& streams);

/// A piece of input that cannot be used.
struct InputProblem {
  std::string_view file;
  std::int64_t line = 0;    ///< counted from 1; 0 when no line is meant
  std::int64_t column = 0;  ///< place in the line, counted from 1; 0 when no place is meant
  std::string_view text;    ///< the offending text, when there is a line
  std::string_view expected;
  std::int64_t field = 0;         ///< field of the line, counted from 1; 0 when no field is meant
  std::string_view heading = {};  ///< what the header line says above the field; empty: nothing
};

/// Prints one message line such as
///   dogs.txt, line 812, column 5: "31-o2-1998": a number was expected
/// or, when a field is meant, such as
///   dogs.txt, line 812, field 4 (birthdate), character 23: "31-o2-1998": a date of birth was expected
/// to the message stream and ends the run with exit status 1.
[[noreturn]] void stop_on_input(RunStreams& streams, const InputProblem& problem);

/// The same for a file that cannot be read or written: `dogs.out: No space left on device`.
[[noreturn]] void stop_on_file(RunStreams& streams, std::string_view file, std::string_view problem);

/// A text of the input for a message: in quotation marks, at most 80 bytes of it, with dots for the bytes that a
/// terminal would act on.
std::string quoted(std::string_view text);

/// In place of an error number of the system: the file changed while it was read.
inline constexpr int input_has_changed = -1;

/// The system's own word for an error number, but for an input that has changed and a wait that was interrupted.
std::string error_text(int error_number);

}  // namespace pedigreewatch
