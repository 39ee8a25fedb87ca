// Stores from records that a test writes down, and back again.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "pedigree/data_file_layout.h"
#include "pedigree/population_store.h"

namespace pedigreewatch::test {

/// The names that are looked up while a store is filled.
struct LookedUpNames {
  Subpopulations subpopulations = {};
  Colours colours = {};
};

/// What a line with these fields gives. Its texts lie in `record`.
LineRecord fields_of(const AnimalRecord& record);

/// The fields with their texts in full width.
AnimalRecord record_of(const LineRecord& line);

/// A record of a line without any field.
AnimalRecord unread_record();

/// Adds a record to a store.
void append_animal(PopulationStore& store, const AnimalRecord& record, std::int32_t colour_no);

/// A store with a column for every field, animal 1 first, as reading a data file leaves it: the parents are those that
/// the identifications name, a blank one being unknown. Of the numbers of a record none is taken over.
PopulationStore store_of(std::span<const AnimalRecord> records, const LookedUpNames& names = {});

/// A store as the last phase leaves it: the parents are `sire_no` and `dam_no`, their identifications are not looked
/// at, and counts, ages, completeness and F are those of the records. All columns are there, but the store does not
/// say so (`has_name` apart) until the test sets the other `has_` flags.
PopulationStore finished_store_of(std::span<const AnimalRecord> records, const LookedUpNames& names = {});

/// All animals, the one at position 1 first.
std::vector<AnimalRecord> records_of(const PopulationStore& store);

}  // namespace pedigreewatch::test
