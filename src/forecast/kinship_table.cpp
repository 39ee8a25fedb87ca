// A new parent's column is worked out row by row, so that what is read and written of a row lies close together; the
// rows of the new parents are the same figures, written in blocks of sixteen.

#include "forecast/kinship_table.h"

#include <algorithm>
#include <array>

#include "core/processor_clones.h"

namespace pedigreewatch {
namespace {

constexpr std::uint32_t block_rows = 16;
/// A table that is full gets a quarter more rows, and so many at least.
constexpr std::uint32_t least_more_rows = 64;

struct RowSource {
  std::uint32_t row = 0, sire = 0, dam = 0;
};

void resize_table(KinshipTable& table, std::uint32_t capacity) {
  KinshipTable larger;
  larger.capacity = capacity;
  larger.cells.resize(larger.place_of(capacity, 0), 0.0F);
  for (std::uint32_t row = 0; row < table.capacity; ++row) {
    std::copy_n(&table.cells[table.place_of(row, 0)], table.capacity, &larger.cells[larger.place_of(row, 0)]);
  }
  table.cells.swap(larger.cells);
  table.animal_of.resize(capacity, 0);
  table.capacity = capacity;
}

/// Takes a free row for each new parent.
std::vector<RowSource> take_rows(KinshipTable& table, std::span<const NewRow> parents) {
  std::vector<RowSource> rows;
  std::uint32_t row = 1;
  for (const NewRow& parent : parents) {
    while (row < table.capacity && table.animal_of[row] != 0) ++row;
    if (row == table.capacity) resize_table(table, table.capacity + std::max(table.capacity / 4, least_more_rows));
    table.animal_of[row] = parent.animal;
    if (table.row_of.last() < parent.animal) {
      table.row_of.values.resize(static_cast<std::size_t>(parent.animal) + 1, 0);
    }
    table.row_of[parent.animal] = row;
    rows.push_back({row, table.row_of[parent.sire], table.row_of[parent.dam]});
  }
  return rows;
}

/// Columns of the new parents in the rows from `first` on, and the same figures in their own rows.
PEDIGREEWATCH_PROCESSOR_CLONES
void fill_block(KinshipTable& table, std::span<const RowSource> rows, std::uint32_t first,
                std::vector<std::array<float, block_rows>>& block) {
  const std::uint32_t count = std::min(block_rows, table.capacity - first);
  for (std::size_t k = 0; k < count; ++k) {
    if (table.animal_of[first + k] == 0) {  // the unknown animal, and rows that nobody has
      for (std::size_t n = 0; n < rows.size(); ++n) block[n][k] = 0.0F;
      continue;
    }
    float* const cells = &table.cells[table.place_of(first + k, 0)];
    for (std::size_t n = 0; n < rows.size(); ++n) {
      const float kinship = 0.5F * (cells[rows[n].sire] + cells[rows[n].dam]);
      block[n][k] = kinship;
    }
    for (std::size_t n = 0; n < rows.size(); ++n) cells[rows[n].row] = block[n][k];
  }
  for (std::size_t n = 0; n < rows.size(); ++n) {
    std::copy_n(block[n].begin(), count, &table.cells[table.place_of(rows[n].row, first)]);
  }
}

/// Kinships of the new parents with each other, which follow from their rows.
void fill_among_new(KinshipTable& table, std::span<const NewRow> parents, std::span<const RowSource> rows) {
  for (std::size_t a = 0; a < rows.size(); ++a) {
    float* const own = &table.cells[table.place_of(rows[a].row, 0)];
    for (std::size_t b = 0; b < a; ++b) {
      const float kinship = 0.5F * (own[rows[b].sire] + own[rows[b].dam]);
      own[rows[b].row] = kinship;
      table.cells[table.place_of(rows[b].row, rows[a].row)] = kinship;
    }
    own[rows[a].row] = 0.5F * (1.0F + parents[a].f);
  }
}

}  // namespace

KinshipTable make_kinship_table(std::span<const std::int32_t> animals, std::span<const float> kinships,
                                std::int32_t count) {
  KinshipTable table;
  const std::size_t size = animals.size();
  resize_table(table, static_cast<std::uint32_t>(size + size / 4 + block_rows));
  table.row_of = ByNumber<std::uint32_t>(count);
  for (std::uint32_t k = 0; k < size; ++k) {
    table.animal_of[k + 1] = animals[k];
    table.row_of[animals[k]] = k + 1;
    std::copy_n(&kinships[k * size], size, &table.cells[table.place_of(k + 1, 1)]);
  }
  return table;
}

void add_rows(KinshipTable& table, std::span<const NewRow> parents) {
  if (parents.empty()) return;
  const std::vector<RowSource> rows = take_rows(table, parents);
  std::vector<std::array<float, block_rows>> block(rows.size());
  for (std::uint32_t first = 0; first < table.capacity; first += block_rows) fill_block(table, rows, first, block);
  fill_among_new(table, parents, rows);
}

void free_row(KinshipTable& table, std::int32_t animal) {
  std::uint32_t& row = table.row_of[animal];
  if (row == 0) return;
  table.animal_of[row] = 0;
  row = 0;
}

}  // namespace pedigreewatch
