// Different texts of a column with the number of times that each occurs.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/text_index.h"

namespace pedigreewatch {

struct CountedText {
  std::string text;
  std::int64_t count = 0;
  std::int64_t first_line = 0;  ///< of the export
};

struct TextCounts {
  std::deque<CountedText> texts;  ///< in the order of first mention
  TextIndex index;
  std::size_t last = 0;       ///< the text counted last: often the next one too
  std::int64_t left_out = 0;  ///< texts not counted because there are too many different ones
};

/// Beyond so many different texts a column is no list of names, and new ones are only counted as left out.
inline constexpr std::size_t most_counted_texts = 100000;

/// Counts one more `text`.
void count_text(TextCounts& counts, std::string_view text, std::int64_t line);

/// The place of `text` in `texts`; npos for one that was not counted.
std::size_t find_counted(const TextCounts& counts, std::string_view text);

/// The texts with the most frequent first, equal counts in the order of the text.
std::vector<const CountedText*> by_frequency(const TextCounts& counts);

/// The most frequent ones of some texts of a column, and how many more there are.
struct CountedList {
  std::vector<CountedText> texts;
  std::int64_t more = 0;
};
inline constexpr std::size_t most_listed_texts = 12;

/// Those texts for which `is_meant` is true.
CountedList list_counted(const TextCounts& counts, const std::function<bool(const CountedText&)>& is_meant);

}  // namespace pedigreewatch
