// The pedigree of the animals that have offspring, or of some animals and everybody they descend from. The walks and
// passes through the pedigree need no others: a quarter of a herdbook or less, in arrays without gaps.
#pragma once

#include <cstdint>
#include <span>

#include "core/by_number.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

/// Ancestors are numbered from 1 in store order, so that parents have smaller numbers than their offspring; 0 stands
/// for an unknown parent.
struct AncestorPedigree {
  ByNumber<std::int32_t> number_of_animal;  ///< by position: the animal's ancestor number, 0 for those left out
  ByNumber<std::int32_t> sire, dam;         ///< by ancestor number: the ancestor numbers of the parents
  ByNumber<std::int32_t> position;          ///< by ancestor number: position in the store

  std::int32_t count() const { return position.last(); }
};

/// Builds the pedigree from `sire_no`, `dam_no` and `is_parent`. A parent that does not stand before its
/// offspring, which only an unfinished sort can leave behind, is left out.
AncestorPedigree make_ancestor_pedigree(const PopulationStore& store);

/// The pedigree of the animals at `positions`, in any order and more than once if need be, and of everybody they
/// descend from; an animal among them that has no offspring is one like the others.
AncestorPedigree pedigree_of(const PopulationStore& store, std::span<const std::int32_t> positions);

/// The parents of the animal at `position` as positions, 0 for one that is unknown or does not stand before it.
struct KnownParents {
  std::int32_t sire = 0, dam = 0;
};
inline KnownParents known_parents(const PopulationStore& store, std::int32_t position) {
  const auto before = [&](std::int32_t parent) { return parent < position ? parent : 0; };
  return {before(store.sire_no[position]), before(store.dam_no[position])};
}

/// Parents of the animal at `position` as ancestor numbers, the way `make_ancestor_pedigree` takes them.
struct ParentNumbers {
  std::int32_t sire = 0, dam = 0;
};
inline ParentNumbers parent_numbers(const PopulationStore& store, const AncestorPedigree& ancestors,
                                    std::int32_t position) {
  const KnownParents parents = known_parents(store, position);
  return {ancestors.number_of_animal[parents.sire], ancestors.number_of_animal[parents.dam]};
}

/// F by ancestor number, 0 for the unknown parent: for passes that ask for it again and again.
ByNumber<float> inbreeding_of_ancestors(const PopulationStore& store, const AncestorPedigree& ancestors);

/// The part of an animal's variance that comes from neither parent: 1/2 - (Fs + Fd) / 4, and 1/4 more for each unknown
/// parent. F of the parents must be final.
inline double within_family_variance(ParentNumbers parents, double f_of_sire, double f_of_dam) {
  const int unknown_parents = (parents.sire == 0 ? 1 : 0) + (parents.dam == 0 ? 1 : 0);
  return (2.0 + unknown_parents - f_of_sire - f_of_dam) * 0.25;
}
/// `inbreeding` is that of `inbreeding_of_ancestors`.
inline double within_family_variance(const ByNumber<float>& inbreeding, ParentNumbers parents) {
  return within_family_variance(parents, double{inbreeding[parents.sire]}, double{inbreeding[parents.dam]});
}
inline double within_family_variance(const PopulationStore& store, const AncestorPedigree& ancestors,
                                     ParentNumbers parents) {
  const auto f_of = [&](std::int32_t number) {
    return number == 0 ? 0.0 : double{store.inbreeding[ancestors.position[number]]};
  };
  return within_family_variance(parents, f_of(parents.sire), f_of(parents.dam));
}

/// The same by ancestor number, of all ancestors.
ByNumber<double> within_family_variances(const PopulationStore& store, const AncestorPedigree& ancestors);

}  // namespace pedigreewatch
