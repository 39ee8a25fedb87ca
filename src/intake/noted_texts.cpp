#include "intake/noted_texts.h"

namespace pedigreewatch {

void note_text(NotedTexts& noted, std::int64_t line, std::string_view text, std::size_t most) {
  ++noted.count;
  if (noted.first.size() < most) noted.first.push_back({line, std::string(text)});
}

}  // namespace pedigreewatch
