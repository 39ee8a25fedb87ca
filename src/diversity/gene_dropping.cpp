// Which genes are drawn does not depend on what they are, so that a drop can be followed from the youngest animal to
// the founders: a gene is left when the animal belongs to the reference population, or a young that drew it has it
// left. A bit stands for a drop: one operation follows 64 of them.

#include "diversity/gene_dropping.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>

#include "core/memory_hints.h"

namespace pedigreewatch {
namespace {

constexpr std::int32_t word_bits = 64;
constexpr std::size_t words_side_by_side = 4;
constexpr std::int32_t drops_side_by_side = word_bits * static_cast<std::int32_t>(words_side_by_side);

using Drops = std::array<std::uint64_t, words_side_by_side>;

/// In which drops the two genes of an animal are left.
struct alignas(64) LeftGenes {
  Drops from_sire = {}, from_dam = {};
};

/// Random bits that depend on nothing but what they are for (splitmix64).
std::uint64_t random_bits(std::uint64_t number) {
  std::uint64_t value = (number + 1) * 0x9E3779B97F4A7C15ULL;
  value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9ULL;
  value = (value ^ (value >> 27)) * 0x94D049BB133111EBULL;
  return value ^ (value >> 31);
}

/// What a young has left of the gene that it drew from this parent.
void keep_drawn(LeftGenes& parent, const Drops& left, std::uint64_t first_number) {
  for (std::size_t w = 0; w < words_side_by_side; ++w) {
    const std::uint64_t drawn = random_bits(first_number + w);
    parent.from_sire[w] |= left[w] & drawn;
    parent.from_dam[w] |= left[w] & ~drawn;
  }
}

/// In how many drops a founder has one of its genes left, and in how many both.
struct LeftCounts {
  std::int64_t one = 0, both = 0;
};

void count_left(const LeftGenes& genes, std::int32_t drops, LeftCounts& counts) {
  for (std::size_t w = 0; w < words_side_by_side; ++w) {
    const std::int32_t wanted = std::min(drops - static_cast<std::int32_t>(w) * word_bits, word_bits);
    if (wanted <= 0) return;
    const std::uint64_t mask = ~std::uint64_t{0} >> (word_bits - wanted);
    counts.both += std::popcount(genes.from_sire[w] & genes.from_dam[w] & mask);
    counts.one += std::popcount((genes.from_sire[w] ^ genes.from_dam[w]) & mask);
  }
}

/// Follows some drops, the `batch`-th ones, from the youngest animal to the oldest.
void follow_drops(const ReferencePedigree& pedigree, std::uint64_t batch, ByNumber<LeftGenes>& left) {
  constexpr LeftGenes none{};
  std::fill(left.values.begin(), left.values.end(), none);
  for (const std::int32_t member : pedigree.members) {
    left[member].from_sire.fill(~std::uint64_t{0});
    left[member].from_dam.fill(~std::uint64_t{0});
  }
  const std::uint64_t animals = static_cast<std::uint64_t>(pedigree.count()) + 1;
  for (std::int32_t j = pedigree.count(); j > pedigree.unknown_parents; --j) {
    if (j > look_ahead) {
      fetch_early(&left[pedigree.sire[j - look_ahead]]);
      fetch_early(&left[pedigree.dam[j - look_ahead]]);
    }
    if (pedigree.is_founder(j)) continue;
    const std::uint64_t number = (batch * animals + static_cast<std::uint64_t>(j)) * (2 * words_side_by_side);
    keep_drawn(left[pedigree.sire[j]], left[j].from_sire, number);
    keep_drawn(left[pedigree.dam[j]], left[j].from_dam, number + words_side_by_side);
  }
}

GenesLeft genes_left(const LeftCounts& counts, std::int32_t drops) {
  const double all = drops;
  const double one = static_cast<double>(counts.one), both = static_cast<double>(counts.both);
  const double mean = (0.5 * one + both) / all;
  const double squares = 0.25 * one + both - all * mean * mean;
  return {mean, std::sqrt(std::max(squares, 0.0) / (all - 1.0) / all)};
}

}  // namespace

ByNumber<GenesLeft> drop_genes(const ReferencePedigree& pedigree, std::int32_t drops) {
  const std::int32_t last = pedigree.count();
  ByNumber<LeftGenes> left(last);
  ByNumber<LeftCounts> counts(last);
  std::uint64_t batch = 0;
  for (std::int32_t done = 0; done < drops; done += drops_side_by_side) {
    follow_drops(pedigree, batch++, left);
    for (std::int32_t j = 1; j <= pedigree.count(); ++j) {
      if (pedigree.is_founder(j)) count_left(left[j], drops - done, counts[j]);
    }
  }
  ByNumber<GenesLeft> result(last);
  for (std::int32_t j = 1; j <= pedigree.count(); ++j) {
    if (pedigree.is_founder(j)) result[j] = genes_left(counts[j], drops);
  }
  return result;
}

}  // namespace pedigreewatch
