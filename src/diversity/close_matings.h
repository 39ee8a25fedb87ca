// How near parents of an animal are related, by what is known of their own parents.
#pragma once

#include <cstddef>
#include <cstdint>

#include "genetics/ancestor_pedigree.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

/// The first that holds is the one.
enum class MatingKin : std::uint8_t {
  parent_offspring,  ///< also an animal with itself, which is nearer still
  full_sibs,         ///< both parents in common
  half_sibs,         ///< one parent in common
  cousins,  ///< a kinship of 1/16 or more by other ways: first cousins, uncle and niece, grandparent and grandchild
  distant,  ///< less than that
};
inline constexpr std::size_t close_matings = 4;  ///< all but the distant ones

/// Of two known parents; `inbreeding` is F of their offspring, which is their kinship.
MatingKin kin_of_mating(const PopulationStore& store, const KnownParents& parents, float inbreeding);

}  // namespace pedigreewatch
