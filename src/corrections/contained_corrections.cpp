#include "corrections/contained_corrections.h"

#include <charconv>
#include <optional>
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

struct ToldCorrections {
  std::int64_t corrections = 0, data_bytes = 0;
};

/// What a line tells, when it is written as `corrections_line` writes it.
std::optional<ToldCorrections> read_line(std::string_view line) {
  if (line.ends_with('\r')) line.remove_suffix(1);
  ToldCorrections told;
  const bool is_told =
      take_number(line, count_word, told.corrections) && take_number(line, bytes_word, told.data_bytes);
  return is_told && line.empty() ? std::optional(told) : std::nullopt;
}

bool is_blank(std::string_view line) {
  return line.empty() || line == "\r";
}

}  // namespace

std::string corrections_line(std::int64_t corrections, std::int64_t data_bytes) {
  if (corrections == 0) return {};
  return std::string(count_word) + std::to_string(corrections) + std::string(bytes_word) + std::to_string(data_bytes) +
         "\n";
}

std::int64_t corrections_told(std::span<const std::string> steer_lines, std::int64_t data_bytes) {
  const std::size_t place = place_of_corrections_line(steer_lines);
  if (place == steer_lines.size()) return 0;
  const std::optional<ToldCorrections> told = read_line(steer_lines[place]);
  return told && told->data_bytes == data_bytes ? told->corrections : 0;
}

std::size_t place_of_corrections_line(std::span<const std::string> steer_lines) {
  for (std::size_t k = steer_lines.size(); k > 0; --k) {
    if (!is_blank(steer_lines[k - 1])) return read_line(steer_lines[k - 1]) ? k - 1 : steer_lines.size();
  }
  return steer_lines.size();
}

std::string contained_corrections(std::int64_t corrections, ToolLanguage language) {
  return phrase(contained_text, language, {std::to_string(corrections)});
}

}  // namespace pedigreewatch
