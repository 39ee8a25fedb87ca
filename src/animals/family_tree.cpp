#include "animals/family_tree.h"

#include <algorithm>

#include "core/bit_pattern.h"
#include "genetics/ancestor_pedigree.h"

namespace pedigreewatch {
namespace {

/// Whether the ancestor of this place has another offspring in another place.
bool joins_lines(const FamilyTree& tree, std::size_t place) {
  for (std::size_t other = 2; other < tree_places; ++other) {
    const bool is_same = tree.positions[other] == tree.positions[place];
    if (is_same && tree.positions[other / 2] != tree.positions[place / 2]) return true;
  }
  return false;
}

void number_meetings(FamilyTree& tree) {
  std::uint8_t last = 0;
  for (std::size_t place = 2; place < tree_places; ++place) {
    if (tree.times[place] < 2 || !joins_lines(tree, place)) continue;
    const auto* const first = std::find(tree.positions.begin() + 1, tree.positions.end(), tree.positions[place]);
    const auto first_place = static_cast<std::size_t>(first - tree.positions.begin());
    tree.meeting[place] = first_place < place ? tree.meeting[first_place] : ++last;
  }
}

}  // namespace

FamilyTree family_tree_of(const PopulationStore& store, std::int32_t position) {
  FamilyTree tree;
  tree.positions[1] = position;
  for (std::size_t place = 1; 2 * place + 1 < tree_places; ++place) {
    if (tree.positions[place] == 0) continue;
    const KnownParents parents = known_parents(store, tree.positions[place]);
    tree.positions[2 * place] = parents.sire;
    tree.positions[2 * place + 1] = parents.dam;
  }
  for (std::size_t place = 1; place < tree_places; ++place) {
    if (tree.positions[place] == 0) continue;
    tree.times[place] =
        static_cast<std::uint8_t>(std::count(tree.positions.begin() + 1, tree.positions.end(), tree.positions[place]));
  }
  number_meetings(tree);
  return tree;
}

std::size_t generation_of(std::size_t place) {
  return highest_bit(place);
}

}  // namespace pedigreewatch
