#include "genetics/ancestor_pedigree.h"

namespace pedigreewatch {

ParentNumbers parent_numbers(const PopulationStore& store, const AncestorPedigree& ancestors, std::int32_t position) {
  const AnimalRecord& animal = store.at(position);
  const auto number_of = [&](std::int32_t parent) { return parent < position ? ancestors.number_at(parent) : 0; };
  return {number_of(animal.sire_no), number_of(animal.dam_no)};
}

AncestorPedigree make_ancestor_pedigree(const PopulationStore& store) {
  AncestorPedigree ancestors;
  ancestors.number_of_animal.reserve(store.animals.size());
  ancestors.position.push_back(0);
  ancestors.sire.push_back(0);
  ancestors.dam.push_back(0);
  for (std::int32_t position = 1; position <= store.animal_count; ++position) {
    if (store.at(position).offspring_count == 0) {
      ancestors.number_of_animal.push_back(0);
      continue;
    }
    const ParentNumbers parents = parent_numbers(store, ancestors, position);
    ancestors.number_of_animal.push_back(static_cast<std::int32_t>(ancestors.position.size()));
    ancestors.position.push_back(position);
    ancestors.sire.push_back(parents.sire);
    ancestors.dam.push_back(parents.dam);
  }
  return ancestors;
}

}  // namespace pedigreewatch
