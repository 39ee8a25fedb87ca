// The effective number of ancestors, and which they are.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "diversity/reference_pedigree.h"

namespace pedigreewatch {

/// An ancestor and what it alone explains of the genes of the reference population.
struct MainAncestor {
  std::int32_t position = 0;  ///< in the store; of the half-founder when `is_unknown_parent`
  bool is_unknown_parent = false;
  double contribution = 0.0;  ///< marginal, as a fraction
};

struct AncestorFigures {
  std::optional<double> effective_ancestors;       ///< fa; none without a reference population
  std::int32_t chosen_ancestors = 0;               ///< how many were chosen
  bool is_every_ancestor_chosen = true;            ///< false: the rest can no longer change the fifth digit of fa
  std::vector<MainAncestor> main_ancestors;        ///< at most ten, the largest contribution first
  std::optional<std::int32_t> ancestors_for_half;  ///< how many explain 50 % of the genes
};

/// Chooses ancestors one by one, each time the one that explains most of what those chosen before it leave
/// unexplained: fa = 1 / sum of the squares of what each explains (Boichard, Maignel and Verrier, 1997, Genet. Sel.
/// Evol. 29: 5-23). Candidates are all that have offspring in the pedigree, and founders inside the reference
/// population. Of equal ones (to 1e-12 of their contribution) the one with the largest number is chosen. It goes on
/// until nothing is left, or at least ten are chosen, half of the genes are explained, and all the rest together can
/// change fa by no more than a ten-millionth.
AncestorFigures choose_ancestors(const ReferencePedigree& pedigree);

}  // namespace pedigreewatch
