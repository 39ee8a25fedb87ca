// Style and script of the page, with what the content security policy must say of them.
#pragma once

#include <string>
#include <string_view>

namespace pedigreewatch {

/// The policy: no network, and of style and script only the two of this page, which their hashes name.
std::string content_security_policy();

/// The hash of the style, as a policy names it.
std::string_view page_style_hash();

}  // namespace pedigreewatch
