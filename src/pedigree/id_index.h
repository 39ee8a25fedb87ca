// Looks animals up by their identification.
#pragma once

#include "core/text_index.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

using IdIndex = TextIndex;

/// Puts the animals from position `first` on into the index. Of two animals with one identification the first wins.
inline void add_ids(IdIndex& index, const PopulationStore& store, std::int32_t first) {
  const auto id_at = [&](std::int32_t position) { return store.at(position).id.full(); };
  reserve_texts(index, store.animals.size());
  for (std::int32_t position = first; position <= store.animal_count; ++position) {
    find_or_add_text(index, id_at(position), position, id_at);
  }
}

/// The position of the first animal with this identification, or 0.
inline std::int32_t find_animal(const IdIndex& index, const PopulationStore& store, const AnimalId& id) {
  return find_text(index, id.full(), [&](std::int32_t position) { return store.at(position).id.full(); });
}

}  // namespace pedigreewatch
