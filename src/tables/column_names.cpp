// Letters are decoded first and written with plain ones where they have such a writing.

#include "tables/column_names.h"

#include <algorithm>

#include "checks/readable_text.h"
#include "text/transliteration.h"
#include "text/utf_8.h"

namespace pedigreewatch {
namespace {

constexpr char small(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

constexpr bool is_name_letter(char letter) {
  return (letter >= 'a' && letter <= 'z') || (letter >= '0' && letter <= '9');
}

std::string folded(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), small);
  return text;
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
  const auto is_new = [&](const std::string& name) { return taken.names.insert(folded(name)).second; };
  if (is_new(wanted)) return wanted;
  int& number = taken.last_numbers.try_emplace(folded(wanted), 1).first->second;
  std::string name;
  do {
    name = wanted + "_" + std::to_string(++number);
  } while (!is_new(name));
  return name;
}

}  // namespace pedigreewatch
