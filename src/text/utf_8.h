// Letters of UTF-8 texts, one by one.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace pedigreewatch {

inline constexpr char32_t replacement_letter = 0xFFFD;  ///< stands for bytes that are no letter

/// The length in bytes of the letter at the start of `text`, which is not empty; 0 when the bytes there are no valid
/// UTF-8 (cut off, overlong, a surrogate, beyond U+10FFFF).
std::size_t letter_length(std::string_view text);

/// Takes one letter off the start of `text`, which is not empty. A byte that is no valid UTF-8 is taken alone and
/// yields `replacement_letter`.
char32_t take_letter(std::string_view& text);

/// Adds `letter` as UTF-8.
void append_letter(std::string& text, char32_t letter);

/// Whether all bytes are below 128.
bool is_ascii(std::string_view text);

/// The number of bytes below 128 at the start of `text`.
std::size_t ascii_length(std::string_view text);

}  // namespace pedigreewatch
