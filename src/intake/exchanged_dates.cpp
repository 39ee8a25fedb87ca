// The dates are met in the order of their lines. A certain one, whose day is beyond the 12th, ends a block of exchanged
// ones; days in either order wait until it is known whether an impossible one follows.

#include "intake/exchanged_dates.h"

#include <algorithm>

namespace pedigreewatch {
namespace {

NotedText& place_of(ExchangedDates& dates, std::int64_t number) {
  return dates.waiting[static_cast<std::size_t>(number % most_waiting_dates)];
}

/// The texts keep their memory, since nearly every other date waits for a while.
void wait(ExchangedDates& dates, std::int64_t line, std::string_view text) {
  dates.waiting.resize(static_cast<std::size_t>(most_waiting_dates));
  NotedText& entry = place_of(dates, dates.waiting_count++);
  entry.line = line;
  entry.text.assign(text);
}

void doubt_waiting_ones(ExchangedDates& dates) {
  const std::int64_t first = std::max<std::int64_t>(0, dates.waiting_count - most_waiting_dates);
  for (std::int64_t i = first; i < dates.waiting_count; ++i) {
    const NotedText& entry = place_of(dates, i);
    note_text(dates.doubtful, entry.line, entry.text);
  }
  dates.waiting_count = 0;
}

}  // namespace

void note_fit(ExchangedDates& dates, DateFit fit, std::int64_t line, std::string_view text) {
  switch (fit) {
    case DateFit::certain:
      dates.is_behind_impossible = false;
      dates.waiting_count = 0;
      return;
    case DateFit::impossible:
      note_text(dates.impossible, line, text);
      doubt_waiting_ones(dates);
      dates.is_behind_impossible = true;
      return;
    case DateFit::either:
      if (dates.is_behind_impossible) return note_text(dates.doubtful, line, text);
      return wait(dates, line, text);
  }
}

}  // namespace pedigreewatch
