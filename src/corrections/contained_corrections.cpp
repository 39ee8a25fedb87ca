#include "corrections/contained_corrections.h"

#include <charconv>
#include <string_view>

namespace pedigreewatch {
namespace {

constexpr Wording contained_text = {"Corrections that these results contain and the export does not: {1}.",
                                    "Correcties die in deze resultaten zitten en niet in de export: {1}."};
constexpr std::string_view count_word = "corrections=", bytes_word = " bytes=";

/// Takes a word and the number behind it off the front; false where they do not stand there.
bool take_number(std::string_view& text, std::string_view word, std::int64_t& number) {
  if (!text.starts_with(word)) return false;
  text.remove_prefix(word.size());
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return error == std::errc() && number >= 0;
}

}  // namespace

std::string corrections_line(std::int64_t corrections, std::int64_t data_bytes) {
  if (corrections == 0) return {};
  return std::string(count_word) + std::to_string(corrections) + std::string(bytes_word) + std::to_string(data_bytes) +
         "\n";
}

std::int64_t corrections_told(std::span<const std::string> steer_lines, std::int64_t data_bytes) {
  for (std::size_t k = steer_lines.size(); k > 0; --k) {
    std::string_view line = steer_lines[k - 1];
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (line.empty()) continue;
    std::int64_t corrections = 0, bytes = 0;
    const bool is_told = take_number(line, count_word, corrections) && take_number(line, bytes_word, bytes);
    return is_told && line.empty() && bytes == data_bytes ? corrections : 0;
  }
  return 0;
}

std::string contained_corrections(std::int64_t corrections, ToolLanguage language) {
  return phrase(contained_text, language, {std::to_string(corrections)});
}

}  // namespace pedigreewatch
