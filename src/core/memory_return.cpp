#include "core/memory_return.h"

#include <cstdlib>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace pedigreewatch {

#ifdef __GLIBC__

void take_memory_from_one_place() {
  mallopt(M_ARENA_MAX, 1);  // NOLINT(concurrency-mt-unsafe): before there are threads
}

void give_large_blocks_back() {
  // Without this the library takes ever larger blocks from what it keeps, up to 32 MB.
  constexpr int smallest_block = 4'000'000;
  mallopt(M_MMAP_THRESHOLD, smallest_block);  // NOLINT(concurrency-mt-unsafe): before there are threads
}

void give_memory_back() {
  malloc_trim(0);
}

#else

void take_memory_from_one_place() {}
void give_large_blocks_back() {}
void give_memory_back() {}

#endif

}  // namespace pedigreewatch
