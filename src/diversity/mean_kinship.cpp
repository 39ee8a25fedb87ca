// With T the flow of genes from parents to offspring and D the own variances, the relationships are T D T'. The
// contributions are T' times the reference population; D and T are left to do.

#include "diversity/mean_kinship.h"

#include <algorithm>

#include "core/memory_hints.h"

namespace pedigreewatch {
namespace {

/// By number: the sum of the relationships with all animals of the reference population.
ByNumber<double> relationship_totals(const ReferencePedigree& pedigree, const ByNumber<double>& genes) {
  ByNumber<double> totals(static_cast<std::size_t>(pedigree.count()));
  constexpr std::int32_t ahead = static_cast<std::int32_t>(look_ahead);
  for (std::int32_t j = 1; j <= pedigree.count(); ++j) {
    if (pedigree.count() - j >= ahead) {
      fetch_early(&totals[pedigree.sire[j + ahead]]);
      fetch_early(&totals[pedigree.dam[j + ahead]]);
    }
    const double of_parents = 0.5 * (totals[pedigree.sire[j]] + totals[pedigree.dam[j]]);
    totals[j] = of_parents + pedigree.own_variance[j] * genes[j];
  }
  return totals;
}

}  // namespace

MeanKinship compute_mean_kinship(const ReferencePedigree& pedigree, const ByNumber<double>& genes) {
  MeanKinship result;
  if (pedigree.members.empty()) return result;
  const ByNumber<double> totals = relationship_totals(pedigree, genes);
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
