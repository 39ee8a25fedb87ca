// The signals with which somebody wants a program to end: Ctrl-C, a closed window, `kill`. For the `main` of a program
// alone: signals belong to a process, not to what runs in it.
#pragma once

#include <csignal>

#ifndef _WIN32
#include <unistd.h>
#endif

#include "core/stop_request.h"

namespace pedigreewatch {

/// Set by a signal, which reaches nothing that is not global: what is being written is taken away then.
inline volatile std::sig_atomic_t stop_requested = 0;

#ifdef _WIN32
/// A second signal ends the program at once.
inline void request_stop(int signal) {
  std::signal(signal, SIG_DFL);
  stop_requested = 1;
}

inline void watch_for_stop() {
  for (const int signal : {SIGINT, SIGTERM, SIGBREAK}) std::signal(signal, request_stop);
}
#else
/// Wakes once a second from whatever the program waits for: a signal that arrives just before the program begins to
/// wait, for the writer of a pipe, would otherwise be followed by a wait without an end.
inline void wake_again(int /*signal*/) {
  alarm(1);
}

/// A second signal ends the program at once.
inline void request_stop(int signal) {
  std::signal(signal, SIG_DFL);
  stop_requested = 1;
  alarm(1);
}

/// Has `handler` called at a signal, and what waits for a file end with EINTR then, in place of waiting on.
inline void interrupt_at(int signal, void (*handler)(int)) {
  struct sigaction action = {};
  action.sa_handler = handler;
  sigemptyset(&action.sa_mask);
  sigaction(signal, &action, nullptr);
}

/// What the user has the program ignore, as `nohup` does, stays ignored.
inline void watch_for_stop() {
  interrupt_at(SIGALRM, wake_again);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    struct sigaction before = {};
    sigaction(signal, nullptr, &before);
    if (before.sa_handler != SIG_IGN) interrupt_at(signal, request_stop);
  }
}
#endif

}  // namespace pedigreewatch
