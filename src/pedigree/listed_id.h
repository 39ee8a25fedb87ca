// An identification in a list by which somebody names animals.
#pragma once

#include <cstdint>
#include <string>

namespace pedigreewatch {

struct ListedId {
  std::int64_t line = 0;  ///< of the list, counted from 1
  std::string id;         ///< as the line has it, also blanks around it
};

}  // namespace pedigreewatch
