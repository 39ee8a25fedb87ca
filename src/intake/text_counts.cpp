// Counts texts through a hash index.

#include "intake/text_counts.h"

#include <algorithm>

namespace pedigreewatch {

std::size_t find_counted(const TextCounts& counts, std::string_view text) {
  if (counts.last < counts.texts.size() && counts.texts[counts.last].text == text) return counts.last;
  const auto text_at = [&](std::int32_t place) -> std::string_view {
    return counts.texts[static_cast<std::size_t>(place) - 1].text;
  };
  const std::int32_t place = find_text(counts.index, text, text_at);
  return place == 0 ? std::string_view::npos : static_cast<std::size_t>(place) - 1;
}

void count_text(TextCounts& counts, std::string_view text, std::int64_t line) {
  std::size_t place = find_counted(counts, text);
  if (place == std::string_view::npos) {
    if (counts.texts.size() >= most_counted_texts) {
      ++counts.left_out;
      return;
    }
    place = counts.texts.size();
    counts.texts.push_back({std::string(text), 0, line});
    const auto text_at = [&](std::int32_t at) -> std::string_view {
      return counts.texts[static_cast<std::size_t>(at) - 1].text;
    };
    find_or_add_text(counts.index, text, static_cast<std::int32_t>(place) + 1, text_at);
  }
  ++counts.texts[place].count;
  counts.last = place;
}

std::vector<const CountedText*> by_frequency(const TextCounts& counts) {
  std::vector<const CountedText*> result;
  for (const CountedText& entry : counts.texts) result.push_back(&entry);
  std::sort(result.begin(), result.end(), [](const CountedText* a, const CountedText* b) {
    return a->count != b->count ? a->count > b->count : a->text < b->text;
  });
  return result;
}

CountedList list_counted(const TextCounts& counts, const std::function<bool(const CountedText&)>& is_meant) {
  CountedList list;
  for (const CountedText* entry : by_frequency(counts)) {
    if (!is_meant(*entry)) continue;
    if (list.texts.size() < most_listed_texts) {
      list.texts.push_back(*entry);
    } else {
      ++list.more;
    }
  }
  return list;
}

}  // namespace pedigreewatch
