// Whether a data file was made of an export with corrections.
#pragma once

#include <cstdint>
#include <string>

#include "core/file_state.h"

namespace pedigreewatch {

/// How many corrections of the export are in the data file, as the steer file that was made with it tells. 0 where it
/// tells nothing, or the data file was changed since.
std::int64_t corrections_in_data(const std::string& steer_file, const FileState& data_file);

}  // namespace pedigreewatch
