// `pedigreewatch-tools animal`: everything that is known of one animal, as a page.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "core/tool_streams.h"

namespace pedigreewatch {

std::string_view animal_help();

/// `arguments` are those behind "animal". Yields the exit status.
int run_animal(std::span<const std::string_view> arguments, ToolStreams& streams);

/// What of a file's name stands for an identification: letters, digits, "." and "-" as they are, every other byte of
/// its UTF-8 as "=" and two hexadecimal digits, so that different identifications have different names, and none leads
/// out of its folder. One that would give the name of another output begins with such a pair.
std::string file_name_part(std::string_view id);

}  // namespace pedigreewatch
