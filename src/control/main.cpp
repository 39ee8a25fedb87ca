// Connects a run to the program's own streams.

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <string>
#include <string_view>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

#include "control/run_driver.h"
#include "core/stop_signals.h"

namespace {

#ifdef _WIN32
bool is_terminal(std::FILE* file) {
  return _isatty(_fileno(file)) != 0;
}

/// The program writes the same bytes on every system.
void prepare_streams() {
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stderr), _O_BINARY);
}
#else
bool is_terminal(std::FILE* file) {
  return isatty(fileno(file)) != 0;
}

/// Takes the place of a standard stream that was closed before the start, so that the next file to be opened does not:
/// lines for the console would end up in the report. What replaces it reads as empty and refuses every byte written.
void occupy_closed_streams() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(stream, F_GETFD) >= 0) continue;
    [[maybe_unused]] const int substitute = open("/dev/null", O_RDONLY);  // the lowest free number is this one
  }
}

/// When nobody reads the console any more the report is finished all the same, and a file that may not grow any further
/// is an error like a full disk.
void prepare_streams() {
  occupy_closed_streams();
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
}
#endif

constexpr std::string_view usage =
    "usage: pedigreewatch\n"
    "  Run it in the folder with the steer file pedigreewatch.ini, which names the data file. It writes the report\n"
    "  beside the data file and shows its progress here.\n"
    "  --help      shows this text\n"
    "  --version   shows the version\n";

void print(std::string_view text, std::FILE* file) {
  std::fwrite(text.data(), 1, text.size(), file);
}

/// A run takes no arguments. Who gives one expects something else than the run of this folder, so that none is started;
/// yields the exit status.
int answer(std::string_view argument) {
  if (argument == "--version") {
    print("pedigreewatch " PEDIGREEWATCH_VERSION "\n", stdout);
  } else if (argument == "--help" || argument == "-h") {
    print(usage, stdout);
  } else {
    print("pedigreewatch: \"" + std::string(argument) + "\": no argument was expected\n", stderr);
    print(usage, stderr);
    return 1;
  }
  errno = 0;
  if (std::fflush(stdout) == 0) return 0;
  print("the console could not be written: " + pedigreewatch::error_text(errno) + "\n", stderr);
  return 1;
}

}  // namespace

int main(int argument_count, char** arguments) {
  prepare_streams();
  if (argument_count > 1) return answer(arguments[1]);
  pedigreewatch::RunStreams streams;
  streams.console.file = stdout;
  streams.console.is_terminal = streams.console.shows_each_line = is_terminal(stdout);
  streams.messages.file = stderr;
  streams.messages.shows_each_line = true;
  streams.messages.is_terminal = is_terminal(stderr);
  streams.keyboard = stdin;
  // The run ends at its next line on the console, and takes the report away, which is not complete.
  streams.console.stop_request = &pedigreewatch::stop_requested;
  streams.before_report_is_begun = pedigreewatch::watch_for_stop;
  return pedigreewatch::run_program(streams);
}
