// Random numbers that are the same everywhere: xoshiro256** (Blackman and Vigna, 2021, ACM Trans. Math. Softw. 47:36),
// started from a number by splitmix64. Every replicate, year and purpose has a stream of its own, so that a rule that
// needs more draws in one place does not change the draws of another.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace pedigreewatch {

/// What numbers are drawn for. The order is part of the results.
enum class DrawPurpose : std::uint8_t {
  base_period,
  targets,
  sire_careers,
  dam_careers,
  sire_entry,
  dam_entry,
  sire_use,
  groups,
  pairing,
  births,
  numbers,
  nearness,
};

struct RandomStream {
  std::array<std::uint64_t, 4> state = {};

  std::uint64_t next();
  /// 0 to `limit` - 1; 0 for a limit below 2.
  std::int32_t below(std::int32_t limit);
  /// Any place of a list with `count` entries, which are fewer than 2 to the power of 32; as `below` draws it.
  std::size_t place_among(std::size_t count);
  /// From 0 up to, and without, 1.
  double unit();
  bool chance(double probability) { return unit() < probability; }
};

/// The next number of splitmix64.
std::uint64_t mix_next(std::uint64_t& state);

RandomStream make_stream(std::uint64_t seed);
RandomStream make_stream(std::uint64_t seed, std::int32_t replicate, std::int32_t year, DrawPurpose purpose);

/// Brings the values into any order, all orders alike.
template <typename Value>
void shuffle(RandomStream& random, std::span<Value> values) {
  for (std::size_t rest = values.size(); rest > 1; --rest) {
    std::swap(values[rest - 1], values[random.place_among(rest)]);
  }
}

/// Any entry of a list that has one.
template <typename Value>
const Value& pick(RandomStream& random, const std::vector<Value>& values) {
  return values[random.place_among(values.size())];
}

}  // namespace pedigreewatch
