// When the phases of a run began: for benchmarks, and for whoever watches a run. A run that nobody measures or watches
// keeps no times.
#pragma once

#include <chrono>
#include <string_view>
#include <vector>

namespace pedigreewatch {

/// Somebody who is told at once when a phase begins.
struct PhaseWatch {
  void (*when_phase_begins)(void* watcher, std::string_view phase) = nullptr;  ///< null: nobody watches
  void* watcher = nullptr;
};

inline void tell(const PhaseWatch& watch, std::string_view phase) {
  if (watch.when_phase_begins != nullptr) watch.when_phase_begins(watch.watcher, phase);
}

struct PhaseTimes {
  struct Mark {
    std::string_view phase;
    std::chrono::steady_clock::time_point begin;
  };
  std::vector<Mark> marks;  ///< in the order of the run; the last one ends it
  PhaseWatch watch;
};

/// Notes that `phase` begins now, when somebody measures.
inline void begin_phase(PhaseTimes* times, std::string_view phase) {
  if (times == nullptr) return;
  times->marks.push_back({phase, std::chrono::steady_clock::now()});
  tell(times->watch, phase);
}

}  // namespace pedigreewatch
