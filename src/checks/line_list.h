// The lines of several animals in few words: "3, 5, 8-12 and 40 more".
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "text/phrases.h"

namespace pedigreewatch {

/// How many places, single lines or stretches of them, a sentence names; a table names all.
inline constexpr std::size_t few_places = 12, all_places = SIZE_MAX;

/// The lines, which are in order; lines that follow each other as a stretch. Beyond `most_places` places only the
/// number of further lines is told.
std::string list_lines(std::span<const std::int32_t> lines, std::size_t most_places, ToolLanguage language);

}  // namespace pedigreewatch
