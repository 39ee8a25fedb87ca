#include "support/shell_run.h"

#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace pedigreewatch::test {
namespace {

namespace fs = std::filesystem;

// In words of the shell, to be put before a command.
constexpr std::string_view time_limit = "timeout -k 5 300 ";
constexpr std::string_view as_nobody = "setpriv --reuid=65534 --regid=65534 --clear-groups ";

void write_file(const std::string& path, std::string_view bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

int status_of(const std::string& command) {
  const int result = std::system(command.c_str());
  return WIFEXITED(result) ? WEXITSTATUS(result) : 128 + WTERMSIG(result);
}

bool is_root() {
  return geteuid() == 0;
}

}  // namespace

RunFolder::RunFolder(const Files& files) : folder_(testing::TempDir() + "pedigreewatch_hostile_XXXXXX") {
  EXPECT_NE(mkdtemp(folder_.data()), nullptr) << folder_;
  fs::create_directory(path());
  for (const auto& [name, bytes] : files) {
    if (name.ends_with('/')) {
      fs::create_directories(path(name));
    } else {
      write_file(path(name), bytes);
    }
  }
}

RunFolder::~RunFolder() {
  std::error_code ignored;
  fs::permissions(path(), fs::perms::owner_all, ignored);
  fs::remove_all(folder_, ignored);
}

std::string RunFolder::path(const std::string& name) const {
  return folder_ + "/work/" + name;
}

WholeRun RunFolder::run(std::string_view script) const {
  write_file(folder_ + "/script", script);
  const std::string command = "cd '" + path() + "' && PROGRAM='" PROGRAM_PATH "' " + std::string(time_limit) +
                              "sh ../script </dev/null >../out 2>../err";
  WholeRun result;
  result.exit_status = status_of(command);
  result.console = bytes_of(folder_ + "/out");
  result.messages = bytes_of(folder_ + "/err");
  for (const auto& entry : fs::directory_iterator(path())) {
    if (entry.is_regular_file() && !entry.is_symlink())
      result.files[entry.path().filename().string()] = bytes_of(entry.path());
  }
  return result;
}

WholeRun RunFolder::run_without_rights(std::string_view script) const {
  if (!is_root()) return run(script);
  fs::permissions(folder_, fs::perms::owner_all | fs::perms::others_exec | fs::perms::others_read);
  write_file(folder_ + "/script_of_nobody", script);
  return run(std::string(as_nobody) + "sh ../script_of_nobody");
}

bool RunFolder::can_drop_rights() const {
  if (!is_root()) return true;
  return run_without_rights("test -x \"$PROGRAM\"").exit_status == 0;
}

}  // namespace pedigreewatch::test
