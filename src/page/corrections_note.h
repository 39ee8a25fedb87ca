// What stands at the head of results that are not those of the export as it is.
#pragma once

#include <cstdint>
#include <string>

#include "text/phrases.h"

namespace pedigreewatch {

/// A paragraph that tells how many corrections of the export the results contain; nothing where they contain none.
std::string corrections_note(std::int64_t corrections, ToolLanguage language);

}  // namespace pedigreewatch
