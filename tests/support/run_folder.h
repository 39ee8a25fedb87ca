// A working directory of its own for runs of a program.
#pragma once

#include <string>

#include "support/files.h"

namespace pedigreewatch::test {

/// A folder that no other test has, removed at the end. Beside the working directory it has room for what a run
/// prints. A test may prepare it further before a run, and have several runs in it.
class RunFolder {
 public:
  explicit RunFolder(const Files& files);
  RunFolder(const RunFolder&) = delete;
  RunFolder& operator=(const RunFolder&) = delete;
  ~RunFolder();

  /// The path of a file in the working directory, or with an empty name of the directory itself.
  std::string path(const std::string& name = {}) const;
  /// What is printed by a run lands here.
  std::string console() const;
  std::string messages() const;

  /// Lets every user find the working directory and read what is in it.
  void open_to_everybody() const;

 private:
  std::string folder_;
};

}  // namespace pedigreewatch::test
