// The letters of Windows-1252 and how texts of UTF-8 are written with them.

#include "text/windows_1252.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "text/transliteration.h"
#include "text/utf_8.h"

namespace pedigreewatch {
namespace {

// The letters of the bytes 0x80 to 0x9F; all further ones are those of their number.
constexpr std::array<char32_t, 32> special_letters = {0x20AC, 0x81,   0x201A, 0x192,  0x201E, 0x2026, 0x2020, 0x2021,
                                                      0x2C6,  0x2030, 0x160,  0x2039, 0x152,  0x8D,   0x17D,  0x8F,
                                                      0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                      0x2DC,  0x2122, 0x161,  0x203A, 0x153,  0x9D,   0x17E,  0x178};

/// The byte of a letter beyond ASCII; 0 for none.
char byte_of(char32_t letter) {
  if (letter >= 0xA0 && letter <= 0xFF) return static_cast<char>(static_cast<unsigned char>(letter));
  const auto* const found = std::find(special_letters.begin(), special_letters.end(), letter);
  if (found == special_letters.end()) return 0;
  return static_cast<char>(static_cast<unsigned char>(0x80 + (found - special_letters.begin())));
}

bool is_blank_letter(char32_t letter) {
  return letter < 0x20 || letter == 0x7F || letter == 0xA0 || (letter >= 0x2000 && letter <= 0x200A) ||
         letter == 0x2028 || letter == 0x2029 || letter == 0x202F || letter == 0x3000;
}

bool is_without_width(char32_t letter) {
  return letter == 0xAD || (letter >= 0x200B && letter <= 0x200F) || (letter >= 0x202A && letter <= 0x202E) ||
         (letter >= 0x2060 && letter <= 0x2064) || letter == 0xFEFF;
}

bool is_combining_accent(char32_t letter) {
  return letter >= 0x300 && letter <= 0x36F;
}

/// Takes the accent behind `letter`, if there is one that goes with it.
char32_t with_accent(char32_t letter, std::string_view& rest) {
  if (rest.empty()) return letter;
  std::string_view behind = rest;
  const char32_t accent = take_letter(behind);
  const char32_t whole = is_combining_accent(accent) ? composed(letter, accent) : 0;
  if (whole == 0) return letter;
  rest = behind;
  return whole;
}

/// Yields false for a letter that is lacking.
bool append_letter_1252(std::string& bytes, char32_t letter, LetterCounts& counts) {
  if (is_blank_letter(letter)) {
    bytes.push_back(' ');
    ++counts.invisible;
    return true;
  }
  if (is_without_width(letter)) {
    ++counts.invisible;
    return true;
  }
  const char byte = letter < 0x80 ? static_cast<char>(letter) : byte_of(letter);
  if (byte != 0) {
    bytes.push_back(byte);
    return true;
  }
  const std::string_view word = is_combining_accent(letter) ? std::string_view() : transliterated(letter);
  const std::string_view written = word.empty() && !is_combining_accent(letter) ? std::string_view("?") : word;
  bytes.append(written);
  count_replaced(counts, letter, written);
  return false;
}

}  // namespace

char32_t letter_of_windows_1252(char byte) {
  const unsigned value = static_cast<unsigned char>(byte);
  return value >= 0x80 && value < 0xA0 ? special_letters[value - 0x80] : static_cast<char32_t>(value);
}

void count_replaced(LetterCounts& counts, char32_t letter, std::string_view written) {
  const auto found = std::find_if(counts.replaced.begin(), counts.replaced.end(),
                                  [&](const ReplacedLetter& entry) { return entry.letter == letter; });
  if (found != counts.replaced.end()) {
    ++found->count;
  } else {
    counts.replaced.push_back({letter, written, 1});
  }
}

bool is_plain_text(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char byte) { return byte >= 0x20 && byte < 0x7F; });
}

bool append_windows_1252(std::string& bytes, std::string_view text, LetterCounts& counts) {
  if (is_plain_text(text)) {
    bytes.append(text);
    return true;
  }
  bool is_complete = true;
  while (!text.empty()) {
    const char32_t letter = take_letter(text);
    is_complete = append_letter_1252(bytes, with_accent(letter, text), counts) && is_complete;
  }
  return is_complete;
}

}  // namespace pedigreewatch
