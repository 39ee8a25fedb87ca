// The population: a column for each field of the animals, from the moment their lines are read until the report is
// closed. Animals are known by position, counted from 1; 0 is the unknown one. A pass looks at the columns that it
// needs and at no others, so that a large population moves through the caches a few bytes an animal at a time.
//
// The position of an animal is its record in the data file until the pedigree is sorted. Texts stay in the order of the
// records: `record_no` tells where.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "core/birth_years.h"
#include "core/by_number.h"
#include "core/fixed_text.h"
#include "core/memory_hints.h"
#include "core/name_list.h"
#include "core/text_arena.h"
#include "pedigree/id_index.h"
#include "pedigree/sex.h"

namespace pedigreewatch {

using AnimalId = FixedText<30>;
using AnimalName = FixedText<50>;
using SubpopulationName = FixedText<20>;
using ColourName = FixedText<40>;
using BreederName = FixedText<20>;

/// The text that stands for an unknown parent.
inline constexpr std::string_view unknown_parent_id = "0";

/// A logical of its own byte, so that a column of them is an array like any other.
using Flag = std::uint8_t;

/// One animal as its line gives it, which begins with what stands there when the line says nothing. Texts lie in the
/// line: without the blanks at their end, and cut to the widths that an AnimalRecord has.
struct LineRecord {
  std::string_view id = {}, name = "-";
  std::string_view sire_id = unknown_parent_id, dam_id = unknown_parent_id;
  std::string_view colour = {}, breeder = {}, subpopulation = {};
  std::int32_t birth_year = 0, birth_month = 1, birth_day = 1;
  Sex sex = female;
  bool is_sex_told = false;  ///< otherwise nobody would say that the text means a female
  bool is_import = false;
};

/// One animal with all its fields, wherever one is printed.
struct AnimalRecord {
  AnimalId id;
  AnimalName name;
  AnimalId sire_id;
  AnimalId dam_id;               ///< "0" for an unknown parent, like `sire_id`
  std::int32_t birth_year = 0;   ///< 0 for unknown
  std::int32_t birth_month = 1;  ///< 1 to 12
  std::int32_t birth_day = 1;
  Sex sex = female;
  ColourName colour;
  BreederName breeder;
  SubpopulationName subpopulation;
  bool is_import = false;                   ///< imported, or bred outside the population
  bool is_native_parent = false;            ///< has offspring in the store that is no import
  bool is_parent = false;                   ///< has offspring in the store
  std::int32_t number = 0;                  ///< its position in the store
  std::int32_t line = 0;                    ///< of the data file, counted from 1; 0 for an appended parent
  std::int32_t sire_no = 0, dam_no = 0;     ///< positions of the parents; smaller than the animal's own once sorted
  std::int32_t dam_age_days = 0;            ///< mother's age at this birth in years of 365 days; -1: not determined
  std::int32_t sire_age_days = 0;           ///< likewise for the father
  std::int32_t native_offspring_count = 0;  ///< offspring in the store that is no import
  float generation_equivalents = 0.0F;      ///< sum over known ancestors of 1/2 to the power of generations between
  std::int32_t complete_generations = 0;    ///< generations in which every ancestor is known
  float inbreeding = 0.0F;                  ///< F
};

/// How the store keeps what its accessors yield: texts in the order of the records, days in a byte. Reading, appending
/// and reordering change it, and nothing else does.
struct StoreKeeping {
  static constexpr std::int8_t odd_day = -128;  ///< stands for a day that does not fit into a byte
  struct OddDay {
    std::int32_t record = 0, day = 0;
  };
  ByNumber<std::int32_t> record_of_position;  ///< empty until the pedigree is sorted
  ByNumber<std::int8_t> day_of_month;
  std::vector<OddDay> odd_days;                                    ///< by record
  std::vector<std::int32_t> records_without_sex;                   ///< in their order
  ByNumber<std::int32_t> subpopulation_text;                       ///< among `subpopulation_texts`
  NameList<SubpopulationName{}.bytes.size()> subpopulation_texts;  ///< the allowed ones first
  std::int32_t allowed_subpopulations = 0, blank_subpopulation = 0, blank_colour = 0;
  TextArena ids;
  TextArena names;                ///< only with a column of names
  std::int32_t file_records = 0;  ///< records of the data file; appended parents follow them
  std::int32_t lines_before_records = 0;
};

/// The columns have the names and meanings of the record's fields, each with an entry 0 for the unknown animal. Those
/// of a phase that has not run yet, or of a field that the data file lacks, are empty.
struct PopulationStore {
  std::int32_t animal_count = 0;  ///< animals in the store; -1 when the data file has no line at all
  bool has_name = false, has_colour = false, has_breeder = false, has_subpopulation = false, has_import = false;
  BirthYears birth_years;

