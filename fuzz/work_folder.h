// A folder in memory, for targets that run a program's steps on files.
#pragma once

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <string>
#include <string_view>

namespace pedigreewatch::fuzz {

/// What must hold of a run.
inline void require(bool holds) {
  if (!holds) std::abort();
}

inline void write_file(const char* name, std::string_view bytes) {
  std::FILE* const file = std::fopen(name, "wb");
  require(file != nullptr);
  std::fwrite(bytes.data(), 1, bytes.size(), file);
  std::fclose(file);
}

inline std::string read_file(const char* name) {
  std::string bytes;
  std::FILE* const file = std::fopen(name, "rb");
  require(file != nullptr);
  for (int byte = std::fgetc(file); byte != EOF; byte = std::fgetc(file)) bytes.push_back(static_cast<char>(byte));
  std::fclose(file);
  return bytes;
}

inline constexpr const char* files_of_runs[] = {"herd.csv", "herd.txt", "herd.lines", "herd.answers",
                                                "pedigreewatch.ini"};

/// Takes away what a run has left.
inline void clear_folder() {
  for (const char* const name : files_of_runs) std::remove(name);
}

/// A folder in memory where there is one; made once for the process and taken away at its end.
inline void enter_folder() {
  static std::string folder;
  for (const char* const pattern : {"/dev/shm/pedigreewatch-fuzz-XXXXXX", "/tmp/pedigreewatch-fuzz-XXXXXX"}) {
    std::string name = pattern;
    if (folder.empty() && mkdtemp(name.data()) != nullptr) folder = name;
  }
  static const bool is_watched = std::atexit([] {
                                   clear_folder();
                                   if (chdir("/") == 0) rmdir(folder.c_str());
                                 }) == 0;
  require(is_watched && chdir(folder.c_str()) == 0);
}

}  // namespace pedigreewatch::fuzz
