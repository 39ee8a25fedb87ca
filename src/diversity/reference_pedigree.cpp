// Two passes: from the youngest animal up, what is wanted is marked; from the oldest down, it is numbered.

#include "diversity/reference_pedigree.h"

#include "core/memory_hints.h"

namespace pedigreewatch {
namespace {

struct KnownParents {
  std::int32_t sire = 0, dam = 0;  ///< positions
};

KnownParents known_parents(const PopulationStore& store, std::int32_t position) {
  const auto earlier = [&](std::int32_t parent) { return parent > 0 && parent < position ? parent : 0; };
  return {earlier(store.sire_no[position]), earlier(store.dam_no[position])};
}

bool is_half_founder(const KnownParents& parents) {
  return (parents.sire == 0) != (parents.dam == 0);
}

/// By position: whether it belongs to the animals or is an ancestor of one. Entry 0 is marked by those without a
/// parent.
ByNumber<Flag> mark_ancestors(const PopulationStore& store, std::span<const std::int32_t> positions) {
  ByNumber<Flag> marks(store.size());
  for (const std::int32_t position : positions) marks[position] = 1;
  for (std::int32_t position = positions.empty() ? 0 : positions.back(); position > 0; --position) {
    if (marks[position] == 0) continue;
    const KnownParents parents = known_parents(store, position);
    marks[parents.sire] = marks[parents.dam] = 1;
  }
  marks[0] = 0;
  return marks;
}

void add_number(ReferencePedigree& pedigree, std::int32_t position) {
  pedigree.position.values.push_back(position);
  for (ByNumber<std::int32_t>* const list : {&pedigree.sire, &pedigree.dam}) list->values.push_back(0);
  pedigree.own_variance.values.push_back(1.0);
}

/// F of a parent; unknown ones are not inbred.
double inbreeding_of(const PopulationStore& store, std::int32_t parent) {
  return parent == 0 ? 0.0 : double{store.inbreeding[parent]};
}

/// Adds all animals that are marked, with the numbers of their parents; yields the numbers by position.
ByNumber<std::int32_t> number_animals(const PopulationStore& store, const ByNumber<Flag>& marks,
                                      ReferencePedigree& pedigree) {
  ByNumber<std::int32_t> number_of(store.size());
  std::int32_t next_unknown = 0;
  for (std::int32_t position = 1; position <= store.animal_count; ++position) {
    if (marks[position] == 0) continue;
    add_number(pedigree, position);
    number_of[position] = pedigree.count();
    const KnownParents parents = known_parents(store, position);
    if (parents.sire == 0 && parents.dam == 0) continue;
    if (is_half_founder(parents)) ++next_unknown;
    pedigree.sire.values.back() = parents.sire == 0 ? next_unknown : number_of[parents.sire];
    pedigree.dam.values.back() = parents.dam == 0 ? next_unknown : number_of[parents.dam];
    const double parents_f = inbreeding_of(store, parents.sire) + inbreeding_of(store, parents.dam);
    pedigree.own_variance.values.back() = 0.5 - 0.25 * parents_f;
  }
  return number_of;
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
  const ByNumber<Flag> marks = mark_ancestors(store, positions);
  std::vector<std::int32_t> half_founders;
  std::size_t animals = 0;
  for (std::int32_t position = 1; position <= store.animal_count; ++position) {
    if (marks[position] == 0) continue;
    ++animals;
    if (is_half_founder(known_parents(store, position))) half_founders.push_back(position);
  }
  reserve_numbers(pedigree, 1 + half_founders.size() + animals);
  add_number(pedigree, 0);
  for (const std::int32_t position : half_founders) add_number(pedigree, position);
  pedigree.unknown_parents = pedigree.count();
  const ByNumber<std::int32_t> number_of = number_animals(store, marks, pedigree);
  for (const std::int32_t position : positions) pedigree.members.push_back(number_of[position]);
  return pedigree;
}

}  // namespace pedigreewatch
