#include "support/files.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <utility>

namespace pedigreewatch::test {

namespace fs = std::filesystem;

std::string bytes_of(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  EXPECT_TRUE(stream) << file;
  std::ostringstream bytes;
  bytes << stream.rdbuf();
  return std::move(bytes).str();
}

std::optional<std::string> bytes_if_present(const fs::path& file) {
  if (!fs::exists(file)) return std::nullopt;
  return bytes_of(file);
}

void write_files(const fs::path& folder, const Files& files) {
  for (const auto& [name, bytes] : files) {
    if (name.ends_with('/')) {
      fs::create_directories(folder / name);
    } else {
      std::ofstream(folder / name, std::ios::binary) << bytes;
    }
  }
}

Files files_in(const fs::path& folder) {
  Files files;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
    if (!entry.is_regular_file() || entry.is_symlink()) continue;
    files[entry.path().filename().string()] = bytes_of(entry.path());
  }
  return files;
}

}  // namespace pedigreewatch::test
