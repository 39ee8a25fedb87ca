// The effective size from what coancestry increases by in each pair of animals.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "diversity/effective_sizes.h"
#include "diversity/reference_pedigree.h"

namespace pedigreewatch {

/// Reference populations up to this size have all their pairs taken.
inline constexpr std::size_t most_paired_animals = 2000;

/// `wanted` places from 0 to `count` - 1, ascending, drawn without replacement with a fixed seed: the same on every
/// machine. All of them when there are not more.
std::vector<std::size_t> draw_places(std::size_t count, std::size_t wanted);

/// From the increases of coancestry dc = 1 - (1 - f) ^ (2 / (EqG_i + EqG_j)) of the pairs of different animals, those
/// left out in which neither has a known parent (Cervantes and others, 2011, J. Anim. Breed. Genet. 128: 56-63). Of
/// more than `most_animals` a random sample of as many is paired.
///
/// A pair shares its animals with others, so that pairs are no independent observations: the standard error is that
/// of a mean over pairs, 2 sd / sqrt(n) with the sd (n - 1) of the animals' own means (Sen, 1960, Calcutta Stat. Assoc.
/// Bull. 10: 1-18), times 2 Ne^2 as for the increases of inbreeding.
EffectiveSizeEstimate estimate_by_coancestry(const PopulationStore& store, std::span<const std::int32_t> positions,
                                             std::span<const double> equivalents,
                                             std::size_t most_animals = most_paired_animals);

}  // namespace pedigreewatch
