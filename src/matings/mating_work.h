// What the matings of some candidates are worked out with: the pedigree of the candidates, the youngest animals and
// their ancestors, of whom a candidate without offspring is one like the others, and their mean kinship with the
// youngest ones.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "core/by_number.h"
#include "genetics/ancestor_pedigree.h"
#include "genetics/ancestor_walk.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

/// The store stays where it is as long as this is in use.
struct MatingWork {
  const PopulationStore& store;
  AncestorPedigree ancestors;               ///< the candidates, the youngest animals and all they descend from
  ByNumber<double> within_family_variance;  ///< by ancestor number
  ByNumber<double> mean_kinship;            ///< with the youngest animals, by ancestor number; empty without any
};

/// Candidates are positions in the store. F of all animals must be final.
MatingWork make_mating_work(const PopulationStore& store, std::span<const std::int32_t> candidates);

/// A walk that knows F of all ancestors. It meets them in the order of the store, as that of a run does.
AncestorWalk make_mating_walk(const MatingWork& work);

/// The mean kinship of a candidate with the youngest animals, itself included where it is one of them; none when there
/// are no youngest animals.
std::optional<double> mean_kinship_of(const MatingWork& work, std::int32_t position);

}  // namespace pedigreewatch
