#include "pedigree/subpopulation_scan.h"

#include <algorithm>

#include "core/line_writer.h"
#include "core/wording.h"

namespace pedigreewatch {
namespace {

constexpr Wording animal_is = {"animal: ", "dier: "};
constexpr Wording number_is = {" no.: ", " nr: "};
constexpr Wording different_breed = {"of a different breed. breed code:_", "Van een ander ras. rascode:_"};
constexpr Wording not_equal = {"_= not equal to -", "_= niet gelijk aan -"};

/// The code that all animals of no subpopulation are expected to have: the first one met, cut to its 8 characters.
struct ReferenceCode {
  FixedText<8> code;
  bool is_set = false;
};

void count_birth(const PopulationStore& store, const AnimalRecord& animal, std::span<const std::int32_t> names,
                 YearTable<std::int32_t>& year_table) {
  const std::int32_t row = animal.birth_year >= 1 ? store.birth_years.row_of(animal.birth_year) : 0;
  if (row == 0) return;
  for (const std::int32_t k : names) ++year_table.at(row, k);
}

/// A mating counts only when both parents belong to a subpopulation.
void count_descent(const AnimalRecord& animal, std::span<const std::int32_t> names,
                   const SubpopulationMembership& membership, SubpopulationOverlap& overlap) {
  if (animal.sire_no <= 0 || animal.dam_no <= 0) return;
  const std::int32_t sire_group = membership.of_animal(animal.sire_no);
  const std::int32_t dam_group = membership.of_animal(animal.dam_no);
  if (sire_group == 0 || dam_group == 0) return;
  for (const std::int32_t k : names) {
    for (const std::int32_t j : membership.names_of(sire_group)) ++overlap.at(k, j);
    for (const std::int32_t j : membership.names_of(dam_group)) ++overlap.at(k, j);
  }
}

/// The animal that sets the code gets its error lines too, which then compare the code with itself.
void check_breed_code(const AnimalRecord& animal, std::int32_t position, ReferenceCode& reference, bool english,
                      TextOutput& console) {
  if (same_text(animal.subpopulation.full(), reference.code.full())) return;
  if (!reference.is_set) {
    write_free_line(console,
                    {"eerste maal rascode:_", animal.subpopulation, "_ = niet gelijk aan -", reference.code, "_"});
    reference.code.assign(animal.subpopulation.full());
    reference.is_set = true;
  }
  write_free_line(console, {"ERROR: "});
  if (english) {
    write_free_line(console, {animal_is.english, animal.name, number_is.english, animal.id});
  } else {  // only the Dutch line tells the position
    write_free_line(console, {animal_is.dutch, position, animal.name, number_is.dutch, animal.id});
  }
  write_free_line(console,
                  {different_breed.in(english), animal.subpopulation, not_equal.in(english), reference.code, "_"});
}

}  // namespace

void scan_subpopulations(const PopulationStore& store, const SubpopulationMembership& membership, bool english,
                         YearTable<std::int32_t>& year_table, SubpopulationOverlap& overlap, TextOutput& console) {
  ReferenceCode reference;
  std::int32_t position = 0;
  for (const AnimalRecord& animal : store.animals) {
    ++position;
    const std::int32_t group = membership.of_animal(position);
    if (group == 0) {
      check_breed_code(animal, position, reference, english, console);
    } else {
      const std::span<const std::int32_t> names = membership.names_of(group);
      count_birth(store, animal, names, year_table);
      count_descent(animal, names, membership, overlap);
    }
  }
}

}  // namespace pedigreewatch
