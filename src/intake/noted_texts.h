// Texts of an export that a message names with their lines.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pedigreewatch {

struct NotedText {
  std::int64_t line = 0;
  std::string text;
};

/// Texts that are listed: the first ones, and how many there are.
struct NotedTexts {
  std::vector<NotedText> first;
  std::int64_t count = 0;
};

inline constexpr std::size_t most_noted_texts = 20;
/// Lines that hold no animal are all told, up to this many.
inline constexpr std::size_t most_told_lines = 500;
void note_text(NotedTexts& noted, std::int64_t line, std::string_view text, std::size_t most = most_noted_texts);

}  // namespace pedigreewatch
