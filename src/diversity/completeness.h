// How far back the pedigrees of the reference population are known.
#pragma once

#include <optional>
#include <vector>

#include "diversity/reference_pedigree.h"

namespace pedigreewatch {

/// Means over the reference population; no values without one.
struct PedigreeDepth {
  std::optional<double> maximum_generations;     ///< to the farthest known ancestor
  std::optional<double> complete_generations;    ///< in which every ancestor is known
  std::optional<double> equivalent_generations;  ///< EqG: the sum of the known shares of all generations (Maignel and
                                                 ///< others, 1996)
  std::optional<double> completeness_index;  ///< PCI over five generations (MacCluer and others, 1983, J. Hered. 74)
  std::vector<double> equivalents_of;        ///< EqG of each animal, by place in the reference population
};

PedigreeDepth describe_depth(const ReferencePedigree& pedigree);

}  // namespace pedigreewatch
