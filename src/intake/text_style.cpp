// Counts signs by kind: which letter or digit it is says nothing.

#include "intake/text_style.h"

#include <algorithm>

namespace pedigreewatch {
namespace {

constexpr std::size_t letter = 'a', digit = '0';

std::size_t sign_of(unsigned char byte) {
  if (byte >= 0x80 || (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z')) return letter;
  return byte >= '0' && byte <= '9' ? digit : byte;
}

}  // namespace

void count_signs(StyleCounts& counts, std::string_view text) {
  std::array<bool, 128> has = {};
  std::size_t word = 0;
  for (const char byte : text) {
    const std::size_t sign = sign_of(static_cast<unsigned char>(byte));
    has[sign] = true;
    word = sign == letter ? word + 1 : 0;
    counts.longest_word = std::max(counts.longest_word, word);
  }
  ++counts.texts;
  counts.shortest = std::min(counts.shortest, text.size());
  for (std::size_t i = 0; i < has.size(); ++i) counts.with[i] += has[i] ? 1 : 0;
}

TextStyle style_of(const StyleCounts& counts) {
  TextStyle style;
  style.is_known = counts.texts >= fewest_styled_texts;
  for (std::size_t byte = 0; byte < style.is_usual.size(); ++byte) {
    style.is_usual[byte] = counts.with[sign_of(static_cast<unsigned char>(byte))] * rare_style > counts.texts;
  }
  style.needs_digit = (counts.texts - counts.with[digit]) * rare_style < counts.texts;
  style.needs_letter = (counts.texts - counts.with[letter]) * rare_style < counts.texts;
  style.longest_word = counts.longest_word;
  style.shortest = counts.shortest;
  return style;
}

bool is_plain_number(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

bool is_unlike_number(const TextStyle& style, std::string_view text) {
  return style.is_known && is_plain_number(text) && (style.needs_letter || text.size() < style.shortest);
}

bool is_unlike(const TextStyle& style, std::string_view text) {
  if (!style.is_known) return false;
  std::size_t word = 0;
  bool has_digit = false;
  for (const char byte : text) {
    const auto value = static_cast<unsigned char>(byte);
    if (!style.is_usual[value]) return true;
    const std::size_t sign = sign_of(value);
    has_digit = has_digit || sign == digit;
    word = sign == letter ? word + 1 : 0;
    if (word > style.longest_word) return true;
  }
  return style.needs_digit && !has_digit;
}

}  // namespace pedigreewatch
