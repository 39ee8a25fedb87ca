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
    if (const std::size_t later = static_cast<std::size_t>(position) + look_ahead; later < store.animals.size()) {
      fetch_slot_early(index, hash_of_text(store.animals[later].id.full()));
    }
    find_or_add_text(index, id_at(position), position, id_at);
  }
}

/// The position of the first animal with this identification, or 0.
inline std::int32_t find_animal(const IdIndex& index, const PopulationStore& store, const AnimalId& id) {
  return find_text(index, id.full(), [&](std::int32_t position) { return store.at(position).id.full(); });
}

}  // namespace pedigreewatch
