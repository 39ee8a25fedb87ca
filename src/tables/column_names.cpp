// Letters are decoded first and written with plain ones where they have such a writing.

#include "tables/column_names.h"

#include <algorithm>

#include "checks/readable_text.h"
#include "intake/transliteration.h"
#include "intake/utf_8.h"

namespace pedigreewatch {
namespace {

constexpr char small(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

constexpr bool is_name_letter(char letter) {
  return (letter >= 'a' && letter <= 'z') || (letter >= '0' && letter <= '9');
}

std::string with_plain_letters(std::string_view bytes) {
  const std::string decoded = readable(bytes);
  std::string plain;
  for (std::string_view rest = decoded; !rest.empty();) {
    const char32_t letter = take_letter(rest);
    if (letter < 0x80) {
      plain += static_cast<char>(letter);
    } else {
      const std::string_view writing = transliterated(letter);
      plain += writing.empty() ? " " : writing;
    }
  }
  return plain;
}

}  // namespace

std::string name_part(std::string_view bytes) {
  std::string part;
  for (const char byte : with_plain_letters(bytes)) {
    const char letter = small(byte);
    if (is_name_letter(letter)) {
      part += letter;
    } else if (!part.empty() && part.back() != '_') {
      part += '_';
    }
  }
  if (!part.empty() && part.back() == '_') part.pop_back();
  return part;
}

std::string take_name(TakenNames& taken, const std::string& wanted) {
  std::string name = wanted;
  const auto is_new = [&] {
    std::string folded = name;
    std::transform(folded.begin(), folded.end(), folded.begin(), small);
    return taken.names.insert(folded).second;
  };
  for (int number = 2; !is_new(); ++number) name = wanted + "_" + std::to_string(number);
  return name;
}

}  // namespace pedigreewatch
