// Letters and digits of ASCII in texts of any encoding.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace pedigreewatch {

constexpr bool is_digit(char byte) {
  return byte >= '0' && byte <= '9';
}

/// Whether a byte is a letter or digit of ASCII, or belongs to a letter beyond it.
constexpr bool is_letter_or_digit(char byte) {
  const auto value = static_cast<unsigned char>(byte);
  return value >= 0x80 || is_digit(byte) || (value >= 'A' && value <= 'Z') || (value >= 'a' && value <= 'z');
}

inline bool has_digit(std::string_view text) {
  return std::any_of(text.begin(), text.end(), is_digit);
}

/// Whether a text has a letter or a digit: blanks, hyphens and other signs say nothing.
inline bool says_something(std::string_view text) {
  return std::any_of(text.begin(), text.end(), is_letter_or_digit);
}

/// The text with small letters for the capitals of ASCII.
inline std::string small_letters(std::string text) {
  for (char& byte : text) {
    if (byte >= 'A' && byte <= 'Z') byte = static_cast<char>(byte - 'A' + 'a');
  }
  return text;
}

}  // namespace pedigreewatch
