// One pass in store order: a parent has its number before its first offspring is met. Ancestors of some animals are
// marked before, from the youngest animal to the oldest.

#include "genetics/ancestor_pedigree.h"

namespace pedigreewatch {
namespace {

/// By position: whether it is one of the animals or an ancestor of one.
ByNumber<Flag> mark_with_ancestors(const PopulationStore& store, std::span<const std::int32_t> positions) {
  ByNumber<Flag> is_wanted(store.size());
  for (const std::int32_t position : positions) is_wanted[position] = 1;
  for (std::int32_t position = store.animal_count; position > 0; --position) {
    if (is_wanted[position] == 0) continue;
    const KnownParents parents = known_parents(store, position);
    is_wanted[parents.sire] = is_wanted[parents.dam] = 1;  // entry 0 is nobody's
  }
  return is_wanted;
}

/// Every parent of a wanted animal that stands before it must be wanted too.
AncestorPedigree number_wanted(const PopulationStore& store, const ByNumber<Flag>& is_wanted) {
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

}  // namespace

AncestorPedigree make_ancestor_pedigree(const PopulationStore& store) {
  return number_wanted(store, store.is_parent);
}

AncestorPedigree pedigree_of(const PopulationStore& store, std::span<const std::int32_t> positions) {
  return number_wanted(store, mark_with_ancestors(store, positions));
}

ByNumber<float> inbreeding_of_ancestors(const PopulationStore& store, const AncestorPedigree& ancestors) {
  ByNumber<float> inbreeding(ancestors.count());
  for (std::int32_t j = 1; j <= ancestors.count(); ++j) inbreeding[j] = store.inbreeding[ancestors.position[j]];
  return inbreeding;
}

ByNumber<double> within_family_variances(const PopulationStore& store, const AncestorPedigree& ancestors) {
  ByNumber<double> variances;
  variances.values.reserve(ancestors.position.values.size());
  for (std::int32_t j = 0; j <= ancestors.count(); ++j) {
    variances.values.push_back(within_family_variance(store, ancestors, {ancestors.sire[j], ancestors.dam[j]}));
  }
  return variances;
}

}  // namespace pedigreewatch
