#include "forecast/model_pedigree.h"

#include <algorithm>
#include <cmath>

namespace pedigreewatch {
namespace {

double variance_of(const ModelPedigree& pedigree, std::int32_t sire, std::int32_t dam) {
  return 0.5 - 0.25 * (double{pedigree.f[sire]} + double{pedigree.f[dam]});
}

/// Each family's genes on its parents; yields the highest parent.
std::int32_t place_genes(std::span<const YoungOf> families, ByNumber<double>& weights) {
  std::int32_t highest = 0;
  for (const YoungOf& family : families) {
    const double half = 0.5 * family.young;
    weights[family.sire] += half;
    weights[family.dam] += half;
    highest = std::max({highest, family.sire, family.dam});
  }
  return highest;
}

}  // namespace

std::int32_t add_parent(ModelPedigree& pedigree, std::int32_t sire, std::int32_t dam, float f) {
  pedigree.variance.values.push_back(variance_of(pedigree, sire, dam));
  pedigree.sire.values.push_back(sire);
  pedigree.dam.values.push_back(dam);
  pedigree.f.values.push_back(f);
  return pedigree.count();
}

YearKinship describe_year(const ModelPedigree& pedigree, std::span<const YoungOf> families, ByNumber<double>& weights) {
  YearKinship year;
  double inbreeding = 0.0, relationships = 0.0;
  for (const YoungOf& family : families) {
    year.animals += family.young;
    inbreeding += family.young * double{family.f};
    relationships += family.young * variance_of(pedigree, family.sire, family.dam);
  }
  for (std::int32_t j = place_genes(families, weights); j > 0; --j) {
    const double own = weights[j];
    if (own == 0.0) continue;
    weights[j] = 0.0;
    relationships += own * own * pedigree.variance[j];
    weights[pedigree.sire[j]] += 0.5 * own;
    weights[pedigree.dam[j]] += 0.5 * own;
  }
  weights[0] = 0.0;
  if (year.animals == 0) return year;
  const double animals = static_cast<double>(year.animals);
  year.mean_f = inbreeding / animals;
  year.with_self = 0.5 * relationships / (animals * animals);
  if (year.animals > 1) {
    year.without_self = 0.5 * (relationships - animals - inbreeding) / (animals * (animals - 1.0));
  }
  return year;
}

ByNumber<double> mean_kinship_with_young(const ModelPedigree& pedigree, std::span<const YoungOf> families) {
  ByNumber<double> genes(pedigree.count());
  double young = 0.0;
  for (const YoungOf& family : families) young += family.young;
  place_genes(families, genes);
  for (std::int32_t j = pedigree.count(); j > 0; --j) {
    const double half = 0.5 * genes[j];
    genes[pedigree.sire[j]] += half;
    genes[pedigree.dam[j]] += half;
  }
  genes[0] = 0.0;
  for (std::int32_t j = 1; j <= pedigree.count(); ++j) {
    const double of_parents = 0.5 * (genes[pedigree.sire[j]] + genes[pedigree.dam[j]]);
    genes[j] = of_parents + pedigree.variance[j] * genes[j];
  }
  for (double& value : genes.values) value *= young > 0.0 ? 0.5 / young : 0.0;
  return genes;
}

float near_kinship(const ModelPedigree& pedigree, std::int32_t first, std::int32_t second, int generations) {
  if (first == 0 || second == 0) return 0.0F;
  if (first == second) return 0.5F;
  if (generations == 0) return 0.0F;
  const std::int32_t younger = std::max(first, second), older = std::min(first, second);
  return 0.5F * (near_kinship(pedigree, pedigree.sire[younger], older, generations - 1) +
                 near_kinship(pedigree, pedigree.dam[younger], older, generations - 1));
}

}  // namespace pedigreewatch
