// One program at a time begins files in a folder, gives them their names or clears away what a killed one left there.
// The system lets go of a lock when the program that holds it ends, however it ends.
#pragma once

#include <chrono>
#include <cstdio>
#include <string>

namespace pedigreewatch {

/// How long a lock is waited for; others hold it for a few renames.
inline constexpr std::chrono::milliseconds lock_patience{500};

struct FolderLock {
  int folder = -1;  ///< of the system; -1: it is not held

  FolderLock() = default;
  FolderLock(FolderLock&& other) noexcept;
  FolderLock& operator=(FolderLock&& other) noexcept = delete;
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;
  ~FolderLock();  ///< lets go of it, with what was renamed in the folder flushed to the disk

  bool is_held() const { return folder >= 0; }
};

/// Locks the folder in which `name` stands or will stand. Not held where the system or the disk has no locks, and when
/// another program has not let go of it in time: the work goes on then, and nothing is cleared away.
FolderLock lock_folder_of(const std::string& name);

/// Marks an open file as being written by this program, until it is closed.
void lock_file(std::FILE* file);

/// Whether nobody is writing the file; false also where that cannot be found out.
bool is_deserted(const std::string& name);

}  // namespace pedigreewatch
