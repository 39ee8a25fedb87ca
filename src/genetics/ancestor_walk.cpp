// Ancestors wait as set bits in two levels of words, the upper one telling which of the lower are not 0: the youngest
// is found in a few steps, and putting one on the list twice costs nothing.

#include "genetics/ancestor_walk.h"

#include <algorithm>
#include <bit>

#include "core/memory_hints.h"
#include "core/processor_clones.h"

namespace pedigreewatch {
namespace {

constexpr std::size_t word_bits = 64;

/// An unknown parent counts with F -1, so that one formula serves animals with two, one and no known parents.
float within_family_variance(float f_sire, float f_dam) {
  return 0.5F - (f_sire + f_dam) * 0.25F;
}

void put_on_list(AncestorWalk& walk, std::int32_t number) {
  const std::size_t bit = static_cast<std::size_t>(number);
  const std::size_t word = bit / word_bits;
  walk.waiting[word] |= std::uint64_t{1} << (bit % word_bits);
  walk.waiting_words[word / word_bits] |= std::uint64_t{1} << (word % word_bits);
  fetch_early(&walk.ancestors[number]);
}

/// The place of the highest bit that is set; `bits` is not 0.
std::size_t highest_bit(std::uint64_t bits) {
  return word_bits - 1 - (static_cast<std::size_t>(std::countl_zero(bits)) & (word_bits - 1));
}

std::int32_t number_of_bit(std::size_t word, std::size_t bit) {
  return static_cast<std::int32_t>(word * word_bits + bit);
}

void add_to_lane(Lanes& lanes, std::size_t lane, float value) {
  lanes.each[lane] += value;
}

/// Begins each lane with its mating's own part: the offspring itself, and half its genes for each parent.
void begin_lanes(AncestorWalk& walk, std::span<const Mating> matings, Lanes& sums) {
  for (std::size_t lane = 0; lane < matings.size(); ++lane) {
    const Mating& mating = matings[lane];
    float sum = -1.0F;
    sum += within_family_variance(walk.f[mating.sire], walk.f[mating.dam]);
    add_to_lane(sums, lane, sum);  // which is 0 so far
    add_to_lane(walk.shares[mating.sire], lane, 0.5F);
    add_to_lane(walk.shares[mating.dam], lane, 0.5F);
    put_on_list(walk, mating.sire);
    put_on_list(walk, mating.dam);
  }
}

/// Takes ancestor `number` off the list, hands half of its shares on to each parent and adds its part to the sums.
void visit(AncestorWalk& walk, std::int32_t number, Lanes& sums) {
  const AncestorWalk::Ancestor ancestor = walk.ancestors[number];
  // An unknown parent, number 0, is put on the list and given shares like any other: no test is needed for it.
  put_on_list(walk, ancestor.sire);
  put_on_list(walk, ancestor.dam);
  const Lanes own = walk.shares[number];
  walk.shares[number] = Lanes{};
  const LaneVector half = own.each * 0.5F;
  walk.shares[ancestor.sire].each += half;
  walk.shares[ancestor.dam].each += half;
  sums.each += own.each * own.each * ancestor.within_family_variance;
}

/// Has the shares fetched that the next visit will add to: of the parents of the ancestor that is next on the
/// list, as long as this visit does not put one between. `word_bit` is this visit's word in `group`.
void fetch_parents_of_next(const AncestorWalk& walk, std::size_t group, std::size_t word_bit) {
  const std::uint64_t lower_words = walk.waiting_words[group] & ((std::uint64_t{1} << word_bit) - 1);
  std::size_t word = group * word_bits + word_bit;
  if (walk.waiting[word] == 0) {
    if (lower_words == 0) return;
    word = group * word_bits + highest_bit(lower_words);
  }
  const AncestorWalk::Ancestor& next = walk.ancestors[number_of_bit(word, highest_bit(walk.waiting[word]))];
  fetch_early(&walk.shares[next.sire]);
  fetch_early(&walk.shares[next.dam]);
}

}  // namespace

AncestorWalk make_ancestor_walk(const AncestorPedigree& pedigree) {
  AncestorWalk walk;
  const std::size_t size = pedigree.position.values.size();
  reserve_large(walk.ancestors.values, size);
  for (std::int32_t j = 0; j <= pedigree.count(); ++j) {
    walk.ancestors.values.push_back({pedigree.sire[j], pedigree.dam[j], 0.0F});
  }
  walk.f.values.assign(size, 0.0F);
  walk.f[0] = -1.0F;
  reserve_large(walk.shares.values, size);
  walk.shares.values.assign(size, Lanes{});
  walk.waiting.assign(size / word_bits + 1, 0);
  walk.waiting_words.assign(walk.waiting.size() / word_bits + 1, 0);
  return walk;
}

void set_inbreeding(AncestorWalk& walk, std::int32_t ancestor, float f) {
  AncestorWalk::Ancestor& entry = walk.ancestors[ancestor];
  walk.f[ancestor] = f;
  entry.within_family_variance = within_family_variance(walk.f[entry.sire], walk.f[entry.dam]);
}

PEDIGREEWATCH_PROCESSOR_CLONES
void walk_ancestors(AncestorWalk& walk, std::span<const Mating> matings, std::span<float> results) {
  Lanes sums = {};
  begin_lanes(walk, matings, sums);
  std::int32_t highest = 0;
  for (const Mating& mating : matings) highest = std::max({highest, mating.sire, mating.dam});
  for (std::size_t group = static_cast<std::size_t>(highest) / (word_bits * word_bits) + 1; group-- > 0;) {
    while (walk.waiting_words[group] != 0) {
      const std::size_t word_bit = highest_bit(walk.waiting_words[group]);
      const std::size_t word = group * word_bits + word_bit;
      while (walk.waiting[word] != 0) {  // a visit may put further ancestors into this word
        const std::size_t bit = highest_bit(walk.waiting[word]);
        walk.waiting[word] ^= std::uint64_t{1} << bit;
        if (word + bit == 0) break;  // the unknown parent comes last
        fetch_parents_of_next(walk, group, word_bit);
        visit(walk, number_of_bit(word, bit), sums);
      }
      walk.waiting_words[group] ^= std::uint64_t{1} << word_bit;
    }
  }
  walk.shares[0] = Lanes{};
  for (std::size_t lane = 0; lane < matings.size(); ++lane) results[lane] = sums.each[lane];
}

}  // namespace pedigreewatch
