#include "text/counted.h"

#include <vector>

namespace pedigreewatch {

std::string counted(const Counted& thing, std::int64_t count, ToolLanguage language,
                    std::initializer_list<std::string_view> values) {
  const std::string number = std::to_string(count);
  std::vector<std::string_view> places = {number};
  places.insert(places.end(), values);
  return phrase(count == 1 ? thing.one : thing.many, language, places);
}

std::string range_text(std::int64_t first, std::int64_t last, ToolLanguage language) {
  constexpr Wording range = {"{1} to {2}", "{1} tot en met {2}"};
  if (first == last) return std::to_string(first);
  return phrase(range, language, {std::to_string(first), std::to_string(last)});
}

}  // namespace pedigreewatch
