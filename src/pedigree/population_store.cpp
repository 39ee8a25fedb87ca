#include "pedigree/population_store.h"

#include <algorithm>

#include "core/integers.h"
#include "core/memory_hints.h"

namespace pedigreewatch {

void allocate_records(PopulationStore& store, std::int32_t count) {
  AnimalRecord before_reading;
  before_reading.name.assign("- ");
  before_reading.sire_id.assign(unknown_parent_id);
  before_reading.dam_id.assign(unknown_parent_id);
  const std::size_t size = count > 0 ? static_cast<std::size_t>(count) : 0;
  // Memory that is never touched costs nothing; with it the store need not be copied when parents are appended.
  constexpr std::size_t share_of_missing_parents = 8;
  reserve_large(store.animals, size + size / share_of_missing_parents);
  store.animals.assign(size, before_reading);
  store.animal_count = count;
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
