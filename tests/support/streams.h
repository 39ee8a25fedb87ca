// Streams that keep what is printed, and their lines.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include "core/run_streams.h"
#include "support/lines.h"

namespace pedigreewatch::test {

/// An output that is kept, in one of the two languages.
inline TextOutput output_in(bool english) {
  TextOutput output;
  output.is_english = english;
  return output;
}

/// The streams of a run in one of the two languages.
inline RunStreams streams_in(bool english) {
  RunStreams streams;
  streams.console = streams.report = output_in(english);
  return streams;
}

/// The lines of an output that is kept.
inline std::vector<std::string> lines_of(const TextOutput& output) {
  return lines_of(output.pending);
}

/// A keyboard on which everything has been typed beforehand.
std::FILE* keyboard_with(const std::string& typed);

/// A run that stopped, seen from outside: whether `action` stopped it.
template <typename Action>
bool stops(Action&& action) {
  try {
    action();
  } catch (const RunStopped&) {
    return true;
  }
  return false;
}

}  // namespace pedigreewatch::test
