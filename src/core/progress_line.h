// One line on a terminal that counts while a tool works through a file: it is written over itself with carriage
// returns, appears only behind so many lines that somebody would wonder, and is erased before anything else is printed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "core/text_output.h"

namespace pedigreewatch {

/// How many lines lie between two counts on the screen; shorter work shows nothing.
inline constexpr std::int64_t progress_step = 100'000;

struct ProgressLine {
  TextOutput* terminal = nullptr;           ///< null: nobody is watching, and nothing is written
  std::string_view label = {};              ///< what is counted: "reading lines"
  std::int64_t next_count = progress_step;  ///< the count that is shown next
  std::size_t width = 0;                    ///< how many letters are on the screen
};

/// Starts to count something else. Nothing is shown yet.
void begin_progress(ProgressLine& line, std::string_view label);

/// Shows the count, rounded down to a whole step.
void show_progress(ProgressLine& line, std::int64_t count);

/// Shows a text of one's own in place of a count.
void show_text(ProgressLine& line, std::string_view text);

/// Shows the count when it has reached the next step. Counts rise from one call to the next, by any number.
inline void count_progress(ProgressLine& line, std::int64_t count) {
  if (count >= line.next_count) show_progress(line, count);
}

/// Takes the line off the screen, if there is one: what is printed next begins where it began.
void erase_progress(ProgressLine& line);

}  // namespace pedigreewatch
