// Fills the places of a wording, and makes texts of the input fit to be shown.

#include "text/phrases.h"

#include <algorithm>

#include "text/utf_8.h"

namespace pedigreewatch {
namespace {

/// At most so many letters of a text, with dots for what a terminal would act on.
std::string with_dots(std::string_view text, std::size_t most_letters) {
  std::string result;
  for (std::size_t count = 0; !text.empty(); ++count) {
    if (count == most_letters) return result + "...";
    const char32_t letter = take_letter(text);
    const bool is_control = letter < 0x20 || (letter >= 0x7F && letter < 0xA0);
    // Between these stand quotation marks and dashes.
    const bool changes_direction = (letter >= 0x200B && letter <= 0x200F) || (letter >= 0x2028 && letter <= 0x202E);
    append_letter(result, is_control || changes_direction ? U'.' : letter);
  }
  return result;
}

}  // namespace

std::string phrase(const Wording& wording, ToolLanguage language, std::initializer_list<std::string_view> values) {
  return phrase(wording, language, std::span<const std::string_view>(values.begin(), values.size()));
}

std::string phrase(const Wording& wording, ToolLanguage language, std::span<const std::string_view> values) {
  std::string_view rest = words_of(wording, language);
  std::string result;
  for (std::size_t brace = rest.find('{'); brace != std::string_view::npos; brace = rest.find('{')) {
    result.append(rest.substr(0, brace));
    rest.remove_prefix(brace);
    const std::size_t place = rest.size() > 2 && rest[1] >= '1' ? static_cast<std::size_t>(rest[1] - '1') : SIZE_MAX;
    const bool is_place = place < values.size() && rest[2] == '}';
    result.append(is_place ? values[place] : rest.substr(0, 1));
    rest.remove_prefix(is_place ? 3 : 1);
  }
  return result.append(rest);
}

std::string shown(std::string_view text) {
  constexpr std::size_t most_letters = 60;
  return with_dots(text, most_letters);
}

std::string shown_whole(std::string_view text) {
  return with_dots(text, text.size());
}

std::string in_quotes(std::string_view text) {
  return "\"" + shown(text) + "\"";
}

}  // namespace pedigreewatch
