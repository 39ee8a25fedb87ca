// Things by their number, and ranges: what a sentence needs where there may be one of them only.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "text/phrases.h"

namespace pedigreewatch {

/// A thing by its number: "1 animal", "{1} animals".
struct Counted {
  Wording one, many;
};

/// The wording of this number, which {1} stands for; {2}, {3}, ... are the values behind it.
std::string counted(const Counted& thing, std::int64_t count, ToolLanguage language,
                    std::initializer_list<std::string_view> values = {});

/// "2012 to 2021", and where both ends are one "2021": years, ages, numbers. In Dutch "2012 tot en met 2021".
std::string range_text(std::int64_t first, std::int64_t last, ToolLanguage language);

}  // namespace pedigreewatch
