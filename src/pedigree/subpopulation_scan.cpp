#include "pedigree/subpopulation_scan.h"

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

void count_birth(const PopulationStore& store, const AnimalRecord& animal, std::int32_t group,
                 YearTable<std::int32_t>& year_table) {
  const std::int32_t row = animal.birth_year >= 1 ? store.birth_years.row_of(animal.birth_year) : 0;
  if (row != 0) ++year_table.at(row, group);
}

/// A mating counts only when both parents belong to a subpopulation.
void count_descent(const AnimalRecord& animal, std::int32_t group, const SubpopulationMembership& membership,
                   SubpopulationOverlap& overlap) {
  if (animal.sire_no <= 0 || animal.dam_no <= 0) return;
  const std::int32_t sire_group = membership.of_animal(animal.sire_no);
  const std::int32_t dam_group = membership.of_animal(animal.dam_no);
  if (sire_group == 0 || dam_group == 0) return;
  ++overlap.at(group, sire_group);
  ++overlap.at(group, dam_group);
}

/// Counting is done by group, at its first name. A name that stands in the steer file again gets the same counts.
void copy_to_equal_names(const SubpopulationMembership& membership, YearTable<std::int32_t>& year_table,
                         SubpopulationOverlap& overlap) {
  const auto group_of = [&](std::int32_t k) { return membership.group_of_name[static_cast<std::size_t>(k) - 1]; };
  for (std::int32_t k = 1; k <= overlap.size; ++k) {
    for (std::int32_t j = 1; j <= overlap.size; ++j) {
      if (group_of(k) != k || group_of(j) != j) overlap.at(k, j) = overlap.at(group_of(k), group_of(j));
    }
    if (group_of(k) == k) continue;
    for (std::int64_t row = 1; row <= year_table.row_count; ++row) {
      if (year_table.is_stored(row)) year_table.at(row, k) = year_table.value(row, group_of(k));
    }
  }
}

/// The animal that sets the code gets its error lines too, which then compare the code with itself.
void check_breed_code(const AnimalRecord& animal, std::int32_t position, ReferenceCode& reference,
                      TextOutput& console) {
  if (same_text(animal.subpopulation.full(), reference.code.full())) return;
  if (!reference.is_set) {
    write_free_line(console,
                    {"eerste maal rascode:_", animal.subpopulation, "_ = niet gelijk aan -", reference.code, "_"});
    reference.code.assign(animal.subpopulation.full());
    reference.is_set = true;
  }
  write_free_line(console, {"ERROR: "});
  if (console.is_english) {
    write_free_line(console, {animal_is.english, animal.name, number_is.english, animal.id});
  } else {  // only the Dutch line tells the position
    write_free_line(console, {animal_is.dutch, position, animal.name, number_is.dutch, animal.id});
  }
  write_free_line(console, {different_breed, animal.subpopulation, not_equal, reference.code, "_"});
}

}  // namespace

void scan_subpopulations(const PopulationStore& store, const SubpopulationMembership& membership,
                         YearTable<std::int32_t>& year_table, SubpopulationOverlap& overlap, TextOutput& console) {
  ReferenceCode reference;
  std::int32_t position = 0;
  for (const AnimalRecord& animal : store.animals) {
    ++position;
    const std::int32_t group = membership.of_animal(position);
    if (group == 0) {
      check_breed_code(animal, position, reference, console);
    } else {
      count_birth(store, animal, group, year_table);
      count_descent(animal, group, membership, overlap);
    }
  }
  copy_to_equal_names(membership, year_table, overlap);
}

}  // namespace pedigreewatch
