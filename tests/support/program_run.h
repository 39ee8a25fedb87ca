// Whole runs of the built programs, each in a process of its own and in a working directory of its own.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/places.h"
#include "support/run_folder.h"

namespace pedigreewatch::test {

/// Bounds that the system sets to a process; without a value there is none.
struct RunLimits {
  std::optional<std::uint64_t> file_bytes = {};    ///< of each file written, the console and the messages included
  std::optional<std::uint64_t> memory_bytes = {};  ///< of the address space
};

/// How a program is started.
struct ProgramStart {
  std::string program = program_path();
  std::vector<std::string> arguments = {};
  std::string keyboard = {};                  ///< typed beforehand
  std::vector<std::string> environment = {};  ///< "NAME=value", besides what the tests themselves were given
  RunLimits limits = {};
  bool keeps_console = true;  ///< otherwise the console is lost, and no limit on files counts for it
  bool has_rights = true;     ///< otherwise it has not the rights of root, which may read and write everything
  std::chrono::seconds timeout = std::chrono::minutes(5);  ///< the run is ended then, and the test fails
};

/// Starts pedigreewatch-tools in place of the program: a subcommand, its options and operands.
ProgramStart tools_with(std::vector<std::string> arguments);

/// Runs a shell script in place of the program, for what only a shell can make: closed streams, pipes, signals. In the
/// script "$PROGRAM" is the program; what the script does not redirect is the run's console and messages.
ProgramStart shell_script(std::string_view script);

/// What came of a run.
struct WholeRun {
  int exit_status = -1;  ///< 128 and the signal's number for a run that was ended by a signal
  std::string console;   ///< standard output
  std::string messages;  ///< standard error
  Files files;           ///< everything in the folder after the run, the input files included; links are none

  /// The bytes of a file; the test fails when the run left none of that name.
  std::string file(const std::string& name) const;
};

/// Runs the program and waits for its end; with files, in a fresh folder that has nothing else.
WholeRun run_program_in(const RunFolder& folder, const ProgramStart& start = {});
WholeRun run_program_on(const Files& files, const ProgramStart& start = {});

/// Whether a run can be without the rights of root here.
bool can_drop_rights(const RunFolder& folder);

/// A run that has been started and whose keyboard is still at hand. The folder outlives it.
struct StartedRun {
  const RunFolder& folder;
  std::chrono::steady_clock::time_point latest_end;
  int process = -1;
  int keyboard = -1;
  bool has_ended = false;
  int exit_status = -1;
};

/// Starts the program, with what is typed beforehand.
StartedRun start_program_in(const RunFolder& folder, const ProgramStart& start = {});
/// Whether the program is still running.
bool is_running(StartedRun& run);
/// What has reached standard output so far.
std::string console_so_far(const StartedRun& run);
/// Types `bytes` on the keyboard.
void type(const StartedRun& run, std::string_view bytes);
/// Closes the keyboard and waits for the end.
WholeRun finish(StartedRun& run);

}  // namespace pedigreewatch::test
