// The effective size from what inbreeding increases by in each animal.
#pragma once

#include <optional>
#include <span>

#include "diversity/reference_pedigree.h"

namespace pedigreewatch {

/// An effective size with its standard error; without a value when it is not estimable: no increase, or a negative one.
struct EffectiveSizeEstimate {
  std::int64_t count = 0;                ///< animals, or pairs of animals, that it is estimated from
  std::optional<double> mean_increase;   ///< of inbreeding or coancestry per generation; none without animals
  std::optional<double> effective_size;  ///< 1 / (2 mean increase)
  std::optional<double> standard_error;  ///< none from fewer than two animals, or three in pairs
  bool is_sample = false;                ///< estimated in part from a random sample of the animals
};

/// The increase for each generation that brings a coefficient from 0 to `coefficient` in `generations` of them, which
/// are more than 0: 1 - (1 - coefficient) ^ (1 / generations). Rounding may have left a coefficient a little outside 0
/// to 1; it counts as 0 or 1.
double increase_per_generation(double coefficient, double generations);

/// Completes an estimate from `count` and `mean_increase`; `error_of_mean` is the standard error of the latter. An
/// increase so small that it is but the rounding of F (up to 1e-7) is none.
void complete_estimate(EffectiveSizeEstimate& estimate, std::optional<double> error_of_mean);

/// From the increases of inbreeding of the animals with more than one equivalent generation, dF = 1 - (1 - F) ^ (1 /
/// (EqG - 1)) (Gutierrez and others, 2008, Genet. Sel. Evol. 40: 359-378;
/// Gutierrez, Cervantes and Goyache, 2009, J. Anim. Breed. Genet. 126: 327-332). `equivalents` is EqG by place
/// in the reference population.
EffectiveSizeEstimate estimate_by_inbreeding(const PopulationStore& store, const ReferencePedigree& pedigree,
                                             std::span<const double> equivalents);

/// The standard deviation with n - 1; none of fewer than two values.
std::optional<double> standard_deviation(std::span<const double> values);

}  // namespace pedigreewatch
