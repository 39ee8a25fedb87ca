// The pedigree of the animals that have offspring. Only they can be anybody's ancestors, so that the walks through
// the pedigree need no others: a quarter of a herdbook or less, in arrays without gaps.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "pedigree/population_store.h"

namespace pedigreewatch {

/// Ancestors are numbered from 1 in store order, so that parents have smaller numbers than their offspring; 0 stands
/// for an unknown parent. All lists but the first are indexed by ancestor number and have an entry 0.
struct AncestorPedigree {
  std::vector<std::int32_t> number_of_animal;  ///< by position - 1: the animal's ancestor number, 0 without offspring
  std::vector<std::int32_t> sire, dam;         ///< ancestor numbers of the parents
  std::vector<std::int32_t> position;          ///< position in the store

  std::int32_t count() const { return static_cast<std::int32_t>(position.size()) - 1; }
  /// The ancestor number of the animal at a position; 0 for position 0.
  std::int32_t number_at(std::int32_t animal_position) const {
    return animal_position == 0 ? 0 : number_of_animal[static_cast<std::size_t>(animal_position) - 1];
  }
};

/// Builds the pedigree from `sire_no`, `dam_no` and `offspring_count`. A parent that does not stand before its
/// offspring, which only an unfinished sort can leave behind, is left out.
AncestorPedigree make_ancestor_pedigree(const PopulationStore& store);

/// Parents of the animal at `position` as ancestor numbers, the way `make_ancestor_pedigree` takes them.
struct ParentNumbers {
  std::int32_t sire = 0, dam = 0;
};
ParentNumbers parent_numbers(const PopulationStore& store, const AncestorPedigree& ancestors, std::int32_t position);

}  // namespace pedigreewatch
