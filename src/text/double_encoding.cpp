// The letters are turned back into bytes of Windows-1252; where these are a letter of UTF-8 it is the one that is
// meant.

#include "text/double_encoding.h"

#include <algorithm>
#include <optional>
#include <set>

#include "text/utf_8.h"
#include "text/windows_1252.h"

namespace pedigreewatch {
namespace {

/// The byte of Windows-1252 that a letter is; nothing for a letter that is none. Control characters are the byte of
/// their number: programs that know Latin-1 alone make them.
std::optional<char> byte_of(char32_t letter) {
  if (letter < 0x80 || (letter > 0xFF && letter < 0x152)) return std::nullopt;
  if (letter <= 0xFF) return static_cast<char>(letter);
  for (int byte = 0x80; byte < 0xA0; ++byte) {
    if (letter_of_windows_1252(static_cast<char>(byte)) == letter) return static_cast<char>(byte);
  }
  return std::nullopt;
}

/// Letters of the Latin, Greek and Cyrillic alphabets, quotation marks, dashes and the like.
bool is_likely_meant(char32_t letter) {
  const bool is_latin = letter >= 0xA0 && letter < 0x180;
  const bool is_greek_or_cyrillic = letter >= 0x386 && letter < 0x460;
  const bool is_sign = letter >= 0x2010 && letter <= 0x20AC;
  return is_latin || is_greek_or_cyrillic || is_sign;
}

/// A letter that stands at the start of a text as two or three.
struct DoubledLetter {
  char32_t meant = 0;
  std::size_t length = 0;  ///< in bytes of the text; 0: there is none
  bool is_certain = false;
};

DoubledLetter doubled_letter_at(std::string_view text) {
  constexpr std::size_t most_letters = 3;
  constexpr char first_of_signs = '\xC2', first_of_latin = '\xC3';
  std::string bytes;
  std::string_view rest = text;
  while (!rest.empty() && bytes.size() < most_letters) {
    const std::optional<char> byte = byte_of(take_letter(rest));
    if (!byte) return {};
    bytes.push_back(*byte);
    if (letter_length(bytes) != bytes.size()) continue;
    std::string_view letter = bytes;
    const char32_t meant = take_letter(letter);
    if (!is_likely_meant(meant)) return {};
    const bool is_certain = bytes.front() == first_of_signs || bytes.front() == first_of_latin || bytes.size() > 2;
    return {meant, text.size() - rest.size(), is_certain};
  }
  return {};
}

/// Hands over each letter beyond ASCII with its place; doubled ones as one.
template <typename Take>
void for_each_letter(std::string_view text, Take&& take) {
  std::size_t place = 0;
  for (;;) {
    place += ascii_length(text.substr(place));
    if (place >= text.size()) return;
    const std::string_view rest = text.substr(place);
    const DoubledLetter doubled = doubled_letter_at(rest);
    const std::size_t length = doubled.length > 0 ? doubled.length : std::max<std::size_t>(letter_length(rest), 1);
    take(place, doubled, length);
    place += length;
  }
}

std::string_view word_around(std::string_view text, std::size_t place) {
  constexpr std::string_view ends = " ;,\t|\"\r\n";
  constexpr std::size_t most_bytes = 60;
  std::size_t first = text.find_last_of(ends, place);
  first = first == std::string_view::npos ? 0 : first + 1;
  if (place - first > most_bytes) first = place;
  const std::size_t last = std::min({text.find_first_of(ends, place), text.size(), place + most_bytes});
  return text.substr(first, last - first);
}

/// Keeps the word as an example, unless it is one already.
void note_word(std::vector<DoubledWord>& words, std::string_view text, std::size_t place) {
  constexpr std::size_t most_words = 2;
  if (words.size() == most_words) return;
  const std::string found(word_around(text, place));
  const bool is_known =
      std::any_of(words.begin(), words.end(), [&](const DoubledWord& word) { return word.found == found; });
  if (!is_known) words.push_back({place, found, without_doubled_letters(found)});
}

}  // namespace

DoubledLetters find_doubled_letters(std::string_view text) {
  DoubledLetters found;
  std::set<char32_t> different;
  for_each_letter(text, [&](std::size_t place, const DoubledLetter& doubled, std::size_t) {
    if (doubled.length == 0) {
      ++found.others;
      return;
    }
    ++found.doubled;
    if (different.size() < fewest_doubled_letters) different.insert(doubled.meant);
    found.are_certain = found.are_certain || doubled.is_certain || different.size() == fewest_doubled_letters;
    note_word(found.words, text, place);
  });
  return found;
}

std::string without_doubled_letters(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  std::size_t copied = 0;
  for_each_letter(text, [&](std::size_t place, const DoubledLetter& doubled, std::size_t length) {
    if (doubled.length == 0) return;
    result.append(text.substr(copied, place - copied));
    append_letter(result, doubled.meant);
    copied = place + length;
  });
  return result.append(text.substr(copied));
}

}  // namespace pedigreewatch
