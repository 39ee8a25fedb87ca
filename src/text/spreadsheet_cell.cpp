#include "text/spreadsheet_cell.h"

#include <algorithm>

namespace pedigreewatch {
namespace {

/// Takes the digits at the start off `rest`; false without any.
bool take_digits(std::string_view& rest) {
  const auto* const end =
      std::find_if(rest.begin(), rest.end(), [](char letter) { return letter < '0' || letter > '9'; });
  const auto count = static_cast<std::size_t>(end - rest.begin());
  rest.remove_prefix(count);
  return count > 0;
}

/// Takes one of the letters off `rest`; false when there is none.
bool take_one_of(std::string_view& rest, std::string_view letters) {
  if (rest.empty() || letters.find(rest.front()) == std::string_view::npos) return false;
  rest.remove_prefix(1);
  return true;
}

bool is_number(std::string_view text) {
  take_one_of(text, "+-");
  if (!take_digits(text)) return false;
  if (take_one_of(text, ".,") && !take_digits(text)) return false;
  if (take_one_of(text, "eE")) {
    take_one_of(text, "+-");
    if (!take_digits(text)) return false;
  }
  return text.empty();
}

}  // namespace

bool begins_a_formula(std::string_view text) {
  if (text.empty()) return false;
  switch (text.front()) {
    case '=':
    case '+':
    case '-':
    case '@':
    case '\t':
    case '\r': return !is_number(text);
    default: return false;  // nearly all texts
  }
}

std::string as_text_cell(std::string_view text) {
  return (begins_a_formula(text) ? "'" : "") + std::string(text);
}

}  // namespace pedigreewatch
