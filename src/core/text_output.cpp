#include "core/text_output.h"

#include <cerrno>
#include <cstddef>

#include "core/terminal_text.h"

namespace pedigreewatch {
namespace {

constexpr std::size_t large_piece = std::size_t{1} << 16;

/// Nothing but the wish that the run ends interrupts a write, and that is told in words of its own.
void note_failure(TextOutput& output) {
  if (errno == EINTR) return;
  if (output.error == 0) output.error = errno != 0 ? errno : EIO;
}

}  // namespace

void append(TextOutput& output, std::string_view bytes) {
  output.pending.append(bytes);
}

void end_line(TextOutput& output) {
  output.pending.push_back('\n');
  if (output.shows_each_line || output.pending.size() >= large_piece) flush(output);
  if (is_stop_requested(output.stop_request)) throw RunStopped{};
}

void flush(TextOutput& output) {
  if (output.file == nullptr) return;
  if (output.is_terminal) hide_controls(output.pending);
  if (!output.pending.empty() && output.error == 0) {
    errno = 0;
    const std::size_t written = std::fwrite(output.pending.data(), 1, output.pending.size(), output.file);
    if (written != output.pending.size() || std::fflush(output.file) != 0) note_failure(output);
  }
  output.pending.clear();
  if (output.error != 0 && output.is_essential) throw RunStopped{};
}

void close(TextOutput& output) {
  if (output.file == nullptr) return;
  output.is_essential = false;  // whoever closes it looks at `error`
  flush(output);
  errno = 0;
  if (std::fclose(output.file) != 0) note_failure(output);
  output.file = nullptr;
}

}  // namespace pedigreewatch
