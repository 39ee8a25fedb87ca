// The walk through the ancestors of a mating from which F of its offspring follows (Meuwissen and Luo, 1992), for
// several matings side by side.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "genetics/ancestor_pedigree.h"

namespace pedigreewatch {

/// Two known parents, by ancestor number.
struct Mating {
  std::int32_t sire = 0, dam = 0;
};

/// Matings that one walk takes side by side: the lanes of the vectors below.
inline constexpr std::size_t lane_count = 16;

/// One number for each lane, in the vector type that g++ and clang++ share. It belongs to no processor; each operation
/// on it is the same operation on sixteen singles.
// NOLINTNEXTLINE(modernize-use-using): a using cannot carry the size in g++
typedef float LaneVector __attribute__((vector_size(64)));

struct alignas(64) Lanes {
  LaneVector each;
};

/// Where a line of selfing or full sibs ends that is inbred to the last bit: the oldest ancestor of the line, and its
/// sib that it was mated to, itself in a line of selfing. Below it the within-family variance differs.
struct LineEnd {
  std::int32_t older = 0, younger = 0;  ///< 0: the ancestor's parents do not continue its line
};

/// What the walks work on. Between two walks all shares are 0 and no ancestor is waiting.
struct AncestorWalk {
  struct Ancestor {
    std::int32_t sire = 0, dam = 0;
    float within_family_variance = 0.0F;  ///< 1 without known parents, down to 0 with fully inbred ones
  };

  ByNumber<Ancestor> ancestors;  ///< by ancestor number
  ByNumber<float> f;             ///< F by ancestor number; -1 for the unknown parent
  ByNumber<LineEnd> line_ends;   ///< by ancestor number; empty where no line is long enough to be worth it
  ByNumber<Lanes> shares;        ///< share of the ancestor in each lane's animal, summed over all paths

  // Ancestors still to be visited: a bit for each of them, and above those a bit for each word that has one set. The
  // next lower ancestor is found in a few instructions, where an ordered list would have to be searched.
  std::vector<std::uint64_t> waiting;
  std::vector<std::uint64_t> waiting_words;
};

AncestorWalk make_ancestor_walk(const AncestorPedigree& pedigree);

/// Makes F of one ancestor known to the walks. F of both its parents must be known already.
void set_inbreeding(AncestorWalk& walk, std::int32_t ancestor, float f);

/// Works out F of the offspring of up to `lane_count` matings, one result each. F of all their ancestors must be
/// known. In single precision, every lane summed from the youngest ancestor to the oldest: a lane in which an ancestor
/// does not occur has share 0 there and adds exactly 0, so that each result is to the last bit what the mating alone
/// yields.
void walk_ancestors(AncestorWalk& walk, std::span<const Mating> matings, std::span<float> results);

}  // namespace pedigreewatch
