// The list of animals that can still be bred from, as `prepare` writes it beside the data file: whoever lists animals
// to breed from takes only those.
#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "pedigree/available_animals.h"
#include "tools/folder_command.h"

namespace pedigreewatch {

/// The option with which all animals are taken.
inline constexpr std::string_view all_animals_option = "--all-animals";

/// Reads the list where it stands beside the data, and says so in a line. Refuses a list that cannot be read, or that
/// names no animal of the data.
std::optional<ToolRefusal> read_available(const FolderRun& run, AvailableAnimals& available);

/// Says how many animals of somebody's list are not available: they are taken all the same.
void say_unavailable(const FolderRun& run, const AvailableAnimals& available, std::span<const std::int32_t> positions,
                     std::string_view list);

}  // namespace pedigreewatch
