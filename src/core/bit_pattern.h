// Bits of values. `bits_as` yields them as those of another type of the same size, like std::bit_cast, which not every
// library has yet.
#pragma once

#include <bit>
#include <concepts>
#include <cstddef>
#include <cstring>

namespace pedigreewatch {

template <typename To, typename From>
To bits_as(const From& value) {
  static_assert(sizeof(To) == sizeof(From));
  To result;
  std::memcpy(&result, &value, sizeof result);
  return result;
}

/// The place of the lowest bit that is set, counted from 0. One must be.
template <std::unsigned_integral Bits>
std::size_t lowest_bit(Bits bits) {
  return static_cast<std::size_t>(std::countr_zero(bits));
}

/// The place of the highest bit that is set, counted from 0. One must be.
template <std::unsigned_integral Bits>
std::size_t highest_bit(Bits bits) {
  return static_cast<std::size_t>(std::bit_width(bits)) - 1;
}

}  // namespace pedigreewatch
