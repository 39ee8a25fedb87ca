#include "diversity/mean_kinship.h"

#include <algorithm>

#include "genetics/mean_kinship.h"

namespace pedigreewatch {

MeanKinship compute_mean_kinship(const ReferencePedigree& pedigree, const ByNumber<double>& genes) {
  MeanKinship result;
  if (pedigree.members.empty()) return result;
  const ByNumber<double> totals = weighted_relationships(pedigree.sire, pedigree.dam, pedigree.own_variance, genes);
  const double animals = static_cast<double>(pedigree.members.size());
  double sum = 0.0;
  result.of_members.reserve(pedigree.members.size());
  for (const std::int32_t member : pedigree.members) {
    const double kinship = 0.5 * totals[member] / animals;  // half of the relationship
    result.of_members.push_back(kinship);
    sum += kinship;
  }
  const auto [lowest, highest] = std::minmax_element(result.of_members.begin(), result.of_members.end());
  result.lowest = *lowest;
  result.highest = *highest;
  result.mean = sum / animals;
  result.founder_genomes = 0.5 / *result.mean;  // above 0: each animal is related to itself
  return result;
}

}  // namespace pedigreewatch
