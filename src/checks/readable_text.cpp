// Decodes single texts, each on its own: a file may mix encodings.

#include "checks/readable_text.h"

#include <array>
#include <charconv>

#include "text/utf_8.h"
#include "text/windows_1252.h"

namespace pedigreewatch {
namespace {

std::string name_of_letter(char32_t letter) {
  std::array<char, 8> digits{};
  const char* const end =
      std::to_chars(digits.data(), digits.data() + digits.size(), static_cast<unsigned>(letter), 16).ptr;
  std::string hex(digits.data(), static_cast<std::size_t>(end - digits.data()));
  for (char& digit : hex) digit = digit >= 'a' ? static_cast<char>(digit - 'a' + 'A') : digit;
  return "<U+" + std::string(hex.size() < 4 ? 4 - hex.size() : 0, '0') + hex + ">";
}

/// Control characters and the two that end a line or a paragraph.
bool is_control(char32_t letter) {
  return letter < 0x20 || (letter >= 0x7F && letter <= 0x9F) || letter == 0x2028 || letter == 0x2029;
}

}  // namespace

bool is_utf_8(std::string_view bytes) {
  while (!bytes.empty()) {
    bytes.remove_prefix(ascii_length(bytes));
    if (bytes.empty()) break;
    const std::size_t length = letter_length(bytes);
    if (length == 0) return false;
    bytes.remove_prefix(length);
  }
  return true;
}

std::string readable(std::string_view bytes) {
  if (is_utf_8(bytes)) return std::string(bytes);
  std::string text;
  for (const char byte : bytes) append_letter(text, letter_of_windows_1252(byte));
  return text;
}

bool is_invisible(char32_t letter) {
  return letter < 0x20 || (letter >= 0x7F && letter <= 0xA0) || letter == 0xAD ||
         (letter >= 0x2000 && letter <= 0x200F) || (letter >= 0x2028 && letter <= 0x202F) ||
         (letter >= 0x2060 && letter <= 0x2064) || letter == 0x3000 || letter == 0xFEFF;
}

std::string with_invisible_named(std::string_view bytes) {
  const std::string text = readable(bytes);
  std::string result;
  bool has_any = false;
  for (std::string_view rest = text; !rest.empty();) {
    const char32_t letter = take_letter(rest);
    has_any = has_any || is_invisible(letter);
    if (is_invisible(letter)) {
      result += name_of_letter(letter);
    } else {
      append_letter(result, letter);
    }
  }
  return has_any ? result : std::string();
}

std::string with_controls_named(std::string_view bytes, std::string_view kept) {
  const std::string decoded = readable(bytes);
  std::string text;
  for (std::string_view rest = decoded; !rest.empty();) {
    const std::string_view before = rest;
    const char32_t letter = take_letter(rest);
    const std::string_view own = before.substr(0, before.size() - rest.size());
    const bool is_named = is_control(letter) && kept.find(own) == std::string_view::npos;
    text += is_named ? name_of_letter(letter) : std::string(own);
  }
  return text;
}

}  // namespace pedigreewatch
