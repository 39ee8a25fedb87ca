#include "support/run_folder.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <system_error>

namespace pedigreewatch::test {

namespace fs = std::filesystem;

RunFolder::RunFolder(const Files& files) : folder_(testing::TempDir() + "pedigreewatch_run_XXXXXX") {
  EXPECT_NE(mkdtemp(folder_.data()), nullptr) << folder_;
  fs::create_directory(path());
  write_files(path(), files);
}

RunFolder::~RunFolder() {
  std::error_code ignored;
  fs::permissions(path(), fs::perms::owner_all, ignored);
  fs::remove_all(folder_, ignored);
}

std::string RunFolder::path(const std::string& name) const {
  return folder_ + "/work/" + name;
}

std::string RunFolder::console() const {
  return folder_ + "/console";
}

std::string RunFolder::messages() const {
  return folder_ + "/messages";
}

void RunFolder::open_to_everybody() const {
  fs::permissions(folder_, fs::perms::owner_all | fs::perms::others_exec | fs::perms::others_read);
}

}  // namespace pedigreewatch::test