  ByNumber<std::int32_t> birth_year;
  ByNumber<std::uint8_t> birth_month;
  ByNumber<Sex> sex;
  ByNumber<Flag> is_import;
  ByNumber<Flag> is_parent;  ///< from the linkage on
  /// Until the parents are linked a negative number stands for an identification that has had no line so far.
  ByNumber<std::int32_t> sire_no, dam_no;
  ByNumber<std::int32_t> offspring_count;         ///< from the linkage until the pedigree is sorted
  ByNumber<std::int32_t> native_offspring_count;  ///< from the linkage on
  ByNumber<std::int32_t> colour_no;               ///< among the colours that are counted; 0 for any other text
  ByNumber<std::int32_t> breeder_no;              ///< among `breeders`; 0 for a blank text
  ByNumber<std::int32_t> sire_age_days, dam_age_days;
  ByNumber<float> generation_equivalents;
  ByNumber<std::uint16_t> complete_generations;
  ByNumber<float> inbreeding;

  NameList<BreederName{}.bytes.size()> breeders;  ///< all of the data file, in the order of first appearance
  IdIndex index;                                  ///< of all identifications, until the parents are linked

  /// The record of the data file that an animal comes from; 0 for the unknown one. Appended parents, which have none,
  /// are numbered on behind the last record.
  std::int32_t record_no(std::int32_t position) const {
    return kept.record_of_position.values.empty() ? position : kept.record_of_position[position];
  }
  std::int32_t birth_day(std::int32_t position) const {
    // A small number, not a letter.
    const std::int32_t day = kept.day_of_month[position];  // NOLINT(bugprone-signed-char-misuse,cert-str34-c)
    return day == StoreKeeping::odd_day ? find_odd_day(position) : day;
  }
  /// Its number among the allowed subpopulations; 0 for any other text.
  std::int32_t subpopulation_no(std::int32_t position) const {
    if (kept.subpopulation_text.values.empty()) return kept.blank_subpopulation;
    const std::int32_t number = kept.subpopulation_text[position];
    return number <= kept.allowed_subpopulations ? number : 0;
  }
  std::string_view id(std::int32_t position) const { return kept.ids.at(record_no(position)); }
  std::string_view name(std::int32_t position) const;
  /// How many subpopulations are allowed, and their names by number.
  std::int32_t subpopulation_count() const { return kept.allowed_subpopulations; }
  std::string_view subpopulation_name(std::int32_t number) const { return kept.subpopulation_texts.text_of(number); }
  /// The text of the subpopulation; blank when the steer file allows fewer than two of them.
  SubpopulationName subpopulation(std::int32_t position) const;
  /// The line of the data file, counted from 1; 0 for an appended parent.
  std::int32_t line(std::int32_t position) const;
  /// Whether its line tells its sex, or it is an appended parent. Others count as female.
  bool is_sex_told(std::int32_t position) const {
    return !std::binary_search(kept.records_without_sex.begin(), kept.records_without_sex.end(), record_no(position));
  }
  /// Whether it has offspring in the store that is no import.
  bool is_native_parent(std::int32_t position) const { return native_offspring_count[position] != 0; }
  /// All fields of one animal, but for its colour.
  AnimalRecord at(std::int32_t position) const;

  /// Animals in the store; 0 where `animal_count` is -1.
  std::size_t size() const { return animal_count > 0 ? static_cast<std::size_t>(animal_count) : 0; }

  StoreKeeping kept;

 private:
  std::int32_t find_odd_day(std::int32_t position) const;
};

/// What the store must know before the first record: which names are looked up.
struct StoreNames {
  const NameList<SubpopulationName{}.bytes.size()>& subpopulations;
  const NameList<ColourName{}.bytes.size()>& colours;
};

/// Makes an empty store with room for `count` records (none when it is negative). The `has_` flags must be set.
void prepare_store(PopulationStore& store, std::int32_t count, const StoreNames& names);

/// The identifications of a record, ready to be looked up.
RecordIds ids_of(const LineRecord& record);

/// Adds the animal of one record, with the number of its colour. The parents' identifications become numbers at once.
void append_record(PopulationStore& store, const LineRecord& record, const RecordIds& ids, std::int32_t colour_no);

/// Appends a parent that has no line of its own; neither its parents nor its birth are known. Yields its position.
std::int32_t append_parent(PopulationStore& store, std::string_view id, Sex sex);

/// Puts the animals into the order `position_before`, by new position, and renumbers the references to parents.
void reorder_animals(PopulationStore& store, ByNumber<std::int32_t> position_before);

/// The positions of all animals, from 1 on.
std::vector<std::int32_t> all_positions(const PopulationStore& store);

/// The smallest birth year other than 0, the largest, and the number of years from one to the other.
BirthYears birth_years_of(const PopulationStore& store);

/// Has an entry fetched of each parent that the animal `look_ahead` positions behind this one has.
template <typename Value>
void fetch_later_parents(const PopulationStore& store, std::int32_t position, const ByNumber<Value>& column) {
  const std::int32_t later = position + look_ahead;
  if (later > store.animal_count) return;
  fetch_early(&column[store.sire_no[later]]);
  fetch_early(&column[store.dam_no[later]]);
}

}  // namespace pedigreewatch
