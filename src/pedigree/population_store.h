// The population: one record for each animal, from the moment its line is read until the report is closed. Every
// phase reads and writes the same records in place; parents are known by position, counted from 1, with 0 for an
// unknown one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "core/birth_years.h"
#include "core/fixed_text.h"
#include "core/memory_hints.h"
#include "pedigree/sex.h"

namespace pedigreewatch {

using AnimalId = FixedText<30>;
using AnimalName = FixedText<50>;
using SubpopulationName = FixedText<20>;
using ColourName = FixedText<40>;
using BreederName = FixedText<20>;

/// The text that stands for an unknown parent.
inline constexpr std::string_view unknown_parent_id = "0";

/// A record fills five cache lines, and what a pass needs together stands together: the numbers in one line, the
/// parents' identifications in another.
struct AnimalRecord {
  alignas(64) std::int32_t birth_year = 0;  ///< 0 for unknown
  std::int32_t birth_month = 1;             ///< 1 to 12
  std::int32_t birth_day = 1;
  Sex sex = female;
  bool is_import = false;                   ///< imported, or bred outside the population
  bool is_native_parent = false;            ///< has offspring in the store that is no import
  std::int32_t sire_no = 0, dam_no = 0;     ///< positions of the parents; smaller than the animal's own once sorted
  std::int32_t dam_age_days = 0;            ///< mother's age at this birth in years of 365 days; -1: not determined
  std::int32_t sire_age_days = 0;           ///< likewise for the father
  std::int32_t native_offspring_count = 0;  ///< offspring in the store that is no import
  std::int32_t offspring_count = 0;
  std::int32_t subpopulation_no = 0;      ///< its number among the allowed subpopulations; 0 for any other text
  std::int32_t colour_no = 0;             ///< its number among the colours that are counted; 0 for any other text
  float generation_equivalents = 0.0F;    ///< sum over known ancestors of 1/2 to the power of generations between
  std::int32_t complete_generations = 0;  ///< generations in which every ancestor is known
  float inbreeding = 0.0F;                ///< F

  alignas(64) AnimalId sire_id;
  AnimalId dam_id;          ///< "0" for an unknown parent, like `sire_id`
  std::int32_t number = 0;  ///< the record's position, counted from 1

  alignas(64) AnimalId id;
  SubpopulationName subpopulation;
  std::int32_t line = 0;  ///< of the data file, counted from 1; 0 for an appended parent

  alignas(64) ColourName colour;
  BreederName breeder;

  alignas(64) AnimalName name;
};
static_assert(sizeof(AnimalRecord) == std::size_t{5} * 64);

struct PopulationStore {
  AnimalRecord unread;                ///< a record as it stands before its line is read
  std::vector<AnimalRecord> animals;  ///< the animal of position p is animals[p - 1]
  BirthYears birth_years;
  std::int32_t animal_count = 0;  ///< records in use; -1 when the data file has no line at all
  bool has_name = false, has_colour = false, has_breeder = false, has_subpopulation = false, has_import = false;

  AnimalRecord& at(std::int32_t position) { return animals[static_cast<std::size_t>(position) - 1]; }
  const AnimalRecord& at(std::int32_t position) const { return animals[static_cast<std::size_t>(position) - 1]; }
};

/// The numbers that a blank text has among the allowed subpopulations and among the colours: 0, unless a blank name
/// stands in the list.
struct BlankNumbers {
  std::int32_t subpopulation = 0, colour = 0;
};

/// Makes room for `count` records (none when it is negative), each as it stands before its line is read, and for the
/// parents that will probably be appended.
void allocate_records(PopulationStore& store, std::int32_t count, const BlankNumbers& blank = {});

/// Appends the record of a parent that has no line of its own; neither its parents nor its birth are known.
void append_parent(PopulationStore& store, const AnimalId& id, Sex sex);

/// The positions of all animals, from 1 on.
std::vector<std::int32_t> all_positions(const PopulationStore& store);

/// Has the records of the parents fetched that belong to the animal `look_ahead` places behind this one.
inline void fetch_later_parents(const PopulationStore& store, const AnimalRecord& animal) {
  const std::size_t later = static_cast<std::size_t>(&animal - store.animals.data()) + look_ahead;
  if (later >= store.animals.size()) return;
  for (const std::int32_t parent : {store.animals[later].sire_no, store.animals[later].dam_no}) {
    if (parent != 0) fetch_early(&store.at(parent));
  }
}

/// The smallest birth year other than 0, the largest, and the number of years from one to the other.
BirthYears birth_years_of(std::span<const AnimalRecord> animals);

}  // namespace pedigreewatch
