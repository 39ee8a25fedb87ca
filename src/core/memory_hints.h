// Hints to processor and system for arrays that are larger than any cache. They change no figure, only the time until
// it is there; where the compiler or the system does not know them they do nothing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace pedigreewatch {

/// Animals that a pass looks ahead: what is wanted of the relatives of an animal so far on is fetched while the ones
/// before it are dealt with.
inline constexpr std::int32_t look_ahead = 16;

/// Has the memory at `address` fetched, which will be wanted soon. Any address will do.
inline void fetch_early(const void* address) {
  __builtin_prefetch(address);
}

/// Asks the system for large pages behind `bytes` bytes of memory that nothing has been written to yet.
void prefer_large_pages(void* memory, std::size_t bytes);

/// Makes room for `count` elements, in large pages where there are any.
template <typename T>
void reserve_large(std::vector<T>& elements, std::size_t count) {
  if (count <= elements.capacity()) return;
  elements.reserve(count);
  prefer_large_pages(elements.data(), elements.capacity() * sizeof(T));
}

}  // namespace pedigreewatch
