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
#include <fcntl.h>
#include <unistd.h>
#endif

#include "core/stop_signals.h"
#include "tools/subcommands.h"

namespace {

bool is_terminal(std::FILE* file) {
#ifdef _WIN32
  return _isatty(_fileno(file)) != 0;
#else
  return isatty(fileno(file)) != 0;
#endif
}

#ifndef _WIN32
/// Takes the place of a standard stream that was closed before the start, so that the next file to be opened does not:
/// what is said would end up in it.
void occupy_closed_streams() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(stream, F_GETFD) >= 0) continue;
    [[maybe_unused]] const int substitute = open("/dev/null", O_RDONLY);  // the lowest free number is this one
  }
}
#endif

void prepare_streams() {
#ifdef _WIN32
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stderr), _O_BINARY);
  SetConsoleOutputCP(CP_UTF8);
#else
  // A reader that has gone away, or a file that may not grow, is an error of writing and not the end.
  occupy_closed_streams();
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
#endif
  pedigreewatch::watch_for_stop();  // a closed window ends the work as Ctrl-C does
}

}  // namespace

int main(int argument_count, char** arguments) {
  prepare_streams();
  const std::vector<std::string_view> given(arguments + (argument_count > 0 ? 1 : 0), arguments + argument_count);
  pedigreewatch::ToolStreams streams;
  streams.console.file = stdout;
  streams.messages.file = stderr;
  if (is_terminal(stderr)) streams.progress.terminal = &streams.messages;
  streams.stop_request = &pedigreewatch::stop_requested;
  const int status = pedigreewatch::run_tools(given, PEDIGREEWATCH_VERSION, streams);
  return pedigreewatch::end_tool(status, streams);
}
