// Where memory comes from and goes to, where the library would take more of it than the work needs.
#pragma once

namespace pedigreewatch {

/// From now on threads take their memory from one place. Else the library sets 64 MB aside for each of them, and a
/// limit of memory counts those.
void take_memory_from_one_place();

/// From now on large blocks go back to the system when they are let go, where the library knows how: for work in steps
/// that each take much memory, in blocks of other sizes, so that none needs room beside what the others have left.
void give_large_blocks_back();

/// Gives back what else was let go so far.
void give_memory_back();

}  // namespace pedigreewatch
