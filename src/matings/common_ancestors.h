// The kinship of two animals as a sum over their common ancestors.
//
// With T the share of an ancestor's genes that comes down to an animal and d the within-family variance of the
// ancestor, the kinship of s and d is the sum over all ancestors k of T_sk T_dk d_k / 2 (the decomposition A = T D T'
// of Thompson, 1977, and Quaas, 1976, read ancestor by ancestor as in the fine decomposition of inbreeding and
// coancestry of Garcia-Cortes, Martinez-Avila and Toro, 2010). An ancestor's term is its contribution to F of the
// offspring: what the genes that became new with it (all of a founder's, the Mendelian sampling of any other) make the
// two parents alike. The contributions add up to the kinship. An animal is an ancestor of itself.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "matings/mating_work.h"

namespace pedigreewatch {

/// Ancestors that are named for a mating.
inline constexpr std::size_t named_ancestors = 5;

struct CommonAncestor {
  std::int32_t position = 0;  ///< in the store; 0: there are fewer common ancestors
  double contribution = 0.0;  ///< to the kinship, as a fraction
};

struct KinshipParts {
  double kinship = 0.0;  ///< in double precision; F of the offspring but for its rounding
  /// The largest contributions, largest first; of equal ones the younger animal first.
  std::array<CommonAncestor, named_ancestors> largest = {};
};

/// What an animal has of one of its ancestors, itself included.
struct AncestorShare {
  std::int32_t ancestor = 0;  ///< ancestor number
  double share = 0.0;         ///< of its genes, summed over all paths
};

/// All ancestors of the animal at `position`, a candidate, from the youngest to the oldest.
std::vector<AncestorShare> list_ancestor_shares(const MatingWork& work, std::int32_t position);

/// The kinship of the two animals whose ancestors are given.
KinshipParts kinship_parts(const MatingWork& work, std::span<const AncestorShare> one,
                           std::span<const AncestorShare> other);

}  // namespace pedigreewatch
