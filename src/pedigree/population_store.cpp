// A new record is a copy of one that is unread: the values that an animal has when its line says nothing.

#include "pedigree/population_store.h"

#include <algorithm>
#include <numeric>

#include "core/integers.h"
#include "core/memory_hints.h"

namespace pedigreewatch {

void allocate_records(PopulationStore& store, std::int32_t count, const BlankNumbers& blank) {
  store.unread = AnimalRecord{};
  store.unread.name.assign("- ");
  store.unread.sire_id.assign(unknown_parent_id);
  store.unread.dam_id.assign(unknown_parent_id);
  store.unread.subpopulation_no = blank.subpopulation;
  store.unread.colour_no = blank.colour;
  const std::size_t size = count > 0 ? static_cast<std::size_t>(count) : 0;
  // Memory that is never touched costs nothing; with it the store need not be copied when parents are appended.
  constexpr std::size_t share_of_missing_parents = 8;
  reserve_large(store.animals, size + size / share_of_missing_parents);
  store.animals.assign(size, store.unread);
  store.animal_count = count;
}

void append_parent(PopulationStore& store, const AnimalId& id, Sex sex) {
  AnimalRecord& parent = store.animals.emplace_back(store.unread);
  parent.id = id;
  parent.name = {};
  parent.sex = sex;
  parent.number = ++store.animal_count;
}

std::vector<std::int32_t> all_positions(const PopulationStore& store) {
  std::vector<std::int32_t> positions(store.animals.size());
  std::iota(positions.begin(), positions.end(), 1);
  return positions;
}

BirthYears birth_years_of(std::span<const AnimalRecord> animals) {
  BirthYears years;
  for (const AnimalRecord& animal : animals) {
    if (animal.birth_year != 0) years.first = std::min(years.first, animal.birth_year);
    years.last = std::max(years.last, animal.birth_year);
  }
  years.count = wrapped(std::int64_t{years.last} - years.first + 1);
  return years;
}

}  // namespace pedigreewatch
