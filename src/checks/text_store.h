// Many short texts without an allocation each: bytes in a row, every different text once, known by its number.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "core/text_index.h"

namespace pedigreewatch {

struct TextStore {
  std::vector<char> bytes;
  std::vector<std::uint32_t> ends = {0};  ///< where each text ends; entry 0 belongs to no text
  TextIndex index;

  /// The text with this number; number 0 stands for none and yields an empty one.
  std::string_view at(std::int32_t number) const {
    if (number == 0) return {};
    const std::uint32_t begin = ends[static_cast<std::size_t>(number) - 1];
    return {bytes.data() + begin, ends[static_cast<std::size_t>(number)] - begin};
  }
  std::int32_t count() const { return static_cast<std::int32_t>(ends.size()) - 1; }
};

/// The number of `text`, which gets one if it has none yet. Texts together may have 4 GB; what does not fit becomes
/// empty.
inline std::int32_t number_of_text(TextStore& store, std::string_view text) {
  if (store.bytes.size() + text.size() > UINT32_MAX) text = {};
  const std::int32_t next = store.count() + 1;
  const auto text_at = [&](std::int32_t number) { return store.at(number); };
  const std::int32_t number = find_or_add_text(store.index, text, next, text_at);
  if (number == next) {
    store.bytes.insert(store.bytes.end(), text.begin(), text.end());
    store.ends.push_back(static_cast<std::uint32_t>(store.bytes.size()));
  }
  return number;
}

}  // namespace pedigreewatch
