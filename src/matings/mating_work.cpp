// Candidates mark their ancestors from the youngest to the oldest. Animals that nobody of them descends from are left
// out: a walk would not meet them anyway, and what it works on stays small.

#include "matings/mating_work.h"

#include <utility>
#include <vector>

#include "core/integers.h"
#include "diversity/reference_population.h"
#include "genetics/relationship_sums.h"

namespace pedigreewatch {
namespace {

/// The parents of an animal as far as they stand before it, the way the ancestor pedigree takes them.
struct Parents {
  std::int32_t sire = 0, dam = 0;
};

Parents parents_of(const PopulationStore& store, std::int32_t position) {
  const auto before = [&](std::int32_t parent) { return parent < position ? parent : 0; };
  return {before(store.sire_no[position]), before(store.dam_no[position])};
}

ByNumber<Flag> mark_with_ancestors(const PopulationStore& store, std::span<const std::int32_t> candidates) {
  ByNumber<Flag> is_wanted(store.size());
  for (const std::int32_t candidate : candidates) is_wanted[candidate] = 1;
  for (std::int32_t i = store.animal_count; i > 0; --i) {
    if (is_wanted[i] == 0) continue;
    const Parents parents = parents_of(store, i);
    is_wanted[parents.sire] = 1;
    is_wanted[parents.dam] = 1;
  }
  return is_wanted;
}

/// The within-family variance of an animal; an unknown parent counts as 1 more and has no F.
double variance_of(const PopulationStore& store, Parents parents) {
  const auto f_of = [&](std::int32_t parent) { return parent == 0 ? -1.0 : double{store.inbreeding[parent]}; };
  return (2.0 - f_of(parents.sire) - f_of(parents.dam)) * 0.25;
}

}  // namespace

ByNumber<double> mean_kinship_with(const PopulationStore& store, std::span<const std::int32_t> group) {
  ByNumber<double> sums;
  if (group.empty()) return sums;
  sums = ByNumber<double>(store.size(), 0.0);
  for (const std::int32_t position : group) sums[position] += 1.0;
  for (std::int32_t i = store.animal_count; i > 0; --i) {  // the genes that the group has from each animal
    const Parents parents = parents_of(store, i);
    sums[parents.sire] += 0.5 * sums[i];
    sums[parents.dam] += 0.5 * sums[i];
  }
  sums[0] = 0.0;
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {  // its relationship with the group
    const Parents parents = parents_of(store, i);
    sums[i] = sums[i] * variance_of(store, parents) + 0.5 * (sums[parents.sire] + sums[parents.dam]);
  }
  for (double& sum : sums.values) sum /= 2.0 * static_cast<double>(group.size());
  return sums;
}

MatingWork make_mating_work(const PopulationStore& store, std::span<const std::int32_t> candidates) {
  MatingWork work{store, make_ancestor_pedigree(store, mark_with_ancestors(store, candidates)), {}, {}};
  work.within_family_variance = std::move(make_relationship_work(store, work.ancestors).within_family_variance);
  work.mean_kinship = mean_kinship_with(store, youngest_animals(store).positions);
  return work;
}

AncestorWalk make_mating_walk(const MatingWork& work) {
  AncestorWalk walk = make_ancestor_walk(work.ancestors);
  for (std::int32_t j = 1; j <= work.ancestors.count(); ++j) {
    set_inbreeding(walk, j, work.store.inbreeding[work.ancestors.position[j]]);
  }
  return walk;
}

}  // namespace pedigreewatch
