// What is left of the genes of founders, by dropping genes through the pedigree at random.
#pragma once

#include <cstdint>

#include "core/by_number.h"
#include "diversity/reference_pedigree.h"

namespace pedigreewatch {

inline constexpr std::int32_t usual_gene_drops = 10'000;

/// The share of a founder's two genes at a locus of which the reference population has a copy.
struct GenesLeft {
  double share = 0.0;           ///< expected: the mean over all drops
  double standard_error = 0.0;  ///< of the mean
};

/// By number, for founders and the unknown parents of half-founders; zeros for all others. An unknown parent is one of
/// a single animal, so that at most half of its genes are left. Each of `drops` (at least 2) times every animal draws
/// one of the two genes of each parent (MacCluer and others, 1986, Zoo Biology 5), by numbers that are the
/// same in every run and on every machine.
ByNumber<GenesLeft> drop_genes(const ReferencePedigree& pedigree, std::int32_t drops = usual_gene_drops);

}  // namespace pedigreewatch
