// Each founder of the reference population: what it has contributed, what is left of its genes, and who descends from
// it.
#pragma once

#include <cstdint>
#include <vector>

#include "diversity/gene_dropping.h"
#include "diversity/reference_pedigree.h"

namespace pedigreewatch {

struct FounderEntry {
  std::int32_t position = 0;       ///< in the store; of the half-founder for an unknown parent
  bool is_unknown_parent = false;  ///< of the animal at `position`
  double contribution = 0.0;       ///< share of the genes of the reference population
  GenesLeft left;
  std::int32_t descendants = 0;  ///< in the reference population; a founder in it is its own
};

/// All founders and unknown parents of half-founders, the largest contribution first, then in the order of the
/// pedigree.
std::vector<FounderEntry> list_founders(const ReferencePedigree& pedigree, std::int32_t drops = usual_gene_drops);

/// By number: the members that descend from each founder, itself included where it is one; 0 for all others.
ByNumber<std::int32_t> count_descendants(const ReferencePedigree& pedigree);

}  // namespace pedigreewatch
