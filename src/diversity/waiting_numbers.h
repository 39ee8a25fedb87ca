// Numbers that wait to be visited in ascending or descending order: a bit for each of them, and above those a bit for
// each word that has one set. Putting one on the list twice costs nothing.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "core/bit_pattern.h"

namespace pedigreewatch {

struct WaitingNumbers {
  static constexpr std::size_t word_bits = 64;
  struct Place {
    std::size_t word = 0, bit = 0;
  };
  std::vector<std::uint64_t> bits, words;

  /// For numbers from 0 to `last`.
  explicit WaitingNumbers(std::int32_t last)
      : bits(place_of(last).word + 1, 0), words(bits.size() / word_bits + 1, 0) {}

  void put(std::int32_t number) {
    const auto [word, bit] = place_of(number);
    bits[word] |= std::uint64_t{1} << bit;
    words[word / word_bits] |= std::uint64_t{1} << (word % word_bits);
  }

  void take_off(std::size_t word, std::size_t bit) {
    bits[word] &= ~(std::uint64_t{1} << bit);
    if (bits[word] == 0) words[word / word_bits] &= ~(std::uint64_t{1} << (word % word_bits));
  }

  static Place place_of(std::int32_t number) {
    const auto place = static_cast<std::size_t>(number);
    return {place / word_bits, place % word_bits};
  }
  static std::int32_t number_of(std::size_t word, std::size_t bit) {
    return static_cast<std::int32_t>(word * word_bits + bit);
  }
};

/// Visits all waiting numbers from `first` down, those below the visited one that a visit puts on the list too. All
/// waiting numbers are at most `first`; afterwards none waits.
template <typename Visit>
void visit_downwards(WaitingNumbers& waiting, std::int32_t first, Visit&& visit) {
  constexpr std::size_t word_bits = WaitingNumbers::word_bits;
  for (std::size_t group = WaitingNumbers::place_of(first).word / word_bits + 1; group-- > 0;) {
    while (waiting.words[group] != 0) {
      const std::size_t word = group * word_bits + highest_bit(waiting.words[group]);
      const std::size_t bit = highest_bit(waiting.bits[word]);
      waiting.take_off(word, bit);
      visit(WaitingNumbers::number_of(word, bit));
    }
  }
}

/// The same from `first` up; all waiting numbers are at least `first`.
template <typename Visit>
void visit_upwards(WaitingNumbers& waiting, std::int32_t first, Visit&& visit) {
  constexpr std::size_t word_bits = WaitingNumbers::word_bits;
  for (std::size_t group = WaitingNumbers::place_of(first).word / word_bits; group < waiting.words.size(); ++group) {
    while (waiting.words[group] != 0) {
      const std::size_t word = group * word_bits + lowest_bit(waiting.words[group]);
      const std::size_t bit = lowest_bit(waiting.bits[word]);
      waiting.take_off(word, bit);
      visit(WaitingNumbers::number_of(word, bit));
    }
  }
}

}  // namespace pedigreewatch
