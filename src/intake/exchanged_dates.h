// Day and month in the other order, in some lines of a file: a date that is impossible in the order of all others tells
// of itself, but those around it that are days in either order do not.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "intake/noted_texts.h"

namespace pedigreewatch {

/// What the dates tell if one of the two orders is the right one.
struct ExchangedDates {
  NotedTexts impossible;  ///< they are a day in the other order only
  NotedTexts doubtful;    ///< a day in either order, with no date between them and an impossible one that is certain
  bool is_behind_impossible = false;
  std::vector<NotedText> waiting;  ///< days in either order since the last certain one, in a ring of the latest ones
  std::int64_t waiting_count = 0;  ///< of all since then
};

/// So many days in either order can be doubtful before an impossible date.
inline constexpr std::int64_t most_waiting_dates = 50;

enum class DateFit { certain, impossible, either };

/// Looks at the next date of the file.
void note_fit(ExchangedDates& dates, DateFit fit, std::int64_t line, std::string_view text);

}  // namespace pedigreewatch
