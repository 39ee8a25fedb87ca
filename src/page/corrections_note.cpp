#include "page/corrections_note.h"

#include "corrections/contained_corrections.h"
#include "page/page_text.h"

namespace pedigreewatch {

std::string corrections_note(std::int64_t corrections, ToolLanguage language) {
  if (corrections == 0) return {};
  return "<p><strong>" + escaped(contained_corrections(corrections, language)) + "</strong></p>\n";
}

}  // namespace pedigreewatch
