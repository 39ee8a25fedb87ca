#include "text/search_text.h"

#include "text/transliteration.h"
#include "text/utf_8.h"

namespace pedigreewatch {
namespace {

char small_letter(char letter) {
  if (letter == '`') return '\'';
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

std::string_view plain_writing(char32_t letter) {
  const std::string_view sign = plain_sign(letter);
  return sign.empty() ? transliterated(letter) : sign;
}

}  // namespace

void fold_for_search(std::string& folded, std::string_view text) {
  constexpr char32_t first_accent = 0x300, last_accent = 0x36F;  // they stand behind their letter
  folded.clear();
  while (!text.empty()) {
    const char32_t letter = take_letter(text);
    if (letter < 0x80) {
      folded += small_letter(static_cast<char>(letter));
    } else if (letter < first_accent || letter > last_accent) {
      const std::string_view plain = plain_writing(letter);
      if (plain.empty()) append_letter(folded, letter);
      for (const char one : plain) folded += small_letter(one);
    }
  }
}

}  // namespace pedigreewatch
