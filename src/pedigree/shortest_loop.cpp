// Who goes from any animal to an unsettled parent, and on, comes round at last: that is one loop. Then each animal is
// the start of a search in breadth, no deeper than the shortest loop known.

#include "pedigree/shortest_loop.h"

#include <algorithm>
#include <array>

#include "core/by_number.h"

namespace pedigreewatch {
namespace {

struct LoopSearch {
  const PopulationStore& store;
  ByNumber<char> is_unsettled;
  ByNumber<std::int32_t> met_from;   ///< the start of the search that met the animal last
  ByNumber<std::int32_t> came_from;  ///< the animal in front of it in that search
  std::int64_t visits_left;

  std::array<std::int32_t, 2> parents_of(std::int32_t animal) const {
    return {store.sire_no[animal], store.dam_no[animal]};
  }
};

/// Goes from parent to parent until an animal comes again.
std::vector<std::int32_t> any_loop(LoopSearch& search, std::int32_t start) {
  std::vector<std::int32_t> walk;
  ByNumber<char> is_met(search.store.size());
  std::int32_t animal = start;
  while (is_met[animal] == 0) {
    is_met[animal] = 1;
    walk.push_back(animal);
    const auto [sire, dam] = search.parents_of(animal);
    animal = search.is_unsettled[sire] != 0 ? sire : dam;
  }
  walk.erase(walk.begin(), std::find(walk.begin(), walk.end(), animal));
  return walk;
}

std::vector<std::int32_t> way_back(const LoopSearch& search, std::int32_t start, std::int32_t last) {
  std::vector<std::int32_t> chain;
  for (std::int32_t animal = last; animal != start; animal = search.came_from[animal]) chain.push_back(animal);
  chain.push_back(start);
  std::reverse(chain.begin(), chain.end());
  return chain;
}

/// A loop of fewer than `limit` animals through `start`, the shortest; none: there is none, or the visits are used up.
std::vector<std::int32_t> loop_through(LoopSearch& search, std::int32_t start, std::size_t limit) {
  std::vector<std::int32_t> generation = {start}, next;
  for (std::size_t length = 1; length < limit && !generation.empty(); ++length) {
    next.clear();
    for (const std::int32_t animal : generation) {
      if (--search.visits_left < 0) return {};
      for (const std::int32_t parent : search.parents_of(animal)) {
        if (parent == start) return way_back(search, start, animal);
        if (search.is_unsettled[parent] == 0 || search.met_from[parent] == start) continue;
        search.met_from[parent] = start;
        search.came_from[parent] = animal;
        next.push_back(parent);
      }
    }
    generation.swap(next);
  }
  return {};
}

}  // namespace

LoopChain find_shortest_loop(const PopulationStore& store, std::span<const std::int32_t> unsettled,
                             std::int64_t most_visits) {
  LoopSearch search = {store, ByNumber<char>(store.size()), ByNumber<std::int32_t>(store.size()),
                       ByNumber<std::int32_t>(store.size()), most_visits};
  for (const std::int32_t animal : unsettled) search.is_unsettled[animal] = 1;
  LoopChain chain = {any_loop(search, unsettled.front())};
  for (const std::int32_t start : unsettled) {
    std::vector<std::int32_t> shorter = loop_through(search, start, chain.animals.size());
    if (!shorter.empty()) chain.animals = std::move(shorter);
    if (search.visits_left < 0) break;
  }
  chain.is_shortest = search.visits_left >= 0;
  return chain;
}

}  // namespace pedigreewatch
