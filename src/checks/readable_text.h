// Bytes of the data file as letters that people can read.
#pragma once

#include <string>
#include <string_view>

namespace pedigreewatch {

/// Whether all bytes beyond ASCII form letters of UTF-8.
bool is_utf_8(std::string_view bytes);

/// The bytes in UTF-8: as they are when they are UTF-8, else as Windows-1252.
std::string readable(std::string_view bytes);

/// Whether a letter shows nothing although it is text: control characters, no-break blanks, marks without width.
bool is_invisible(char32_t letter);

/// The text in UTF-8 with the names of its invisible letters, "HS<U+00A0>1"; empty when it has none.
std::string with_invisible_named(std::string_view bytes);

/// The text in UTF-8 with the names of its control characters but those in `kept`: it stays in its cell and line, and a
/// terminal shows it.
std::string with_controls_named(std::string_view bytes, std::string_view kept = {});

}  // namespace pedigreewatch
