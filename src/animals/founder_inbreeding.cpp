// For one founder k, let f(a, b) be the chance that a gene of a and one of b at random are copies of the same gene of
// k, c(a) the part of the genes of a that comes from k, and F(a) = f(sire, dam). Then f(a, a) = [c(a) + F(a)] / 2, and
// what meets in an animal j of which both parents are known but is in neither of them,
//   e(j) = f(j, j) - f(parents' mean, parents' mean) = c(j) / 4 - [F(sire) + F(dam)] / 8,
// is what f of two animals is made of: f(a, b) is the sum over j of T_aj T_bj e(j), T_aj being the part of the genes of
// a that comes from j by all paths. So F of an animal is a sum of c, and of F of the parents of its ancestors, each of
// which is such a sum again. The sum has no k in it but in c and F: carried from the young to the old, its factors are
// the same for all founders, and what arrives at each founder is its part of F.
//
// Per ancestor j: `of_inbreeding` is the factor of F(j), `met` that of e(j), `of_genes` that of c(j). Only `met` needs
// paths: those of the two parents of an inbred animal. The parents that are carried up together are eight of one rank,
// none of which is an ancestor of another, each with all of its mates that are older or of the same rank.

#include "animals/founder_inbreeding.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>

#include "core/by_number.h"
#include "core/processor_clones.h"
#include "genetics/ancestor_pedigree.h"

namespace pedigreewatch {
namespace {

/// Parents that are carried up side by side.
constexpr std::size_t lanes = 8;

/// A part of F up to this is the rounding of sums that are 0.
constexpr double rounding = 1e-12;

// NOLINTNEXTLINE(modernize-use-using): a using cannot carry the attribute in g++
typedef double LaneVector __attribute__((vector_size(64)));

/// Parts of the genes of the parents of a block, and of their mates, that come from an ancestor.
struct alignas(64) SharedGenes {
  LaneVector of_parent, of_mates;
};

/// An animal and all of its ancestors by rank: the animal itself stands first, and everybody before his parents. The
/// unknown parent stands behind them all.
struct RankedAncestors {
  std::vector<std::int32_t> position, sire, dam;
  std::vector<std::size_t> first_of_rank;  ///< by rank, and the end
  std::int32_t count = 0;

