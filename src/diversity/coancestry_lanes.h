// The relationships of a few animals at a time with all others of a pedigree, as lanes side by side.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "core/by_number.h"
#include "diversity/reference_pedigree.h"

namespace pedigreewatch {

/// Animals that are carried through the pedigree side by side.
inline constexpr std::size_t coancestry_block = 8;

/// One number for each animal of a block.
// NOLINTNEXTLINE(modernize-use-using): a using cannot carry the attribute in g++
typedef double BlockVector __attribute__((vector_size(64)));

struct alignas(64) BlockLanes {
  BlockVector each;
};

/// The animals that are paired, members of the pedigree, with EqG by place.
struct PairedAnimals {
  const ReferencePedigree& pedigree;
  std::span<const double> equivalents;
};

/// Room for the lanes of every animal of the pedigree.
ByNumber<BlockLanes> make_lanes(const ReferencePedigree& pedigree);

/// Fills the relationships of the animals `block` (numbers, ascending) with all of the pedigree up to number `last`,
/// which is not below theirs: their genes are carried up to the founders, and the relationships down again (Colleau,
/// 2002, Genet. Sel. Evol. 34: 409-421).
void relate_block(const ReferencePedigree& pedigree, std::span<const std::int32_t> block, std::int32_t last,
                  ByNumber<BlockLanes>& lanes);

}  // namespace pedigreewatch
