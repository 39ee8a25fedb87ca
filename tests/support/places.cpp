#include "support/places.h"

namespace pedigreewatch::test {

std::string program_path() {
  return PROGRAM_PATH;
}

std::string tools_path() {
  return TOOLS_PATH;
}

std::string program_version() {
  return PROGRAM_VERSION;
}

std::string golden_folder() {
  return SOURCE_FOLDER "/tests/golden";
}

std::string golden_tools_folder() {
  return SOURCE_FOLDER "/tests/golden_tools";
}

std::string source_folder() {
  return SOURCE_FOLDER;
}

}  // namespace pedigreewatch::test
