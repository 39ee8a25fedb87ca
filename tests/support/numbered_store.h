// Stores whose positions the test chooses itself: the animal of line 1 is position 1, and parents are given by
// position. Nothing is read, appended, linked or sorted on the way.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string_view>
#include <vector>

#include "core/year_table.h"
#include "pedigree/data_file_layout.h"
#include "pedigree/population_store.h"
#include "support/lines.h"
#include "support/store_builder.h"

namespace pedigreewatch::test {

/// A store from one line for each animal. The words of a line, in any order and all of them optional:
///   2001  or  2001-3-28       year or date of birth; without one it is unknown
///   m                         male; otherwise female
///   s=3 d=4                   positions of the parents
///   import
///   colour=.. breeder=.. sub=..   texts, "_" standing for a blank
/// Offspring are counted from the parents given. All columns are there (see finished_store_of).
PopulationStore numbered_store(std::string_view text, const LookedUpNames& names = {});

/// The records of such a store, for tests that set more than the lines can say; finished_store_of makes the store.
std::vector<AnimalRecord> numbered_records(std::string_view text);

struct ParentPair {
  std::int32_t sire = 0, dam = 0;
};

/// A store with these parents by position, animal 1 first; all born in 2000, females. Offspring are counted.
PopulationStore store_of_parents(std::span<const ParentPair> parents);

/// Fills the offspring counts and parent marks from `sire_no` and `dam_no`.
void count_all_offspring(std::span<AnimalRecord> animals);

/// A list of these names, in this order: of subpopulations, colours or breeders.
template <typename List>
List names_of(std::initializer_list<std::string_view> texts) {
  List list;
  for (const std::string_view text : texts) list.add(typename List::Name(text));
  return list;
}

/// The positions from `first` to `last`.
std::vector<std::int32_t> from_to(std::int32_t first, std::int32_t last);

/// All columns of one row.
template <typename Cell>
std::vector<Cell> row_of(const YearTable<Cell>& table, std::int64_t row) {
  std::vector<Cell> cells;
  for (std::int64_t column = 1; column <= table.column_count; ++column) cells.push_back(table.value(row, column));
  return cells;
}

}  // namespace pedigreewatch::test
