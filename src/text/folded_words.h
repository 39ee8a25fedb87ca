// Words as people compare them: without capitals, accents, blanks and punctuation.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace pedigreewatch {

/// "Reg. No" and "reg_no" are both "regno": the letters of UTF-8 text without case and accents, and the digits. Letters
/// that cannot be written in ASCII are left out.
std::string folded(std::string_view text);

/// Whether `word` stands in `words`.
bool is_among(std::string_view word, std::span<const std::string_view> words);
bool is_among(std::string_view word, std::span<const std::string> words);

}  // namespace pedigreewatch
