// The pedigree of a model herd: the ancestors of the real animals that may still have young, and behind them every
// animal that a replicate has made a parent. Kinships are exact: by a pass up the pedigree for a whole birth year, and
// for pairs by a table of the parents that matter or by the walk through their ancestors.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "core/by_number.h"
#include "genetics/ancestor_walk.h"

namespace pedigreewatch {

/// Parents by number, each behind its own parents; 0 stands for an unknown one.
struct ModelPedigree {
  ByNumber<std::int32_t> sire, dam;
  ByNumber<float> f;          ///< -1 for the unknown parent
  ByNumber<double> variance;  ///< within the family, of relationships

  std::int32_t count() const { return sire.last(); }
};

/// A family of a birth year whose young are alike.
struct YoungOf {
  std::int32_t sire = 0, dam = 0;
  std::int32_t young = 0;
  float f = 0.0F;
};

/// Adds an animal; yields its number.
std::int32_t add_parent(ModelPedigree& pedigree, std::int32_t sire, std::int32_t dam, float f);

/// Of the animals born in a year.
struct YearKinship {
  double mean_f = 0.0, with_self = 0.0, without_self = 0.0;  ///< 0 where there are too few animals
  std::int64_t animals = 0;
};

/// Mean F and mean kinship of all young. `weights` has an entry for each animal of the pedigree at least, all of them 0
/// before and after.
YearKinship describe_year(const ModelPedigree& pedigree, std::span<const YoungOf> families, ByNumber<double>& weights);

/// Mean kinship with all young, by number.
ByNumber<double> mean_kinship_with_young(const ModelPedigree& pedigree, std::span<const YoungOf> families);

/// The kinship of two animals as far as their grandparents tell it. A measure of how near they are, where the exact one
/// would take too long.
float near_kinship(const ModelPedigree& pedigree, std::int32_t first, std::int32_t second, int generations = 4);

}  // namespace pedigreewatch
