// The widths are those of the field lists of the writers, with the line end. What stands above and below the rows of a
// table is the same for every population, but for lists of names.

#include "control/report_bytes.h"

#include <algorithm>
#include <vector>

#include "pedigree/subpopulation_scan.h"
#include "statistics/parent_ages.h"

namespace pedigreewatch {
namespace {

/// The year or label in front of a row, and the line end.
constexpr std::int64_t row_ends = 9;

/// A row for a year in each table of a block that has the same columns for every population: population size, parents
/// and litters, offspring, generation interval, completeness, F and f; of the periods of about nine years a part.
constexpr std::int64_t block_row = 57 + 49 + 57 + 33 + 63 + 57 + 5;
/// The columns of imports in the table of the population size, and their own table.
constexpr std::int64_t import_row = 24 + 49;
/// The tables that only the whole population has: litter sizes, top sires.
constexpr std::int64_t whole_row = 57 + 120;
/// Titles, headings, rules, totals and rates.
constexpr std::int64_t block_frame = 5000, whole_frame = 9600;

/// The rows of one table of counts, its column numbers and its totals.
std::int64_t count_table(std::int64_t columns, std::int64_t years, std::int64_t width = 8) {
  return columns < 1 ? 0 : (years + 2) * (row_ends + width * columns);
}

/// What every block is made of.
struct BlockShape {
  std::int64_t years = 0, row = 0, colours = 0, breeders = 0;
};

BlockShape shape_of(const PopulationStore& store, const DataFileLayout& layout, const BreederList& breeders) {
  BlockShape shape;
  shape.years = store.birth_years.dated_row_count();
  shape.row = block_row + (store.has_import ? import_row : 0);
  if (store.has_colour) shape.colours = layout.colours.count();
  if (store.has_breeder) shape.breeders = breeders.top_breeder_count + 1;
  return shape;
}

std::int64_t block_bytes(const BlockShape& shape, const OldestParents& oldest) {
  constexpr std::int64_t colour_line = 51, breeder_line = 18;
  return shape.years * shape.row + count_table(shape.colours, shape.years) + shape.colours * colour_line +
         count_table(shape.breeders, shape.years, 16) + shape.breeders * breeder_line +
         count_table(oldest.of(male), shape.years) + count_table(oldest.of(female), shape.years);
}

/// The tables of the whole population that set subpopulations beside each other.
std::int64_t bytes_beside_each_other(std::int64_t names, std::int64_t years) {
  constexpr std::int64_t legend_line = 36;
  const std::int64_t pairs = names * (names - 1) / 2;
  return count_table(names, years) + count_table(names, names) + count_table(names, years, 20) +
         count_table(pairs, years, 10) + names * legend_line;
}

std::int64_t widest_line(const BlockShape& shape, std::int64_t names, const OldestParents& oldest) {
  const std::int64_t pairs = names * (names - 1) / 2;
  const std::int64_t ages = std::max(oldest.of(male), oldest.of(female));
  return row_ends + std::max({pairs * 10, names * 20, shape.colours * 8, shape.breeders * 16, ages * 8});
}

/// What does not depend on the animals of the subpopulations.
ReportBytes bytes_without_blocks(const BlockShape& shape, const DataFileLayout& layout, const OldestParents& oldest) {
  ReportBytes bytes;
  bytes.birth_years = static_cast<std::int32_t>(shape.years);
  bytes.names = layout.subpopulations.count();
  bytes.all = whole_frame + shape.years * whole_row + block_bytes(shape, oldest);
  bytes.longest_line = widest_line(shape, bytes.names > 1 ? bytes.names : 0, oldest);
  if (bytes.names > 1) bytes.all += bytes_beside_each_other(bytes.names, shape.years);
  return bytes;
}

}  // namespace

ReportBytes most_report_bytes(const PopulationStore& store, const DataFileLayout& layout, const BreederList& breeders,
                              const OldestParents& oldest) {
  const BlockShape shape = shape_of(store, layout, breeders);
  ReportBytes bytes = bytes_without_blocks(shape, layout, oldest);
  if (bytes.names <= 1) return bytes;
  bytes.blocks = bytes.names;
  bytes.all += bytes.names * (block_frame + block_bytes(shape, oldest));
  return bytes;
}

ReportBytes count_report_bytes(const PopulationStore& store, const DataFileLayout& layout, const BreederList& breeders,
                               const OldestParents& oldest) {
  const BlockShape shape = shape_of(store, layout, breeders);
  ReportBytes bytes = bytes_without_blocks(shape, layout, oldest);
  if (bytes.names <= 1) return bytes;
  const bool has_ages = oldest.of(male) > 0 || oldest.of(female) > 0;
  const auto members = animals_by_subpopulation(store, layout.subpopulations);
  for (std::int32_t k = 1; k <= bytes.names; ++k) {
    const std::vector<std::int32_t>& animals = members[layout.subpopulations.first_numbers.at(k)];
    if (animals.empty()) continue;
    ++bytes.blocks;
    bytes.all += block_frame + block_bytes(shape, has_ages ? find_oldest_parents(store, animals) : oldest);
  }
  return bytes;
}

}  // namespace pedigreewatch
