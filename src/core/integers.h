// Integers of the program are signed 32 bits. Where its arithmetic leaves that range it wraps around, by these
// operations only: plain signed overflow is undefined behaviour. Reals are of single precision.
#pragma once

#include <cstdint>

namespace pedigreewatch {

/// The low 32 bits of `value`, as a signed integer.
constexpr std::int32_t wrapped(std::int64_t value) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(static_cast<std::uint64_t>(value)));
}

/// The single nearest to an integer.
constexpr float real(std::int64_t value) {
  return static_cast<float>(value);
}

/// The quotient of two integers, divided as singles. Nothing guards it against a divisor of 0.
constexpr float quotient(std::int64_t dividend, std::int64_t divisor) {
  return real(dividend) / real(divisor);
}

}  // namespace pedigreewatch
