// The shortest chain of animals each of which is a parent of the one before, and the first one a parent of the last.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "pedigree/population_store.h"

namespace pedigreewatch {

struct LoopChain {
  std::vector<std::int32_t> animals;  ///< positions; each is a parent of the one before it, the first of the last
  bool is_shortest = true;            ///< false: the search was given up, and there may be a shorter one
};

/// How many visits of an animal the search for a shorter chain may take.
inline constexpr std::int64_t usual_loop_search = 50'000'000;

/// A shortest loop among `unsettled`, the positions of animals each of which has a parent among them; at least one. The
/// first found of several as short.
LoopChain find_shortest_loop(const PopulationStore& store, std::span<const std::int32_t> unsettled,
                             std::int64_t most_visits = usual_loop_search);

}  // namespace pedigreewatch
