#include "checks/line_list.h"

namespace pedigreewatch {

std::string list_lines(std::span<const std::int32_t> lines, std::size_t most_places, ToolLanguage language) {
  constexpr Wording further = {" and {1} more", " en nog {1}"};
  std::string text;
  std::size_t places = 0;
  for (std::size_t begin = 0; begin < lines.size(); ++places) {
    if (places == most_places) return text + phrase(further, language, {std::to_string(lines.size() - begin)});
    std::size_t last = begin;
    while (last + 1 < lines.size() && lines[last + 1] <= lines[last] + 1) ++last;
    if (!text.empty()) text += ", ";
    text += std::to_string(lines[begin]);
    if (lines[last] > lines[begin]) text += "-" + std::to_string(lines[last]);
    begin = last + 1;
  }
  return text;
}

}  // namespace pedigreewatch
