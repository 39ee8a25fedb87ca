// Whether somebody wants work to end before it is done.
#pragma once

#include <csignal>

namespace pedigreewatch {

/// Not 0 as soon as somebody wants the work to end; null: nobody can.
using StopRequest = const volatile std::sig_atomic_t*;

inline bool is_stop_requested(StopRequest request) {
  return request != nullptr && *request != 0;
}

}  // namespace pedigreewatch
