#include "core/memory_hints.h"

#ifdef __linux__
#include <sys/mman.h>

#include <cstdint>
#endif

namespace pedigreewatch {

#ifdef __linux__
void prefer_large_pages(void* memory, std::size_t bytes) {
  constexpr std::uintptr_t page = 4096, large_page = std::uintptr_t{2} << 20;
  const std::uintptr_t begin = (reinterpret_cast<std::uintptr_t>(memory) + page - 1) / page * page;
  const std::uintptr_t end = (reinterpret_cast<std::uintptr_t>(memory) + bytes) / page * page;
  if (end < begin + large_page) return;
  // A system that has none says so; then the pages stay as they are.
  [[maybe_unused]] const int refused = madvise(reinterpret_cast<void*>(begin), end - begin, MADV_HUGEPAGE);
}
#else
void prefer_large_pages(void*, std::size_t) {}
#endif

}  // namespace pedigreewatch
