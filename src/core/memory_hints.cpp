#include "core/memory_hints.h"

#ifdef __linux__
#include <sys/mman.h>

#include <memory>
#endif

namespace pedigreewatch {

#ifdef __linux__
void prefer_large_pages(void* memory, std::size_t bytes) {
  constexpr std::size_t page = 4096, large_page = std::size_t{2} << 20;
  if (std::align(page, large_page, memory, bytes) == nullptr) return;  // too small for a single one
  // A system that has none says so; then the pages stay as they are.
  [[maybe_unused]] const int refused = madvise(memory, bytes / page * page, MADV_HUGEPAGE);
}
#else
void prefer_large_pages(void*, std::size_t) {}
#endif

}  // namespace pedigreewatch
