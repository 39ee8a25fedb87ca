// Turns the identifications of animals and parents into numbers while the lines are read. A parent mostly has its line
// before its young; one that has not had its line so far is pending, and known by a negative number until it comes.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/by_number.h"
#include "core/text_arena.h"
#include "core/text_index.h"

namespace pedigreewatch {

struct IdIndex {
  TextIndex texts;                            ///< places: the record of an identification, or minus its pending number
  TextArena pending;                          ///< identifications that were mentioned before they had a record
  NumberedList<std::int32_t> pending_record;  ///< by pending number: the record that came; 0 as long as there is none
};

/// The three identifications of a record.
struct RecordIds {
  HashedText own, sire, dam;
};

/// Has the slots fetched where the look-ups of an animal's three identifications will begin.
void fetch_slots_early(const IdIndex& index, const RecordIds& record);

/// Has the texts fetched with which the identifications of the parents will probably be compared.
void fetch_texts_early(const IdIndex& index, const TextArena& ids, const RecordIds& record);

/// Of two records with one identification the first wins. `ids` has the identifications of all records, this one too.
void add_record_id(IdIndex& index, const TextArena& ids, HashedText id, std::int32_t record);

/// The first record with the identification of a parent, or its pending number, below 0.
std::int32_t number_of_parent(IdIndex& index, const TextArena& ids, HashedText parent_id);

}  // namespace pedigreewatch
