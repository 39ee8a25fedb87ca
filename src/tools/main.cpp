// Connects the tools to the program's own streams and arguments.

#include <csignal>
#include <cstdio>
#include <string_view>
#include <vector>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#else
#include <unistd.h>
#endif

#include "tools/subcommands.h"

namespace {

/// Set by a signal, which reaches nothing that is not global: what is being written is taken away then.
volatile std::sig_atomic_t stop_request = 0;

/// A second signal ends the program at once.
void request_stop(int signal) {
  std::signal(signal, SIG_DFL);
  stop_request = 1;
}

bool is_terminal(std::FILE* file) {
#ifdef _WIN32
  return _isatty(_fileno(file)) != 0;
#else
  return isatty(fileno(file)) != 0;
#endif
}

void prepare_streams() {
#ifdef _WIN32
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stderr), _O_BINARY);
  SetConsoleOutputCP(CP_UTF8);
#else
  // A reader that has gone away, or a file that may not grow, is an error of writing and not the end.
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
#endif
  for (const int signal : {SIGINT, SIGTERM}) {
    if (std::signal(signal, request_stop) == SIG_IGN) std::signal(signal, SIG_IGN);
  }
}

}  // namespace

int main(int argument_count, char** arguments) {
  prepare_streams();
  const std::vector<std::string_view> given(arguments + (argument_count > 0 ? 1 : 0), arguments + argument_count);
  pedigreewatch::ToolStreams streams;
  streams.console.file = stdout;
  streams.messages.file = stderr;
  if (is_terminal(stderr)) streams.progress.terminal = &streams.messages;
  streams.stop_request = &stop_request;
  const int status = pedigreewatch::run_tools(given, PEDIGREEWATCH_VERSION, streams);
  pedigreewatch::flush(streams.console);
  pedigreewatch::flush(streams.messages);
  return status != 0 || streams.console.error == 0 ? status : 1;
}
