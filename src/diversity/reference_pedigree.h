// The pedigree of the reference population: its animals, all their ancestors, and an unknown parent of its own for
// each animal with exactly one known parent. Every animal in it has two parents or none, so that the passes of the
// diversity figures need no cases.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "core/by_number.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

/// Numbered from 1: first the unknown parents of the half-founders, then the animals in store order, so that parents
/// have smaller numbers than their offspring. 0 stands for the parents of a founder.
struct ReferencePedigree {
  std::int32_t unknown_parents = 0;   ///< the numbers up to this one belong to unknown parents
  ByNumber<std::int32_t> sire, dam;   ///< both 0 for founders and unknown parents, both known for all others
  ByNumber<std::int32_t> position;    ///< in the store; of the half-founder for an unknown parent
  ByNumber<double> own_variance;      ///< of what comes from neither parent: 1 for founders, else 1/2 - (Fs + Fd) / 4
  std::vector<std::int32_t> members;  ///< numbers of the reference population, ascending

  std::int32_t count() const { return position.last(); }
  bool is_unknown_parent(std::int32_t number) const { return number <= unknown_parents; }
  bool is_founder(std::int32_t number) const { return sire[number] == 0; }
};

/// Builds the pedigree of the animals at `positions` (ascending, each once). F of all animals must be final. A parent
/// that does not stand before its offspring, which only an unfinished sort can leave behind, counts as unknown.
ReferencePedigree make_reference_pedigree(const PopulationStore& store, std::span<const std::int32_t> positions);

}  // namespace pedigreewatch
