// How many corrections of the export are in a data file, so that results can say so. It is told by the last line of the
// steer file that was made with it, behind all that a run reads, and goes where that goes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "text/phrases.h"

namespace pedigreewatch {

/// The line, with its end; empty without corrections. The length of the data file tells it from any other one.
std::string corrections_line(std::int64_t corrections, std::int64_t data_bytes);

/// What the lines of a steer file tell of a data file of this length: 0 when they tell nothing of it.
std::int64_t corrections_told(std::span<const std::string> steer_lines, std::int64_t data_bytes);

/// The place in them of the line that tells of corrections, of whichever data file; their number when the last one that
/// is not blank is no such line.
std::size_t place_of_corrections_line(std::span<const std::string> steer_lines);

/// What results that contain corrections say at their head.
std::string contained_corrections(std::int64_t corrections, ToolLanguage language);

/// The last column of tables that contain corrections.
inline constexpr std::string_view corrections_column = "corrections_in_data";

}  // namespace pedigreewatch
