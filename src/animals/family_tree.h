// The ancestors of an animal by their places in its pedigree. One ancestor may stand in several of them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "pedigree/population_store.h"

namespace pedigreewatch {

/// Generations of ancestors in a tree.
inline constexpr std::size_t tree_generations = 5;

/// Places of a tree; place 0 is nobody's.
inline constexpr std::size_t tree_places = std::size_t{1} << (tree_generations + 1);

/// Place 1 is the animal itself; the sire of the animal at place k stands at place 2 k, its dam at 2 k + 1.
struct FamilyTree {
  std::array<std::int32_t, tree_places> positions = {};  ///< in the store; 0: unknown
  std::array<std::uint8_t, tree_places> times = {};      ///< in how many places the animal of this place stands
  /// Numbers from 1 on of the ancestors in which lines meet: those that stand in the tree through different offspring.
  /// Their own ancestors stand there repeatedly too, but tell nothing new. 0: none such.
  std::array<std::uint8_t, tree_places> meeting = {};
};

/// The tree of the animal at `position`. A parent that does not stand before its offspring counts as unknown.
FamilyTree family_tree_of(const PopulationStore& store, std::int32_t position);

/// Generations between the animal of a place and the animal that the tree is of.
std::size_t generation_of(std::size_t place);

}  // namespace pedigreewatch
