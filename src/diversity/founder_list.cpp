// Descendants are counted for many founders at a time: a bit of a word of each animal says whether it descends from
// one.

#include "diversity/founder_list.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>

#include "core/bit_pattern.h"
#include "core/memory_hints.h"
#include "diversity/founders.h"

namespace pedigreewatch {
namespace {

constexpr std::size_t word_bits = 64;
constexpr std::size_t words_side_by_side = 4;
constexpr std::size_t founders_side_by_side = word_bits * words_side_by_side;

/// From which of the founders at hand an animal descends.
struct DescentBits {
  std::array<std::uint64_t, words_side_by_side> words = {};
};

std::vector<std::int32_t> founders_of(const ReferencePedigree& pedigree) {
  std::vector<std::int32_t> founders;
  for (std::int32_t j = 1; j <= pedigree.count(); ++j) {
    if (pedigree.is_founder(j)) founders.push_back(j);
  }
  return founders;
}

/// Hands the bits of some founders down to all that descend from them.
void hand_down(const ReferencePedigree& pedigree, std::span<const std::int32_t> founders,
               ByNumber<DescentBits>& descent) {
  std::fill(descent.values.begin(), descent.values.end(), DescentBits{});
  for (std::size_t k = 0; k < founders.size(); ++k) {
    descent[founders[k]].words[k / word_bits] |= std::uint64_t{1} << (k % word_bits);
  }
  for (std::int32_t j = founders.front(); j <= pedigree.count(); ++j) {
    if (pedigree.is_founder(j)) continue;
    const DescentBits &sire = descent[pedigree.sire[j]], &dam = descent[pedigree.dam[j]];
    for (std::size_t w = 0; w < words_side_by_side; ++w) descent[j].words[w] = sire.words[w] | dam.words[w];
  }
}

}  // namespace

ByNumber<std::int32_t> count_descendants(const ReferencePedigree& pedigree) {
  ByNumber<std::int32_t> counts(pedigree.count());
  ByNumber<DescentBits> descent(pedigree.count());
  const std::vector<std::int32_t> founders = founders_of(pedigree);
  for (std::size_t first = 0; first < founders.size(); first += founders_side_by_side) {
    const std::span<const std::int32_t> at_hand =
        std::span(founders).subspan(first, std::min(founders_side_by_side, founders.size() - first));
    hand_down(pedigree, at_hand, descent);
    for (const std::int32_t member : pedigree.members) {
      for (std::size_t w = 0; w < words_side_by_side; ++w) {
        for (std::uint64_t bits = descent[member].words[w]; bits != 0; bits &= bits - 1) {
          ++counts[at_hand[w * word_bits + lowest_bit(bits)]];
        }
      }
    }
  }
  return counts;
}

std::vector<FounderEntry> list_founders(const ReferencePedigree& pedigree, std::int32_t drops) {
  const ByNumber<double> genes = gene_contributions(pedigree);
  const ByNumber<GenesLeft> left = drop_genes(pedigree, drops);
  const ByNumber<std::int32_t> descendants = count_descendants(pedigree);
  const double animals = static_cast<double>(pedigree.members.size());
  std::vector<FounderEntry> entries;
  for (const std::int32_t j : founders_of(pedigree)) {
    entries.push_back(
        {pedigree.position[j], pedigree.is_unknown_parent(j), genes[j] / animals, left[j], descendants[j]});
  }
  std::stable_sort(entries.begin(), entries.end(),
                   [](const auto& a, const auto& b) { return a.contribution > b.contribution; });
  return entries;
}

}  // namespace pedigreewatch
