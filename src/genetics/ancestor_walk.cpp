// Ancestors wait as set bits in two levels of words, the upper one telling which of the lower are not 0: the youngest
// is found in a few steps, and putting one on the list twice costs nothing.
//
// In a line of selfing or full sibs that goes on for thousands of generations, F stays at the number next to 1 that it
// has reached, and with it the part that each ancestor adds to a sum: so little that the sum stays what it is. Such a
// line is passed over in one step, to the last bit as if each of its ancestors had been visited.

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

PEDIGREEWATCH_PART_OF_CLONES void put_on_list(AncestorWalk& walk, std::int32_t number) {
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
PEDIGREEWATCH_PART_OF_CLONES void visit(AncestorWalk& walk, std::int32_t number, Lanes& sums) {
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

// --- Lines that are passed over ---

using Ancestors = ByNumber<AncestorWalk::Ancestor>;

bool have_same_parents(const AncestorWalk::Ancestor& a, const AncestorWalk::Ancestor& b) {
  return a.sire == b.sire && a.dam == b.dam;
}

/// The parents of an ancestor whose share goes on to them undivided: one that was selfed, or two full sibs of which
/// each has one half of each share in their young. 0 for all others.
LineEnd parents_in_line(const Ancestors& ancestors, std::int32_t number) {
  const AncestorWalk::Ancestor& own = ancestors[number];
  const LineEnd parents = {std::min(own.sire, own.dam), std::max(own.sire, own.dam)};
  if (parents.older == 0) return {};
  if (parents.older == parents.younger) return parents;
  const AncestorWalk::Ancestor &a = ancestors[parents.older], &b = ancestors[parents.younger];
  return have_same_parents(a, b) && a.sire != 0 && a.dam != 0 ? parents : LineEnd{};
}

/// Whether selfing or full sibs go on for so long anywhere that it pays to look for them in each walk.
bool has_long_line(const Ancestors& ancestors) {
  constexpr std::int32_t fewest_generations = 100;
  ByNumber<std::int32_t> generations(ancestors.values.size() - 1);
  for (std::int32_t j = 1; j <= ancestors.last(); ++j) {
    const LineEnd parents = parents_in_line(ancestors, j);
    if (parents.older != 0) generations[j] = generations[parents.younger] + 1;
    if (generations[j] >= fewest_generations) return true;
  }
  return false;
}

/// How far the line of an ancestor goes, of which F is known, and F of all before it.
LineEnd find_line_end(const AncestorWalk& walk, std::int32_t number) {
  const LineEnd parents = parents_in_line(walk.ancestors, number);
  const float variance = walk.ancestors[number].within_family_variance;
  if (parents.older == 0 || walk.ancestors[parents.younger].within_family_variance != variance) return {};
  const LineEnd further = walk.line_ends[parents.younger];
  // What is handed on to one that was selfed, and to two sibs, are different shares.
  const bool goes_on = further.older != 0 && (further.older == further.younger) == (parents.older == parents.younger);
  return goes_on ? further : parents;
}

/// The youngest ancestor that waits; 0 when nobody else does. `group` is that of the youngest that may wait.
std::int32_t youngest_waiting(const AncestorWalk& walk, std::size_t group) {
  for (;; --group) {
    std::uint64_t words = walk.waiting_words[group];
    while (words != 0) {
      const std::size_t word_bit = highest_bit(words);
      const std::size_t word = group * word_bits + word_bit;
      if (walk.waiting[word] != 0) return number_of_bit(word, highest_bit(walk.waiting[word]));
      words ^= std::uint64_t{1} << word_bit;
    }
    if (group == 0) return 0;
  }
}

void take_off_list(AncestorWalk& walk, std::int32_t number) {
  const std::size_t bit = static_cast<std::size_t>(number);
  const std::size_t word = bit / word_bits;
  walk.waiting[word] &= ~(std::uint64_t{1} << (bit % word_bits));
  if (walk.waiting[word] == 0) walk.waiting_words[word / word_bits] &= ~(std::uint64_t{1} << (word % word_bits));
}

bool are_equal(const LaneVector& a, const LaneVector& b) {
  for (std::size_t lane = 0; lane < lane_count; ++lane) {
    if (a[lane] != b[lane]) return false;
  }
  return true;
}

/// Passes over the line of an ancestor that is off the list, if nobody else waits before its end and none of its parts
/// changes a sum. What reaches the end is the share of the first, for halves of it come together again at each
/// generation. Yields whether it did.
bool pass_over_line(AncestorWalk& walk, std::int32_t number, const Lanes& sums) {
  const LineEnd end = walk.line_ends[number];
  if (end.older == 0) return false;
  const AncestorWalk::Ancestor& own = walk.ancestors[number];
  const LaneVector share = walk.shares[number].each;
  if (!are_equal(sums.each + share * share * own.within_family_variance, sums.each)) return false;
  const std::size_t group = static_cast<std::size_t>(number) / (word_bits * word_bits);
  std::int32_t sib = 0;
  if (own.sire != own.dam) {
    sib = youngest_waiting(walk, group);
    if (!have_same_parents(own, walk.ancestors[sib]) || !are_equal(share, walk.shares[sib].each)) return false;
    take_off_list(walk, sib);
  }
  if (youngest_waiting(walk, group) >= end.older) {
    if (sib != 0) put_on_list(walk, sib);
    return false;
  }
  walk.shares[number] = Lanes{};
  if (sib != 0) walk.shares[sib] = Lanes{};
  walk.shares[end.older].each = walk.shares[end.younger].each = share;
  put_on_list(walk, end.older);
  put_on_list(walk, end.younger);
  return true;
}

/// Visits everybody on the list, the youngest first; `highest` is the youngest. `passes_over_lines`: where there are
/// long ones. The sums are its own while it works, so that they stay in registers where none of them is.
template <bool passes_over_lines>
PEDIGREEWATCH_PART_OF_CLONES void visit_all(AncestorWalk& walk, std::int32_t highest, Lanes& all_sums) {
  Lanes sums = all_sums;
  for (std::size_t group = static_cast<std::size_t>(highest) / (word_bits * word_bits) + 1; group-- > 0;) {
    while (walk.waiting_words[group] != 0) {
      const std::size_t word_bit = highest_bit(walk.waiting_words[group]);
      const std::size_t word = group * word_bits + word_bit;
      while (walk.waiting[word] != 0) {  // a visit may put further ancestors into this word
        const std::size_t bit = highest_bit(walk.waiting[word]);
        walk.waiting[word] ^= std::uint64_t{1} << bit;
        if (word + bit == 0) break;  // the unknown parent comes last
        if constexpr (passes_over_lines) {
          if (pass_over_line(walk, number_of_bit(word, bit), sums)) continue;
        }
        visit(walk, number_of_bit(word, bit), sums);
      }
      walk.waiting_words[group] &= ~(std::uint64_t{1} << word_bit);
    }
  }
  all_sums = sums;
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
  if (has_long_line(walk.ancestors)) walk.line_ends.values.assign(size, LineEnd{});
  walk.waiting.assign(size / word_bits + 1, 0);
  walk.waiting_words.assign(walk.waiting.size() / word_bits + 1, 0);
  return walk;
}

void set_inbreeding(AncestorWalk& walk, std::int32_t ancestor, float f) {
  AncestorWalk::Ancestor& entry = walk.ancestors[ancestor];
  walk.f[ancestor] = f;
  entry.within_family_variance = within_family_variance(walk.f[entry.sire], walk.f[entry.dam]);
  if (!walk.line_ends.values.empty()) walk.line_ends[ancestor] = find_line_end(walk, ancestor);
}

PEDIGREEWATCH_PROCESSOR_CLONES
void walk_ancestors(AncestorWalk& walk, std::span<const Mating> matings, std::span<float> results) {
  Lanes sums = {};
  begin_lanes(walk, matings, sums);
  std::int32_t highest = 0;
  for (const Mating& mating : matings) highest = std::max({highest, mating.sire, mating.dam});
  if (walk.line_ends.values.empty()) {
    visit_all<false>(walk, highest, sums);
  } else {
    visit_all<true>(walk, highest, sums);
  }
  walk.shares[0] = Lanes{};
  for (std::size_t lane = 0; lane < matings.size(); ++lane) results[lane] = sums.each[lane];
}

}  // namespace pedigreewatch
