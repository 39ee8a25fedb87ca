// To which of the steer file's subpopulations each animal belongs.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "control/steer_settings.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

/// Names are numbered from 1 in the order of the steer file. A name that stands there twice is one group: its number
/// is the first one.
struct SubpopulationMembership {
  std::vector<std::int32_t> group_of_name;                ///< for each name its group
  std::vector<std::int32_t> group_of_animal;              ///< for each animal (position - 1) its group; 0 for none
  std::vector<std::vector<std::int32_t>> names_of_group;  ///< by group: all names that are this text; empty for others

  std::int32_t of_animal(std::int32_t position) const {
    return group_of_animal[static_cast<std::size_t>(position) - 1];
  }
  std::span<const std::int32_t> names_of(std::int32_t group) const {
    return names_of_group[static_cast<std::size_t>(group)];
  }
};

SubpopulationMembership find_membership(const PopulationStore& store, std::span<const SubpopulationName> names);

/// The positions of each group's animals, ascending; indexed by group, entry 0 stays empty.
std::vector<std::vector<std::int32_t>> animals_by_group(const SubpopulationMembership& membership);

}  // namespace pedigreewatch
