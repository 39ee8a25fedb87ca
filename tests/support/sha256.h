// The hash that a content security policy names inline styles and scripts by.
#pragma once

#include <string>
#include <string_view>

namespace pedigreewatch::test {

/// SHA-256 (FIPS 180-4) of the bytes, in base64.
std::string sha256_in_base64(std::string_view bytes);

}  // namespace pedigreewatch::test
