#include "pedigree/id_index.h"

namespace pedigreewatch {
namespace {

std::string_view text_of(const IdIndex& index, const TextArena& ids, std::int32_t place) {
  return place > 0 ? ids.at(place) : index.pending.at(-place);
}

}  // namespace

void fetch_slots_early(const IdIndex& index, const RecordIds& record) {
  for (const std::uint32_t hash : {record.own.hash, record.sire.hash, record.dam.hash}) {
    fetch_slot_early(index.texts, hash);
  }
}

void fetch_texts_early(const IdIndex& index, const TextArena& ids, const RecordIds& record) {
  for (const std::uint32_t hash : {record.sire.hash, record.dam.hash}) {
    const std::int32_t place = likely_place(index.texts, hash);
    if (place > 0) ids.fetch_text_early(place);
  }
}

void add_record_id(IdIndex& index, const TextArena& ids, HashedText id, std::int32_t record) {
  const auto text_at = [&](std::int32_t place) { return text_of(index, ids, place); };
  std::int32_t& place = find_or_add_place(index.texts, id, record, text_at);
  if (place >= 0) return;
  index.pending_record.at(-place) = record;
  place = record;
}

std::int32_t number_of_parent(IdIndex& index, const TextArena& ids, HashedText parent_id) {
  const auto text_at = [&](std::int32_t place) { return text_of(index, ids, place); };
  const std::int32_t next_pending = index.pending.count() + 1;
  const std::int32_t place = find_or_add_place(index.texts, parent_id, -next_pending, text_at);
  if (place == -next_pending) {
    index.pending.add(parent_id.text);
    index.pending_record.add(0);
  }
  return place;
}

}  // namespace pedigreewatch