  bool is_known(std::int32_t place) const { return place != count; }
};

/// Generations by the longest way down to the animal, by ancestor number.
ByNumber<std::int32_t> ranks_of(const AncestorPedigree& pedigree) {
  ByNumber<std::int32_t> rank(pedigree.position.values.size());
  for (std::int32_t j = pedigree.count(); j > 0; --j) {
    for (const std::int32_t parent : {pedigree.sire[j], pedigree.dam[j]}) {
      rank[parent] = std::max(rank[parent], rank[j] + 1);
    }
  }
  return rank;
}

RankedAncestors rank_ancestors(const PopulationStore& store, std::int32_t position) {
  const AncestorPedigree pedigree = pedigree_of(store, {&position, 1});
  const ByNumber<std::int32_t> rank = ranks_of(pedigree);
  RankedAncestors ranked;
  ranked.count = pedigree.count();
  const auto size = static_cast<std::size_t>(ranked.count);
  std::vector<std::int32_t> order(size);
  for (std::size_t k = 0; k < size; ++k) order[k] = ranked.count - static_cast<std::int32_t>(k);
  std::stable_sort(order.begin(), order.end(), [&](std::int32_t a, std::int32_t b) { return rank[a] < rank[b]; });
  ByNumber<std::int32_t> place(size + 1);
  place[0] = ranked.count;
  for (std::size_t k = 0; k < size; ++k) {
    place[order[k]] = static_cast<std::int32_t>(k);
    if (k == 0 || rank[order[k]] != rank[order[k - 1]]) ranked.first_of_rank.push_back(k);
  }
  ranked.first_of_rank.push_back(size);
  for (const std::int32_t number : order) {
    ranked.position.push_back(pedigree.position[number]);
    ranked.sire.push_back(place[pedigree.sire[number]]);
    ranked.dam.push_back(place[pedigree.dam[number]]);
  }
  return ranked;
}

/// A mating of two ancestors that gave an inbred one.
struct InbredMating {
  std::int32_t parent = 0, mate = 0;  ///< places: the parent stands before its mate, or is the same
  std::int32_t young = 0;             ///< place
};

/// Those of one parent together, in the order of the parents.
std::vector<InbredMating> list_inbred_matings(const PopulationStore& store, const RankedAncestors& ranked) {
  std::vector<InbredMating> matings;
  for (std::int32_t j = 0; j < ranked.count; ++j) {
    const auto k = static_cast<std::size_t>(j);
    if (!ranked.is_known(ranked.sire[k]) || !ranked.is_known(ranked.dam[k])) continue;
    if (store.inbreeding[ranked.position[k]] <= 0.0F) continue;
    matings.push_back({std::min(ranked.sire[k], ranked.dam[k]), std::max(ranked.sire[k], ranked.dam[k]), j});
  }
  std::stable_sort(matings.begin(), matings.end(),
                   [](const InbredMating& a, const InbredMating& b) { return a.parent < b.parent; });
  return matings;
}

/// The matings of at most eight parents of one rank.
struct ParentBlock {
  std::size_t rank = 0, first = 0, end = 0;  ///< of the matings
};

std::vector<ParentBlock> block_matings(const RankedAncestors& ranked, std::span<const InbredMating> matings) {
  std::vector<ParentBlock> blocks;
  std::size_t rank = 0, parents = 0;
  for (std::size_t k = 0; k < matings.size(); ++k) {
    const auto parent = static_cast<std::size_t>(matings[k].parent);
    const bool is_next_rank = parent >= ranked.first_of_rank[rank + 1];
    while (parent >= ranked.first_of_rank[rank + 1]) ++rank;
    const bool is_next_parent = k == 0 || matings[k].parent != matings[k - 1].parent;
    if (is_next_parent) ++parents;
    if (blocks.empty() || is_next_rank || parents > lanes) {
      blocks.push_back({rank, k, k});
      parents = 1;
    }
    blocks.back().end = k + 1;
  }
  return blocks;
}

std::int64_t steps_of(const RankedAncestors& ranked, std::span<const ParentBlock> blocks) {
  std::int64_t steps = 0;
  for (const ParentBlock& block : blocks) {
    steps += ranked.count - static_cast<std::int64_t>(ranked.first_of_rank[block.rank]);
  }
  return steps;
}

struct FounderSums {
  std::vector<double> of_inbreeding, met, of_genes;  ///< by place, that of the unknown parent too
  std::vector<SharedGenes> shared;                   ///< by place; all 0 between two blocks
};

PEDIGREEWATCH_PART_OF_CLONES double sum_of(const LaneVector& v) {
  return ((v[0] + v[1]) + (v[2] + v[3])) + ((v[4] + v[5]) + (v[6] + v[7]));
}

/// Carries the genes of a block up to the founders, from the first of its rank on, and leaves no trace of them but in
/// `met`.
PEDIGREEWATCH_PROCESSOR_CLONES
void carry_up(const RankedAncestors& ranked, std::size_t first, FounderSums& sums) {
  SharedGenes* const shared = sums.shared.data();
  for (auto k = first; k < ranked.position.size(); ++k) {
    const SharedGenes own = shared[k];
    shared[k] = SharedGenes{};
    sums.met[k] += sum_of(own.of_parent * own.of_mates);
    for (const std::int32_t parent : {ranked.sire[k], ranked.dam[k]}) {
      shared[parent].of_parent += own.of_parent * 0.5;
      shared[parent].of_mates += own.of_mates * 0.5;
    }
  }
  shared[ranked.count] = SharedGenes{};
}

/// Adds what meets in all ancestors of the parents of a block.
void meet(const RankedAncestors& ranked, std::span<const InbredMating> matings, std::size_t first, FounderSums& sums) {
  std::size_t lane = 0;
  for (std::size_t k = 0; k < matings.size(); ++k) {
    const InbredMating& mating = matings[k];
    if (k > 0 && mating.parent != matings[k - 1].parent) ++lane;
    sums.shared[static_cast<std::size_t>(mating.parent)].of_parent[lane] = 1.0;
    sums.shared[static_cast<std::size_t>(mating.mate)].of_mates[lane] +=
        sums.of_inbreeding[static_cast<std::size_t>(mating.young)];
  }
  carry_up(ranked, first, sums);
}

/// Hands on the sums of an animal, which are complete, to its parents; yields its part where it is a founder, or where
/// one of its parents is unknown that of this parent.
double hand_on(const RankedAncestors& ranked, std::size_t k, FounderSums& sums) {
  const bool has_sire = ranked.is_known(ranked.sire[k]), has_dam = ranked.is_known(ranked.dam[k]);
  if (!has_sire && !has_dam) return sums.of_genes[k] + 0.5 * sums.met[k];
  const double genes = 0.5 * (sums.of_genes[k] + 0.25 * sums.met[k]);
  for (const std::int32_t parent : {ranked.sire[k], ranked.dam[k]}) {
    sums.of_genes[static_cast<std::size_t>(parent)] += genes;
    sums.of_inbreeding[static_cast<std::size_t>(parent)] -= 0.125 * sums.met[k];
  }
  // An unknown parent is a founder of one young: it has half of the genes, and what meets in itself is a quarter of
  // what meets in the young, times 1/2.
  return has_sire && has_dam ? 0.0 : genes + 0.125 * sums.met[k];
}

FounderSums empty_sums(const RankedAncestors& ranked) {
  const auto size = static_cast<std::size_t>(ranked.count) + 1;
  FounderSums sums;
  sums.of_inbreeding.resize(size);
  sums.met.resize(size);
  sums.of_genes.resize(size);
  sums.shared.resize(size);
  sums.of_inbreeding.front() = 1.0;
  return sums;
}

std::vector<FounderPart> parts_of(const RankedAncestors& ranked, std::span<const InbredMating> matings,
                                  std::span<const ParentBlock> blocks) {
  FounderSums sums = empty_sums(ranked);
  std::vector<FounderPart> parts;
  for (std::size_t rank = 0; rank + 1 < ranked.first_of_rank.size(); ++rank) {
    const std::size_t first = ranked.first_of_rank[rank];
    for (; !blocks.empty() && blocks.front().rank == rank; blocks = blocks.subspan(1)) {
      const ParentBlock& block = blocks.front();
      meet(ranked, matings.subspan(block.first, block.end - block.first), first, sums);
    }
    for (std::size_t k = first; k < ranked.first_of_rank[rank + 1]; ++k) {
      const double part = hand_on(ranked, k, sums);
      const bool is_founder = !ranked.is_known(ranked.sire[k]) && !ranked.is_known(ranked.dam[k]);
      if (part > rounding) parts.push_back({ranked.position[k], !is_founder, part});
    }
  }
  return parts;
}

}  // namespace

FounderInbreeding inbreeding_by_founder(const PopulationStore& store, std::int32_t position, std::int64_t most_steps) {
  FounderInbreeding inbreeding;
  if (store.inbreeding[position] <= 0.0F) return inbreeding;
  const RankedAncestors ranked = rank_ancestors(store, position);
  const std::vector<InbredMating> matings = list_inbred_matings(store, ranked);
  const std::vector<ParentBlock> blocks = block_matings(ranked, matings);
  inbreeding.ancestors = ranked.count - 1;
  inbreeding.is_too_large = steps_of(ranked, blocks) > most_steps;
  if (inbreeding.is_too_large) return inbreeding;
  inbreeding.parts = parts_of(ranked, matings, blocks);
  std::sort(inbreeding.parts.begin(), inbreeding.parts.end(), [](const FounderPart& a, const FounderPart& b) {
    return a.part != b.part ? a.part > b.part : a.position > b.position;
  });
  return inbreeding;
}

}  // namespace pedigreewatch
