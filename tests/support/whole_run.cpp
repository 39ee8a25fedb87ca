#include "support/whole_run.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <thread>

namespace pedigreewatch::test {
namespace {

constexpr auto longest_run = std::chrono::minutes(5);

/// A folder that no other test has: the working directory of the run, and beside it what it prints.
std::string make_folder(const Files& files) {
  std::string folder = testing::TempDir() + "pedigreewatch_run_XXXXXX";
  EXPECT_NE(mkdtemp(folder.data()), nullptr) << folder;
  std::filesystem::create_directory(folder + "/work");
  for (const auto& [name, bytes] : files) {
    if (name.ends_with('/')) {
      std::filesystem::create_directories(folder + "/work/" + name);
    } else {
      std::ofstream(folder + "/work/" + name, std::ios::binary) << bytes;
    }
  }
  return folder;
}

/// The child's side: only calls that are allowed between fork and exec.
[[noreturn]] void become_program(const char* work, const char* out, const char* err, int keyboard) {
  const int console = open(out, O_WRONLY | O_CREAT | O_TRUNC, 0600);
  const int messages = open(err, O_WRONLY | O_CREAT | O_TRUNC, 0600);
  const bool is_ready = dup2(keyboard, STDIN_FILENO) >= 0 && dup2(console, STDOUT_FILENO) >= 0 &&
                        dup2(messages, STDERR_FILENO) >= 0 && chdir(work) == 0;
  if (is_ready) execl(PROGRAM_PATH, PROGRAM_PATH, static_cast<char*>(nullptr));
  _exit(127);
}

}  // namespace

std::string WholeRun::file(const std::string& name) const {
  const auto found = files.find(name);
  if (found != files.end()) return found->second;
  ADD_FAILURE() << "no file " << name;
  return {};
}

StartedRun start_program_on(const Files& files) {
  StartedRun run;
  run.folder = make_folder(files);
  const std::string work = run.folder + "/work", out = run.folder + "/out", err = run.folder + "/err";
  int ends[2] = {-1, -1};
  EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends), 0);
  run.process = fork();
  if (run.process == 0) become_program(work.c_str(), out.c_str(), err.c_str(), ends[0]);
  EXPECT_GT(run.process, 0);
  ::close(ends[0]);
  run.keyboard = ends[1];
  return run;
}

bool is_running(StartedRun& run) {
  if (run.has_ended || run.process <= 0) return false;
  int status = 0;
  pid_t ended = -1;
  do {
    ended = waitpid(run.process, &status, WNOHANG);
  } while (ended < 0 && errno == EINTR);
  if (ended == 0) return true;
  run.has_ended = true;
  run.exit_status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  return false;
}

std::string console_so_far(const StartedRun& run) {
  // Before the program begins there is no such file.
  return bytes_if_present(run.folder + "/out").value_or("");
}

void type(const StartedRun& run, std::string_view bytes) {
  // A program that has ended already reads nothing: that is no failure here.
  [[maybe_unused]] const ssize_t sent = send(run.keyboard, bytes.data(), bytes.size(), MSG_NOSIGNAL);
}

WholeRun finish(StartedRun& run) {
  shutdown(run.keyboard, SHUT_WR);
  const auto latest = std::chrono::steady_clock::now() + longest_run;
  while (is_running(run)) {
    if (std::chrono::steady_clock::now() > latest) {
      ADD_FAILURE() << "the program does not end";
      kill(run.process, SIGKILL);
      break;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  while (is_running(run)) std::this_thread::sleep_for(std::chrono::milliseconds(2));
  ::close(run.keyboard);
  WholeRun result;
  result.exit_status = run.exit_status;
  result.console = bytes_of(run.folder + "/out");
  result.messages = bytes_of(run.folder + "/err");
  for (const auto& entry : std::filesystem::directory_iterator(run.folder + "/work")) {
    if (entry.is_regular_file()) result.files[entry.path().filename().string()] = bytes_of(entry.path());
  }
  std::filesystem::remove_all(run.folder);
  return result;
}

WholeRun run_program_on(const Files& files, std::string_view keyboard) {
  StartedRun run = start_program_on(files);
  type(run, keyboard);
  return finish(run);
}

}  // namespace pedigreewatch::test
