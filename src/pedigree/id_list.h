// Lists by which animals are named: an identification a line, or a line that begins with one. Files, or texts that were
// typed.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "pedigree/listed_id.h"

namespace pedigreewatch {

enum class IdListFault : std::uint8_t {
  none,
  not_opened,
  no_text,   ///< neither UTF-8 nor Windows-1252: it holds a byte 0, or begins with the mark of UTF-16
  too_long,  ///< more identifications than can be taken
  not_read,  ///< reading failed before its end
};

struct IdList {
  std::vector<ListedId> ids;  ///< as they stand; blank lines are left out
  IdListFault fault = IdListFault::none;
  int error = 0;  ///< errno, where opening or reading failed
};

/// Reads the list up to the first thing that is wrong with it.
IdList read_id_list(const std::string& file, std::size_t most_ids);

/// The same of a text.
IdList id_list_of_text(std::string_view text, std::size_t most_ids);

}  // namespace pedigreewatch
