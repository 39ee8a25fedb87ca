// Reads and writes UTF-8 letter by letter, and skips plain letters eight at a time.

#include "text/utf_8.h"

#include <array>
#include <cstdint>
#include <cstring>

namespace pedigreewatch {
namespace {

unsigned byte_at(std::string_view text, std::size_t place) {
  return static_cast<unsigned char>(text[place]);
}

/// The letter of the `length` bytes at the start of `text`, whatever they are.
char32_t letter_of(std::string_view text, std::size_t length) {
  constexpr std::array<unsigned, 5> first_masks = {0, 0x7F, 0x1F, 0x0F, 0x07};
  char32_t letter = byte_at(text, 0) & first_masks[length];
  for (std::size_t i = 1; i < length; ++i) letter = (letter << 6) | (byte_at(text, i) & 0x3F);
  return letter;
}

std::size_t announced_length(unsigned first) {
  if (first < 0x80) return 1;
  if (first >= 0xC2 && first < 0xE0) return 2;
  if (first >= 0xE0 && first < 0xF0) return 3;
  if (first >= 0xF0 && first < 0xF5) return 4;
  return 0;
}

}  // namespace

std::size_t letter_length(std::string_view text) {
  const std::size_t length = announced_length(byte_at(text, 0));
  if (length <= 1) return length;
  if (text.size() < length) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte_at(text, i) & 0xC0) != 0x80) return 0;
  }
  constexpr std::array<char32_t, 5> smallest = {0, 0, 0x80, 0x800, 0x10000};
  const char32_t letter = letter_of(text, length);
  const bool is_surrogate = letter >= 0xD800 && letter < 0xE000;
  return letter < smallest[length] || letter > 0x10FFFF || is_surrogate ? 0 : length;
}

char32_t take_letter(std::string_view& text) {
  const std::size_t length = letter_length(text);
  const char32_t letter = length == 0 ? replacement_letter : letter_of(text, length);
  text.remove_prefix(length == 0 ? 1 : length);
  return letter;
}

void append_letter(std::string& text, char32_t letter) {
  const auto add = [&](char32_t byte) { text.push_back(static_cast<char>(static_cast<unsigned char>(byte))); };
  if (letter < 0x80) return add(letter);
  if (letter < 0x800) {
    add(0xC0 | (letter >> 6));
  } else {
    if (letter < 0x10000) {
      add(0xE0 | (letter >> 12));
    } else {
      add(0xF0 | (letter >> 18));
      add(0x80 | ((letter >> 12) & 0x3F));
    }
    add(0x80 | ((letter >> 6) & 0x3F));
  }
  add(0x80 | (letter & 0x3F));
}

std::size_t ascii_length(std::string_view text) {
  constexpr std::uint64_t high_bits = 0x8080808080808080ULL;
  std::size_t place = 0;
  for (; place + sizeof(std::uint64_t) <= text.size(); place += sizeof(std::uint64_t)) {
    std::uint64_t bytes = 0;
    std::memcpy(&bytes, text.data() + place, sizeof bytes);
    if ((bytes & high_bits) != 0) break;
  }
  while (place < text.size() && byte_at(text, place) < 0x80) ++place;
  return place;
}

bool is_ascii(std::string_view text) {
  return ascii_length(text) == text.size();
}

}  // namespace pedigreewatch
