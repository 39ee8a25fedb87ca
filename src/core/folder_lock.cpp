#include "core/folder_lock.h"

#include <cerrno>
#include <filesystem>
#include <thread>
#include <utility>

#if !defined(_WIN32) && !defined(__EMSCRIPTEN__)
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

namespace pedigreewatch {

FolderLock::FolderLock(FolderLock&& other) noexcept : folder(std::exchange(other.folder, -1)) {}

#if defined(_WIN32) || defined(__EMSCRIPTEN__)

// Windows refuses to remove a file that a program has open, which is all that is needed to leave it alone.
FolderLock::~FolderLock() = default;

FolderLock lock_folder_of(const std::string& /*name*/) {
  return {};
}

void lock_file(std::FILE* /*file*/) {}

bool is_deserted(const std::string& /*name*/) {
  return false;
}

#else

FolderLock::~FolderLock() {
  if (folder < 0) return;
  fsync(folder);
  close(folder);
}

FolderLock lock_folder_of(const std::string& name) {
  constexpr std::chrono::milliseconds pause{5};
  const std::filesystem::path parent = std::filesystem::path(name).parent_path();
  FolderLock lock;
  lock.folder = open(parent.empty() ? "." : parent.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (lock.folder < 0) return lock;
  const auto end = std::chrono::steady_clock::now() + lock_patience;
  while (flock(lock.folder, LOCK_EX | LOCK_NB) != 0) {
    if (errno != EWOULDBLOCK || std::chrono::steady_clock::now() >= end) {
      close(std::exchange(lock.folder, -1));
      return lock;
    }
    std::this_thread::sleep_for(pause);
  }
  return lock;
}

void lock_file(std::FILE* file) {
  flock(fileno(file), LOCK_EX | LOCK_NB);
}

bool is_deserted(const std::string& name) {
  const int file = open(name.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
  if (file < 0) return false;
  const bool is_free = flock(file, LOCK_EX | LOCK_NB) == 0;
  close(file);
  return is_free;
}

#endif

}  // namespace pedigreewatch
