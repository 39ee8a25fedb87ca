// The animals of a data file in columns of numbers: a fraction of the memory of their records, and enough to find what
// is wrong with them. Texts of the identifications are kept once and known by their numbers.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "checks/calendar.h"
#include "checks/text_store.h"
#include "core/by_number.h"
#include "core/memory_hints.h"
#include "intake/export_lines.h"

namespace pedigreewatch {

/// What is known of an animal besides its numbers.
enum AnimalMark : std::uint8_t {
  mark_import = 1,
  mark_year_only = 2,     ///< the day or the month of birth is unknown
  mark_no_animal = 4,     ///< a blank line, a total, the header again: it counts as an animal but is none
  mark_strange_year = 8,  ///< its year has been reported: two digits, a placeholder, in the future
  mark_bare = 16,         ///< its line has nothing but an identification
  mark_lone = 32,         ///< the only one beyond a gap in the years: its date is in doubt
};

/// Adds to the marks of an animal.
inline void add_mark(std::uint8_t& marks, AnimalMark mark) {
  marks = static_cast<std::uint8_t>(marks | mark);
}

struct BirthDay {
  std::int32_t year = 0;  ///< 0 for unknown
  std::int32_t day = 1;
  std::int8_t month = 1;
};

/// Animals are numbered from 1 in the order of their lines.
struct PedigreeColumns {
  std::int32_t first_line = 2;               ///< of animal 1 in the data file
  std::vector<LineShift> shifts;             ///< where these lines stand in the export; none: at their own places
  TextStore ids;                             ///< of animals and parents, as the program cuts them
  NumberedList<std::int32_t> id, sire, dam;  ///< numbers of `ids`; 0 for unknown
  NumberedList<BirthDay> birth;
  NumberedList<std::uint8_t> marks;
  NumberedList<char> sex;                ///< first character of its text
  std::vector<char> name_bytes;          ///< of all animals in a row
  NumberedList<std::uint32_t> name_end;  ///< where the name of an animal ends
  ByNumber<std::int32_t> animal_of;      ///< for each of `ids` the first animal that has it; 0 for none

  std::int32_t count() const { return id.count(); }
  /// The line of an animal as findings name it: that of the export, where it is known.
  std::int32_t line_of(std::int32_t animal) const {
    return static_cast<std::int32_t>(export_line_of(shifts, first_line + animal - 1));
  }
  bool has_mark(std::int32_t animal, AnimalMark mark) const { return (marks.at(animal) & mark) != 0; }
  /// The name as the data file has it; empty for none, also where "-" stands.
  std::string_view name(std::int32_t animal) const {
    const std::uint32_t begin = animal > 1 ? name_end.at(animal - 1) : 0;
    return {name_bytes.data() + begin, name_end.at(animal) - begin};
  }
  bool has_name(std::int32_t animal) const { return !name(animal).empty(); }
  /// The animal that a parent's identification is linked to; 0 for none.
  std::int32_t linked(std::int32_t parent_id) const { return parent_id == 0 ? 0 : animal_of[parent_id]; }
};

/// Has the births of the parents fetched that the animal `look_ahead` places on has, in two steps: those further on are
/// first looked up.
inline void fetch_parents_early(const PedigreeColumns& animals, std::int32_t animal) {
  if (animal > animals.count() - 2 * look_ahead) return;
  fetch_early(&animals.animal_of[animals.sire.at(animal + 2 * look_ahead)]);
  fetch_early(&animals.animal_of[animals.dam.at(animal + 2 * look_ahead)]);
  const std::int32_t sire = animals.linked(animals.sire.at(animal + look_ahead));
  const std::int32_t dam = animals.linked(animals.dam.at(animal + look_ahead));
  if (sire != 0) fetch_early(&animals.birth.at(sire));
  if (dam != 0) fetch_early(&animals.birth.at(dam));
}

/// The days on which an animal can have been born; the first is behind the last when nothing is known.
struct DayRange {
  std::int32_t first = 1, last = 0;
  bool is_known() const { return first <= last; }
};

inline DayRange days_of_birth(const PedigreeColumns& animals, std::int32_t animal) {
  const BirthDay& birth = animals.birth.at(animal);
  if (birth.year == 0 || animals.has_mark(animal, mark_no_animal)) return {};
  if (animals.has_mark(animal, mark_year_only)) {
    return {day_number({birth.year, 1, 1}), day_number({birth.year, 12, 31})};
  }
  const std::int32_t day = day_number({birth.year, birth.month, birth.day});
  return {day, day};
}

}  // namespace pedigreewatch
