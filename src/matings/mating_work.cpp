#include "matings/mating_work.h"

#include <vector>

#include "diversity/reference_population.h"
#include "genetics/mean_kinship.h"

namespace pedigreewatch {

MatingWork make_mating_work(const PopulationStore& store, std::span<const std::int32_t> candidates) {
  const std::vector<std::int32_t> youngest = youngest_animals(store).positions;
  std::vector<std::int32_t> animals(candidates.begin(), candidates.end());
  animals.insert(animals.end(), youngest.begin(), youngest.end());
  MatingWork work{store, pedigree_of(store, animals), {}, {}};
  work.within_family_variance = within_family_variances(store, work.ancestors);
  work.mean_kinship = mean_kinship_with(store, work.ancestors, youngest);
  return work;
}

std::optional<double> mean_kinship_of(const MatingWork& work, std::int32_t position) {
  if (work.mean_kinship.values.empty()) return std::nullopt;
  return work.mean_kinship[work.ancestors.number_of_animal[position]];
}

AncestorWalk make_mating_walk(const MatingWork& work) {
  AncestorWalk walk = make_ancestor_walk(work.ancestors);
  for (std::int32_t j = 1; j <= work.ancestors.count(); ++j) {
    set_inbreeding(walk, j, work.store.inbreeding[work.ancestors.position[j]]);
  }
  return walk;
}

}  // namespace pedigreewatch
