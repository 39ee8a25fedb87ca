// The letters of encodings that have one byte a letter. Bytes below 128 are ASCII in all of them.
#pragma once

#include <array>

namespace pedigreewatch {

enum class ByteEncoding { windows_1252, windows_1250, iso_8859_15, macroman, cp850, cp437 };
inline constexpr std::size_t byte_encoding_count = 6;

/// The letters of the bytes 128 to 255; the control character of its number for a byte that has none.
using LetterTable = std::array<char16_t, 128>;

const LetterTable& letter_table(ByteEncoding encoding);

/// The letter of any byte.
inline char32_t letter_of_byte(const LetterTable& table, char byte) {
  const auto number = static_cast<unsigned char>(byte);
  return number < 128 ? static_cast<char32_t>(number) : static_cast<char32_t>(table[number - 128U]);
}

}  // namespace pedigreewatch
