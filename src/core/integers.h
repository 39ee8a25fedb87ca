// Integers of the program are signed 32 bits. Where its arithmetic leaves that range it wraps around, by these
// helpers only: plain signed overflow is undefined behaviour.
#pragma once

#include <cstdint>

namespace pedigreewatch {

/// The low 32 bits of `value`, as a signed integer.
constexpr std::int32_t wrapped(std::int64_t value) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(static_cast<std::uint64_t>(value)));
}

}  // namespace pedigreewatch
