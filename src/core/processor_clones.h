// Lets the compiler make a function once for each generation of processors, of which the program takes the best one
// that it finds. They differ in the width of their vectors only: each operation on a lane is the same, and so is every
// figure.
#pragma once

#if defined(PEDIGREEWATCH_ONE_PROCESSOR)  // tests make a function for one of them alone
#define PEDIGREEWATCH_PROCESSOR_CLONES PEDIGREEWATCH_ONE_PROCESSOR
#elif defined(__linux__) && defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__) && \
    !defined(__SANITIZE_ADDRESS__)
#define PEDIGREEWATCH_PROCESSOR_CLONES __attribute__((target_clones("avx512f", "avx2", "default")))
#else
#define PEDIGREEWATCH_PROCESSOR_CLONES
#endif

// A step of such a function that has to be part of it: on its own it would be made for the oldest processor only.
#if defined(__GNUC__)
#define PEDIGREEWATCH_PART_OF_CLONES __attribute__((always_inline)) inline
#else
#define PEDIGREEWATCH_PART_OF_CLONES inline
#endif
