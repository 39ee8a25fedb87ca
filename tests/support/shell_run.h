// Whole runs of the built program under conditions that only a shell can make: closed streams, pipes, limits, another
// user. Each folder is fresh, and removed at the end.
#pragma once

#include <string>
#include <string_view>

#include "support/whole_run.h"

namespace pedigreewatch::test {

/// A working directory for runs of the program, which a test may prepare further before it runs.
class RunFolder {
 public:
  explicit RunFolder(const Files& files);
  RunFolder(const RunFolder&) = delete;
  RunFolder& operator=(const RunFolder&) = delete;
  ~RunFolder();

  /// The path of a file in the working directory, or with an empty name of the directory itself.
  std::string path(const std::string& name = {}) const;

  /// Runs a shell script in the working directory and waits for its end; "$PROGRAM" is the program. What is not
  /// redirected by the script is the run's console and messages; the keyboard is empty. The exit status is the
  /// script's: 124 for one that has not ended after five minutes, 128 and more for a program that ended by a signal.
  /// Links are no files of the result.
  WholeRun run(std::string_view script = "\"$PROGRAM\"") const;

  /// The same without the rights of root, which may read and write everything. `can_drop_rights` tells whether that
  /// is possible here.
  WholeRun run_without_rights(std::string_view script = "\"$PROGRAM\"") const;
  bool can_drop_rights() const;

 private:
  std::string folder_;
};

}  // namespace pedigreewatch::test
