// When the phases of a run began; for benchmarks. A run that nobody measures keeps no times.
#pragma once

#include <chrono>
#include <string_view>
#include <vector>

namespace pedigreewatch {

struct PhaseTimes {
  struct Mark {
    std::string_view phase;
    std::chrono::steady_clock::time_point begin;
  };
  std::vector<Mark> marks;  ///< in the order of the run; the last one ends it
};

/// Notes that `phase` begins now, when somebody measures.
inline void begin_phase(PhaseTimes* times, std::string_view phase) {
  if (times != nullptr) times->marks.push_back({phase, std::chrono::steady_clock::now()});
}

}  // namespace pedigreewatch
