// A text of the program in its two languages. They stand side by side wherever they are declared, so that a
// proofreader can compare them; they are not always translations of each other, and that is wanted.
#pragma once

#include <string_view>

namespace pedigreewatch {

struct Wording {
  std::string_view english, dutch;

  constexpr std::string_view in(bool is_english) const { return is_english ? english : dutch; }
};

}  // namespace pedigreewatch
