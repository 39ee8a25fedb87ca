// Folds words letter by letter.

#include "text/folded_words.h"

#include <algorithm>

#include "text/transliteration.h"
#include "text/utf_8.h"

namespace pedigreewatch {
namespace {

void append_folded(std::string& result, char letter) {
  if (letter >= 'A' && letter <= 'Z') {
    result.push_back(static_cast<char>(letter - 'A' + 'a'));
  } else if ((letter >= 'a' && letter <= 'z') || (letter >= '0' && letter <= '9')) {
    result.push_back(letter);
  }
}

}  // namespace

std::string folded(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    const char32_t letter = take_letter(text);
    if (letter < 0x80) {
      append_folded(result, static_cast<char>(letter));
    } else {
      for (const char plain : transliterated(letter)) append_folded(result, plain);
    }
  }
  return result;
}

bool is_among(std::string_view word, std::span<const std::string_view> words) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

bool is_among(std::string_view word, std::span<const std::string> words) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

}  // namespace pedigreewatch
