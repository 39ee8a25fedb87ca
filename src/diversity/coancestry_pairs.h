// The effective size from what coancestry increases by in each pair of animals.
#pragma once

#include <cstdint>
#include <span>

#include "diversity/effective_sizes.h"
#include "diversity/reference_pedigree.h"

namespace pedigreewatch {

/// Reference populations up to this size have the increase of each of their pairs worked out.
inline constexpr std::size_t most_paired_animals = 4000;

/// From the increases of coancestry dc = 1 - (1 - f) ^ (2 / (EqG_i + EqG_j)) of all pairs of different members of the
/// pedigree, those left out in which neither has a known parent (Cervantes and others, 2011, J. Anim. Breed. Genet.
/// 128). `equivalents` is EqG by place among the members. Of more than `most_animals` the mean has an error
/// of 0.2 % at four times its standard error: what is proportional to f is added up over all pairs, the rest over
/// those of random animals with all others. The same on every machine.
///
/// A pair shares its animals with others, so that pairs are no independent observations: the standard error is that
/// of a mean over pairs, 2 sd / sqrt(n) with the sd (n - 1) of the animals' own means (Sen, 1960, Calcutta Stat. Assoc.
/// Bull. 10: 1-18), times 2 Ne^2 as for the increases of inbreeding.
EffectiveSizeEstimate estimate_by_coancestry(const PopulationStore& store, const ReferencePedigree& pedigree,
                                             std::span<const double> equivalents,
                                             std::size_t most_animals = most_paired_animals);

}  // namespace pedigreewatch
