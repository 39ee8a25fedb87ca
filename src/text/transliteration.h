// Letters written with the plain letters A to Z, for encodings and comparisons that lack them.
#pragma once

#include <string_view>

namespace pedigreewatch {

/// What stands for `letter` where only plain letters can be written: "L" for a Polish L with stroke, "shch" for a
/// Cyrillic letter. Empty for a letter without such a writing, and for plain letters themselves.
std::string_view transliterated(char32_t letter);

/// The letter of Windows-1252 that a plain letter with a combining accent is ("e" and U+0308: U+00EB); 0 when there is
/// none.
char32_t composed(char32_t letter, char32_t accent);

/// The plain sign that typewriters have for one that office programs put in its place: an apostrophe, quotation mark,
/// dash or blank of any form. Empty for all other letters.
std::string_view plain_sign(char32_t letter);

}  // namespace pedigreewatch
