#include "diversity/mean_kinship.h"

#include <algorithm>

#include "genetics/mean_kinship.h"

namespace pedigreewatch {

MeanKinship compute_mean_kinship(const PopulationStore& store, const ReferencePedigree& pedigree,
                                 const ByNumber<double>& genes) {
  MeanKinship result;
  if (pedigree.members.empty()) return result;
  const ByNumber<double> totals = weighted_relationships(pedigree.sire, pedigree.dam, pedigree.own_variance, genes);
  const double animals = static_cast<double>(pedigree.members.size());
  double sum = 0.0, with_themselves = 0.0;
  result.of_members.reserve(pedigree.members.size());
  for (const std::int32_t member : pedigree.members) {
    const double kinship = 0.5 * totals[member] / animals;  // half of the relationship
    result.of_members.push_back(kinship);
    sum += kinship;
    with_themselves += 0.5 * (1.0 + double{store.inbreeding[pedigree.position[member]]});
  }
  const auto lowest = std::min_element(result.of_members.begin(), result.of_members.end());
  const auto highest = std::max_element(result.of_members.begin(), result.of_members.end());
  result.lowest = *lowest;
  result.highest = *highest;
  result.lowest_place = static_cast<std::size_t>(lowest - result.of_members.begin());
  result.highest_place = static_cast<std::size_t>(highest - result.of_members.begin());
  result.mean = sum / animals;
  if (animals > 1.0) {
    result.without_self = std::max(0.0, (sum * animals - with_themselves) / (animals * (animals - 1.0)));
  }
  result.founder_genomes = 0.5 / *result.mean;  // above 0: each animal is related to itself
  return result;
}

}  // namespace pedigreewatch
