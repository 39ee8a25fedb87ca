// Whether a file is still the one that was opened: somebody may write it while it is read.
#pragma once

#include <cstdint>
#include <string>

namespace pedigreewatch {

struct FileState {
  std::int64_t size = -1;       ///< in bytes; -1: it is no plain file, or not there
  std::int64_t changed_at = 0;  ///< time of its last change, in the system's own units

  bool operator==(const FileState&) const = default;
};

/// Of a file that is not there, and of a device or a pipe, always the same.
FileState state_of_file(const std::string& name);

}  // namespace pedigreewatch
