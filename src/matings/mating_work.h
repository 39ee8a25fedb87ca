// What the matings of some candidates are worked out with: the pedigree of the candidates and their ancestors, of whom
// a candidate without offspring is one like the others, and the mean kinship of every animal with the youngest ones.
#pragma once

#include <cstdint>
#include <span>

#include "core/by_number.h"
#include "genetics/ancestor_pedigree.h"
#include "genetics/ancestor_walk.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

/// The store stays where it is as long as this is in use.
struct MatingWork {
  const PopulationStore& store;
  AncestorPedigree ancestors;               ///< the candidates and everybody they descend from
  ByNumber<double> within_family_variance;  ///< by ancestor number
  ByNumber<double> mean_kinship;            ///< by position; empty when there are no youngest animals
};

/// Candidates are positions in the store. F of all animals must be final.
MatingWork make_mating_work(const PopulationStore& store, std::span<const std::int32_t> candidates);

/// A walk that knows F of all ancestors. It meets them in the order of the store, as that of a run does.
AncestorWalk make_mating_walk(const MatingWork& work);

/// The mean kinship of every animal, by position, with a group of animals, itself included where it is one of them; in
/// one upward and one downward pass (Colleau, 2002, Genet. Sel. Evol. 34: 409-421). Empty for an empty group.
ByNumber<double> mean_kinship_with(const PopulationStore& store, std::span<const std::int32_t> group);

}  // namespace pedigreewatch
