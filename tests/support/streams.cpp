#include "support/streams.h"

#include <gtest/gtest.h>

namespace pedigreewatch::test {

std::FILE* keyboard_with(const std::string& typed) {
  std::FILE* const keyboard = std::tmpfile();
  EXPECT_NE(keyboard, nullptr);
  std::fputs(typed.c_str(), keyboard);
  std::rewind(keyboard);
  return keyboard;
}

}  // namespace pedigreewatch::test
