#include "genetics/mean_kinship.h"

#include <utility>

#include "core/memory_hints.h"

namespace pedigreewatch {
namespace {}  // namespace

ByNumber<double> gene_contributions(const ByNumber<std::int32_t>& sire, const ByNumber<std::int32_t>& dam,
                                    ByNumber<double> weights) {
  for (std::int32_t j = weights.last(); j > 0; --j) {
    if (j > look_ahead) {
      fetch_early(&weights[sire[j - look_ahead]]);
      fetch_early(&weights[dam[j - look_ahead]]);
    }
    const double half = 0.5 * weights[j];
    weights[sire[j]] += half;
    weights[dam[j]] += half;
  }
  weights[0] = 0.0;  // what the founders handed on is nobody's
  return weights;
}

ByNumber<double> weighted_relationships(const ByNumber<std::int32_t>& sire, const ByNumber<std::int32_t>& dam,
                                        const ByNumber<double>& within_family_variance, ByNumber<double> genes) {
  for (std::int32_t j = 1; j <= genes.last(); ++j) {
    if (genes.last() - j >= look_ahead) {
      fetch_early(&genes[sire[j + look_ahead]]);
      fetch_early(&genes[dam[j + look_ahead]]);
    }
    const double of_parents = 0.5 * (genes[sire[j]] + genes[dam[j]]);
    genes[j] = of_parents + within_family_variance[j] * genes[j];
  }
  return genes;
}

ByNumber<double> mean_kinship_with(const PopulationStore& store, const AncestorPedigree& ancestors,
                                   std::span<const std::int32_t> group) {
  if (group.empty()) return {};
  ByNumber<double> weights(ancestors.position.values.size() - 1);
  for (const std::int32_t position : group) weights[ancestors.number_of_animal[position]] += 1.0;
  ByNumber<double> result =
      weighted_relationships(ancestors.sire, ancestors.dam, within_family_variances(store, ancestors),
                             gene_contributions(ancestors.sire, ancestors.dam, std::move(weights)));
  for (double& value : result.values) value /= 2.0 * static_cast<double>(group.size());  // half of the relationship
  return result;
}

}  // namespace pedigreewatch
