// Windows-1252, the encoding of the data file and the report.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pedigreewatch {

/// The letter of a byte. The five bytes without a letter yield the control character of their number.
char32_t letter_of_windows_1252(char byte);

/// A letter that Windows-1252 lacks and what was written for it.
struct ReplacedLetter {
  char32_t letter = 0;
  std::string_view written;  ///< "?" where nothing is like it
  std::int64_t count = 0;
};

/// What became of texts that were written in Windows-1252.
struct LetterCounts {
  std::vector<ReplacedLetter> replaced;
  std::int64_t invisible = 0;  ///< control characters, no-break spaces and marks without width that were removed
};

/// Adds the letters of one more text.
void count_replaced(LetterCounts& counts, char32_t letter, std::string_view written);

/// Whether `text` holds nothing but the visible letters of ASCII and blanks: its bytes are the same in Windows-1252.
bool is_plain_text(std::string_view text);

/// Adds `text`, which is UTF-8, in Windows-1252: accents that stand behind their letter are put on it, letters that
/// are lacking are transliterated, tabs, line ends and no-break spaces become blanks, marks without width vanish.
/// Yields whether every visible letter could be kept.
bool append_windows_1252(std::string& bytes, std::string_view text, LetterCounts& counts);

}  // namespace pedigreewatch
