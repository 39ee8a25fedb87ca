// Recognises an encoding by its byte order mark, by the zeros of UTF-16, or by whether the letters beyond ASCII are
// valid UTF-8; and turns UTF-16 and encodings of one byte a letter into UTF-8.

#include "text/encoding.h"

#include <algorithm>
#include <array>
#include <utility>

#include "text/double_encoding.h"
#include "text/utf_8.h"
#include "text/windows_1252.h"

namespace pedigreewatch {
namespace {

constexpr std::string_view utf_8_mark = "\xEF\xBB\xBF";
constexpr std::string_view little_endian_mark = "\xFF\xFE";
constexpr std::string_view big_endian_mark = "\xFE\xFF";

/// UTF-16 of western texts has a zero in every other byte.
std::optional<Encoding> utf_16_by_zeros(std::string_view bytes) {
  constexpr std::size_t sample = 4096;
  const std::string_view start = bytes.substr(0, std::min(bytes.size(), sample));
  std::array<std::size_t, 2> zeros = {};
  for (std::size_t i = 0; i < start.size(); ++i) zeros[i % 2] += start[i] == '\0' ? 1 : 0;
  const std::size_t most = start.size() / 4, few = start.size() / 100;
  if (start.size() < 2) return std::nullopt;
  if (zeros[1] > most && zeros[0] <= few) return Encoding::utf_16_le;
  if (zeros[0] > most && zeros[1] <= few) return Encoding::utf_16_be;
  return std::nullopt;
}

/// Counts the letters beyond ASCII, and the bytes that are none.
void count_letters(std::string_view bytes, EncodingEvidence& evidence) {
  std::size_t place = 0;
  for (;;) {
    place += ascii_length(bytes.substr(place));
    if (place >= bytes.size()) return;
    const std::size_t length = letter_length(bytes.substr(place));
    (length == 0 ? evidence.other_bytes : evidence.utf_8_letters) += 1;
    std::size_t& first = length == 0 ? evidence.first_byte : evidence.first_letter;
    first = std::min(first, place);
    place += std::max<std::size_t>(length, 1);
  }
}

std::optional<Encoding> encoding_by_letters(const EncodingEvidence& evidence) {
  if (evidence.utf_8_letters == 0 && evidence.other_bytes == 0) return Encoding::plain;
  if (evidence.other_bytes == 0) return Encoding::utf_8;
  if (evidence.utf_8_letters == 0) return Encoding::windows_1252;
  return std::nullopt;
}

char32_t unit_at(std::string_view bytes, std::size_t place, bool is_little_endian) {
  const auto first = static_cast<unsigned char>(bytes[place]), second = static_cast<unsigned char>(bytes[place + 1]);
  return is_little_endian ? static_cast<char32_t>(first | (second << 8)) : static_cast<char32_t>((first << 8) | second);
}

DecodedText decode_utf_16(std::string_view bytes, bool is_little_endian) {
  DecodedText decoded;
  decoded.ends_in_half_letter = bytes.size() % 2 != 0;
  const std::size_t end = bytes.size() - bytes.size() % 2;
  decoded.text.reserve(bytes.size() / 2);
  for (std::size_t place = 0; place < end; place += 2) {
    char32_t letter = unit_at(bytes, place, is_little_endian);
    const bool is_first_half = letter >= 0xD800 && letter < 0xDC00;
    const char32_t next = is_first_half && place + 2 < end ? unit_at(bytes, place + 2, is_little_endian) : 0;
    if (next >= 0xDC00 && next < 0xE000) {
      letter = 0x10000 + ((letter - 0xD800) << 10) + (next - 0xDC00);
      place += 2;
    } else if (letter >= 0xD800 && letter < 0xE000) {
      letter = replacement_letter;
      ++decoded.broken_letters;
    }
    append_letter(decoded.text, letter);
  }
  return decoded;
}

DecodedText decode_bytes(std::string_view bytes, ByteEncoding encoding) {
  const LetterTable& table = letter_table(encoding);
  DecodedText decoded;
  decoded.text.reserve(bytes.size() + bytes.size() / 16);
  while (!bytes.empty()) {
    const std::size_t plain = ascii_length(bytes);
    decoded.text.append(bytes.substr(0, plain));
    bytes.remove_prefix(plain);
    if (bytes.empty()) break;
    append_letter(decoded.text, letter_of_byte(table, bytes.front()));
    bytes.remove_prefix(1);
  }
  return decoded;
}

/// The same text with the bytes that are no UTF-8 read as Windows-1252.
DecodedText decode_utf_8(std::string bytes) {
  EncodingEvidence evidence;
  count_letters(bytes, evidence);
  if (evidence.other_bytes == 0) return {.text = std::move(bytes)};
  DecodedText decoded;
  decoded.mended_bytes = evidence.other_bytes;
  std::string_view rest = bytes;
  while (!rest.empty()) {
    const std::size_t length = letter_length(rest);
    if (length == 0) append_letter(decoded.text, letter_of_windows_1252(rest.front()));
    decoded.text.append(rest.substr(0, length));
    rest.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return decoded;
}

}  // namespace

std::string_view name_of(Encoding encoding) {
  constexpr std::array<std::string_view, 11> names = {"ASCII",        "UTF-8",        "UTF-16 LE",   "UTF-16 BE",
                                                      "Windows-1252", "Windows-1250", "ISO-8859-15", "MacRoman",
                                                      "cp850",        "cp437",        "UTF-8 twice"};
  return names[static_cast<std::size_t>(encoding)];
}

std::optional<Encoding> encoding_named(std::string_view name) {
  constexpr std::array<std::pair<std::string_view, Encoding>, 23> names = {{
      {"utf8", Encoding::utf_8},
      {"utf16", Encoding::utf_16_le},
      {"utf16le", Encoding::utf_16_le},
      {"utf16be", Encoding::utf_16_be},
      {"windows1252", Encoding::windows_1252},
      {"cp1252", Encoding::windows_1252},
      {"1252", Encoding::windows_1252},
      {"ansi", Encoding::windows_1252},
      {"latin1", Encoding::windows_1252},
      {"iso88591", Encoding::windows_1252},
      {"windows1250", Encoding::windows_1250},
      {"cp1250", Encoding::windows_1250},
      {"1250", Encoding::windows_1250},
      {"iso885915", Encoding::iso_8859_15},
      {"latin9", Encoding::iso_8859_15},
      {"macroman", Encoding::macroman},
      {"macintosh", Encoding::macroman},
      {"mac", Encoding::macroman},
      {"cp850", Encoding::cp850},
      {"850", Encoding::cp850},
      {"cp437", Encoding::cp437},
      {"437", Encoding::cp437},
      {"utf8twice", Encoding::utf_8_twice},
  }};
  std::string folded;
  for (const char byte : name) {
    if (byte >= 'A' && byte <= 'Z') {
      folded.push_back(static_cast<char>(byte - 'A' + 'a'));
    } else if (byte != '-' && byte != '_' && byte != ' ') {
      folded.push_back(byte);
    }
  }
  const auto* const found = std::find_if(names.begin(), names.end(), [&](const auto& e) { return e.first == folded; });
  if (found == names.end()) return std::nullopt;
  return found->second;
}

Encoding encoding_of(ByteEncoding encoding) {
  constexpr std::array<Encoding, byte_encoding_count> encodings = {Encoding::windows_1252, Encoding::windows_1250,
                                                                   Encoding::iso_8859_15,  Encoding::macroman,
                                                                   Encoding::cp850,        Encoding::cp437};
  return encodings[static_cast<std::size_t>(encoding)];
}

EncodingEvidence recognise_encoding(std::string_view bytes) {
  EncodingEvidence evidence;
  if (bytes.starts_with(little_endian_mark) || bytes.starts_with(big_endian_mark)) {
    evidence.has_mark = true;
    evidence.encoding = bytes.starts_with(big_endian_mark) ? Encoding::utf_16_be : Encoding::utf_16_le;
    return evidence;
  }
  evidence.encoding = utf_16_by_zeros(bytes);
  if (evidence.encoding) return evidence;
  evidence.has_mark = bytes.starts_with(utf_8_mark);
  const std::size_t start = evidence.has_mark ? utf_8_mark.size() : 0;
  count_letters(bytes.substr(start), evidence);
  if (evidence.first_letter != std::string_view::npos) evidence.first_letter += start;
  if (evidence.first_byte != std::string_view::npos) evidence.first_byte += start;
  evidence.encoding = evidence.has_mark ? Encoding::utf_8 : encoding_by_letters(evidence);
  return evidence;
}

DecodedText decode(std::string bytes, Encoding encoding) {
  const std::string_view view = bytes;
  switch (encoding) {
    case Encoding::utf_16_le: return decode_utf_16(view.substr(view.starts_with(little_endian_mark) ? 2 : 0), true);
    case Encoding::utf_16_be: return decode_utf_16(view.substr(view.starts_with(big_endian_mark) ? 2 : 0), false);
    case Encoding::windows_1252: return decode_bytes(view, ByteEncoding::windows_1252);
    case Encoding::windows_1250: return decode_bytes(view, ByteEncoding::windows_1250);
    case Encoding::iso_8859_15: return decode_bytes(view, ByteEncoding::iso_8859_15);
    case Encoding::macroman: return decode_bytes(view, ByteEncoding::macroman);
    case Encoding::cp850: return decode_bytes(view, ByteEncoding::cp850);
    case Encoding::cp437: return decode_bytes(view, ByteEncoding::cp437);
    case Encoding::plain:
    case Encoding::utf_8:
    case Encoding::utf_8_twice: break;
  }
  if (view.starts_with(utf_8_mark)) bytes.erase(0, utf_8_mark.size());
  DecodedText decoded = decode_utf_8(std::move(bytes));
  if (encoding == Encoding::utf_8_twice) decoded.text = without_doubled_letters(decoded.text);
  return decoded;
}

std::string_view known_binary_kind(std::string_view bytes) {
  constexpr std::array<std::pair<std::string_view, std::string_view>, 5> kinds = {{
      {"PK\x03\x04", "Excel, LibreOffice, zip"},
      {"\xD0\xCF\x11\xE0", "Excel (.xls)"},
      {"%PDF", "PDF"},
      {"\x1F\x8B", "gzip"},
      {"SQLite format 3", "SQLite"},
  }};
  for (const auto& [start, kind] : kinds) {
    if (bytes.starts_with(start)) return kind;
  }
  return {};
}

}  // namespace pedigreewatch
