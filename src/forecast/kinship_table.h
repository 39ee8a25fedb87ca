// The kinships of all parents of a model herd that may still have young, or whose young may become parents, kept as a
// table: a new parent's row is the mean of those of its own parents. Rows of animals that no longer matter are used
// again.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "core/by_number.h"

namespace pedigreewatch {

struct KinshipTable {
  std::uint32_t capacity = 0;           ///< rows and columns that there is room for; 0 is that of the unknown animal
  std::vector<float> cells;             ///< row by row
  ByNumber<std::uint32_t> row_of;       ///< by number in the pedigree; 0 for an animal without one
  std::vector<std::int32_t> animal_of;  ///< by row; 0: the row is free

  /// Where the kinship in a row and column stands among the cells.
  std::size_t place_of(std::size_t row, std::size_t column) const { return row * capacity + column; }
  float& at(std::int32_t first, std::int32_t second) { return cells[place_of(row_of[first], row_of[second])]; }
  float between(std::int32_t first, std::int32_t second) const {
    return cells[place_of(row_of[first], row_of[second])];
  }
};

/// A parent that gets a row. Its own parents have one, or are unknown.
struct NewRow {
  std::int32_t animal = 0, sire = 0, dam = 0;
  float f = 0.0F;
};

/// A table of the animals with these kinships (row by row, as many as animals squared), and room for some more.
/// `count` is the number of animals in the pedigree.
KinshipTable make_kinship_table(std::span<const std::int32_t> animals, std::span<const float> kinships,
                                std::int32_t count);

/// Gives parents a row. None of them is another's parent.
void add_rows(KinshipTable& table, std::span<const NewRow> parents);

/// Lets the row of an animal be used again.
void free_row(KinshipTable& table, std::int32_t animal);

}  // namespace pedigreewatch
