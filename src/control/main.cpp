// Connects a run to the program's own streams.

#include <cstdio>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#else
#include <unistd.h>
#include <csignal>
#endif

#include "control/run_driver.h"

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

/// When nobody reads the console any more the report is finished all the same.
void prepare_streams() {
  std::signal(SIGPIPE, SIG_IGN);
}
#endif

}  // namespace

int main() {
  prepare_streams();
  pedigreewatch::RunStreams streams;
  streams.console.file = stdout;
  streams.console.shows_each_line = is_terminal(stdout);
  streams.messages.file = stderr;
  streams.messages.shows_each_line = true;
  streams.keyboard = stdin;
  return pedigreewatch::run_program(streams);
}
