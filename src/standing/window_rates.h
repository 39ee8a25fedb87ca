// How fast inbreeding rises in a breed, from what is known of a few generations only, so that unknown parents and
// forgotten ancestors do not make it look slower.
#pragma once

#include <cstdint>
#include <optional>

#include "standing/window_pedigree.h"

namespace pedigreewatch {

/// A rate per generation; without a value when there is nothing that it could be seen from.
struct RateEstimate {
  std::optional<double> rate;   ///< rise of inbreeding or kinship: 0.01 is 1 % per generation
  double relative_error = 0.0;  ///< its standard error as a part of it
  double generations = 0.0;     ///< how many generations back a pair of genes can be followed, on average
};

/// Pairs of genes of different animals are followed back until they meet in one copy, or until one of them has no known
/// parent or leaves the window. The rate is the part of the pairs still followed that meets in a generation, the hazard
/// of coalescence. A breed of constant effective size Ne has 1 / (2 Ne).
///
/// What meets is the mean kinship within the window. The error is that of a sum over ancestors, each an observation of
/// its own size, halved: so widely did the rates of simulated breeds spread about the truth.
RateEstimate estimate_by_kinship(const WindowPedigree& window);

/// The same from the pairs of genes in which the animals' parents were mated, and from what meets in the far window but
/// not in the near one: what meets near by tells who was mated to whom, which raises F once and not in each generation.
/// Both windows have the same animals. The error is that of a ratio of sums over the sires.
RateEstimate estimate_by_inbreeding(const WindowPedigree& near, const WindowPedigree& far);

/// The effective size that belongs to a rate: 1 / (2 rate); infinite without a rise.
double effective_size_of(double rate);

}  // namespace pedigreewatch
