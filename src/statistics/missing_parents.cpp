// Every parent is looked up by its identification. Most of the time goes into waiting for memory, so that what later
// animals need is fetched while the present one is dealt with.

#include "statistics/missing_parents.h"

#include <cstdint>
#include <string_view>

#include "core/by_number.h"
#include "core/line_writer.h"

namespace pedigreewatch {
namespace {

struct MissingList {
  NumberedList<AnimalId> ids;  ///< in the order of first mention
  TextIndex index;
};

void number_records(PopulationStore& store) {
  std::int32_t position = 0;
  for (AnimalRecord& animal : store.animals) animal.number = ++position;
}

void note_missing(MissingList& missing, const AnimalId& parent_id) {
  const std::int32_t next = missing.ids.count() + 1;
  const auto id_at = [&](std::int32_t number) { return missing.ids.at(number).full(); };
  if (find_or_add_text(missing.index, parent_id.full(), next, id_at) == next) missing.ids.add(parent_id);
}

/// The position of a parent that has a line; 0 for an unknown one and for one that is put on the missing list.
std::int32_t find_or_note(const AnimalId& parent_id, const PopulationStore& store, const IdIndex& animals,
                          MissingList& missing) {
  if (parent_id == unknown_parent_id) return 0;
  const std::int32_t position = find_animal(animals, store, parent_id);
  if (position == 0) note_missing(missing, parent_id);
  return position;
}

/// Has what the lookups of later animals touch fetched in two steps: the slots of an animal far on, and the records
/// that the slots of one half as far on lead to.
void fetch_lookups_early(const PopulationStore& store, const IdIndex& index, std::size_t place) {
  constexpr std::size_t far = 2 * look_ahead, near = look_ahead;
  if (place + far >= store.animals.size()) return;
  const AnimalRecord& later = store.animals[place + far];
  fetch_slot_early(index, hash_of_text(later.sire_id.full()));
  fetch_slot_early(index, hash_of_text(later.dam_id.full()));
  const AnimalRecord& next = store.animals[place + near];
  for (const AnimalId* const parent_id : {&next.sire_id, &next.dam_id}) {
    const std::int32_t position = likely_place(index, hash_of_text(parent_id->full()));
    if (position != 0) fetch_early(&store.at(position).id);
  }
}

/// Looks up the parents of every animal. Litter mates mostly stand together: what was found for the animal before
/// need not be looked up again.
void find_parents(PopulationStore& store, const IdIndex& index, MissingList& fathers, MissingList& mothers) {
  AnimalRecord first_before;
  first_before.sire_id.assign(unknown_parent_id);
  first_before.dam_id.assign(unknown_parent_id);
  const AnimalRecord* before = &first_before;
  for (std::size_t place = 0; place < store.animals.size(); ++place) {
    AnimalRecord& animal = store.animals[place];
    fetch_lookups_early(store, index, place);
    animal.sire_no =
        animal.sire_id == before->sire_id ? before->sire_no : find_or_note(animal.sire_id, store, index, fathers);
    animal.dam_no =
        animal.dam_id == before->dam_id ? before->dam_no : find_or_note(animal.dam_id, store, index, mothers);
    before = &animal;
  }
}

struct MissingMessages {
  std::string_view none, one, several;
};

// English in either language.
constexpr MissingMessages father_messages = {"no fathers found that were not in database",
                                             "one father found that were not in database",
                                             "fathers found that were not in database"};
constexpr MissingMessages mother_messages = {"no mothers found that were not in database",
                                             "one mother found that were not in database",
                                             "mothers found that were not in database"};

void print_missing_count(std::int32_t count, const MissingMessages& messages, TextOutput& console) {
  if (count == 0) return write_free_line(console, {messages.none});
  if (count == 1) return write_free_line(console, {messages.one});
  write_free_line(console, {count, messages.several});
}

}  // namespace

IdIndex append_missing_parents(PopulationStore& store, TextOutput& console) {
  number_records(store);
  IdIndex index;
  add_ids(index, store, 1);
  MissingList fathers, mothers;
  find_parents(store, index, fathers, mothers);
  print_missing_count(fathers.ids.count(), father_messages, console);
  print_missing_count(mothers.ids.count(), mother_messages, console);
  const std::int32_t first_appended = store.animal_count + 1;
  store.animals.reserve(store.animals.size() + fathers.ids.entries.size() + mothers.ids.entries.size());
  for (const AnimalId& id : fathers.ids.entries) append_parent(store, id, male);
  for (const AnimalId& id : mothers.ids.entries) append_parent(store, id, female);
  add_ids(index, store, first_appended);
  return index;
}

}  // namespace pedigreewatch
