// The encoding of an export: which one it is, by what evidence, and the text in UTF-8, in which everything else here
// works.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "text/letter_tables.h"

namespace pedigreewatch {

enum class Encoding {
  plain,
  utf_8,
  utf_16_le,
  utf_16_be,
  windows_1252,
  windows_1250,
  iso_8859_15,
  macroman,
  cp850,
  cp437,
  utf_8_twice  ///< UTF-8 that was read as Windows-1252 and turned into UTF-8 once more
};

/// The encoding whose letters are those of the table.
Encoding encoding_of(ByteEncoding encoding);

/// The name of an encoding for people; `plain` is that of texts without accents.
std::string_view name_of(Encoding encoding);

/// The encoding that a user names; nothing for a name that is none.
std::optional<Encoding> encoding_named(std::string_view name);

struct EncodingEvidence {
  std::optional<Encoding> encoding;                   ///< nothing: the bytes allow no decision
  bool has_mark = false;                              ///< a byte order mark stands at the start
  std::int64_t utf_8_letters = 0;                     ///< letters beyond ASCII that are valid UTF-8
  std::int64_t other_bytes = 0;                       ///< bytes beyond ASCII that are none
  std::size_t first_letter = std::string_view::npos;  ///< where the first of these letters stands
  std::size_t first_byte = std::string_view::npos;    ///< where the first of these bytes stands
};

/// Looks for a byte order mark, then for the zeros of UTF-16, then at all letters beyond ASCII. Bytes that mix UTF-8
/// with another encoding are not decided. Bytes that are no UTF-8 at all count as Windows-1252 here;
/// `recognise_letters` looks closer.
EncodingEvidence recognise_encoding(std::string_view bytes);

struct DecodedText {
  std::string text;                  ///< UTF-8 without byte order mark
  std::int64_t mended_bytes = 0;     ///< bytes that were no UTF-8 and were read as Windows-1252
  std::int64_t broken_letters = 0;   ///< halves of UTF-16 letters, which became U+FFFD
  bool ends_in_half_letter = false;  ///< an odd number of bytes in UTF-16; the last one is left out
};

/// The bytes in UTF-8. A text that is valid already is not copied.
DecodedText decode(std::string bytes, Encoding encoding);

/// What kind of file begins with these bytes when it is a well-known one that is no text, such as "an Excel workbook";
/// empty for all others.
std::string_view known_binary_kind(std::string_view bytes);

}  // namespace pedigreewatch
