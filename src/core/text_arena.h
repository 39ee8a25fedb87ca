// Many texts, numbered from 1, in little memory: each takes its own length and two bytes. Texts never change.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/memory_hints.h"

namespace pedigreewatch {

struct TextArena {
  /// Texts that share a chunk. So many of at most 60 bytes end within 16 bits.
  static constexpr std::size_t chunk_texts = 1024;

  std::vector<std::string> chunks;  ///< the bytes of 1024 texts each, one behind the other
  std::vector<std::uint16_t> ends;  ///< by number - 1: where the text ends in its chunk

  std::int32_t count() const { return static_cast<std::int32_t>(ends.size()); }

  /// Adds a text of at most 60 bytes and yields its number.
  std::int32_t add(std::string_view text) {
    if (ends.size() % chunk_texts == 0) {
      if (!chunks.empty()) chunks.back().shrink_to_fit();
      chunks.emplace_back();
    }
    chunks.back().append(text);
    ends.push_back(static_cast<std::uint16_t>(chunks.back().size()));
    return count();
  }

  std::string_view at(std::int32_t number) const {
    const std::size_t place = static_cast<std::size_t>(number) - 1;
    const std::size_t begin = place % chunk_texts == 0 ? 0 : ends[place - 1];
    return {chunks[place / chunk_texts].data() + begin, ends[place] - begin};
  }

  /// Has a text fetched that will be wanted soon.
  void fetch_text_early(std::int32_t number) const {
    const std::size_t place = static_cast<std::size_t>(number) - 1;
    fetch_early(chunks[place / chunk_texts].data() + ends[place]);
  }
};

}  // namespace pedigreewatch
