// The pedigree of the animals with their ancestors, moved up by as many numbers as there are unknown parents to add.

#include "diversity/reference_pedigree.h"

#include "core/memory_hints.h"
#include "genetics/ancestor_pedigree.h"

namespace pedigreewatch {
namespace {

void add_number(ReferencePedigree& pedigree, std::int32_t position) {
  pedigree.position.values.push_back(position);
  for (ByNumber<std::int32_t>* const list : {&pedigree.sire, &pedigree.dam}) list->values.push_back(0);
  pedigree.own_variance.values.push_back(1.0);
}

bool is_half_founder(const AncestorPedigree& ancestors, std::int32_t ancestor) {
  return (ancestors.sire[ancestor] == 0) != (ancestors.dam[ancestor] == 0);
}

/// F of a parent; unknown ones are not inbred.
double inbreeding_of(const PopulationStore& store, std::int32_t parent) {
  return parent == 0 ? 0.0 : double{store.inbreeding[parent]};
}

/// Adds the animals behind the unknown parents, each with the numbers of its parents.
void add_animals(const PopulationStore& store, const AncestorPedigree& ancestors, ReferencePedigree& pedigree) {
  std::int32_t next_unknown = 0;
  for (std::int32_t j = 1; j <= ancestors.count(); ++j) {
    add_number(pedigree, ancestors.position[j]);
    const std::int32_t sire = ancestors.sire[j], dam = ancestors.dam[j];
    if (sire == 0 && dam == 0) continue;
    if (is_half_founder(ancestors, j)) ++next_unknown;
    pedigree.sire.values.back() = sire == 0 ? next_unknown : pedigree.unknown_parents + sire;
    pedigree.dam.values.back() = dam == 0 ? next_unknown : pedigree.unknown_parents + dam;
    const double parents_f =
        inbreeding_of(store, ancestors.position[sire]) + inbreeding_of(store, ancestors.position[dam]);
    pedigree.own_variance.values.back() = 0.5 - 0.25 * parents_f;
  }
}

void reserve_numbers(ReferencePedigree& pedigree, std::size_t count) {
  for (ByNumber<std::int32_t>* const list : {&pedigree.sire, &pedigree.dam, &pedigree.position}) {
    reserve_large(list->values, count);
  }
  reserve_large(pedigree.own_variance.values, count);
}

}  // namespace

ReferencePedigree make_reference_pedigree(const PopulationStore& store, std::span<const std::int32_t> positions) {
  ReferencePedigree pedigree;
  const AncestorPedigree ancestors = pedigree_of(store, positions);
  std::vector<std::int32_t> half_founders;
  for (std::int32_t j = 1; j <= ancestors.count(); ++j) {
    if (is_half_founder(ancestors, j)) half_founders.push_back(ancestors.position[j]);
  }
  reserve_numbers(pedigree, half_founders.size() + ancestors.position.values.size());
  add_number(pedigree, 0);
  for (const std::int32_t position : half_founders) add_number(pedigree, position);
  pedigree.unknown_parents = pedigree.count();
  add_animals(store, ancestors, pedigree);
  for (const std::int32_t position : positions) {
    pedigree.members.push_back(pedigree.unknown_parents + ancestors.number_of_animal[position]);
  }
  return pedigree;
}

}  // namespace pedigreewatch
