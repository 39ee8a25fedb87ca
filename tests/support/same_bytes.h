// Comparing whole files, so that a difference shows where it is.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace pedigreewatch::test {

/// Whether two texts are the same; if not, the answer shows the first line of `what` that differs, every byte visible.
testing::AssertionResult same_bytes(const std::string& what, std::string_view expected, std::string_view got);

}  // namespace pedigreewatch::test
