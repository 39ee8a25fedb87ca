// The pedigree of the animals that have offspring. Only they can be anybody's ancestors, so that the walks through
// the pedigree need no others: a quarter of a herdbook or less, in arrays without gaps.
#pragma once

#include <cstdint>

#include "core/by_number.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

/// Ancestors are numbered from 1 in store order, so that parents have smaller numbers than their offspring; 0 stands
/// for an unknown parent.
struct AncestorPedigree {
  ByNumber<std::int32_t> number_of_animal;  ///< by position: the animal's ancestor number, 0 without offspring
  ByNumber<std::int32_t> sire, dam;         ///< by ancestor number: the ancestor numbers of the parents
  ByNumber<std::int32_t> position;          ///< by ancestor number: position in the store

  std::int32_t count() const { return position.last(); }
};

/// Builds the pedigree from `sire_no`, `dam_no` and `is_parent`. A parent that does not stand before its
/// offspring, which only an unfinished sort can leave behind, is left out.
AncestorPedigree make_ancestor_pedigree(const PopulationStore& store);

/// The same of the animals that are wanted, by position. Every parent of a wanted animal that stands before it must be
/// wanted too.
AncestorPedigree make_ancestor_pedigree(const PopulationStore& store, const ByNumber<Flag>& is_wanted);

/// Parents of the animal at `position` as ancestor numbers, the way `make_ancestor_pedigree` takes them.
struct ParentNumbers {
  std::int32_t sire = 0, dam = 0;
};
ParentNumbers parent_numbers(const PopulationStore& store, const AncestorPedigree& ancestors, std::int32_t position);

}  // namespace pedigreewatch
