// One pass over the store. The animal of a subpopulation is counted, any other one is checked: its breed code should be
// the one that all the others share.

#include "pedigree/subpopulation_scan.h"

#include <utility>

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

void count_birth(const PopulationStore& store, std::int32_t position, YearTable<std::int32_t>& births) {
  const std::int32_t year = store.birth_year[position];
  const Row row = year >= 1 ? store.birth_years.row_of(year) : 0;
  if (row != 0) ++births.at(row, store.subpopulation_no(position));
}

/// A mating counts only when both parents belong to a subpopulation.
void count_descent(const PopulationStore& store, std::int32_t position, SubpopulationOverlap& overlap) {
  const std::int32_t sire_no = store.sire_no[position], dam_no = store.dam_no[position];
  if (sire_no <= 0 || dam_no <= 0) return;
  const std::int32_t of_sire = store.subpopulation_no(sire_no), of_dam = store.subpopulation_no(dam_no);
  if (of_sire == 0 || of_dam == 0) return;
  ++overlap.at(store.subpopulation_no(position), of_sire);
  ++overlap.at(store.subpopulation_no(position), of_dam);
}

/// Counting is done at the first number of a name. A name that stands in the steer file again gets the same counts.
void copy_to_equal_names(const Subpopulations& subpopulations, SubpopulationScan& scan) {
  bool has_equal_names = false;
  for (std::int32_t k = 1; k <= subpopulations.count(); ++k) {
    has_equal_names = has_equal_names || subpopulations.first_numbers.at(k) != k;
  }
  if (!has_equal_names) return;
  for (std::int32_t k = 1; k <= subpopulations.count(); ++k) {
    const std::int32_t first_k = subpopulations.first_numbers.at(k);
    for (std::int32_t j = 1; j <= subpopulations.count(); ++j) {
      const std::int32_t first_j = subpopulations.first_numbers.at(j);
      if (first_k != k || first_j != j) scan.overlap.at(k, j) = std::as_const(scan.overlap).at(first_k, first_j);
    }
    if (first_k == k) continue;
    for (Row row = 1; row <= scan.births.row_count(); ++row) {
      if (scan.births.is_stored(row)) scan.births.at(row, k) = scan.births.value(row, first_k);
    }
  }
}

/// The animal that sets the code gets its error lines too, which then compare the code with itself.
void check_breed_code(const PopulationStore& store, std::int32_t position, ReferenceCode& reference,
                      TextOutput& console) {
  const SubpopulationName code = store.subpopulation(position);
  if (same_text(code.full(), reference.code.full())) return;
  if (!reference.is_set) {
    // In either language this line is Dutch.
    write_free_line(console, {"eerste maal rascode:_", code, "_ = niet gelijk aan -", reference.code, "_"});
    reference.code.assign(code.full());
    reference.is_set = true;
  }
  const AnimalName name(store.name(position));
  const AnimalId id(store.id(position));
  write_free_line(console, {"ERROR: "});
  std::vector<LineItem> items = {animal_is};
  if (!console.is_english) items.emplace_back(position);  // only the Dutch line tells the position
  items.insert(items.end(), {name, number_is, id});
  write_free_line(console, items);
  write_free_line(console, {different_breed, code, not_equal, reference.code, "_"});
}

}  // namespace

SubpopulationScan scan_subpopulations(const PopulationStore& store, const Subpopulations& subpopulations,
                                      TextOutput& console) {
  SubpopulationScan scan{{store.birth_years.row_count(), subpopulations.count()},
                         SubpopulationOverlap(subpopulations.count())};
  ReferenceCode reference;
  for (std::int32_t position = 1; position <= store.animal_count; ++position) {
    if (store.subpopulation_no(position) == 0) {
      check_breed_code(store, position, reference, console);
    } else {
      count_birth(store, position, scan.births);
      count_descent(store, position, scan.overlap);
    }
  }
  copy_to_equal_names(subpopulations, scan);
  return scan;
}

ByNumber<std::vector<std::int32_t>> animals_by_subpopulation(const PopulationStore& store,
                                                             const Subpopulations& subpopulations) {
  ByNumber<std::vector<std::int32_t>> animals(subpopulations.names.entries.size());
  for (std::int32_t position = 1; position <= store.animal_count; ++position) {
    if (const std::int32_t number = store.subpopulation_no(position); number != 0) animals[number].push_back(position);
  }
  return animals;
}

}  // namespace pedigreewatch
