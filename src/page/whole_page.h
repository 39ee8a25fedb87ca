// What stands around the contents of a page: its head with style, script and policy, its title, and its foot.
#pragma once

#include <string>
#include <string_view>

#include "text/phrases.h"

namespace pedigreewatch {

/// A page for browsers, complete in one file. `body` is HTML; `title` and `footer` are texts.
std::string whole_page(ToolLanguage language, std::string_view title, std::string_view body, std::string_view footer);

}  // namespace pedigreewatch
