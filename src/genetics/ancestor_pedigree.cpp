// One pass in store order: a parent has its number before its first offspring is met.

#include "genetics/ancestor_pedigree.h"

namespace pedigreewatch {

ParentNumbers parent_numbers(const PopulationStore& store, const AncestorPedigree& ancestors, std::int32_t position) {
  const auto number_of = [&](std::int32_t parent) {
    return parent < position ? ancestors.number_of_animal[parent] : 0;
  };
  return {number_of(store.sire_no[position]), number_of(store.dam_no[position])};
}

AncestorPedigree make_ancestor_pedigree(const PopulationStore& store) {
  return make_ancestor_pedigree(store, store.is_parent);
}

AncestorPedigree make_ancestor_pedigree(const PopulationStore& store, const ByNumber<Flag>& is_wanted) {
  AncestorPedigree ancestors;
  ancestors.number_of_animal = ByNumber<std::int32_t>(store.size());
  for (ByNumber<std::int32_t>* list : {&ancestors.position, &ancestors.sire, &ancestors.dam}) list->values.push_back(0);
  for (std::int32_t position = 1; position <= store.animal_count; ++position) {
    if (is_wanted[position] == 0) continue;
    const ParentNumbers parents = parent_numbers(store, ancestors, position);
    ancestors.position.values.push_back(position);
    ancestors.sire.values.push_back(parents.sire);
    ancestors.dam.values.push_back(parents.dam);
    ancestors.number_of_animal[position] = ancestors.count();
  }
  return ancestors;
}

}  // namespace pedigreewatch
