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
inline std::int32_t number_of_text(TextStore& store, HashedText wanted) {
  if (store.bytes.size() + wanted.text.size() > UINT32_MAX) wanted = HashedText(std::string_view());
  const std::int32_t next = store.count() + 1;
  const auto text_at = [&](std::int32_t number) { return store.at(number); };
  const std::int32_t number = find_or_add_place(store.index, wanted, next, text_at);
  if (number == next) {
    store.bytes.insert(store.bytes.end(), wanted.text.begin(), wanted.text.end());
    store.ends.push_back(static_cast<std::uint32_t>(store.bytes.size()));
  }
  return number;
}

inline std::int32_t number_of_text(TextStore& store, std::string_view text) {
  return number_of_text(store, HashedText(text));
}

/// Has fetched where the text ends that one of this hash is likely to be compared with: first this, then the text.
inline void fetch_end_early(const TextStore& store, std::uint32_t hash) {
  fetch_early(&store.ends[static_cast<std::size_t>(likely_place(store.index, hash))]);
}

/// Has the text itself fetched.
inline void fetch_text_early(const TextStore& store, std::uint32_t hash) {
  const std::int32_t number = likely_place(store.index, hash);
  if (number != 0) fetch_early(store.bytes.data() + store.ends[static_cast<std::size_t>(number) - 1]);
}

}  // namespace pedigreewatch
