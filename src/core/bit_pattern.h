// The bits of a value as those of another type of the same size, like std::bit_cast, which not every library has yet.
#pragma once

#include <cstring>

namespace pedigreewatch {

template <typename To, typename From>
To bits_as(const From& value) {
  static_assert(sizeof(To) == sizeof(From));
  To result;
  std::memcpy(&result, &value, sizeof result);
  return result;
}

}  // namespace pedigreewatch
