// Finds the place of a text among many, in constant time: an open-addressing hash index that stores places and
// hashes only, no copy of a text. The first place with a text wins. Texts are compared byte by byte in their full
// fixed width, which is the same as comparing them without their trailing blanks.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

#include "core/memory_hints.h"

namespace pedigreewatch {

/// A hash of all bytes of `text`, the same on every machine.
inline std::uint32_t hash_of_text(std::string_view text) {
  constexpr std::uint64_t factor = 0x9E3779B97F4A7C15ULL;
  std::uint64_t hash = text.size() * factor;
  while (!text.empty()) {
    std::uint64_t word = 0;
    const std::size_t length = text.size() < sizeof word ? text.size() : sizeof word;
    std::memcpy(&word, text.data(), length);
    hash = (hash ^ word) * factor;
    hash ^= hash >> 29;
    text.remove_prefix(length);
  }
  return static_cast<std::uint32_t>(hash >> 32);
}

/// A text with its hash, for one that is looked up in several steps.
struct HashedText {
  std::string_view text;
  std::uint32_t hash = 0;

  HashedText() = default;
  explicit HashedText(std::string_view wanted) : text(wanted), hash(hash_of_text(wanted)) {}
};

struct TextIndex {
  struct Slot {
    std::uint32_t hash = 0;
    std::int32_t place = 0;  ///< 0: free
  };
  std::vector<Slot> slots;  ///< a power of two, about two thirds in use at most
  std::size_t used = 0;
};

/// Makes room for `count` texts in all.
inline void reserve_texts(TextIndex& index, std::size_t count) {
  std::size_t size = 16;
  while (size < count + count / 2) size *= 2;
  if (size <= index.slots.size()) return;
  std::vector<TextIndex::Slot> old;
  reserve_large(old, size);
  old.resize(size);
  old.swap(index.slots);
  for (const TextIndex::Slot& slot : old) {
    if (slot.place == 0) continue;
    std::size_t at = slot.hash & (size - 1);
    while (index.slots[at].place != 0) at = (at + 1) & (size - 1);
    index.slots[at] = slot;
  }
}

/// Has the slot fetched where the search for a text of this hash begins.
inline void fetch_slot_early(const TextIndex& index, std::uint32_t hash) {
  if (!index.slots.empty()) fetch_early(&index.slots[hash & (index.slots.size() - 1)]);
}

/// The first place that a text of this hash may have, or 0.
inline std::int32_t likely_place(const TextIndex& index, std::uint32_t hash) {
  if (index.slots.empty()) return 0;
  const std::size_t mask = index.slots.size() - 1;
  std::size_t at = hash & mask;
  while (index.slots[at].place != 0 && index.slots[at].hash != hash) at = (at + 1) & mask;
  return index.slots[at].place;
}

/// The first place of `text`, or 0. `text_at(place)` yields the text of a place.
template <typename TextAt>
std::int32_t find_text(const TextIndex& index, std::string_view text, TextAt&& text_at) {
  if (index.slots.empty()) return 0;
  const std::uint32_t hash = hash_of_text(text);
  const std::size_t mask = index.slots.size() - 1;
  for (std::size_t at = hash & mask; index.slots[at].place != 0; at = (at + 1) & mask) {
    if (index.slots[at].hash == hash && text_at(index.slots[at].place) == text) return index.slots[at].place;
  }
  return 0;
}

/// The first place of `text`, to be changed; when it has none yet, `new_place` becomes it.
template <typename TextAt>
std::int32_t& find_or_add_place(TextIndex& index, HashedText wanted, std::int32_t new_place, TextAt&& text_at) {
  reserve_texts(index, index.used + 1);
  const std::size_t mask = index.slots.size() - 1;
  std::size_t at = wanted.hash & mask;
  for (; index.slots[at].place != 0; at = (at + 1) & mask) {
    const TextIndex::Slot& slot = index.slots[at];
    if (slot.hash == wanted.hash && text_at(slot.place) == wanted.text) return index.slots[at].place;
  }
  index.slots[at] = {wanted.hash, new_place};
  ++index.used;
  return index.slots[at].place;
}

/// The first place of `text`; when it has none yet, `new_place` becomes it.
template <typename TextAt>
std::int32_t find_or_add_text(TextIndex& index, std::string_view text, std::int32_t new_place, TextAt&& text_at) {
  return find_or_add_place(index, HashedText(text), new_place, text_at);
}

}  // namespace pedigreewatch
