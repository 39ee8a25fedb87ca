// The program is started by vfork and exec: the tests are large under sanitizers, and fork would copy the tables of
// their memory for each run. The child works in that memory until it is the program: everything is made ready before,
// and between the two there are only calls of the system, those of the user's rights without the library, which would
// change the tests' own threads. Each run leads a process group, so that what a script has started in the background
// ends with it when it takes too long.
#include "support/program_run.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <thread>
#include <utility>

namespace pedigreewatch::test {
namespace {

constexpr uid_t nobody = 65534;
constexpr auto glance = std::chrono::milliseconds(2);

bool is_root() {
  return geteuid() == 0;
}

/// What the child needs, as the system wants it. Its lists point into `texts`: a plan is not copied.
struct ChildPlan {
  std::string work, console, messages;
  std::vector<std::string> texts;  ///< program and arguments, then the environment
  std::vector<char*> arguments, environment;
  RunLimits limits;
  bool drops_rights = false;
};

ChildPlan plan_of(const RunFolder& folder, const ProgramStart& start) {
  ChildPlan plan = {.work = folder.path(),
                    .console = start.keeps_console ? folder.console() : "/dev/null",
                    .messages = folder.messages(),
                    .texts = {start.program},
                    .arguments = {},
                    .environment = {},
                    .limits = start.limits,
                    .drops_rights = !start.has_rights && is_root()};
  plan.texts.insert(plan.texts.end(), start.arguments.begin(), start.arguments.end());
  const std::size_t argument_count = plan.texts.size();
  plan.texts.insert(plan.texts.end(), start.environment.begin(), start.environment.end());
  for (std::size_t i = 0; i < plan.texts.size(); ++i) {
    (i < argument_count ? plan.arguments : plan.environment).push_back(plan.texts[i].data());
  }
  for (char** own = environ; *own != nullptr; ++own) plan.environment.push_back(*own);
  plan.arguments.push_back(nullptr);
  plan.environment.push_back(nullptr);
  return plan;
}

bool set_limit(decltype(RLIMIT_FSIZE) resource, const std::optional<std::uint64_t>& value) {
  if (!value.has_value()) return true;
  const rlimit limit = {.rlim_cur = *value, .rlim_max = *value};
  return setrlimit(resource, &limit) == 0;
}

bool drop_rights() {
  return syscall(SYS_setgroups, 0, nullptr) == 0 && syscall(SYS_setgid, nobody) == 0 &&
         syscall(SYS_setuid, nobody) == 0;
}

/// The child's side.
[[noreturn]] void become_program(const ChildPlan& plan, int keyboard) {
  // Tests may run where these are ignored, in the background of a script or behind nohup: no program heeds them then.
  struct sigaction usual = {};
  usual.sa_handler = SIG_DFL;
  for (const int signal : {SIGINT, SIGHUP, SIGQUIT}) sigaction(signal, &usual, nullptr);
  const int console = open(plan.console.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
  const int messages = open(plan.messages.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
  const bool is_ready = setpgid(0, 0) == 0 && dup2(keyboard, STDIN_FILENO) >= 0 && dup2(console, STDOUT_FILENO) >= 0 &&
                        dup2(messages, STDERR_FILENO) >= 0 && (!plan.drops_rights || drop_rights()) &&
                        chdir(plan.work.c_str()) == 0 && set_limit(RLIMIT_FSIZE, plan.limits.file_bytes) &&
                        set_limit(RLIMIT_AS, plan.limits.memory_bytes);
  if (is_ready) execve(plan.arguments[0], plan.arguments.data(), plan.environment.data());
  _exit(127);
}

}  // namespace

ProgramStart tools_with(std::vector<std::string> arguments) {
  return {.program = tools_path(), .arguments = std::move(arguments)};
}

ProgramStart shell_script(std::string_view script) {
  return {.program = "/bin/sh", .arguments = {"-c", std::string(script)}, .environment = {"PROGRAM=" + program_path()}};
}

std::string WholeRun::file(const std::string& name) const {
  const auto found = files.find(name);
  if (found != files.end()) return found->second;
  ADD_FAILURE() << "no file " << name;
  return {};
}

StartedRun start_program_in(const RunFolder& folder, const ProgramStart& start) {
  if (!start.has_rights) folder.open_to_everybody();
  const ChildPlan plan = plan_of(folder, start);
  int ends[2] = {-1, -1};
  EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends), 0);
  StartedRun run = {.folder = folder, .latest_end = std::chrono::steady_clock::now() + start.timeout};
  run.process = vfork();
  if (run.process == 0) become_program(plan, ends[0]);
  EXPECT_GT(run.process, 0);
  ::close(ends[0]);
  run.keyboard = ends[1];
  type(run, start.keyboard);
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
  return bytes_if_present(run.folder.console()).value_or("");
}

void type(const StartedRun& run, std::string_view bytes) {
  // A program that has ended already reads nothing: that is no failure here.
  [[maybe_unused]] const ssize_t sent = send(run.keyboard, bytes.data(), bytes.size(), MSG_NOSIGNAL);
}

WholeRun finish(StartedRun& run) {
  shutdown(run.keyboard, SHUT_WR);
  while (is_running(run)) {
    if (std::chrono::steady_clock::now() > run.latest_end) {
      ADD_FAILURE() << "the program does not end";
      kill(-run.process, SIGKILL);
      break;
    }
    std::this_thread::sleep_for(glance);
  }
  while (is_running(run)) std::this_thread::sleep_for(glance);
  ::close(run.keyboard);
  return {.exit_status = run.exit_status,
          .console = console_so_far(run),
          .messages = bytes_of(run.folder.messages()),
          .files = files_in(run.folder.path())};
}

WholeRun run_program_in(const RunFolder& folder, const ProgramStart& start) {
  StartedRun run = start_program_in(folder, start);
  return finish(run);
}

WholeRun run_program_on(const Files& files, const ProgramStart& start) {
  return run_program_in(RunFolder(files), start);
}

bool can_drop_rights(const RunFolder& folder) {
  if (!is_root()) return true;
  return run_program_in(folder, {.program = "/usr/bin/test", .arguments = {"-x", program_path()}, .has_rights = false})
             .exit_status == 0;
}

}  // namespace pedigreewatch::test
