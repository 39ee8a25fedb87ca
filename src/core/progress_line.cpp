#include "core/progress_line.h"

#include <string>

namespace pedigreewatch {

void begin_progress(ProgressLine& line, std::string_view label) {
  line.label = label;
  line.next_count = progress_step;
}

void show_progress(ProgressLine& line, std::int64_t count) {
  const std::int64_t whole_steps = count - count % progress_step;
  line.next_count = whole_steps + progress_step;
  show_text(line, std::string(line.label) + ": " + std::to_string(whole_steps));
}

void show_text(ProgressLine& line, std::string_view text) {
  if (line.terminal == nullptr) return;
  append(*line.terminal, "\r" + std::string(text));
  // What is left of a longer text is overwritten.
  if (text.size() < line.width) append(*line.terminal, std::string(line.width - text.size(), ' '));
  if (text.size() > line.width) line.width = text.size();
  flush(*line.terminal);
}

void erase_progress(ProgressLine& line) {
  if (line.terminal == nullptr || line.width == 0) return;
  append(*line.terminal, "\r" + std::string(line.width, ' ') + "\r");
  flush(*line.terminal);
  line.width = 0;
}

}  // namespace pedigreewatch
