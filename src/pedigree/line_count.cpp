// The lines are counted before they are read, so that the store is allocated once.

#include "pedigree/line_count.h"

#include "core/line_writer.h"

namespace pedigreewatch {
namespace {

constexpr std::int32_t line_limit = 100'000'000;
constexpr std::int32_t message_interval = 1000;

}  // namespace

// These lines are English in either language.
std::int32_t count_lines(LineReader& data, RunStreams& streams) {
  std::int32_t counter = 1, since_message = 0;
  while (skip_line(data)) {
    if (++counter > line_limit) {
      rewind(data);
      return 0;
    }
    if (++since_message == message_interval) {
      write_free_line(streams.console, {"record nr. ", counter, "counted"});
      since_message = 0;
    }
  }
  stop_if_unreadable(data, streams);
  write_free_line(streams.console, {"total number records = ", counter - 1});
  rewind(data);
  stop_if_unreadable(data, streams);
  return counter - 1;
}

}  // namespace pedigreewatch
