// Whole runs of the built program, each in a fresh folder of its own.
#pragma once

#include <string>
#include <string_view>

#include "support/files.h"

namespace pedigreewatch::test {

struct WholeRun {
  int exit_status = -1;  ///< 128 and the signal's number for a run that was ended by a signal
  std::string console;   ///< standard output
  std::string messages;  ///< standard error
  Files files;           ///< everything in the folder after the run, the input files included

  /// The bytes of a file; the test fails when the run left none of that name.
  std::string file(const std::string& name) const;
};

/// Runs the program in a fresh folder with `files`, with `keyboard` typed beforehand, and waits for its end. A run
/// that has not ended after five minutes is ended, and the test fails.
WholeRun run_program_on(const Files& files, std::string_view keyboard = {});

/// A run that has been started and whose keyboard is still at hand.
struct StartedRun {
  std::string folder;
  int process = -1;
  int keyboard = -1;
  bool has_ended = false;
  int exit_status = -1;
};

StartedRun start_program_on(const Files& files);
/// Whether the program is still running.
bool is_running(StartedRun& run);
/// What has reached standard output so far.
std::string console_so_far(const StartedRun& run);
/// Types `bytes` on the keyboard.
void type(const StartedRun& run, std::string_view bytes);
/// Closes the keyboard, waits for the end and removes the folder.
WholeRun finish(StartedRun& run);

}  // namespace pedigreewatch::test
